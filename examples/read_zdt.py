"""Reads a ZDT file into a model, line by line as docs/zdt.md tells; a line of any other form is an error.

Usage: read_zdt.py FILE [--sums]

Ids are those of the deck, lengths and all else in its units, positions in the basic frame.
"""

from __future__ import annotations

import re
import sys
from dataclasses import dataclass, field
from typing import Any, Iterator, NoReturn, Sequence

Vector = tuple[float, float, float]


def vector(values: Sequence[float]) -> Vector:
    x, y, z = values
    return (x, y, z)


class FormatError(Exception):
    """What is wrong with a file, with the number of the line."""


@dataclass
class Element:
    id: int
    kind: str  # TRUSS, BEAM, PLATE, PLSTRS or SOLID
    material: int
    property: int  # of a section or a thickness; 0 of a SOLID
    nodes: tuple[int, ...]  # corners alone
    reference: Vector | None = None  # of a BEAM: a point in its plane of X and Z


@dataclass
class Material:
    kind: str  # ISOTROPIC, ORTHOTROPIC or THERMAL
    values: dict[str, float]


@dataclass
class Stiffness:
    side: float  # of a square of the same area
    area: float
    shear1: float  # areas
    shear2: float
    torsion: float
    inertia1: float
    inertia2: float


@dataclass
class Section:
    kind: str  # VALUE with one end, TAPERED with two, or DBUSER with a shape
    shape: str = ""  # SB, B, SR, P, H, C or T
    sizes: tuple[float, ...] = ()
    ends: tuple[Stiffness, ...] = ()


@dataclass
class Thickness:
    plane: float
    bending: float | None  # None: it doesn't bend


@dataclass
class RigidLink:
    master: int
    components: str  # six digits, 1 for a component that is tied
    slaves: list[int]


@dataclass
class ElasticLink:
    nodes: tuple[int, ...]  # one if the other end is the ground
    stiffness: tuple[float, ...]  # of components 1 to 6


@dataclass
class LinkProperty:
    name: str
    kind: str  # SLD (bush), GAP or SPG (spring)
    stiffness: list[float] = field(default_factory=list)  # of components 1 to 6
    damping: list[float] = field(default_factory=list)
    opening: list[float] = field(default_factory=list)  # of a GAP


@dataclass
class Link:
    id: int
    nodes: tuple[int, int]
    property: str  # a name that needn't exist
    angle: float | None  # degrees; None of one between coincident nodes
    spring: bool  # from a block of springs, else a bush or gap


@dataclass
class NodalLoad:
    node: int
    force: Vector
    moment: Vector


@dataclass
class BeamLoad:
    element: int
    load: str  # CONLOAD, CONMOMENT at X1; UNILOAD, UNIMOMENT from X1 to X2
    direction: str  # GX, GY, GZ of the basic frame, LX, LY, LZ of the element
    projected: bool
    x1: float  # fractions of the length
    p1: float
    x2: float
    p2: float


@dataclass
class Pressure:
    element: int
    face: int | None  # of a solid, from 1; 0 if the deck names none; None of a plate
    direction: Vector | None  # None: along the normal
    corners: tuple[float, ...]


@dataclass
class LoadCase:
    self_weight: Vector | None = None  # acceleration
    nodal: list[NodalLoad] = field(default_factory=list)
    beams: list[BeamLoad] = field(default_factory=list)
    pressures: list[Pressure] = field(default_factory=list)
    node_temperatures: list[tuple[int, float]] = field(default_factory=list)
    element_temperatures: list[tuple[int, float]] = field(default_factory=list)
    gradients: list[tuple[int, float]] = field(default_factory=list)  # from bottom to top of a plate
    displacements: list[tuple[int, str, tuple[float, ...]]] = field(default_factory=list)


