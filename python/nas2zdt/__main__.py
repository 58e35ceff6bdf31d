"""A small command: python3 -m nas2zdt [OPTION]... DECK...

Exit status: 0 success, 1 a run failed, 2 wrong usage, 3 a loss with --strict, 4 an error of a deck with --check.
"""

from __future__ import annotations

import argparse
import json
import sys
from pathlib import Path
from typing import List, Optional

import nas2zdt


def _target(deck: str, output: Optional[str]) -> Path:
    beside = Path(deck).with_suffix(".zdt")
    if output is None:
        return beside
    return Path(output) / beside.name if Path(output).is_dir() else Path(output)


def main(arguments: Optional[List[str]] = None) -> int:
    parser = argparse.ArgumentParser(prog="python3 -m nas2zdt", description="Converts NASTRAN bulk data decks.")
    parser.add_argument("decks", nargs="+", metavar="DECK")
    parser.add_argument("-o", metavar="PATH", dest="output", help="the result goes to this file, or into this folder")
    parser.add_argument("--faithful", action="store_true", help="restates the deck first, as NASTRAN means it")
    parser.add_argument("--flatten", action="store_true", help="joins the deck with its includes first")
    parser.add_argument("--check", action="store_true", help="tells whether the deck is sound, and sums")
    parser.add_argument("--strict", nargs="?", const="results", choices=["results", "any"], help="fails for losses")
    parser.add_argument("--json", action="store_true", help="prints account and check of each deck as a line of JSON")
    parser.add_argument("--quiet", action="store_true", help="prints no log")
    parser.add_argument("--version", action="version", version="nas2zdt " + nas2zdt.__version__)
    options = parser.parse_args(arguments)
    if len(options.decks) > 1 and options.output is not None and not Path(options.output).is_dir():
        parser.error("-o must name a folder for several decks: " + options.output)
    ends = {deck: _convert(deck, options) for deck in options.decks}
    return next((status for status in (1, 3, 4) if status in ends.values()), 0)


def _convert(deck: str, options: argparse.Namespace) -> int:
    status = 0
    try:
        result = nas2zdt.convert(
            deck,
            _target(deck, options.output),
            flatten=options.flatten,
            faithful=options.faithful,
            check=options.check,
            strict=options.strict,
            on_line=None if options.quiet or options.json else print,
        )
    except nas2zdt.ConversionError as error:
        print(f"nas2zdt: {error}", file=sys.stderr)
        result = error.result
        status = 3 if isinstance(error, nas2zdt.LossError) else 1
    for warning in result.warnings:
        print(f"nas2zdt: {deck}: warning: {warning}", file=sys.stderr)
    if options.json:
        print(json.dumps({"deck": deck, "account": result.account, "check": result.check}))
    elif result.check:
        for finding in result.check["findings"]:
            for place in finding["places"]:
                print(f"{finding['severity']}: {place['file']}:{place['line']}: {place['text']}")
        for total in result.totals:
            print(f"{total.group}, {total.name}: {total.deck} {total.file}{' differs' if total.differs else ''}")
    return status or (4 if result.check and result.check["errors"] else 0)


if __name__ == "__main__":
    sys.exit(main())
