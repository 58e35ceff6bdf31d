"""The Python package over the library that NAS2ZDT_LIBRARY names. Usage: python_test.py EXAMPLES"""

import contextlib
import gc
import io
import os
import re
import sys
import tempfile
import unittest
import weakref
from pathlib import Path

import nas2zdt
from nas2zdt import __main__ as command

try:
    import numpy
except ImportError:
    numpy = None
try:
    import meshio
except Exception:  # one that doesn't fit its numpy raises anything
    meshio = None

EXAMPLES = Path(sys.argv.pop(1))
PLATE = EXAMPLES / "loaded_plate.dat"
DECK = b"BEGIN BULK\nGRID,7,,1.,2.,3.\nGRID,8,,4.,5.,6.\nFORCE,3,8,,2.,0.,0.,1.\nRBE3,9\nENDDATA\n"


class PythonTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def test_result(self):
        target = self.folder / "täst.zdt"
        in_file = nas2zdt.convert(PLATE, target, check=True)
        in_memory = nas2zdt.convert(PLATE.read_bytes(), name=PLATE)
        expected = PLATE.with_suffix(".zdt").read_bytes()
        self.assertEqual(target.read_bytes(), expected)
        self.assertEqual(in_memory.output, expected)
        self.assertEqual((in_file.output, in_file.target, in_memory.target), (None, str(target), None))
        self.assertEqual(in_file.log[3], f"** Original File   : {PLATE}")
        self.assertEqual(in_memory.log, in_file.log)
        self.assertEqual((in_memory.check, in_memory.totals, in_memory.model), (None, [], None))
        grids = next(row for row in in_file.account["keywords"] if row["keyword"] == "GRID")
        count = next(total for total in in_file.totals if (total.group, total.name) == ("nodes", "count"))
        self.assertEqual(count, nas2zdt.Total("nodes", "count", grids["read"], grids["stored"], False, ()))

    def test_model(self):
        model = nas2zdt.convert(DECK, model=True).model
        self.assertEqual(model.nodes["id"].tolist(), [7, 8])
        self.assertEqual(model.nodes["position"][-1], (4.0, 5.0, 6.0))
        self.assertEqual(list(model.nodes["position"]), [(1.0, 2.0, 3.0), (4.0, 5.0, 6.0)])
        self.assertEqual((model.elements, model.properties, model.materials), ({}, {}, {}))
        self.assertEqual({case: list(tables) for case, tables in model.loads.items()}, {3: ["forces"]})
        self.assertEqual(model.loads[3]["forces"]["value"].tolist(), [(0.0, 0.0, 2.0)])
        self.assertRaises(IndexError, lambda: model.nodes["id"][2])

    @unittest.skipUnless(numpy, "numpy isn't there")
    def test_arrays_keep_the_memory_without_a_copy(self):
        model = nas2zdt.convert(DECK, model=True).model
        column = model.nodes["position"]
        handle = weakref.ref(column._handle)
        positions = numpy.asarray(column)
        self.assertEqual(positions.__array_interface__["data"], (column.__array_interface__["data"][0], True))
        self.assertEqual((positions.dtype, positions.shape), (numpy.dtype("float64"), (2, 3)))
        self.assertEqual(numpy.asarray(model.nodes["id"]).dtype, numpy.dtype("int32"))
        self.assertEqual(numpy.asarray(model.tables["quads"]["nodes"]).shape, (0, 4))
        part = positions[1:]
        del model, column, positions
        gc.collect()
        self.assertIsNotNone(handle())
        self.assertEqual(part.tolist(), [[4.0, 5.0, 6.0]])
        del part
        gc.collect()
        self.assertIsNone(handle())

    @unittest.skipUnless(numpy and meshio, "numpy or meshio isn't there")
    def test_model_and_grid_agree(self):
        path = self.folder / "plate.vtu"
        model = nas2zdt.convert(PLATE, model=True, vtu=path).model
        grid = path.read_text(encoding="utf-8")  # meshio knows no arrays of texts
        path.write_text(re.sub(r'<(Data)?Array type="String".*?</(Data)?Array>', "", grid, flags=re.S), encoding="utf-8")
        mesh = meshio.read(path)
        numpy.testing.assert_array_equal(mesh.points, numpy.asarray(model.nodes["position"]))
        ids = numpy.asarray(model.nodes["id"])
        quads = [tuple(ids[corners]) for block in mesh.cells if block.type == "quad" for corners in block.data]
        self.assertTrue(quads)
        self.assertEqual(quads, model.elements["quads"]["nodes"].tolist())

    def test_errors(self):
        with self.assertRaises(nas2zdt.DeckError) as caught:
            nas2zdt.convert(b"BEGIN BULK\nINCLUDE 'none.dat'\n", name="in/deck.dat", flatten=True)
        self.assertEqual((caught.exception.file, caught.exception.line, caught.exception.code), ("in/deck.dat", 2, 5))
        with self.assertRaises(nas2zdt.LossError) as caught:
            nas2zdt.convert(DECK, strict="results")
        self.assertIn(b"*NODE", caught.exception.result.output)
        self.assertTrue(nas2zdt.convert(DECK, strict="results", allow=["RBE3"]).output)
        for error, arguments in [
            (nas2zdt.OutputError, {"target": self.folder / "none" / "deck.zdt"}),
            (nas2zdt.DeckError, {"limits": {"decks": 1}, "flatten": True, "name": PLATE, "deck": b"INCLUDE 'a'\n"}),
            (nas2zdt.DeckError, {"faithful": True, "subcase": 12}),
            (nas2zdt.UsageError, {"limits": {"output": -1}}),
            (nas2zdt.Cancelled, {"cancelled": lambda: True}),
            (ValueError, {"strict": "sometimes"}),
            (KeyError, {"limits": {"bytes": 1}}),
        ]:
            with self.subTest(arguments), self.assertRaises(error):
                nas2zdt.convert(**{"deck": DECK, **arguments})

    def test_what_a_function_raises_goes_on(self):
        target = self.folder / "deck.zdt"

        def stop(*arguments):
            raise KeyboardInterrupt(arguments[-1])

        for option in ("on_progress", "cancelled"):
            with self.subTest(option), self.assertRaises(KeyboardInterrupt):
                nas2zdt.convert(DECK, target, **{option: lambda *arguments: stop(option)})
            self.assertFalse(target.exists())
        heard = []
        nas2zdt.convert(DECK, on_progress=lambda *arguments: heard.append(arguments))
        self.assertEqual((heard[0], heard[-1]), (("deck", 0, len(DECK)), ("deck", len(DECK), len(DECK))))

    def test_command(self):
        deck = self.folder / "deck.dat"
        deck.write_bytes(DECK)
        for arguments, status, output, error in [
            (["--quiet"], 0, "", "warning: model: 1 RBE3"),
            ([], 0, "** Original File", "warning: "),
            (["--strict", "--quiet"], 3, "", "1 loss"),
            (["--json"], 0, '"keyword": "RBE3"', ""),
            (["--check", "--quiet"], 4, "load set 3, force z: 2 2\n", ""),
            ([str(self.folder / "none.dat"), "--quiet"], 1, "", "can't be opened"),
        ]:
            target = self.folder / "deck.zdt"
            with contextlib.redirect_stdout(io.StringIO()) as told, contextlib.redirect_stderr(io.StringIO()) as failed:
                self.assertEqual(command.main([str(deck), *arguments]), status, arguments)
            self.assertIn(output, told.getvalue())
            self.assertIn(error, failed.getvalue())
            self.assertTrue(target.exists(), arguments)
            os.remove(target)


unittest.main()