@dataclass
class Model:
    nodes: dict[int, Vector] = field(default_factory=dict)
    elements: dict[str, list[Element]] = field(default_factory=dict)  # by kind
    materials: dict[int, Material] = field(default_factory=dict)
    sections: dict[int, Section] = field(default_factory=dict)
    thicknesses: dict[int, Thickness] = field(default_factory=dict)
    supports: list[tuple[int, str]] = field(default_factory=list)  # node, components; a node may come twice
    axes: dict[int, tuple[Vector, Vector, Vector]] = field(default_factory=dict)  # origin, on X, in the plane of XY
    elastic_links: list[ElasticLink] = field(default_factory=list)
    rigid_links: list[RigidLink] = field(default_factory=list)
    link_properties: list[LinkProperty] = field(default_factory=list)  # a name may come twice
    links: list[Link] = field(default_factory=list)
    masses: list[tuple[int, Vector, Vector]] = field(default_factory=list)  # node, masses, moments of inertia
    cases: dict[int, LoadCase] = field(default_factory=dict)  # by load set
    combinations: dict[int, list[tuple[int, float]]] = field(default_factory=dict)  # load sets and factors
    modes: int | None = None  # how many are wanted


class Form:
    """A line with places: {i} whole number, {r} real number, {d} six digits of 0 and 1, {w} word; {i5} is padded with
    blanks to five columns."""

    PLACES = {
        "i": (r"-?\d+", int),
        "r": (r"-?(?:\d+(?:\.\d+)?(?:e[+-]\d\d+)?|inf|nan)", float),
        "d": (r"[01]{6}", str),
        "w": (r"[A-Z]+", str),
    }

    def __init__(self, template: str):
        pieces = re.split(r"\{(.)(\d*)\}", template)
        pattern = re.escape(pieces[0])
        self.readers = []
        for kind, width, literal in zip(pieces[1::3], pieces[2::3], pieces[3::3]):
            value, convert = self.PLACES[kind]
            pattern += f"( *{value})" if width else f"({value})"
            pattern += re.escape(literal)
            self.readers.append((convert, int(width or 0)))
        self.pattern = re.compile(pattern)

    def read(self, line: str) -> list[Any] | None:
        match = self.pattern.fullmatch(line)
        if not match:
            return None
        values = []
        for text, (convert, width) in zip(match.groups(), self.readers):
            if text != text.strip().rjust(width):
                return None
            values.append(convert(text))
        return values


def forms(*templates: str) -> list[Form]:
    return [Form(template) for template in templates]


