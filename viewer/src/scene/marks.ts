// Supports, masses and springs to ground as marks.

import { Kind, type Model } from "../data/model";
import { type Form, type Glyph } from "./glyphs";
import { type Rgb, rgbOf } from "./paint";
import type { Vector } from "./vectors";

const SUPPORT = rgbOf("#1e7a3c");
const TURN = rgbOf("#3f9a5b");
const MASS = rgbOf("#7b2fbe");
const SPRING = rgbOf("#0072b2");
const AXES: Vector[] = [[1, 0, 0], [0, 1, 0], [0, 0, 1]];

export const MOST_MARKS = 60000; // of a kind

export type GlyphSets = Partial<Record<Form, Glyph[]>>;

function add(sets: GlyphSets, form: Form, glyph: Glyph): void {
  (sets[form] ??= []).push(glyph);
}

function placeOf(model: Model, node: number): Vector | null {
  const at = Array.from(model.places.subarray(3 * node, 3 * node + 3)) as Vector;
  return at.every(Number.isFinite) ? at : null;
}

/** A cone along each axis that holds the node, a ring about each that it can't turn about, one box if it is all six. */
export function supportMarks(model: Model): GlyphSets {
  const sets: GlyphSets = {};
  let left = MOST_MARKS;
  for (let node = 0; node < model.held.length && left > 0; ++node) {
    const held = model.held[node];
    const at = held === 0 ? null : placeOf(model, node);
    if (!at) continue;
    --left;
    if (held === 63) {
      add(sets, "box", { at, axis: [0, 0, 1], length: 9, width: 9, colour: SUPPORT });
      continue;
    }
    AXES.forEach((axis, i) => {
      if (held & (1 << i)) add(sets, "cone", { at, axis, length: 14, width: 10, colour: SUPPORT });
      if (held & (8 << i)) add(sets, "ring", { at, axis, length: 14, width: 14, colour: TURN });
    });
  }
  return sets;
}

/** A ball for each part that is a point. */
export function pointMarks(model: Model, isVisible: (part: number) => boolean): { glyphs: Glyph[]; parts: number[] } {
  const glyphs: Glyph[] = [];
  const parts: number[] = [];
  for (let part = 0; part < model.partCount && parts.length < MOST_MARKS; ++part) {
    const kind = model.kinds[part];
    if ((kind !== Kind.Mass && kind !== Kind.Spring) || !isVisible(part)) continue;
    const at = placeOf(model, model.cornersOf(part)[0]);
    if (!at) continue;
    glyphs.push({ at, axis: [0, 0, 1], length: 13, width: 13, colour: kind === Kind.Mass ? MASS : SPRING });
    parts.push(part);
  }
  return { glyphs, parts };
}

/** A ball at each of some nodes. */
export function nodeMarks(model: Model, nodes: Iterable<number>, colour: Rgb): Glyph[] {
  const glyphs: Glyph[] = [];
  for (const node of nodes) {
    const at = placeOf(model, node);
    if (at) glyphs.push({ at, axis: [0, 0, 1], length: 12, width: 12, colour });
    if (glyphs.length === MOST_MARKS) break;
  }
  return glyphs;
}
