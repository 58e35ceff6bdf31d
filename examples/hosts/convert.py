"""A host in Python: converts a deck of the user's choice and tells the path of the result.

Usage: convert.py [LIBRARY]
"""

import ctypes
import sys

library = ctypes.CDLL(sys.argv[1] if len(sys.argv) > 1 else "libConvertNastran.so")
library.ConvertFile2.argtypes = [ctypes.c_char_p, ctypes.c_int32]
library.ConvertFile2.restype = ctypes.c_int32

output = ctypes.create_string_buffer(131072)
result = library.ConvertFile2(output, len(output))
print("result:", result)
if result == 0:
    print("path:", output.value.decode())
sys.exit(1 if result == -1 else 0)