LEVEL = forms("  {i}.{i}.{i}")
NODE = forms("  {i}, {r}, {r}, {r}")
ELEMENT = forms(
    "  {i}, {w}, {i}, {i}, {i}, {i}, 0",
    "  {i}, {w}, {i}, {i}, {i}, {i}, REF, {r}, {r}, {r}",
    "  {i}, {w}, {i}, {i}, {i}, {i}",
    "{i}, {w}, {i}, {i}, {i}, {i}, {i}, {i}, 1",
    "{i}, SOLID, {i}, 0, {i}, {i}, {i}, {i}, {i}, {i}, {i}, {i}",
)
ELEMENT_KINDS = [["TRUSS"], ["BEAM"], ["BEAM"], ["PLATE", "PLSTRS"]]
MATERIAL = [
    ("ISOTROPIC", ["E", "NU", "ALPHA"], Form("{i},USER,MAT{i},0,0,2,{r},{r},{r},0")),
    (
        "ORTHOTROPIC",
        ["E1", "E2", "ALPHA1", "ALPHA2", "G12", "G1Z", "G2Z", "NU12"],
        Form("{i},USER,MAT{i},0,0,3,{r},{r},1e-05,{r},{r},0,{r},{r},{r},{r},0,0,0"),
    ),
    ("THERMAL", ["CP", "K"], Form("{i},USER,MAT{i},{r},{r},2,1e-05,0,0,0")),
]
SHAPES = [
    (shape, Form(f"  {{i}}, DBUSER, SECT{{i}}, CC, {shape}, 2" + ", {r}" * count + ", 0" * (8 - count)))
    for shape, count in [("SB", 2), ("B", 4), ("SR", 1), ("P", 2), ("H", 6), ("C", 4), ("T", 4)]
]
VALUE = forms("  {i}, VALUE, SECT{i}, CC, SB, BUILT, {r}, {r}, 0, 0, 0, 0, 0, 0")
VALUE_STIFFNESS = forms("       {r}, {r}, {r}, {r}, {r}, {r}")
TAPERED = forms("  {i}, TAPERED, SECT{i}, CC, SB,  1,  1, VALUE")
END = forms("    {r}, {r}, 0, 0, 0, 0, 0, 0")
END_STIFFNESS = forms("    {r}, {r}, {r}, {r}, {r}, {r}")
CLOSING = [forms("    0" + ", 0" * 9), forms("    0" + ", 0" * 7)]
THICKNESS = forms("{i5}, VALUE, YES, {r}, {r}", "{i5}, VALUE, NO, {r}, 0")
SUPPORT = forms("{i5}, {d}")
AXES = forms(" {i}, 2" + ", {r}" * 9)
ELASTIC_LINK = forms("{i}, {i}, GEN  , 0" + ", {r}" * 6 + ", NO, 0.5, 0.5, ")
GROUND_SPRING = forms("{i}" + ", {r}" * 6 + ", ")
EQUATION = forms(" {i}, {d}, {i},", " {i}, , {i},")
RIGID_LINK = re.compile(r"(-?\d+), ([01]{6}),((?:-?\d+ )*)(\\|, )")
SLAVES = re.compile(r"((?:-?\d+ )*)(\\|, )")
LINK_PROPERTY = forms(
    " GPROP{i}, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  ",
    " GPROP{i}, FORCE, GAP, 0., NO, 0., NO, 0.5, 0.5,  ",
    " GPROP{i}, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, ",
)
LINK_KINDS = ["SLD", "GAP", "SPG"]
LINEAR = forms(" {w}, {r}, {r}, NO")
GAP = forms(" {w}, {r}, 0., {w}, {r}, {r}")
LINK = forms("{i}, {i}, {i}, GPROP{i}, , 1, 0, 0, 0, 0, ", " {i}, {i}, {i}, GPROP{i}, , 0, {r}, ")
MASS = forms("  {i}" + ", {r}" * 6)
CASE_NAME = forms("STLD{i},  USER,  ")
USE_CASE = forms("*USE-STLD, STLD{i}")
CASE_END = forms("; End of data for load case [STLD{i}] -------------------------")
SELF_WEIGHT = forms("*SELFWEIGHT, {r}, {r}, {r}")
NODAL_LOAD = forms("{i5},  {r}, {r}, {r}, {r}, {r}, {r}")
BEAM_LOAD = forms("{i5}, BEAM, {w10}, {w5}, {w5},   {r5}, {r5}, {r5}, {r5},     0,     0,     0,     0")
PRESSURE = forms(
    "{i}, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, {r}, 0, 0, 0, 0, ",
    "{i}, PRES , PLATE, FACE, LZ, 0, 0, 0, NO, 0, {r}, {r}, {r}, {r}, ",
    "{i}, PRES , PLATE, FACE, VECTOR, {r}, {r}, {r}, NO, 0, {r}, {r}, {r}, {r}, ",
    "{i}, PRES , SOLID, {i}, NORMAL, 0, 0, 0, NO, 0, {r}, {r}, {r}, {r}, ",
    "{i}, PRES , SOLID, {i}, VECTOR, {r}, {r}, {r}, NO, 0, {r}, {r}, {r}, {r}, ",
)
TEMPERATURE = forms("{i5},  {r},")
GRADIENT = forms("{i5}, 2, {r}, YES, 0,")
DISPLACEMENT = forms("{i5},  {d}" + ", {r}" * 6)
COMBINATION = forms("  NAME=LCB{i}, GEN, ACTIVE, 0, ")
SHARE = Form("ST, STLD{i}, {r}")
MODES = forms("  EIGEN, {i}, 20, 0, 1e-010")


