"""Holds texts to a grammar in the EBNF of XML 1.0: "literal" [0-9] name ( ) | ? * + and comments."""

import re

TOKENS = re.compile(r'\s+|/\*.*?\*/|(?P<token>"[^"]*"|\[[^]]*\]|[a-z][a-z0-9-]*|::=|[()|?*+])', re.DOTALL)


class Grammar:
    """The first alternative that fits is taken, and as many repetitions as there are."""

    def __init__(self, text):
        self.tokens = []
        at = 0
        while at < len(text):
            match = TOKENS.match(text, at)
            assert match, f"no token of a grammar: {text[at:at + 40]!r}"
            if match["token"]:
                self.tokens.append(match["token"])
            at = match.end()
        self.rules, self.literals, self.used = {}, [], set()
        while self.tokens:
            name = self.tokens.pop(0)
            assert self.tokens.pop(0) == "::=" and name not in self.rules, f"no rule, or a second one: {name}"
            self.rules[name] = self.choice()
        self.start = next(iter(self.rules))

    def at_end_of_rule(self):
        return not self.tokens or self.tokens[1:2] == ["::="]

    def choice(self):
        choices = [self.sequence()]
        while self.tokens and self.tokens[0] == "|":
            self.tokens.pop(0)
            choices.append(self.sequence())
        return ("choice", choices)

    def sequence(self):
        items = []
        while not self.at_end_of_rule() and self.tokens[0] not in "|)":
            token = self.tokens.pop(0)
            if token == "(":
                item = self.choice()
                assert self.tokens.pop(0) == ")"
            elif token[0] in '"[':
                item = ("literal", len(self.literals), token)
                self.literals.append(token)
            else:
                item = ("rule", token)
            if self.tokens and self.tokens[0] in "?*+":
                item = ("repeat", item, self.tokens.pop(0))
            items.append(item)
        return ("sequence", items)

    def match(self, text):
        """Keeps which literals were met. Raises ValueError with the place behind the longest beginning that fits."""
        self.text, self.furthest, self.trail = text, 0, []
        end = self.step(self.rules[self.start], 0)
        if end != len(text):
            place = max(self.furthest, end or 0)
            line = text.count("\n", 0, place) + 1
            raise ValueError(f"line {line}: {text[place:].splitlines()[:1]} isn't of the grammar")
        self.used.update(self.trail)

    def step(self, item, at):
        """The place behind the item, None if it isn't here."""
        kind = item[0]
        if kind == "literal":
            literal = item[2]
            if literal[0] == "[":
                end = at + 1 if re.match(literal, self.text[at : at + 1]) else None
            else:
                end = at + len(literal) - 2 if self.text.startswith(literal[1:-1], at) else None
            if end is not None:
                self.trail.append(item[1])
                self.furthest = max(self.furthest, end)
            return end
        if kind == "rule":
            if item[1] == "nl":
                return at + 1 if self.text.startswith("\n", at) else None
            return self.step(self.rules[item[1]], at)
        begun = len(self.trail)
        if kind == "choice":
            for choice in item[1]:
                end = self.step(choice, at)
                if end is not None:
                    return end
                del self.trail[begun:]
            return None
        if kind == "sequence":
            for part in item[1]:
                at = self.step(part, at)
                if at is None:
                    return None
            return at
        count = 0
        while (end := self.step(item[1], at)) is not None:
            at = end
            count += 1
            begun = len(self.trail)
            if item[2] == "?":
                break
        del self.trail[begun:]
        return at if count or item[2] != "+" else None

    def unused(self):
        """The literals that no text had, with their rules."""
        return [text for number, text in enumerate(self.literals) if number not in self.used]
