"""Finds places in C++ sources where a fault can be put in, each as a switch that a number turns on at run time.

The text is taken apart by words, not by a syntax tree: it relies on the format that clang-format gives it, blanks around
operators of two operands among them. What it takes wrongly doesn't compile, and is left out by the build."""

import bisect
import re

TOKEN = re.compile(r"\s+|->\*?|::|\+\+|--|<<=|>>=|<=>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|<<|>>|[A-Za-z_]\w*|\d[\w.']*|.", re.S)
LITERAL = re.compile(r'//[^\n]*|/\*.*?\*/|\bR"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![\w])\'(?:\\.|[^\'\\\n])+\'', re.S)
LOOSENESS = {"*": 5, "/": 5, "%": 5, "+": 6, "-": 6, "<<": 7, ">>": 7, "<": 9, ">": 9, "<=": 9, ">=": 9, "==": 10, "!=": 10,
             "&": 11, "^": 12, "|": 13, "&&": 14, "||": 15, "?": 16, ":": 16, "=": 16, "+=": 16, "-=": 16, "*=": 16,
             "/=": 16, "|=": 16, "&=": 16, "^=": 16, "%=": 16, "<<=": 16, ">>=": 16, ",": 17}
TURNED = {"<": ("<=", ">="), ">": (">=", "<="), "<=": ("<", ">"), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
          "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "&&": ("||",), "||": ("&&",), "&": ("|",), "|": ("&",)}
ASSIGNED = {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|="}
OPEN, CLOSE = "([{", ")]}"
HEADS = ("if", "for", "while", "switch", "catch", "constexpr")
STOPS = ("return", "else", "do", "case", "throw", "goto", "delete", "new")
NO_EFFECT = re.compile(r"\.(reserve|shrink_to_fit|FetchAhead)\(")  # costs time or memory alone
IS_TEXT = re.compile(r'"|\bto_string\(|\bstd::string\(|\b(m_)?s[A-Z]\w*$|^s[A-Z]\w*\b(?!\.)')  # has no difference


def letters_of(argument):
    """The letters for the type in front of a name, like i, n and d; None where they don't tell whether types are alike."""
    match = re.fullmatch(r"(?:\w+\.)*(?:m_)?([a-qs-z]+)(?:[A-Z\d]\w*)?(\[\w+\])?(\.\w+)?", argument)
    return match and (match.group(1), match.group(2) is None, match.group(3) is None)


class Fault:
    """A stretch of a file, what stands there with the switch, and the line as it reads with the fault."""

    def __init__(self, path, line, begin, end, switched, faulty, kind):
        self.path, self.line, self.begin, self.end = path, line, begin, end
        self.switched = switched  # by the fault's number
        self.faulty, self.kind = faulty, kind

    def key(self):
        return self.path, self.faulty


def blank_out(text):
    """The text at its length, with comments and the inside of literals made harmless, and directives blank."""
    def harmless(match):
        found = match.group()
        if found.startswith("/"):
            return re.sub(r"[^\n]", " ", found)
        return found[0] + re.sub(r"[^\n]", "_", found[1:-1]) + found[-1]
    text = LITERAL.sub(harmless, text)
    return re.sub(r"(?m)^[ \t]*#.*(?:\\\n.*)*$", lambda found: re.sub(r"[^\n]", " ", found.group()), text)


class Source:
    """One file, as words with their places."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.words, self.places = [], []
        place = 0
        for match in TOKEN.finditer(blank_out(text)):
            if not match.group().isspace():
                self.words.append(match.group())
                self.places.append(match.start())
        self.partner = {}
        opened = []
        for i, word in enumerate(self.words):
            if word in OPEN:
                opened.append(i)
            elif word in CLOSE and opened:
                self.partner[i] = opened.pop()
                self.partner[self.partner[i]] = i
        self.fixed = self.find_fixed()
        self.faults = []

    def end_of(self, i):
        return self.places[i] + len(self.words[i])

    def is_label(self, i):
        line = self.text[self.text.rfind("\n", 0, self.places[i]):self.places[i]].split()
        return line[:1] and line[0] in ("case", "default", "public", "private", "protected")

    def is_spaced(self, i):
        return self.text[self.places[i] - 1].isspace() and self.text[self.end_of(i)].isspace()

    def find_fixed(self):
        """Words of what is settled while it is compiled, where no switch works, and of declarations."""
        fixed = set()
        i = 0
        while i < len(self.words):
            word = self.words[i]
            first = i
            if word in ("constexpr", "consteval", "static_assert", "using", "enum", "concept") and \
                    not (word == "constexpr" and self.words[i - 1] == "if"):
                while i < len(self.words) and self.words[i] != ";":
                    if self.words[i] in OPEN and i in self.partner:
                        body = self.words[i] == "{" and self.words[i - 1] in (")", "const", "noexcept")
                        i = self.partner[i]
                        if body:
                            break
                    i += 1
            elif word == "if" and self.words[i + 1:i + 2] == ["constexpr"] or word in ("case", "operator"):
                while i < len(self.words) and self.words[i] not in (":", "{") and not (word != "case" and self.words[i] == ")"):
                    i += 1
            elif word == "[" and self.words[i + 1:i + 2] == ["["]:
                i = self.partner.get(i, i)
            fixed.update(range(first, i + 1) if i > first else ())
            i += 1
        return fixed

    def left_of(self, i, looseness):
        """First word of the operand that ends before word i."""
        i -= 1
        while i >= 0:
            word = self.words[i]
            if word in CLOSE:
                begin = self.partner.get(i, 0)
                if word == ")" and self.words[begin - 1] in HEADS:
                    return i + 1
                if word == "}" and ";" in self.words[begin:i]:
                    return i + 1
                i = begin - 1
                continue
            if word in OPEN or word == ";" or word in STOPS:
                return i + 1
            if LOOSENESS.get(word, 0) > looseness and (self.is_spaced(i) or word in ",:"):
                return i + 1
            i -= 1
        return 0

    def right_of(self, i, looseness):
        """The word behind the operand that begins after word i."""
        i += 1
        while i < len(self.words):
            word = self.words[i]
            if word in OPEN:
                i = self.partner.get(i, len(self.words)) + 1
                continue
            if word in CLOSE or word == ";":
                return i
            if LOOSENESS.get(word, 0) >= looseness and (self.is_spaced(i) or word in ",:"):
                return i
            i += 1
        return i

    def add(self, first, behind, switched, changed_from, changed_to, kind, at=None):
        """Words first up to behind make way for what switched gives; the line is told with one piece changed."""
        begin, end = self.places[first], self.end_of(behind - 1)
        stretch = self.text[begin:end]
        if "\n" in stretch and ("//" in stretch or 'R"' in stretch):  # it is put on one line, with the line count kept
            return
        at = begin if at is None else at
        line = self.text.count("\n", 0, at) + 1
        line_begin = self.text.rfind("\n", 0, at) + 1
        line_end = self.text.find("\n", at + len(changed_from))
        told = self.text[line_begin:at] + changed_to + self.text[at + len(changed_from):line_end]
        self.faults.append(Fault(self.path, line, begin, end, switched, " ".join(told.split()), kind))

    def switch(self, first, behind, faulty, changed_from, changed_to, kind, at=None):
        """An expression that is another one with the fault."""
        right = self.text[self.places[first]:self.end_of(behind - 1)]
        self.add(first, behind, lambda n: f"(Mutant({n}) ? ({faulty}) : ({right}))", changed_from, changed_to, kind, at)

    def find_operators(self, i):
        word = self.words[i]
        if word not in TURNED or not self.is_spaced(i):
            return
        first, behind = self.left_of(i, LOOSENESS[word]), self.right_of(i, LOOSENESS[word])
        if first >= i or behind <= i + 1 or self.words[i - 1] == "operator":
            return
        begin, end = self.places[first], self.end_of(behind - 1)
        if word == "+" and (IS_TEXT.search(self.text[begin:self.places[i]].strip()) or
                            IS_TEXT.search(self.text[self.end_of(i):end].strip())):
            return
        for other in TURNED[word]:
            faulty = self.text[begin:self.places[i]] + other + self.text[self.end_of(i):end]
            kind = "comparison" if LOOSENESS[word] in (9, 10) else "logic" if LOOSENESS[word] > 13 else "arithmetic"
            self.switch(first, behind, faulty, word, other, kind, self.places[i])

    def find_values(self, i):
        word, before, after = self.words[i], self.words[i - 1], self.words[i + 1:i + 2]
        if word in ("true", "false"):
            other = "false" if word == "true" else "true"
            self.add(i, i + 1, lambda n: f"(Mutant({n}) ? {other} : {word})", word, other, "constant")
        elif word == "!" and not self.text[self.end_of(i)].isspace():
            behind = self.right_of(i, 5)
            right = self.text[self.places[i]:self.end_of(behind - 1)]
            self.add(i, behind, lambda n: f"(Mutant({n}) != {right})", "!", "", "logic")
        elif word[0].isdigit() and not word.startswith("0x") and before != "<" and after != [">"]:
            if before == "[" and self.declares(i - 1) or before == "=" and self.words[i - 2] in (")", "const", "override"):
                return  # the size of an array, a function without body
            if before == "return" and after == [";"] and not self.tells_failure(i):
                return
            if re.fullmatch(r"[\d']+[uUlL]*", word):
                other = {"0": "1"}.get(word, f"{word} + 1") if before != "return" or word != "1" else "0"
            elif re.fullmatch(r"\d+\.\d*(e-?\d+)?", word):
                other = f"{word} + 1.0" if float(word) < 1e15 else f"{word} * 2.0"
                if 0.0 < float(word) < 0.01:
                    other = f"{word} * 100.0"
            else:
                return
            kind = "index" if before == "[" else "constant"
            self.add(i, i + 1, lambda n: f"(Mutant({n}) ? {other} : {word})", word, other, kind)

    def declares(self, i):
        """Whether the bracket at word i is behind the name of an array that begins there."""
        while self.words[i - 1] == "]":
            i = self.partner.get(i - 1, 1)
        return re.fullmatch(r"\w+|>", self.words[i - 2]) and self.words[i - 2] not in STOPS

    def tells_failure(self, i):
        """Whether the function around a returned number returns another one too: a handler's doesn't matter."""
        begin = self.text.rfind("\n}\n", 0, self.places[i])
        end = self.text.find("\n}\n", self.places[i])
        return len(set(re.findall(r"return (-?\d+);", self.text[max(begin, 0):end]))) > 1

    def find_calls(self, i):
        """Arguments that change places, and the smaller for the larger."""
        if self.words[i] != "(":
            return
        behind = self.partner.get(i)
        if self.words[i - 1] in ("min", "max"):
            return self.find_extremes(i, behind)
        if behind is None or not re.fullmatch(r"\w+|>", self.words[i - 1]) or self.words[i - 1] in HEADS:
            return
        begin, end = self.end_of(i), self.places[behind]
        arguments = re.split(r"(,\s+)", self.text[begin:end])
        places = [begin + sum(map(len, arguments[:k])) for k in range(len(arguments))]
        for k in range(0, len(arguments) - 2, 2):
            a, b = arguments[k], arguments[k + 2]
            if a == b or letters_of(a) is None or letters_of(a) != letters_of(b):
                continue
            first = bisect.bisect_left(self.places, places[k])
            stop = bisect.bisect_left(self.places, places[k + 2] + len(b))
            self.add(first, stop, lambda n, a=a, b=b: f"(Mutant({n}) ? {b} : {a}), (Mutant({n}) ? {a} : {b})",
                     f"{a}{arguments[k + 1]}{b}", f"{b}, {a}", "arguments")
        if self.words[i - 1] == ">":
            self.find_extremes(i, behind)

    def find_extremes(self, i, behind):
        """The smaller for the larger of some values that begin behind word i."""
        start = i - 1
        if self.words[start] == ">":
            while start > 0 and self.words[start] != "<":
                start -= 1
            start -= 1
        name = self.words[start]
        if name in ("min", "max") and self.words[start - 2:start] == ["std", "::"]:
            other = "max" if name == "min" else "min"
            whole = self.text[self.places[start]:self.end_of(behind)]
            self.switch(start - 2, behind + 1, f"std::{other}{whole[3:]}", name, other, "arithmetic", self.places[start])

    def find_statements(self, i):
        """A statement that ends with the word i is dropped, or what it assigns, returns or asks for is turned."""
        word = self.words[i]
        if word == "if" and self.words[i + 1] == "(":
            behind = self.partner.get(i + 1, i + 2)
            condition = self.text[self.places[i + 2]:self.places[behind]]
            simple = not re.search(r"[<>=!]=|[;!]| [<>=] |&&|\|\|", condition)
            if simple and behind > i + 2:
                self.add(i + 2, behind, lambda n: f"Mutant({n}) != static_cast<bool>({condition})",
                         condition, f"!({condition})", "logic")
            return
        if word != ";":
            return
        first = i - 1
        while first >= 0 and self.words[first] not in "{;":
            if self.words[first] in CLOSE:
                begin = self.partner.get(first, 0)
                if self.words[first] == ")" and self.words[begin - 1] in HEADS or \
                        self.words[first] == "}" and ";" in self.words[begin:first]:
                    break
                first = begin
            elif self.words[first] in OPEN or self.words[first] in ("else", "do") or \
                    self.words[first] == ":" and self.is_label(first):
                break
            first -= 1
        if first < 0 or self.words[first] == "(":  # in the head of a loop
            return
        first += 1
        if first >= i or any(j in self.fixed for j in (first, i)):
            return
        begin = self.places[first]
        statement = self.text[begin:self.end_of(i)]
        if "{\n" in statement or NO_EFFECT.search(statement):
            return
        line_end = self.text.find("\n", begin)
        told = self.text[begin:min(line_end, self.end_of(i))]
        if self.words[first] == "return" and i > first + 1 and not self.returns_odd(first) and not re.match(r"return (-?[\d.]+|true|false|nullptr|\{.*\});", statement):
            self.add(first, i + 1, lambda n: f"{{ if (Mutant({n})) return {{}}; {statement} }}", told, "return {}; // " + told[7:],
                     "return")
            return
        target = re.match(r"[\w.:\[\]()*&+\->]*", statement).group()
        rest = statement[len(target):]
        if not re.match(r";| [-+*/|&^%]?= |[({]", rest + ("" if rest else ";")) and "(" not in target:
            return
        if re.match(r"(const|auto|static|return|throw|using|delete|new|extern|friend|typedef|class|struct|void|virtual|"
                    r"explicit|default|case|public|private|template|inline|int|double|bool|char|goto)\b", statement) and \
                statement != "return;":
            return
        if not self.in_body(first):
            return
        self.add(first, i + 1, lambda n: f"{{ if (!Mutant({n})) {statement} }}", told, "/* " + told + " */", "dropped")
        for operator, other in ASSIGNED.items():
            if rest.startswith(f" {operator} ") and not IS_TEXT.search(target) and not IS_TEXT.search(rest):
                faulty = statement.replace(f" {operator} ", f" {other} ", 1)
                self.add(first, i + 1, lambda n, faulty=faulty: f"{{ if (Mutant({n})) {{ {faulty} }} else {{ {statement} }} }}",
                         operator, other, "arithmetic", begin + statement.index(f" {operator} ") + 1)
        for operator, other in (("++", "--"), ("--", "++")):
            if statement.startswith(operator):
                faulty = other + statement[2:]
                self.add(first, i + 1, lambda n, faulty=faulty: f"{{ if (Mutant({n})) {{ {faulty} }} else {{ {statement} }} }}",
                         operator, other, "arithmetic")

    def enclosing(self, i):
        """The opening bracket or brace around a word, 0 for none."""
        i -= 1
        while i > 0 and self.words[i] not in OPEN:
            i = (self.partner.get(i, 1) if self.words[i] in CLOSE else i) - 1
        return max(i, 0)

    def in_body(self, i):
        """Whether the braces around a word are those of statements, not of a class or a namespace."""
        brace = self.enclosing(i)
        return self.words[brace] == "{" and (
            self.words[brace - 1] in (")", "else", "do", "const", "override", "noexcept", "]", ":", ";", "{", "}", "mutable") or
            self.words[brace - 2] in ("->", "*", "&"))

    def returns_odd(self, i):
        """Whether the function around a statement gives a reference, or is one whose results tell its type."""
        brace = self.enclosing(i)
        while self.words[brace] == "{":
            before = self.words[brace - 1]
            head = self.partner.get(brace - 1, 0) if before == ")" else brace
            if self.words[head - 1] == "]":
                return True
            if before == "const" and self.words[brace - 2] == ")":
                head, before = self.partner.get(brace - 2, 0), "const"
            if before not in (")", "else", "do", ":") or before == ")" and self.words[head - 1] not in HEADS:
                name = head - 1
                while self.words[name - 1] == "::":
                    name -= 2
                return self.words[name - 1] in ("&", "auto")
            brace = self.enclosing(brace)
        return False

    def find(self):
        for i in range(1, len(self.words) - 1):
            if i in self.fixed:
                continue
            self.find_operators(i)
            self.find_values(i)
            self.find_calls(i)
            self.find_statements(i)
        return self.faults