class Reader:
    """The lines of a file, of which each is taken once."""

    def __init__(self, text: str):
        self.lines = text.split("\n")
        self.at = 0
        self.level = ""
        self.model = Model()
        self.case: LoadCase | None = None
        if self.lines.pop() != "":
            self.fail("the last line isn't ended")

    def fail(self, why: str) -> NoReturn:
        raise FormatError(f"line {self.at + 1}: {why}")

    def take(self, choices: list[Form]) -> tuple[int, list[Any]] | None:
        """The number of the first form that the next line has, and its values; None if it has none of them."""
        if self.at == len(self.lines):
            return None
        for number, form in enumerate(choices):
            values = form.read(self.lines[self.at])
            if values is not None:
                self.at += 1
                return number, values
        return None

    def expect(self, choices: list[Form]) -> list[Any]:
        taken = self.take(choices)
        if taken is None:
            self.fail("a line of another form is missing")
        return taken[1]

    def all(self, choices: list[Form]) -> Iterator[tuple[int, list[Any]]]:
        while taken := self.take(choices):
            yield taken

    def same(self, *numbers: object) -> None:
        if len(set(numbers)) != 1:
            self.fail(f"differ: {numbers}")

    def read(self) -> Model:
        while self.at < len(self.lines):
            if self.lines[self.at] == "*VERSION":
                self.at += 1
                self.level = ".".join(map(str, self.expect(LEVEL)))
            elif taken := self.take(USE_CASE):
                self.case = self.model.cases.get(taken[1][0])
            elif self.take(CASE_END):
                self.case = None
            elif taken := self.take(SELF_WEIGHT):
                self.load_case().self_weight = vector(taken[1])
            elif self.lines[self.at] == "":  # behind a section, or where one has no lines
                self.at += 1
            else:
                self.read_section()
        return self.model

    def read_section(self) -> None:
        keyword = re.sub(" +;.*", "", self.lines[self.at])
        if keyword not in SECTIONS:
            self.fail("no section begins so, or its lines have no such form")
        level, read_lines = SECTIONS[keyword]
        if level != self.level:
            self.fail(f"{keyword} needs level {level}")
        self.at += 1
        while self.at < len(self.lines) and self.lines[self.at].startswith(";"):
            self.at += 1
        read_lines(self)

    def load_case(self) -> LoadCase:
        if self.case is None:
            self.fail("a load of no case")
        return self.case

    def read_nodes(self) -> None:
        for _, (node, x, y, z) in self.all(NODE):
            self.model.nodes[node] = (x, y, z)

    def read_elements(self) -> None:
        for form, values in self.all(ELEMENT):
            if form == 4:
                number, material, *nodes = values
                corners = 4 if not any(nodes[4:]) else 6 if not any(nodes[6:]) else 8
                element = Element(number, "SOLID", material, 0, tuple(nodes[:corners]))
            else:
                number, kind, material, owned, *rest = values
                if kind not in ELEMENT_KINDS[form]:
                    self.fail(f"not of this form: {kind}")
                corners = 2 if form < 3 else 4 if rest[3] else 3
                reference = vector(rest[2:5]) if form == 1 else None
                element = Element(number, kind, material, owned, tuple(rest[:corners]), reference)
            self.model.elements.setdefault(element.kind, []).append(element)

    def read_materials(self) -> None:
        while taken := self.take([form for _, _, form in MATERIAL]):
            number, values = taken
            kind, names, _ = MATERIAL[number]
            self.same(values[0], values[1])
            self.model.materials[values[0]] = Material(kind, dict(zip(names, values[2:])))

    def read_sections(self) -> None:
        choices = [form for _, form in SHAPES] + VALUE + TAPERED
        for form, (owned, name, *sizes) in self.all(choices):
            self.same(owned, name)
            if form < len(SHAPES):
                section = Section("DBUSER", SHAPES[form][0], tuple(sizes))
            elif form == len(SHAPES):
                section = Section("VALUE", ends=(self.read_stiffness(sizes, VALUE_STIFFNESS),))
            else:
                ends = [self.read_stiffness(self.expect(END), END_STIFFNESS) for _ in range(2)]
                section = Section("TAPERED", ends=tuple(ends))
            self.model.sections[owned] = section

    def read_stiffness(self, sides: list[float], values: list[Form]) -> Stiffness:
        stiffness = Stiffness(sides[0], *self.expect(values))
        for closing in CLOSING:
            self.expect(closing)
        return stiffness

    def read_thicknesses(self) -> None:
        for form, (owned, plane, *bending) in self.all(THICKNESS):
            self.model.thicknesses[owned] = Thickness(plane, None if form else bending[0])

    def read_supports(self) -> None:
        self.model.supports += [(node, held) for _, (node, held) in self.all(SUPPORT)]

    def read_axes(self) -> None:
        for _, (node, *p) in self.all(AXES):
            self.model.axes[node] = (vector(p[:3]), vector(p[3:6]), vector(p[6:]))

    def read_elastic_links(self) -> None:
        for _, (first, second, *k) in self.all(ELASTIC_LINK):
            self.model.elastic_links.append(ElasticLink((first, second), tuple(k)))

    def read_ground_springs(self) -> None:
        for _, (node, *k) in self.all(GROUND_SPRING):
            self.model.elastic_links.append(ElasticLink((node,), tuple(k)))

    def read_rigid_links(self) -> None:
        for form, (master, *tied, slave) in self.all(EQUATION):
            self.model.rigid_links.append(RigidLink(master, tied[0] if form == 0 else "000000", [slave]))
        while self.at < len(self.lines) and (match := RIGID_LINK.fullmatch(self.lines[self.at])):
            node, components, listed, last = match.groups()
            slaves = listed.split()
            self.at += 1
            while last == "\\":
                more = SLAVES.fullmatch(self.lines[self.at]) if self.at < len(self.lines) else None
                if not more:
                    self.fail("a list of nodes doesn't go on")
                self.at += 1
                slaves += more[1].split()
                last = more[2]
            self.model.rigid_links.append(RigidLink(int(node), components, [int(slave) for slave in slaves]))

    def read_link_properties(self) -> None:
        for form, (number,) in self.all(LINK_PROPERTY):
            owned = LinkProperty(f"GPROP{number}", LINK_KINDS[form])
            for _ in range(6):
                active, stiffness, *rest = self.expect(GAP if owned.kind == "GAP" else LINEAR)
                owned.stiffness.append(stiffness)
                if owned.kind == "GAP":
                    self.same(active, rest[0])
                    owned.opening.append(rest[2])
                else:
                    owned.damping.append(rest[0])
                if (active == "YES") != (stiffness != 0 or rest[0] not in ("NO", 0.0)):
                    self.fail("a component that is and isn't there")
            self.model.link_properties.append(owned)

    def read_links(self) -> None:
        spring = not self.lines[self.at - 1].startswith(";")
        for form, (number, first, second, owned, *angle) in self.all(LINK):
            link = Link(number, (first, second), f"GPROP{owned}", angle[0] if form else None, spring)
            self.model.links.append(link)

    def read_masses(self) -> None:
        for _, (node, *m) in self.all(MASS):
            self.model.masses.append((node, vector(m[:3]), vector(m[3:])))

    def read_case_names(self) -> None:
        for _, (number,) in self.all(CASE_NAME):
            self.model.cases[number] = LoadCase()

    def read_nodal_loads(self) -> None:
        for _, (node, *f) in self.all(NODAL_LOAD):
            self.load_case().nodal.append(NodalLoad(node, vector(f[:3]), vector(f[3:])))

    def read_beam_loads(self) -> None:
        for _, (element, load, direction, projected, *values) in self.all(BEAM_LOAD):
            words = (load.strip(), direction.strip(), projected.strip() == "YES")
            self.load_case().beams.append(BeamLoad(element, *words, *values))

    def read_pressures(self) -> None:
        for form, (element, *values) in self.all(PRESSURE):
            face = values.pop(0) if form > 2 else None
            direction = vector(values[:3]) if form in (2, 4) else None
            corners = tuple(values * 4 if form == 0 else values[-4:])
            self.load_case().pressures.append(Pressure(element, face, direction, corners))

    def read_node_temperatures(self) -> None:
        self.load_case().node_temperatures += [(number, value) for _, (number, value) in self.all(TEMPERATURE)]

    def read_element_temperatures(self) -> None:
        self.load_case().element_temperatures += [(number, value) for _, (number, value) in self.all(TEMPERATURE)]

    def read_gradients(self) -> None:
        self.load_case().gradients += [(element, value) for _, (element, value) in self.all(GRADIENT)]

    def read_displacements(self) -> None:
        for _, (node, moved, *values) in self.all(DISPLACEMENT):
            self.load_case().displacements.append((node, moved, tuple(values)))

    def read_combinations(self) -> None:
        for _, (number,) in self.all(COMBINATION):
            line = self.lines[self.at] if self.at < len(self.lines) else ""
            shares = [SHARE.read(text) for text in re.split(", (?=ST,)", line[1:])]
            if not line.startswith(" ") or None in shares:
                self.fail("no load sets and factors")
            self.at += 1
            self.model.combinations[number] = [(share[0], share[1]) for share in shares if share]

    def read_modes(self) -> None:
        self.model.modes = self.expect(MODES)[0]


