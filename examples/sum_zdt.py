"""Adds up what a ZDT file says, under the names that 'nas2zdt --check' gives its sums of the file; docs/check.md tells
what each of them is."""

from __future__ import annotations

import math
from collections import defaultdict
from dataclasses import dataclass
from typing import Callable, Iterator, Sequence

from read_zdt import BeamLoad, Element, Model, Pressure, Vector

AXES = "xyz"
BASIC = ((1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0))
GAUSS = (-1 / math.sqrt(3), 1 / math.sqrt(3))
INSIDE = ((2 / 3, 1 / 6, 1 / 6), (1 / 6, 2 / 3, 1 / 6), (1 / 6, 1 / 6, 2 / 3))  # points of a triangle
# Corners of the faces of a solid, by its number of corners. They begin at number 1, which goes round so that its normal
# points inwards; those of the others point outwards.
FACES = {
    4: ((0, 1, 2), (0, 1, 3), (1, 2, 3), (2, 0, 3)),
    6: ((0, 1, 2), (3, 4, 5), (0, 1, 4, 3), (1, 2, 5, 4), (2, 0, 3, 5)),
    8: ((0, 1, 2, 3), (4, 5, 6, 7), (0, 1, 5, 4), (1, 2, 6, 5), (2, 3, 7, 6), (3, 0, 4, 7)),
}
FORMS = {
    ("TRUSS", 2): "rods",
    ("BEAM", 2): "beams",
    ("PLATE", 3): "triangles",
    ("PLATE", 4): "quads",
    ("PLSTRS", 4): "shear panels",
    ("SOLID", 4): "tetrahedra",
    ("SOLID", 6): "wedges",
    ("SOLID", 8): "hexahedra",
}
MEASURES = {"TRUSS": "length of rods and beams", "BEAM": "length of rods and beams", "SOLID": "volume of solids"}


@dataclass
class Total:
    value: float = 0.0
    size: float = 0.0  # of what was added up, in whose digits the value is known


Totals = dict[tuple[str, str], Total]


def minus(a: Vector, b: Vector) -> Vector:
    return (a[0] - b[0], a[1] - b[1], a[2] - b[2])


def cross(a: Vector, b: Vector) -> Vector:
    return (a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0])


def dot(a: Sequence[float], b: Sequence[float]) -> float:
    return sum(x * y for x, y in zip(a, b))


def times(a: Vector, factor: float) -> Vector:
    return (a[0] * factor, a[1] * factor, a[2] * factor)


def combine(weights: Sequence[float], points: Sequence[Vector]) -> Vector:
    x, y, z = zip(*points)
    return (dot(weights, x), dot(weights, y), dot(weights, z))


def surface(corners: Sequence[Vector]) -> Iterator[tuple[Sequence[float], Vector]]:
    """Points of a triangle or of the bilinear surface of a quad: weights of the corners, and a normal by the right hand
    rule whose length is the point's share of the area."""
    if len(corners) == 3:
        normal = times(cross(minus(corners[1], corners[0]), minus(corners[2], corners[0])), 1 / 6)
        for weights in INSIDE:
            yield weights, normal
        return
    signs = ((-1, -1), (1, -1), (1, 1), (-1, 1))
    for r in GAUSS:
        for s in GAUSS:
            shares = [(1 + a * r) * (1 + b * s) / 4 for a, b in signs]
            along = combine([a * (1 + b * s) / 4 for a, b in signs], corners)
            across = combine([b * (1 + a * r) / 4 for a, b in signs], corners)
            yield shares, cross(along, across)


def volume(corners: Sequence[Vector]) -> float:
    """By the theorem of Gauss: the flux of the position through the faces, a third of it. It is negative inside out."""
    middle = combine([1 / len(corners)] * len(corners), corners)
    total = 0.0
    for number, places in enumerate(FACES[len(corners)], 1):
        face = [minus(corners[place], middle) for place in places]
        flux = sum(dot(combine(weights, face), normal) for weights, normal in surface(face))
        total += -flux if number == 1 else flux
    return total / 3


def measure(element: Element, corners: Sequence[Vector]) -> float:
    if element.kind in ("TRUSS", "BEAM"):
        return math.dist(*corners)
    if element.kind == "SOLID":
        return volume(corners)
    return sum(math.hypot(*normal) for _, normal in surface(corners))


