// The model of the file in arrays: nodes, and parts, which are elements or legs of links.

import { readBytes, readFloats, readInts, readPlaces } from "./blocks";
import type { Report } from "./report";

/** Places of the kinds in Report.kinds. */
export const enum Kind {
  Truss,
  Beam,
  PlaneStress,
  Plate,
  Solid,
  Rigid,
  Elastic,
  General,
  Spring,
  Mass,
}

export const enum Cell {
  Point,
  Line,
  Tria,
  Quad,
  Tetra,
  Wedge,
  Hexa,
}

export const CORNERS = [1, 2, 3, 4, 4, 6, 8];

/** Faces of a solid as places among its corners, in the order of the file. */
export const FACES: Record<number, number[][]> = {
  [Cell.Tria]: [[0, 1, 2]],
  [Cell.Quad]: [[0, 1, 2, 3]],
  [Cell.Tetra]: [[0, 1, 2], [0, 1, 3], [1, 2, 3], [2, 0, 3]],
  [Cell.Wedge]: [[0, 1, 2], [3, 4, 5], [0, 1, 4, 3], [1, 2, 5, 4], [2, 0, 3, 5]],
  [Cell.Hexa]: [[0, 1, 2, 3], [4, 5, 6, 7], [0, 1, 5, 4], [1, 2, 6, 5], [2, 3, 7, 6], [3, 0, 4, 7]],
};

/** Finds the places of ids. */
class Index {
  private order: Uint32Array | null = null;

  constructor(private readonly ids: Int32Array) {}

  /** All places that have this id. */
  find(id: number): number[] {
    const order = (this.order ??= this.sort());
    let low = 0;
    let high = order.length;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.ids[order[middle]] < id) low = middle + 1;
      else high = middle;
    }
    const found: number[] = [];
    for (let i = low; i < order.length && this.ids[order[i]] === id; ++i) found.push(order[i]);
    return found;
  }

  private sort(): Uint32Array {
    const order = Uint32Array.from(this.ids, (_, i) => i);
    const ascending = this.ids.every((id, i) => i === 0 || this.ids[i - 1] <= id);
    return ascending ? order : order.sort((a, b) => this.ids[a] - this.ids[b] || a - b);
  }
}

export class Model {
  readonly nodeIds: Int32Array;
  /** x, y, z of each node from the centre; not-a-number if it has no place. */
  readonly places: Float32Array;
  readonly held: Uint8Array;
  readonly kinds: Uint8Array;
  readonly cells: Uint8Array;
  readonly partIds: Int32Array;
  readonly properties: Int32Array;
  readonly materials: Int32Array;
  /** Corners of all parts, one part behind the other; those of part i begin at cornerStart[i]. */
  readonly corners: Uint32Array;
  readonly cornerStart: Uint32Array;
  /** x, y, z of the reference point of each beam, which beamOf gives the place of. */
  readonly references: Float32Array;
  readonly beamOf: Map<number, number>;
  readonly loads: LoadRows;
  private readonly nodeIndex: Index;
  private readonly partIndex: Index;

  private constructor(blocks: Blocks) {
    this.nodeIds = blocks.nodeIds;
    this.places = interleave(blocks.nodes);
    this.held = blocks.held;
    this.kinds = blocks.kinds;
    this.cells = blocks.cells;
    this.partIds = blocks.partIds;
    this.properties = blocks.properties;
    this.materials = blocks.materials;
    this.cornerStart = new Uint32Array(this.kinds.length + 1);
    for (let i = 0; i < this.kinds.length; ++i) this.cornerStart[i + 1] = this.cornerStart[i] + CORNERS[this.cells[i]];
    this.corners = new Uint32Array(this.cornerStart[this.kinds.length]);
    const next = blocks.corners.map(() => 0);
    for (let i = 0, k = 0; i < this.kinds.length; ++i) {
      for (let c = 0; c < CORNERS[this.cells[i]]; ++c) this.corners[k++] = blocks.corners[c][next[c]++];
    }
    this.references = interleave(blocks.beams);
    this.beamOf = new Map();
    for (let i = 0; i < this.kinds.length; ++i) if (this.kinds[i] === Kind.Beam) this.beamOf.set(i, this.beamOf.size);
    this.loads = blocks.loads;
    this.nodeIndex = new Index(this.nodeIds);
    this.partIndex = new Index(this.partIds);
  }

  static async read(): Promise<Model> {
    const axes = (name: string) => Promise.all(["x", "y", "z"].map((axis) => readFloats(`${name}-${axis}`)));
    const bytes = async (id: string) => (await readBytes(id)) ?? new Uint8Array();
    return new Model({
      nodeIds: await readInts("node-id"),
      nodes: await axes("node"),
      held: await bytes("node-held"),
      kinds: await bytes("part-kind"),
      cells: await bytes("part-cell"),
      partIds: await readInts("part-id"),
      properties: await readInts("part-property"),
      materials: await readInts("part-material"),
      corners: await Promise.all([0, 1, 2, 3, 4, 5, 6, 7].map((i) => readPlaces(`corner-${i}`))),
      beams: await axes("beam"),
      loads: {
        types: await bytes("load-type"),
        codes: await bytes("load-code"),
        ids: await readInts("load-id"),
        values: await Promise.all([0, 1, 2, 3].map((i) => readFloats(`load-${i}`))),
      },
    });
  }

  get partCount(): number {
    return this.kinds.length;
  }

  cornersOf(part: number): Uint32Array {
    return this.corners.subarray(this.cornerStart[part], this.cornerStart[part + 1]);
  }

  /** Places of the nodes, elements or links with this id. */
  findNodes(id: number): number[] {
    return this.nodeIndex.find(id);
  }
  findParts(id: number): number[] {
    return id === 0 ? [] : this.partIndex.find(id);
  }

  /** The middle of a part's corners. */
  middleOf(part: number): [number, number, number] {
    const middle: [number, number, number] = [0, 0, 0];
    const from = this.cornerStart[part];
    const count = this.cornerStart[part + 1] - from;
    for (let i = 0; i < count; ++i) {
      const place = this.corners[from + i] * 3;
      for (let k = 0; k < 3; ++k) middle[k] += this.places[place + k] / count;
    }
    return middle;
  }

  /** A node's coordinates as the file has them, to the digits that the page holds. */
  coordinates(node: number, report: Report): number[] {
    return [0, 1, 2].map((k) => Number((this.places[3 * node + k] + report.centre[k]).toPrecision(7)));
  }
}

export interface LoadRows {
  types: Uint8Array;
  codes: Uint8Array;
  ids: Int32Array;
  values: Float32Array[];
}

interface Blocks {
  nodeIds: Int32Array;
  nodes: Float32Array[];
  held: Uint8Array;
  kinds: Uint8Array;
  cells: Uint8Array;
  partIds: Int32Array;
  properties: Int32Array;
  materials: Int32Array;
  corners: Uint32Array[];
  beams: Float32Array[];
  loads: LoadRows;
}

function interleave([x, y, z]: Float32Array[]): Float32Array {
  const all = new Float32Array(x.length * 3);
  for (let i = 0; i < x.length; ++i) {
    all[3 * i] = x[i];
    all[3 * i + 1] = y[i];
    all[3 * i + 2] = z[i];
  }
  return all;
}
