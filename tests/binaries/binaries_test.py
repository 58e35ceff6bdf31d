"""What became of the binaries in a folder, read back by readelf.

Usage: binaries_test.py paths FOLDER
       binaries_test.py exports FOLDER
       binaries_test.py hardening FOLDER [ARCHIVE...]
       binaries_test.py formats COMPILE-COMMANDS
"""

import json
import os
import re
import shlex
import subprocess
import sys

EXPORTS = {  # of the libraries of the product; the plug-in needn't be there
    "libConvertNastran": ["ConvertFile", "ConvertFile2"],
    "libnas2zdt": [
        "Nas2zdtConvertFile",
        "Nas2zdtConvertMemory",
        "Nas2zdtCountTables",
        "Nas2zdtFindColumn",
        "Nas2zdtFreeResult",
        "Nas2zdtGetAccount",
        "Nas2zdtGetCheck",
        "Nas2zdtGetCode",
        "Nas2zdtGetColumn",
        "Nas2zdtGetFile",
        "Nas2zdtGetLine",
        "Nas2zdtGetLogLine",
        "Nas2zdtGetOutput",
        "Nas2zdtGetTable",
        "Nas2zdtGetText",
        "Nas2zdtGetVersion",
    ],
    "Convertmsg": ["LoadStr"],
    "ConvertNastranGtk": ["MakeGtkDialogs"],
}
PRODUCT = ["nas2zdt", *EXPORTS]
BUFFERED = ["nas2zdt", "libConvertNastran", "libnas2zdt"]  # with buffers on the stack
FORTIFIED = ["nas2zdt", "libnas2zdt"]  # with calls of the C library that fill buffers whose size the compiler knows


def readelf(*arguments):
    return subprocess.run(["readelf", "-W", *arguments], check=True, capture_output=True, text=True).stdout


def binaries(folder):
    """Path by name, without what follows the first point."""
    found = {}
    for parent, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(parent, name)
            with open(path, "rb") as file:
                if not os.path.islink(path) and file.read(4) == b"\x7fELF":
                    found[name.partition(".")[0]] = path
    missing = {"nas2zdt", "libConvertNastran", "libnas2zdt", "Convertmsg"} - found.keys()
    if missing:
        sys.exit(f"not in {folder}: {', '.join(sorted(missing))}")
    return found


def paths(folder):
    """An empty or relative element is the current directory, an absolute one a folder of whoever built it."""
    for path in binaries(folder).values():
        for kind, text in re.findall(r"\((RPATH|RUNPATH)\).*\[(.*)\]", readelf("-d", path)):
            if not all(re.match(r"\$ORIGIN(/|$)", element) for element in text.split(":")):
                yield f"{path}: {kind} [{text}]"


def dynamic_symbols(path):
    """Names by whether the binary defines them."""
    names = {True: set(), False: set()}
    for line in readelf("--dyn-syms", path).splitlines():
        fields = line.split()
        if len(fields) >= 8 and fields[4] in ("GLOBAL", "WEAK", "UNIQUE"):
            names[fields[6] != "UND"].add(fields[7].partition("@")[0])
    return names


def exports(folder):
    for name, path in binaries(folder).items():
        if name in EXPORTS:
            defined = sorted(dynamic_symbols(path)[True])
            if defined != EXPORTS[name]:
                yield f"{path} exports {len(defined)} names: {' '.join(defined[:10])}"


def hardening(folder, *archives):
    for name, path in binaries(folder).items():
        headers = readelf("-h", "-l", "-d", path)
        if not re.search(r"Type: +DYN", headers):
            yield f"{path} runs at one address"
        if "GNU_RELRO" not in headers or not re.search(r"\(FLAGS_1\).*\bNOW\b", headers):
            yield f"{path}: its table of addresses stays writable"
        if re.search(r"GNU_STACK.* RWE ", headers):
            yield f"{path} can run its stack"
        if name in PRODUCT and "X86-64" in headers and "SHSTK" not in readelf("-n", path):
            yield f"{path}: returns aren't watched"
        undefined = dynamic_symbols(path)[False]
        if name in BUFFERED and "__stack_chk_fail" not in undefined:
            yield f"{path}: its stack isn't watched"
        if name in FORTIFIED and not any(re.fullmatch(r"__\w+_chk", symbol) for symbol in undefined):
            yield f"{path}: no call knows the size of its buffer"
    for archive in archives:
        notes = readelf("-n", archive)
        objects, marked = notes.count("File: "), len(re.findall(r"x86 feature:.*\bIBT\b.*\bSHSTK\b", notes))
        if "X86-64" in readelf("-h", archive) and (objects == 0 or marked != objects):
            yield f"{archive}: branches are watched in {marked} of {objects} objects"


def formats(commands):
    """A format out of chance isn't compiled."""
    with open(commands) as file:
        command = next(entry["command"] for entry in json.load(file) if entry["file"].endswith("Convertmsg.cpp"))
    words = shlex.split(command)
    compiler = words[: words.index("-o")]
    source = '#include <cstdio>\nvoid Show(const char* s);\nvoid Show(const char* s) {{ std::printf({}); }}\n'
    for arguments, status, text in [('"%s", s', 0, ""), ("s", 1, "format-security")]:
        run = subprocess.run([*compiler, "-fsyntax-only", "-x", "c++", "-"], input=source.format(arguments),
                             capture_output=True, text=True)
        if run.returncode != status or text not in run.stderr:
            yield f"printf({arguments}): {run.returncode} {run.stderr}"


CHECKS = {check.__name__: check for check in (paths, exports, hardening, formats)}
faults = list(CHECKS[sys.argv[1]](*sys.argv[2:]))
for fault in faults:
    print("failed:", fault)
print("1 passed, 0 failed" if not faults else "0 passed, 1 failed")
sys.exit(1 if faults else 0)
