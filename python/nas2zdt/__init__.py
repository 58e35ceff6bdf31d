"""Converts NASTRAN bulk data decks into ZDT text files.

    import nas2zdt
    result = nas2zdt.convert("wing.dat", "wing.zdt", check=True, model=True)
    print(result.account["classes"], result.model.nodes["position"][0])
"""

from __future__ import annotations

import ctypes
import json
import os
from dataclasses import dataclass
from typing import Any, Callable, Dict, Iterable, List, Optional, Tuple, Union

from . import _library
from ._library import Handle, native
from ._model import Column, Model, Table

__all__ = [
    "Cancelled",
    "Column",
    "ConversionError",
    "DeckError",
    "LossError",
    "Model",
    "OutOfMemory",
    "OutputError",
    "Result",
    "Table",
    "Total",
    "UsageError",
    "convert",
]

__version__: str = native.Nas2zdtGetVersion().decode()

Path = Union[str, "os.PathLike[str]"]

_LIMITS = {"ranges": "nMostRanges", "decks": "nMostDecks", "output": "nMostOutput", "frames": "nMostFrames"}
_STRICT = {None: 0, "results": 1, "any": 2}
_LOG, _WARNING = 0, 1
_NO_LIMIT = 2**63 - 1


@dataclass(frozen=True)
class Total:
    """A sum of the deck and of the file. A value is None where there is none, as a centre of gravity without mass."""

    group: str  #: "nodes", "property 7", "load set 3"
    name: str  #: "count", "force x"
    deck: Optional[float]
    file: Optional[float]
    differs: bool
    why: Tuple[str, ...]  #: losses of the account that explain a difference


@dataclass(frozen=True)
class Result:
    """What a conversion came to. It keeps the model's memory until the last array of it is gone."""

    deck: str
    target: Optional[str]
    output: Optional[bytes]  #: the target file, if it has no path
    log: Tuple[str, ...]
    warnings: Tuple[str, ...]  #: a line for each class of losses that matters
    account: Optional[Dict[str, Any]]  #: the member ``account`` of docs/account.md
    check: Optional[Dict[str, Any]]  #: as in docs/check.md
    model: Optional[Model]

    @property
    def totals(self) -> List[Total]:
        """Sums of deck and file side by side; none without a check."""
        rows = self.check["totals"] if self.check else []
        return [
            Total(row["group"], row["name"], row["deck"], row["file"], row["differs"], tuple(row["why"]))
            for row in rows
        ]


class ConversionError(Exception):
    """A conversion that failed. ``file`` and ``line`` tell where, as far as that is known; ``result`` what there is."""

    def __init__(self, text: str, code: int, file: Optional[str], line: Optional[int], result: Result) -> None:
        super().__init__(text)
        self.code = code
        self.file = file
        self.line = line
        self.result = result


class LossError(ConversionError):
    """More was lost than ``strict`` takes; the target was written."""


class Cancelled(ConversionError):
    """``cancelled`` said so."""


class UsageError(ConversionError, ValueError):
    """An argument doesn't make sense."""


class DeckError(ConversionError):
    """A deck can't be read, or is too large for a limit."""


class OutputError(ConversionError):
    """An output can't be written."""


class OutOfMemory(ConversionError, MemoryError):
    """Memory ran out."""


_ERRORS = {1: LossError, 2: Cancelled, 3: UsageError, 11: OutputError, 12: OutOfMemory}
_ERRORS.update(dict.fromkeys(range(4, 11), DeckError))


def _encode(path: Optional[Path]) -> Optional[bytes]:
    return None if path is None else os.fspath(path).encode("utf-8", "surrogateescape")


def _decode(text: Optional[bytes]) -> str:
    return (text or b"").decode("utf-8", "surrogateescape")


def _decode_json(text: Optional[bytes]) -> Optional[Dict[str, Any]]:
    return json.loads(text) if text is not None else None


class _Calls:
    """The functions that the library calls. One that raises cancels the conversion; the exception goes on then."""

    def __init__(
        self,
        on_line: Optional[Callable[[str], Any]],
        on_progress: Optional[Callable[[str, int, int], Any]],
        cancelled: Optional[Callable[[], bool]],
    ) -> None:
        self.warnings: List[str] = []
        self.raised: Optional[BaseException] = None
        self._on_line = on_line
        self._on_progress = on_progress
        self._cancelled = cancelled
        self.line = _library.LINE(self._guard(self._take_line))
        self.progress = _library.PROGRESS(self._guard(self._take_progress)) if on_progress else _library.PROGRESS(0)
        self.ask = _library.CANCELLED(self._is_cancelled)

    def _guard(self, function: Callable[..., None]) -> Callable[..., None]:
        def call(*arguments: Any) -> None:
            if self.raised is not None:
                return
            try:
                function(*arguments)
            except BaseException as error:
                self.raised = error

        return call

    def _take_line(self, _user: Any, kind: int, text: bytes) -> None:
        if kind == _WARNING:
            self.warnings.append(_decode(text))
        elif kind == _LOG and self._on_line:
            self._on_line(_decode(text))

    def _take_progress(self, _user: Any, deck: bytes, read: int, size: int) -> None:
        if self._on_progress:
            self._on_progress(_decode(deck), read, size)

    def _is_cancelled(self, _user: Any) -> int:
        try:  # an interrupt from the keyboard arrives here, too
            if self.raised is None and self._cancelled and self._cancelled():
                return 1
        except BaseException as error:
            self.raised = error
        return int(self.raised is not None)


