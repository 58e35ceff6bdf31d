"""A converted model as arrays."""

from __future__ import annotations

import ctypes
from collections.abc import Iterator, Mapping, Sequence
from typing import Any, Dict, List, Tuple

from . import _library
from ._library import Handle

ELEMENTS = ("trusses", "beams", "tubes", "triangles", "quads", "tetrahedra", "wedges", "hexahedra")
PROPERTIES = ("value_sections", "tapered_sections", "shape_sections", "thicknesses")
MATERIALS = ("isotropic", "orthotropic", "thermal")


class Column(Sequence[Any]):
    """A column of a table: a number a row, or a tuple of them. ``numpy.asarray`` wraps it without a copy.

    It keeps the memory of its result alive, as every array made of it does.
    """

    def __init__(self, handle: Handle, column: _library.Column) -> None:
        self._handle = handle
        self._address = column.pData or 0
        self._double = column.eType == 1
        self._rows: int = column.nRows
        self._width: int = column.nWidth
        kind: Any = ctypes.c_double if self._double else ctypes.c_int32
        size = self._rows * self._width
        self._values = (kind * size).from_address(self._address) if size else (kind * 0)()

    @property
    def shape(self) -> Tuple[int, ...]:
        """(rows,) or (rows, values in a row)."""
        return (self._rows,) if self._width == 1 else (self._rows, self._width)

    @property
    def __array_interface__(self) -> Dict[str, Any]:
        kind = "f8" if self._double else "i4"
        data = (self._address, True) if self._address else (ctypes.addressof(self._values), True)
        return {"version": 3, "shape": self.shape, "typestr": "<" + kind, "data": data}

    def __len__(self) -> int:
        return self._rows

    def __getitem__(self, row: Any) -> Any:
        if isinstance(row, slice):
            return [self[i] for i in range(*row.indices(self._rows))]
        if not -self._rows <= row < self._rows:
            raise IndexError("there is no such row")
        row %= self._rows
        if self._width == 1:
            return self._values[row]
        return tuple(self._values[row * self._width : (row + 1) * self._width])

    def tolist(self) -> List[Any]:
        rows: List[Any] = self[:]
        return rows


class Table(Mapping[str, Column]):
    """The columns of a table by their names."""

    def __init__(self, name: str, rows: int, columns: Dict[str, Column]) -> None:
        self.name = name
        self.rows = rows  #: number of rows
        self._columns = columns

    def __getitem__(self, column: str) -> Column:
        return self._columns[column]

    def __iter__(self) -> Iterator[str]:
        return iter(self._columns)

    def __len__(self) -> int:
        return len(self._columns)

    def __repr__(self) -> str:
        return f"<table {self.name}, {self.rows} rows: {', '.join(self)}>"


class Model:
    """All tables of a model, which are those of its file: docs/library.md lists them."""

    def __init__(self, handle: Handle) -> None:
        self.tables: Dict[str, Table] = {}  #: those that belong to no load case, by name
        self.loads: Dict[int, Dict[str, Table]] = {}  #: those of each load case, by its id and by name
        place = 0
        table = _library.Table(nSize=ctypes.sizeof(_library.Table))
        while _library.native.Nas2zdtGetTable(handle.pointer, place, table):
            columns = {}
            for i in range(table.nColumns):
                column = _library.Column(nSize=ctypes.sizeof(_library.Column))
                _library.native.Nas2zdtGetColumn(handle.pointer, place, i, column)
                columns[column.sName.decode()] = Column(handle, column)
            name = table.sName.decode()
            made = Table(name, table.nRows, columns)
            if table.bCase:
                self.loads.setdefault(table.iCase, {})[name] = made
            else:
                self.tables[name] = made
            place += 1
        for case in self.tables["load_cases"]["id"]:
            self.loads.setdefault(case, {})

    @property
    def nodes(self) -> Table:
        return self.tables["nodes"]

    def _present(self, names: Sequence[str]) -> Dict[str, Table]:
        return {name: self.tables[name] for name in names if self.tables[name].rows}

    @property
    def elements(self) -> Dict[str, Table]:
        """Kinds that the model has: columns id, nodes, property, material and more."""
        return self._present(ELEMENTS)

    @property
    def properties(self) -> Dict[str, Table]:
        return self._present(PROPERTIES)

    @property
    def materials(self) -> Dict[str, Table]:
        return self._present(MATERIALS)
