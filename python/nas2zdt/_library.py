"""The functions of the C library, as nas2zdt.h declares them."""

from __future__ import annotations

import ctypes
import os
import sys
from ctypes import POINTER, c_char_p, c_double, c_int32, c_int64, c_size_t, c_uint64, c_void_p
from pathlib import Path

LINE = ctypes.CFUNCTYPE(None, c_void_p, c_int32, c_char_p)
PROGRESS = ctypes.CFUNCTYPE(None, c_void_p, c_char_p, c_uint64, c_uint64)
CANCELLED = ctypes.CFUNCTYPE(c_int32, c_void_p)


class Options(ctypes.Structure):
    _fields_ = [
        ("nSize", c_size_t),
        ("bFlatten", c_int32),
        ("bFaithful", c_int32),
        ("bAccount", c_int32),
        ("bCheck", c_int32),
        ("bModel", c_int32),
        ("eStrict", c_int32),
        ("bSubcase", c_int32),
        ("iSubcase", c_int32),
        ("iSuper", c_int32),
        ("nThreads", c_int32),
        ("bTolerance", c_int32),
        ("dTolerance", c_double),
        ("nMostRanges", c_int64),
        ("nMostDecks", c_int64),
        ("nMostOutput", c_int64),
        ("nMostFrames", c_int64),
        ("sAllowed", c_char_p),
        ("sRestated", c_char_p),
        ("sView", c_char_p),
        ("sVtu", c_char_p),
        ("pUser", c_void_p),
        ("pfnLine", LINE),
        ("pfnProgress", PROGRESS),
        ("pfnCancelled", CANCELLED),
    ]


class Table(ctypes.Structure):
    _fields_ = [
        ("nSize", c_size_t),
        ("sName", c_char_p),
        ("bCase", c_int32),
        ("iCase", c_int32),
        ("nRows", c_size_t),
        ("nColumns", c_size_t),
    ]


class Column(ctypes.Structure):
    _fields_ = [
        ("nSize", c_size_t),
        ("sName", c_char_p),
        ("eType", c_int32),
        ("nRows", c_size_t),
        ("nWidth", c_size_t),
        ("nStride", c_size_t),
        ("pData", c_void_p),
    ]


_FUNCTIONS = {
    "Nas2zdtGetVersion": (c_char_p, []),
    "Nas2zdtConvertFile": (c_int32, [c_char_p, c_char_p, POINTER(Options), POINTER(c_void_p)]),
    "Nas2zdtConvertMemory": (
        c_int32,
        [c_char_p, c_size_t, c_char_p, c_char_p, POINTER(Options), POINTER(c_void_p)],
    ),
    "Nas2zdtFreeResult": (None, [c_void_p]),
    "Nas2zdtGetText": (c_char_p, [c_void_p]),
    "Nas2zdtGetFile": (c_char_p, [c_void_p]),
    "Nas2zdtGetLine": (c_int32, [c_void_p]),
    "Nas2zdtGetAccount": (c_char_p, [c_void_p]),
    "Nas2zdtGetCheck": (c_char_p, [c_void_p]),
    "Nas2zdtGetLogLine": (c_char_p, [c_void_p, c_size_t]),
    "Nas2zdtGetOutput": (c_void_p, [c_void_p, POINTER(c_size_t)]),
    "Nas2zdtGetTable": (c_int32, [c_void_p, c_size_t, POINTER(Table)]),
    "Nas2zdtGetColumn": (c_int32, [c_void_p, c_size_t, c_size_t, POINTER(Column)]),
}


def _load() -> ctypes.CDLL:
    """The library that NAS2ZDT_LIBRARY names, or else the one beside this file, or else that of the system."""
    name = "nas2zdt.dll" if sys.platform == "win32" else "libnas2zdt.so.1"
    beside = Path(__file__).resolve().parent / name
    path = os.environ.get("NAS2ZDT_LIBRARY") or (str(beside) if beside.exists() else name)
    library = ctypes.CDLL(path)
    for function, (result, arguments) in _FUNCTIONS.items():
        getattr(library, function).restype = result
        getattr(library, function).argtypes = arguments
    return library


native = _load()


class Handle:
    """A result of the library, which is freed with the last object that refers to it."""

    def __init__(self) -> None:
        self.pointer = c_void_p()

    def __del__(self) -> None:
        native.Nas2zdtFreeResult(self.pointer)
