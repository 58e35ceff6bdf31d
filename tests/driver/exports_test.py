"""The exports from Python: results and the output path. Usage: exports_test.py LIBRARY"""

import ctypes
import os
import sys
import tempfile

library = ctypes.CDLL(sys.argv[1])
library.ConvertFile2.argtypes = [ctypes.c_char_p, ctypes.c_int32]
temporary = tempfile.TemporaryDirectory()
folder = temporary.name


def convert(typed, size=4096):
    """Calls ConvertFile2 with the text typed at the prompt; gives the result and the buffer."""
    reading, writing = os.pipe()
    os.write(writing, typed.encode())
    os.close(writing)
    os.dup2(reading, 0)
    os.close(reading)
    buffer = ctypes.create_string_buffer(b"untouched", size)
    return library.ConvertFile2(buffer, size), buffer.value.decode()


def write(name, text):
    path = os.path.join(folder, name)
    with open(path, "w", newline="") as deck:
        deck.write(text)
    return path


good = write("grüße.v1.dat", "BEGIN BULK\nGRID,1\nENDDATA\n")
target = good[:-4] + ".zdt"
assert convert(good + "\n") == (0, target)
assert open(target).read() == "*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n"
assert convert(os.path.join(folder, "missing.dat") + "\n" + good + "\n") == (0, target), "asks again"
assert convert(good + "\r\n") == (0, target), "a line that ends as on Windows"
length = len(target.encode())
assert convert(good + "\n", length + 1) == (0, target), "a path that just fits"
assert convert(good + "\n", length) == (0, ""), "a path that is one byte too long"
assert convert(good + "\n", 10) == (0, ""), "a path that doesn't fit"
assert convert("\n") == (1, "untouched"), "an empty line cancels"
assert convert("") == (1, "untouched"), "the end of input cancels"
missing = write("missing_include.dat", "BEGIN BULK\nINCLUDE,'none.dat'\nENDDATA\n")
assert convert(missing + "\n") == (-1, "untouched")
assert library.ConvertFile() == 1
print("1 passed, 0 failed")
