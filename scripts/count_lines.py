#!/usr/bin/env python3
"""Counts the lines of the product and of its tests, without blank ones, and what the tests are to the product.

Decks and lists of cases among the tests are counted, but also told apart: they are data that is read, not programs."""

import pathlib
import subprocess

PROJECT = pathlib.Path(__file__).resolve().parent.parent
PRODUCT = ("Converter", "platform", "nas2zdt", "viewer", "python")
TESTS = ("tests", "fuzz")
MADE = {"package-lock.json"}  # by a program
DATA = {".txt", ".dat"}


def count(folder, suffixes=None):
    listed = subprocess.run(["git", "ls-files", "-z", "--", folder], cwd=PROJECT, capture_output=True, check=True).stdout
    paths = [PROJECT / name for name in listed.decode().split("\0") if name]
    texts = [path.read_bytes() for path in paths if path.name not in MADE and path.exists() and
             (suffixes is None or path.suffix in suffixes and path.name != "CMakeLists.txt")]
    return sum(1 for text in texts if b"\0" not in text for line in text.splitlines() if line.strip())


def main():
    product, tests = ({folder: count(folder) for folder in folders} for folders in (PRODUCT, TESTS))
    for folder, lines in (product | tests).items():
        print(f"{folder:10} {lines:6}")
    whole, part = sum(product.values()), sum(tests.values())
    data = sum(count(folder, DATA) for folder in TESTS)
    print(f"{part} lines of tests for {whole} of the product: {part / whole:.3f}; {data} of them are cases, "
          f"{(part - data) / whole:.3f} without")


if __name__ == "__main__":
    main()