class Summing:
    def __init__(self, model: Model):
        self.model = model
        self.totals: Totals = defaultdict(Total)
        self.elements: dict[int, Element] = {}
        for element in (element for kind in model.elements.values() for element in kind):
            self.elements.setdefault(element.id, element)

    def add(self, group: str, name: str, value: float = 1.0, size: float | None = None) -> None:
        total = self.totals[group, name]
        total.value += value
        total.size += abs(value) if size is None else size

    def add_vector(self, group: str, name: str, value: Vector) -> None:
        for axis, part in zip(AXES, value):
            self.add(group, f"{name} {axis}", part, math.hypot(*value))

    def corners(self, element: Element) -> list[Vector] | None:
        if any(node not in self.model.nodes for node in element.nodes):
            return None
        return [self.model.nodes[node] for node in element.nodes]

    def add_nodes(self) -> None:
        positions = list(self.model.nodes.values())
        self.add("nodes", "count", len(positions))
        size = max((math.hypot(*position) for position in positions), default=0.0)
        for axis, values in zip(AXES, zip(*positions)):
            self.add("nodes", f"lowest {axis}", min(values), size)
            self.add("nodes", f"highest {axis}", max(values), size)
        for origin, on_x, in_plane in self.model.axes.values():
            x = minus(on_x, origin)
            z = cross(x, minus(in_plane, origin))
            turned = (times(a, 1 / math.hypot(*a)) for a in (x, cross(z, x), z))
            if any(math.dist(a, b) > 1e-5 for a, b in zip(turned, BASIC)):
                self.add("nodes", "with axes of their own")

    def add_elements(self) -> None:
        for element in (element for kind in self.model.elements.values() for element in kind):
            self.add("elements", FORMS[element.kind, len(element.nodes)])
            owners = [("property", element.property), ("material", element.material)]
            groups = [f"{kind} {owner}" for kind, owner in owners if owner]  # 0 is none
            for group in groups:
                self.add(group, "elements")
            if corners := self.corners(element):
                size = measure(element, corners)
                self.add("elements", MEASURES.get(element.kind, "area of plates"), size)
                if element.property:
                    self.add(groups[0], "length or area", size)
        self.add("elements", "springs", len(self.model.elastic_links))
        for link in self.model.links:
            self.add("elements", "springs" if link.spring else "bushes and gaps")

    def add_masses(self) -> tuple[float, Vector]:
        """The mass, and the sum of mass times position."""
        masses = [
            (m[0], self.model.nodes[node], inertia)
            for node, m, inertia in self.model.masses
            if node in self.model.nodes
        ]
        mass = sum(m for m, _, _ in masses)
        moment = combine([m for m, _, _ in masses], [at for _, at, _ in masses]) if masses else (0.0, 0.0, 0.0)
        if not masses:
            return mass, moment
        self.add("mass", "masses at nodes", len(masses))
        self.add("mass", "of those", mass)
        self.add("mass", "total", mass)
        if mass == 0:
            return mass, moment
        centre = times(moment, 1 / mass)
        for i, axis in enumerate(AXES):
            j, k = (n for n in range(3) if n != i)
            size = sum(abs(m) * math.hypot(*at) for m, at, _ in masses)
            self.add("mass", f"centre of gravity {axis}", centre[i], size / abs(mass))
            about = sum(m * (at[j] ** 2 + at[k] ** 2) + inertia[i] for m, at, inertia in masses)
            mixed = sum(m * at[j] * at[k] for m, at, _ in masses)
            size = sum(abs(m) * dot(at, at) + sum(abs(part) for part in inertia) for m, at, inertia in masses)
            self.add("mass", f"I{axis}{axis} about it", about - mass * (centre[j] ** 2 + centre[k] ** 2), size)
            self.add("mass", f"I{AXES[j]}{AXES[k]} about it", mixed - mass * centre[j] * centre[k], size)
        return mass, moment

    def add_ties(self) -> None:
        held: dict[int, int] = defaultdict(int)
        for node, components in self.model.supports:
            if node in self.model.nodes:
                held[node] |= int(components, 2)
        for bits in held.values():
            self.add("supports", "nodes", bits != 0)
            for component in range(1, 7):
                self.add("supports", f"component {component}", bits >> (6 - component) & 1)
        for link in self.model.rigid_links:
            slaves = [node for node in link.slaves if node in self.model.nodes and link.master in self.model.nodes]
            self.add("rigid links", "components tied", len(slaves) * link.components.count("1"))

    def add_loads(self, mass: float, moment: Vector) -> None:
        for number, case in self.model.cases.items():
            group = f"load set {number}"

            def add_force(force: Vector, at: Vector) -> None:
                self.add_vector(group, "force", force)
                self.add_vector(group, "moment", cross(at, force))

            for load in case.nodal:
                if load.node in self.model.nodes:
                    self.add(group, "forces" if any(load.force) else "moments")
                    add_force(load.force, self.model.nodes[load.node])
                    self.add_vector(group, "moment", load.moment)
            for pressure in case.pressures:
                self.add(group, "elements under pressure", self.add_pressure(pressure, add_force))
            for spread in case.beams:
                self.add(group, "loads along beams", self.add_beam_load(group, spread, add_force))
            if case.self_weight:
                self.add_vector(group, "acceleration", case.self_weight)
                self.add_vector(group, "force", times(case.self_weight, mass))
                self.add_vector(group, "moment", cross(moment, case.self_weight))
            self.add_values(group, "nodes", {n: t for n, t in case.node_temperatures if n in self.model.nodes})
            self.add_values(group, "elements", {n: t for n, t in case.element_temperatures if n in self.elements})
            for node, _, values in case.displacements:
                for value in filter(None, values if node in self.model.nodes else ()):
                    self.add(group, "displacements")
                    self.add(group, "sum of these", value)

    def add_values(self, group: str, of: str, values: dict[int, float]) -> None:
        self.add(group, f"{of} with temperatures", len(values))
        for value in values.values():
            self.add(group, f"sum of these of {of}", value)

    def add_pressure(self, load: Pressure, add_force: Callable[[Vector, Vector], None]) -> bool:
        element = self.elements.get(load.element)
        corners = self.corners(element) if element else None
        if not corners:
            return False
        face, values, sense = corners, list(load.corners), 1.0
        if load.face is not None:
            if not 1 <= load.face <= len(FACES[len(corners)]):
                return False
            face = [corners[place] for place in FACES[len(corners)][load.face - 1]]
            values = [sum(values[: len(face)]) / len(face)] * 4
            inwards = (load.face == 1) == (volume(corners) > 0)  # whither it pushes
            sense = 1.0 if inwards else -1.0
        for weights, normal in surface(face):
            size = dot(weights, values)
            force = times(normal, size * sense)
            if load.direction:
                force = times(load.direction, size * math.hypot(*normal) / math.hypot(*load.direction))
            add_force(force, combine(weights, face))
        return True

    def add_beam_load(self, group: str, load: BeamLoad, add_force: Callable[[Vector, Vector], None]) -> bool:
        element = self.elements.get(load.element)
        corners = self.corners(element) if element else None
        if not element or not corners or len(corners) != 2:
            return False
        start, along = corners[0], minus(corners[1], corners[0])
        number = "XYZ".index(load.direction[1])
        direction = BASIC[number]
        if load.direction[0] == "L":
            y = cross(minus(element.reference or start, start), along)
            direction = (along, y, cross(along, y))[number]
        if not any(direction):
            return False
        direction = times(direction, 1 / math.hypot(*direction))
        if load.load.startswith("CON"):
            pieces = [(load.x1, load.p1)]
        else:
            seen = 1.0
            if load.projected and load.direction[0] == "G":
                seen = math.hypot(*cross(direction, along)) / math.hypot(*along)
            half = math.hypot(*along) * (load.x2 - load.x1) / 2 * seen
            shares = [(1 + place) / 2 for place in GAUSS]
            pieces = [
                (load.x1 + share * (load.x2 - load.x1), half * (load.p1 + share * (load.p2 - load.p1)))
                for share in shares
            ]
        for x, size in pieces:
            if load.load.endswith("MOMENT"):
                self.add_vector(group, "moment", times(direction, size))
            else:
                add_force(times(direction, size), combine((1.0, x), (start, along)))
        return True

    def add_combinations(self) -> None:
        for number, shares in self.model.combinations.items():
            group = f"combination {number}"
            self.add(group, "load sets", len({load_set for load_set, _ in shares}))
            for load_set, factor in shares:
                for name in (f"{kind} {axis}" for kind in ("force", "moment") for axis in AXES):
                    part = self.totals[f"load set {load_set}", name]
                    self.add(group, name, factor * part.value, abs(factor) * part.size)


def sums(model: Model) -> Totals:
    """All sums by group and name; those that are 0 may be there or not."""
    summing = Summing(model)
    summing.add_nodes()
    summing.add_elements()
    mass, moment = summing.add_masses()
    summing.add_ties()
    summing.add_loads(mass, moment)
    summing.add_combinations()
    return dict(summing.totals)
