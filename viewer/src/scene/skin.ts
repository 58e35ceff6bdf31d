// The faces that are drawn of a model: those of shells, and of solids the ones that no other visible solid shares.

import { Cell, FACES, type Model } from "../data/model";

export interface Faces {
  /** Four corners of each face, places among the nodes; a triangle repeats its last. */
  corners: Uint32Array;
  /** The part that each face belongs to. */
  parts: Uint32Array;
}

/** Pairs faces by their corners, whatever the order. */
class FaceTable {
  private readonly slots: Int32Array;
  private readonly mask: number;

  constructor(
    private readonly sorted: Uint32Array,
    faces: number,
  ) {
    let size = 16;
    while (size < faces * 2) size *= 2;
    this.slots = new Int32Array(size).fill(-1);
    this.mask = size - 1;
  }

  /** The face that is there already with the corners of this one, -1 if it is the first. */
  add(face: number): number {
    const s = this.sorted;
    const at = 4 * face;
    let hash = Math.imul(s[at], 0x9e3779b1) ^ Math.imul(s[at + 1], 0x85ebca6b) ^ Math.imul(s[at + 2], 0xc2b2ae35);
    hash ^= hash >>> 15;
    for (let slot = hash & this.mask; ; slot = (slot + 1) & this.mask) {
      const other = this.slots[slot];
      if (other < 0) {
        this.slots[slot] = face;
        return -1;
      }
      const to = 4 * other;
      if (s[at] === s[to] && s[at + 1] === s[to + 1] && s[at + 2] === s[to + 2] && s[at + 3] === s[to + 3]) return other;
    }
  }
}

function sortFour(s: Uint32Array, at: number): void {
  for (let i = at + 1; i < at + 4; ++i) {
    for (let j = i; j > at && s[j - 1] > s[j]; --j) {
      const swap = s[j];
      s[j] = s[j - 1];
      s[j - 1] = swap;
    }
  }
}

/** All faces of parts that are visible and whose corners have a place. */
export function findFaces(model: Model, isVisible: (part: number) => boolean): Faces {
  const isPlaced = (node: number) => !Number.isNaN(model.places[3 * node] + model.places[3 * node + 1] + model.places[3 * node + 2]);
  let most = 0;
  for (let part = 0; part < model.partCount; ++part) most += FACES[model.cells[part]]?.length ?? 0;
  const corners = new Uint32Array(most * 4);
  const parts = new Uint32Array(most);
  let count = 0;
  let solids = 0;
  for (const wantSolids of [true, false]) {
    for (let part = 0; part < model.partCount; ++part) {
      const cell = model.cells[part];
      if (cell < Cell.Tria || cell >= Cell.Tetra !== wantSolids || !isVisible(part)) continue;
      const own = model.cornersOf(part);
      if (!own.every(isPlaced)) continue;
      for (const face of FACES[cell]) {
        for (let i = 0; i < 4; ++i) corners[4 * count + i] = own[face[Math.min(i, face.length - 1)]];
        parts[count++] = part;
      }
    }
    if (wantSolids) solids = count;
  }
  if (solids === 0) return { corners, parts: parts.subarray(0, count) };

  const sorted = corners.slice(0, solids * 4);
  for (let face = 0; face < solids; ++face) {
    if (sorted[4 * face + 3] === sorted[4 * face + 2]) sorted[4 * face + 3] = 0xffffffff; // a triangle has three
    sortFour(sorted, 4 * face);
  }
  const table = new FaceTable(sorted, solids);
  const shared = new Uint8Array(solids);
  for (let face = 0; face < solids; ++face) {
    const other = table.add(face);
    if (other >= 0) shared[face] = shared[other] = 1;
  }
  let kept = 0;
  for (let face = 0; face < count; ++face) {
    if (face < solids && shared[face]) continue;
    corners.copyWithin(4 * kept, 4 * face, 4 * face + 4);
    parts[kept++] = parts[face];
  }
  return { corners: corners.slice(0, kept * 4), parts: parts.slice(0, kept) };
}