FILE, OF_SECTIONS, OF_LINKS = "5.8.1", "6.3.1", "6.4.1"
SECTIONS = {  # keyword: level, what reads the lines
    "*NODE": (FILE, Reader.read_nodes),
    "*ELEMENT": (FILE, Reader.read_elements),
    "*MATERIAL": (FILE, Reader.read_materials),
    "*SECTION": (OF_SECTIONS, Reader.read_sections),
    "*THICKNESS": (FILE, Reader.read_thicknesses),
    "*CONSTRAINT": (FILE, Reader.read_supports),
    "*LOCALAXIS": (FILE, Reader.read_axes),
    "*ELASTICLINK": (FILE, Reader.read_elastic_links),
    "*SPRING": (FILE, Reader.read_ground_springs),
    "*RIGIDLINK": (FILE, Reader.read_rigid_links),
    "*NL-PROP": (OF_LINKS, Reader.read_link_properties),
    "*NL-LINK": (OF_LINKS, Reader.read_links),
    "*NODALMASS": (FILE, Reader.read_masses),
    "*STLDCASE": (FILE, Reader.read_case_names),
    "*CONLOAD": (FILE, Reader.read_nodal_loads),
    "*BEAMLOAD": (FILE, Reader.read_beam_loads),
    "*PRESSURE": (FILE, Reader.read_pressures),
    "*NDTEMPER": (FILE, Reader.read_node_temperatures),
    "*ELTEMPER": (FILE, Reader.read_element_temperatures),
    "*THERGRAD": (FILE, Reader.read_gradients),
    "*SPDISP": (FILE, Reader.read_displacements),
    "*LOADCOMB": (FILE, Reader.read_combinations),
    "*EIGEN-CTRL": (FILE, Reader.read_modes),
}


def read(path: str) -> Model:
    """The model of a file. Raises FormatError with the line, or OSError."""
    with open(path, encoding="ascii", errors="replace", newline="") as file:
        return Reader(file.read()).read()


def main() -> int:
    paths = [argument for argument in sys.argv[1:] if argument != "--sums"]
    if len(paths) != 1:
        print(__doc__.split("\n\n")[1], file=sys.stderr)
        return 2
    try:
        model = read(paths[0])
    except (OSError, FormatError) as error:
        print(f"{paths[0]}: {error}", file=sys.stderr)
        return 1
    if "--sums" in sys.argv:
        from sum_zdt import sums

        for (group, name), total in sums(model).items():
            print(f"{group + ': ' + name:44} {total.value:.7g}")
    else:
        for name, part in vars(model).items():
            print(f"{name:20} {part if part is None or isinstance(part, int) else len(part)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
