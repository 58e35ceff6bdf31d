"""The page of the file's lines, the reader among the examples and the writer agree.

Usage: zdt_test.py NAS2ZDT MAKE_DECKS PROJECT
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

from grammar import Grammar

NAS2ZDT, MAKE_DECKS, PROJECT = map(pathlib.Path, sys.argv[1:])
sys.dont_write_bytecode = True
sys.path.insert(0, str(PROJECT / "examples"))
import read_zdt  # noqa: E402
from sum_zdt import Total, sums  # noqa: E402

SIX_DIGITS = 1e-5


def convert(deck, folder):
    """The result, and what --check says of it."""
    target = pathlib.Path(folder, deck.stem + ".zdt")
    run = subprocess.run([NAS2ZDT, "--check=json", "-q", "--no-warnings", "-o", target, deck], capture_output=True)
    assert run.returncode in (0, 4), f"{deck}: {run.stderr.decode()}"
    return target, json.loads(run.stdout)["decks"][0]["check"]


def compare_sums(deck, model, check):
    found = sums(model)
    for row in check["totals"]:
        if row["file"] is None or row["name"].startswith("sum by id"):
            continue
        total = found.pop((row["group"], row["name"]), Total())
        size = max(total.size, abs(row["file"]))
        assert abs(total.value - row["file"]) <= SIX_DIGITS * size, f"{deck}: {row}, but the reader has {total}"
    more = {name: total for name, total in found.items() if abs(total.value) > SIX_DIGITS * total.size}
    assert not more, f"{deck}: sums of the reader alone: {more}"


def refuses(read, text, error):
    try:
        read(text)
    except error:
        return True
    return False


def read_text(text):
    return read_zdt.Reader(text).read()


page = (PROJECT / "docs/zdt.md").read_text()
grammar = Grammar(re.search(r"```ebnf\n(.*?)```", page, re.DOTALL)[1])
decks = sorted(PROJECT.glob("examples/*.dat")) + [PROJECT / "tests/zdt/lines.dat"]
lines = {}  # a line of each beginning, with the file that it is from
with tempfile.TemporaryDirectory() as folder:
    for deck in decks:
        target, check = convert(deck, folder)
        text = target.read_text()
        grammar.match(text)
        compare_sums(deck, read_zdt.read(target), check)
        for number, line in enumerate(text.split("\n")[:-1]):
            if line and not line.startswith(";"):
                lines.setdefault(re.sub(r"-?[0-9.]+(e[+-]\d+)?", "0", line), (text, number))
    assert not grammar.unused(), f"forms of the page that no deck gives: {grammar.unused()}"

    for text, number in lines.values():
        for change in ("{} 0", ",{}"):
            changed = text.split("\n")
            line = changed[number] = change.format(changed[number])
            changed = "\n".join(changed)
            assert refuses(grammar.match, changed, ValueError), f"the grammar takes {line}"
            if ";" not in line:  # what a comment says is nothing to the reader
                assert refuses(read_text, changed, read_zdt.FormatError), f"the reader takes {line}"

    subprocess.run([MAKE_DECKS, folder, "60"], check=True)
    made = sorted(pathlib.Path(folder).glob("made*.dat"))
    run = subprocess.run([NAS2ZDT, "-q", "--no-warnings", *made], capture_output=True)
    results = sorted(pathlib.Path(folder).glob("made*.zdt"))
    assert len(results) > 50, f"too few results: {run.stderr.decode()}"
    for target in results:
        grammar.match(target.read_text())
        read_zdt.read(target)
print(f"{len(decks)} decks, {len(lines)} forms of lines and {len(results)} results of chance passed")
