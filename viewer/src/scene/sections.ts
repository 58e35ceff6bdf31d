// Bars as the bodies of their sections, where the file knows their dimensions.

import { Kind, type Model } from "../data/model";
import type { Property } from "../data/report";
import type { FaceMesh } from "./faces";
import { type Axes, cross, subtract, unit, type Vector } from "./vectors";

/** A section's outline: along the height, in plane 1 of the deck, and along the width. */
type Outline = [height: number, width: number][];

function rectangle(height: number, width: number): Outline {
  return [[-height / 2, -width / 2], [-height / 2, width / 2], [height / 2, width / 2], [height / 2, -width / 2]];
}

function circle(diameter: number): Outline {
  return Array.from({ length: 12 }, (_, i) => {
    const angle = (i * Math.PI) / 6;
    return [(Math.sin(angle) * diameter) / 2, (Math.cos(angle) * diameter) / 2];
  });
}

function flanged(height: number, top: number, web: number, topThick: number, bottom: number, bottomThick: number): Outline {
  const [up, down, w] = [height / 2, -height / 2, web / 2];
  return [
    [down, -bottom / 2], [down, bottom / 2], [down + bottomThick, bottom / 2], [down + bottomThick, w],
    [up - topThick, w], [up - topThick, top / 2], [up, top / 2], [up, -top / 2],
    [up - topThick, -top / 2], [up - topThick, -w], [down + bottomThick, -w], [down + bottomThick, -bottom / 2],
  ];
}

function channel(height: number, width: number, web: number, flange: number): Outline {
  const [up, down, left, right] = [height / 2, -height / 2, -width / 2, width / 2];
  return [
    [down, left], [down, right], [down + flange, right], [down + flange, left + web],
    [up - flange, left + web], [up - flange, right], [up, right], [up, left],
  ];
}

function tee(height: number, width: number, web: number, flange: number): Outline {
  const [up, down] = [height / 2, -height / 2];
  return [
    [down, -web / 2], [down, web / 2], [up - flange, web / 2], [up - flange, width / 2],
    [up, width / 2], [up, -width / 2], [up - flange, -width / 2], [up - flange, -web / 2],
  ];
}

/** The outline of a section at both ends, null if its dimensions aren't known. */
export function outlinesOf(property: Property): [Outline, Outline] | null {
  const { form, side, sideB, shape } = property;
  if (form === "value" && side) return [rectangle(side, side), rectangle(side, side)];
  if (form === "tapered" && side && sideB) return [rectangle(side, side), rectangle(sideB, sideB)];
  const d = (property.dimensions ?? []).map((value) => value ?? 0);
  if (form !== "shape" || !(d[0] > 0)) return null;
  const outline = ((): Outline | null => {
    switch (shape) {
      case "rectangle":
      case "box":
        return rectangle(d[0], d[1]);
      case "round":
      case "pipe":
        return circle(d[0]);
      case "i":
        return flanged(d[0], d[1], d[2], d[3], d[4], d[5]);
      case "h":
        return flanged(d[0], d[1], d[2], d[3], d[1], d[3]);
      case "channel":
        return channel(d[0], d[1], d[2], d[3]);
      case "t":
        return tee(d[0], d[1], d[2], d[3]);
      default:
        return null;
    }
  })();
  return outline && [outline, outline];
}

/**
 * The axes of a line part: along it, up in plane 1 of the deck, and the third, which is towards its reference point.
 * Null for one without length.
 */
export function axesOf(model: Model, part: number): Axes | null {
  const [a, b] = model.cornersOf(part);
  const place = (node: number): Vector => [model.places[3 * node], model.places[3 * node + 1], model.places[3 * node + 2]];
  const along = unit(subtract(place(b), place(a)));
  if (!along) return null;
  const beam = model.beamOf.get(part);
  let towards: Vector | null = null;
  if (beam !== undefined) {
    const reference = Array.from(model.references.subarray(3 * beam, 3 * beam + 3)) as Vector;
    towards = unit(subtract(reference, place(a)));
  }
  towards ??= Math.abs(along[2]) < 0.9 ? [0, 0, 1] : [0, 1, 0];
  const up = unit(cross(towards, along)) ?? unit(cross(Math.abs(along[0]) < 0.9 ? [1, 0, 0] : [0, 1, 0], along));
  return up && { along, up, third: cross(along, up) };
}

const MOST_BODIES = 200000;

/** The sides of the bodies of all visible line parts with a known section. */
export function extrude(model: Model, properties: Property[], isVisible: (part: number) => boolean): FaceMesh {
  const outlines = new Map(properties.map((property) => [property.id, outlinesOf(property)]));
  const positions: number[] = [];
  const parts: number[] = [];
  let bodies = 0;
  for (let part = 0; part < model.partCount && bodies < MOST_BODIES; ++part) {
    const kind = model.kinds[part];
    if ((kind !== Kind.Truss && kind !== Kind.Beam) || !isVisible(part)) continue;
    const both = outlines.get(model.properties[part]);
    const axes = both ? axesOf(model, part) : null;
    if (!both || !axes) continue;
    ++bodies;
    const ends = Array.from(model.cornersOf(part));
    const point = (end: number, i: number): number[] => {
      const [height, width] = both[end][i];
      return [0, 1, 2].map((k) => model.places[3 * ends[end] + k] + height * axes.up[k] + width * axes.third[k]);
    };
    for (let i = 0; i < both[0].length; ++i) {
      const next = (i + 1) % both[0].length;
      positions.push(...point(0, i), ...point(1, i), ...point(1, next), ...point(0, next));
      parts.push(part);
    }
  }
  return { positions: new Float32Array(positions), triangle: new Uint8Array(parts.length), parts: new Uint32Array(parts) };
}