def _make_result(handle: Handle, deck: str, target: Optional[Path], calls: _Calls) -> Result:
    pointer = handle.pointer
    log: List[str] = []
    while (line := native.Nas2zdtGetLogLine(pointer, len(log))) is not None:
        log.append(_decode(line))
    size = ctypes.c_size_t()
    output = native.Nas2zdtGetOutput(pointer, size)
    table = _library.Table(nSize=ctypes.sizeof(_library.Table))
    return Result(
        deck=deck,
        target=None if target is None else os.fspath(target),
        output=ctypes.string_at(output, size.value) if output else None,
        log=tuple(log),
        warnings=tuple(calls.warnings),
        account=_decode_json(native.Nas2zdtGetAccount(pointer)),
        check=_decode_json(native.Nas2zdtGetCheck(pointer)),
        model=Model(handle) if native.Nas2zdtGetTable(pointer, 0, table) else None,
    )


def convert(
    deck: Union[Path, bytes],
    target: Optional[Path] = None,
    *,
    name: Optional[Path] = None,
    flatten: bool = False,
    faithful: bool = False,
    account: bool = True,
    check: bool = False,
    model: bool = False,
    strict: Optional[str] = None,
    allow: Iterable[str] = (),
    subcase: Optional[int] = None,
    superelement: int = 0,
    tolerance: Optional[float] = None,
    threads: int = 0,
    limits: Optional[Dict[str, Optional[int]]] = None,
    restated: Optional[Path] = None,
    view: Optional[Path] = None,
    vtu: Optional[Path] = None,
    on_line: Optional[Callable[[str], Any]] = None,
    on_progress: Optional[Callable[[str, int, int], Any]] = None,
    cancelled: Optional[Callable[[], bool]] = None,
) -> Result:
    """Converts a deck.

    :param deck: its path, or the deck itself as bytes, which ``name`` gives a path that needn't exist
    :param target: path of the target file; without it, the file is ``output`` of the result
    :param flatten: joins the deck with its includes as NASTRAN does first
    :param faithful: restates the deck first, so that the file says what NASTRAN means
    :param account: tells what became of every keyword
    :param check: tells whether the deck is sound, with sums of deck and file
    :param model: keeps the model as arrays
    :param strict: "results" or "any": losses that raise LossError, but for the kinds in ``allow``
    :param subcase: whose supports count, with ``faithful`` or ``check``; the first if None
    :param tolerance: within which nodes coincide, in the deck's unit of length, with ``check``; 0 for none
    :param threads: that may work at a time; 0 for one a core
    :param limits: "ranges", "decks", "output", "frames": a number, or None for no limit
    :param restated: path for the restated deck, with ``faithful``
    :param view: path for a picture, .svg
    :param vtu: path for the model as a VTK unstructured grid, .vtu
    :param on_line: is given each line of the log
    :param on_progress: is given the deck being read, bytes read and bytes in all (0 if unknown), once in a while
    :param cancelled: is asked once in a while; True ends the conversion with Cancelled
    :raises ConversionError: one of its kinds, if the conversion fails
    """
    calls = _Calls(on_line, on_progress, cancelled)
    if strict not in _STRICT:
        raise ValueError(f"strict: {strict!r} is none of None, 'results', 'any'")
    options = _library.Options(
        nSize=ctypes.sizeof(_library.Options),
        bFlatten=flatten,
        bFaithful=faithful,
        bAccount=account,
        bCheck=check,
        bModel=model,
        eStrict=_STRICT[strict],
        bSubcase=subcase is not None,
        iSubcase=subcase or 0,
        iSuper=superelement,
        nThreads=threads,
        bTolerance=tolerance is not None,
        dTolerance=tolerance or 0.0,
        sAllowed=" ".join(allow).encode(),
        sRestated=_encode(restated),
        sView=_encode(view),
        sVtu=_encode(vtu),
        pfnLine=calls.line,
        pfnProgress=calls.progress,
        pfnCancelled=calls.ask,
    )
    for limit, most in (limits or {}).items():
        setattr(options, _LIMITS[limit], _NO_LIMIT if most is None else most)
    handle = Handle()
    pointer = ctypes.byref(handle.pointer)
    if isinstance(deck, bytes):
        shown = os.fspath(name) if name is not None else "deck"
        code = native.Nas2zdtConvertMemory(deck, len(deck), _encode(name), _encode(target), options, pointer)
    else:
        shown = os.fspath(deck)
        code = native.Nas2zdtConvertFile(_encode(deck), _encode(target), options, pointer)
    if calls.raised is not None:
        raise calls.raised
    result = _make_result(handle, shown, target, calls)
    if code == 0:
        return result
    text = _decode(native.Nas2zdtGetText(handle.pointer))
    file = _decode(native.Nas2zdtGetFile(handle.pointer))
    line = native.Nas2zdtGetLine(handle.pointer)
    raise _ERRORS.get(code, ConversionError)(text, code, file or None, line or None, result)
