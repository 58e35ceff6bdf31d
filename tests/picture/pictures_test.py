"""Reads pictures with readers that aren't ours. Usage: pictures_test.py xml|vtk|meshio PROGRAM

Exit status 77: the reader isn't installed.
"""
import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

# type in the format, nodes by id, element, property, material, kind
CELLS = [
    (12, [1, 2, 3, 4, 5, 6, 7, 8], 101, 1, 4, 4),
    (12, [2, 9, 10, 3, 6, 11, 12, 7], 102, 1, 4, 4),
    (13, [5, 7, 6, 13, 15, 14], 103, 1, 4, 4),  # the first triangle's normal points outward
    (10, [5, 7, 8, 16], 104, 1, 4, 4),
    (9, [17, 18, 19, 20], 105, 2, 1, 3),
    (5, [17, 18, 21], 106, 2, 1, 3),
    (9, [18, 22, 23, 19], 107, 1, 4, 2),
    (3, [9, 17], 108, 1, 4, 1),
    (3, [10, 20], 109, 1, 4, 0),
    (3, [20, 21], 111, 6, 0, 7),
    (1, [22], 112, 0, 0, 9),
    (3, [11, 21], 101, 1, 7, 0),
    (3, [19, 22], 5, 0, 0, 5),
    (3, [19, 23], 5, 0, 0, 5),
    (3, [20, 23], 1, 3, 0, 6),
    (1, [21], 2, 0, 0, 8),
]
ARRAYS = ("ElementId", "PropertyId", "MaterialId", "Kind")

# what isn't 0: of nodes by id, and of cells by element
POINT_VALUES = {
    "Held1": {1: 1, 2: 1, 3: 1},
    "Held4": {1: 1},
    "Mass": {22: 1},
    "Force case 1": {15: (0, 0, 10)},
}
CELL_VALUES = {
    "Thickness": {105: 2.5, 106: 2.5},
    "Pressure case 1": {102: 0.5, 105: -0.5},
}
GRAVITY = [0, 0, -9.81]
NAMES = {"Property": [(1, "PSOLID 1"), (2, "PSHELL 2"), (3, "PELAS 3"), (6, "PBUSH 6")], "Material": [(4, "MAT1 4")]}


def others(ids, values):
    """The values that aren't 0, by id; those of one component by themselves."""
    tuples = ((int(i), tuple(v) if hasattr(v, "__len__") else (v,)) for i, v in zip(ids, values))
    return {i: v if len(v) > 1 else v[0] for i, v in tuples if any(v)}


def check_xml(folder):
    for name in ("model.svg", "empty.svg", "model.vtu", "empty.vtu"):
        root = xml.etree.ElementTree.parse(os.path.join(folder, name)).getroot()
        assert root.tag == ("VTKFile" if name.endswith(".vtu") else "{http://www.w3.org/2000/svg}svg"), root.tag
        if name == "model.svg":
            assert root.find("{http://www.w3.org/2000/svg}title").text == "<model> & ?"


def check_vtk(folder):
    from vtkmodules.vtkIOXML import vtkXMLUnstructuredGridReader

    def read(name):
        reader = vtkXMLUnstructuredGridReader()
        reader.SetFileName(os.path.join(folder, name))
        reader.Update()
        assert reader.GetErrorCode() == 0
        return reader.GetOutput()

    assert read("empty.vtu").GetNumberOfPoints() == 0
    grid = read("model.vtu")
    ids = grid.GetPointData().GetArray("NodeId")
    arrays = [grid.GetCellData().GetArray(name) for name in ARRAYS]
    found = []
    for i in range(grid.GetNumberOfCells()):
        points = grid.GetCell(i).GetPointIds()
        nodes = [int(ids.GetValue(points.GetId(k))) for k in range(points.GetNumberOfIds())]
        found.append((grid.GetCellType(i), nodes, *(int(array.GetValue(i)) for array in arrays)))
    assert found == CELLS, found
    assert grid.GetPoint(15) == (0.0, 1.0, 2.0), grid.GetPoint(15)

    def values(data, name):
        array = data.GetArray(name)
        return [array.GetTuple(i) for i in range(array.GetNumberOfTuples())]

    points, cells, fields = grid.GetPointData(), grid.GetCellData(), grid.GetFieldData()
    for name, expected in POINT_VALUES.items():
        assert others((t[0] for t in values(points, "NodeId")), values(points, name)) == expected, name
    for name, expected in CELL_VALUES.items():
        assert others((t[0] for t in values(cells, "ElementId")), values(cells, name)) == expected, name
    assert fields.GetArray("Gravity case 1").GetTuple(0) == tuple(GRAVITY)
    for what, expected in NAMES.items():
        ids, texts = fields.GetArray(what + "Ids"), fields.GetAbstractArray(what + "Names")
        found = [(int(ids.GetValue(i)), texts.GetValue(i)) for i in range(texts.GetNumberOfValues())]
        assert found == expected, found


def check_meshio(folder):
    import meshio

    types = {1: "vertex", 3: "line", 5: "triangle", 9: "quad", 10: "tetra", 12: "hexahedron", 13: "wedge"}
    path = os.path.join(folder, "model.vtu")
    tree = xml.etree.ElementTree.parse(path)  # it refuses any array of texts
    for field in tree.iter("FieldData"):
        for texts in field.findall("Array"):
            field.remove(texts)
    tree.write(path)
    mesh = meshio.read(path)
    ids = mesh.point_data["NodeId"]
    found = []
    for i, block in enumerate(mesh.cells):
        for k, corners in enumerate(block.data):
            values = (int(mesh.cell_data[name][i][k]) for name in ARRAYS)
            found.append((block.type, [int(ids[corner]) for corner in corners], *values))
    expected = [(types[cell[0]], *cell[1:]) for cell in CELLS]
    expected[2] = ("wedge", [5, 6, 7, 13, 14, 15], *CELLS[2][2:])  # it turns wedges to an order of its own
    assert found == expected, found
    assert list(mesh.points[15]) == [0.0, 1.0, 2.0], mesh.points[15]
    for name, expected in POINT_VALUES.items():
        assert others(ids, mesh.point_data[name]) == expected, name
    for name, expected in CELL_VALUES.items():
        pairs = [(i, v) for k, _ in enumerate(mesh.cells)
                 for i, v in zip(mesh.cell_data["ElementId"][k], mesh.cell_data[name][k])]
        assert others(*zip(*pairs)) == expected, name


reader, program = sys.argv[1:]
if reader != "xml":
    try:
        __import__({"vtk": "vtkmodules.vtkIOXML", "meshio": "meshio"}[reader])
    except ImportError as error:
        print("skipped:", error)
        sys.exit(77)
with tempfile.TemporaryDirectory() as target:
    subprocess.run([program, target], check=True)
    {"xml": check_xml, "vtk": check_vtk, "meshio": check_meshio}[reader](target)
print("passed")
