// The loads of a case: what they are, and as arrows.

import { FACES, type Model } from "../data/model";
import type { Report } from "../data/report";
import type { Form, Glyph } from "./glyphs";
import type { GlyphSets } from "./marks";
import { type Rgb, rgbOf } from "./paint";
import { axesOf } from "./sections";
import { cross, dot, subtract, unit, type Vector } from "./vectors";

/** A load case or combination: load sets, by their places in Report.cases, with factors. */
export interface LoadCase {
  name: string;
  shares: { place: number; factor: number }[];
}

export function loadCases(report: Report): LoadCase[] {
  const placeOf = new Map(report.cases.map((set, place) => [set.id, place]));
  const sets = report.cases
    .map((set, place) => ({ id: set.id, name: `STLD${set.id}`, shares: [{ place, factor: 1 }] }))
    .sort((a, b) => a.id - b.id);
  const sums = report.combinations.map(({ id, shares }) => ({
    name: `LCB${id}: ${shares.map(([set, factor]) => `${factor} STLD${set}`).join(" + ")}`,
    shares: shares.flatMap(([set, factor]) => {
      const place = placeOf.get(set);
      return place === undefined ? [] : [{ place, factor }];
    }),
  }));
  return [...sets, ...sums];
}

/** A load of a case on a node or an element, both by place, or on the whole model. */
export interface Load {
  type: string;
  node: number;
  part: number;
  at: Vector;
  direction: Vector | null;
  size: number;
  text: string;
}

interface Look {
  form: Form;
  colour: Rgb;
}
const LOOKS: Record<string, Look> = {
  gravity: { form: "arrow", colour: rgbOf("#8a5a2b") },
  force: { form: "arrow", colour: rgbOf("#c1121f") },
  moment: { form: "double", colour: rgbOf("#7b2fbe") },
  pressure: { form: "into", colour: rgbOf("#0a4f9e") },
  "beam load": { form: "into", colour: rgbOf("#c1121f") },
  displacement: { form: "arrow", colour: rgbOf("#1e7a3c") },
  rotation: { form: "double", colour: rgbOf("#1e7a3c") },
};

const MOST_ARROWS = 20000;
const GLOBAL: Record<string, Vector> = { GX: [1, 0, 0], GY: [0, 1, 0], GZ: [0, 0, 1] };

function show(value: number): string {
  return Number(value.toPrecision(5)).toString();
}

function average(values: number[]): number {
  return values.reduce((sum, value) => sum + value, 0) / values.length;
}

/** Reads the loads of the report's rows. */
export class Loads {
  constructor(
    private readonly model: Model,
    private readonly report: Report,
  ) {}

  /** Calls take with each load of a case. */
  walk(loadCase: LoadCase, take: (load: Load) => void): void {
    for (const { place, factor } of loadCase.shares) {
      const { first, count } = this.report.cases[place];
      for (let row = first; row < first + count; ++row) {
        const load = this.read(row, factor, row + 1 < first + count);
        if (load) take(load);
      }
    }
  }

  /** The loads on a node or on an element. */
  on(loadCase: LoadCase, isIt: (load: Load) => boolean, most = 50): Load[] {
    const found: Load[] = [];
    this.walk(loadCase, (load) => {
      if (found.length < most && isIt(load)) found.push(load);
    });
    return found;
  }

  /** Arrows of a case, the longest for the largest load of each type, and what couldn't be drawn. */
  marks(loadCase: LoadCase): { sets: GlyphSets; labels: Load[]; drawn: number; all: number } {
    const loads: Load[] = [];
    const largest = new Map<string, number>();
    this.walk(loadCase, (load) => {
      if (!load.direction || !LOOKS[load.type]) return;
      loads.push(load);
      largest.set(load.type, Math.max(largest.get(load.type) ?? 0, Math.abs(load.size)));
    });
    const step = Math.max(1, Math.ceil(loads.length / MOST_ARROWS));
    const sets: GlyphSets = {};
    let drawn = 0;
    for (let i = 0; i < loads.length; i += step) {
      const { type, at, direction, size } = loads[i];
      const look = LOOKS[type];
      const share = Math.abs(size) / (largest.get(type) || 1);
      const glyph: Glyph = { at, axis: direction as Vector, length: 20 + 50 * share, width: 10, colour: look.colour };
      (sets[look.form] ??= []).push(glyph);
      ++drawn;
    }
    const labels = [...loads].sort((a, b) => Math.abs(b.size) - Math.abs(a.size)).slice(0, 40);
    return { sets, labels, drawn, all: loads.length };
  }

  /** A value of each part that is loaded: pressures and temperatures of elements, forces and temperatures at corners. */
  valuesOfParts(loadCase: LoadCase): Map<number, number> {
    const values = new Map<number, number>();
    const atNodes = new Float32Array(this.model.nodeIds.length);
    const isLoaded = new Uint8Array(this.model.nodeIds.length);
    this.walk(loadCase, (load) => {
      if (load.part >= 0) values.set(load.part, (values.get(load.part) ?? 0) + load.size);
      if (load.node < 0) return;
      atNodes[load.node] += load.size;
      isLoaded[load.node] = 1;
    });
    for (let part = 0; part < this.model.partCount; ++part) {
      const loaded = Array.from(this.model.cornersOf(part)).filter((node) => isLoaded[node]);
      if (loaded.length > 0 && !values.has(part)) values.set(part, average(loaded.map((node) => atNodes[node])));
    }
    return values;
  }

  private read(row: number, factor: number, hasNext: boolean): Load | null {
    const { types, codes, ids, values } = this.model.loads;
    const type = this.report.loadTypes[types[row]];
    if (type === "direction") return null; // read with its pressure
    const v = values.map((column) => column[row] * factor);
    const load: Load = { type, node: -1, part: -1, at: [0, 0, 0], direction: null, size: 0, text: "" };
    if (type === "gravity") {
      load.size = Math.hypot(v[0], v[1], v[2]);
      load.direction = unit([v[0], v[1], v[2]]);
      load.text = `gravity ${v.slice(0, 3).map(show).join(", ")}`;
      return load;
    }
    const element = type === "pressure" || type === "beam load" || type.startsWith("element") || type === "gradient";
    const [place] = element ? this.model.findParts(ids[row]) : this.model.findNodes(ids[row]);
    if (place === undefined) return null;
    if (element) {
      load.part = place;
      load.at = this.model.middleOf(place);
    } else {
      load.node = place;
      load.at = Array.from(this.model.places.subarray(3 * place, 3 * place + 3)) as Vector;
    }
    if (type === "pressure") this.readPressure(load, row, v, codes[row], hasNext);
    else if (type === "beam load") this.readBeamLoad(load, v, [values[0][row], values[2][row]], this.report.loadWords[codes[row]] ?? "");
    else if (element || type === "temperature") {
      load.size = v[0];
      load.text = `${type} ${show(v[0])}`;
    } else {
      load.size = Math.hypot(v[0], v[1], v[2]);
      load.direction = unit([v[0], v[1], v[2]]);
      load.text = `${type} ${v.slice(0, 3).map(show).join(", ")}`;
    }
    return load.at.every(Number.isFinite) ? load : null;
  }

  private readPressure(load: Load, row: number, v: number[], face: number, hasNext: boolean): void {
    const { types, values } = this.model.loads;
    const own = this.model.cornersOf(load.part);
    const solid = face > 0;
    const faces = FACES[this.model.cells[load.part]];
    const corners = faces?.[solid ? face - 1 : 0]?.map((corner) => own[corner]);
    const point = (node: number): Vector => Array.from(this.model.places.subarray(3 * node, 3 * node + 3)) as Vector;
    const used = v.slice(0, corners?.length === 3 ? 3 : 4);
    load.size = average(used);
    const even = used.every((value) => value === used[0]);
    load.text = `pressure ${even ? show(used[0]) : used.map(show).join(", ")}${solid ? ` on face ${face}` : ""}`;
    if (!corners) return;
    const points = corners.map(point);
    const inside = load.at;
    load.at = [0, 1, 2].map((k) => average(points.map((p) => p[k]))) as Vector;
    let normal = unit(cross(subtract(points[2], points[0]), subtract(points[points.length - 1], points[1])));
    if (normal && solid && dot(normal, subtract(inside, load.at)) < 0) normal = normal.map((value) => -value) as Vector;
    if (hasNext && this.report.loadTypes[types[row + 1]] === "direction") {
      normal = unit([values[0][row + 1], values[1][row + 1], values[2][row + 1]]);
      load.text += ` along ${[0, 1, 2].map((k) => show(values[k][row + 1])).join(", ")}`;
    }
    load.direction = normal && load.size < 0 ? (normal.map((value) => -value) as Vector) : normal;
  }

  private readBeamLoad(load: Load, v: number[], positions: number[], words: string): void {
    const [kind, direction = ""] = words.split(" ");
    const point = kind.startsWith("CON");
    const value = point ? v[1] : (v[1] + v[3]) / 2;
    const sign = value < 0 ? -1 : 1;
    load.size = Math.abs(value);
    const axes = axesOf(this.model, load.part);
    const local: Record<string, Vector | undefined> = { LX: axes?.along, LY: axes?.up, LZ: axes?.third };
    const along = GLOBAL[direction] ?? local[direction];
    load.direction = along ? (along.map((part) => part * sign) as Vector) : null;
    load.text = `${kind} ${direction} ${show(v[1])}${point ? "" : ` to ${show(v[3])}`}`;
    const [a, b] = this.model.cornersOf(load.part);
    const share = Math.min(Math.max(point ? positions[0] : (positions[0] + positions[1]) / 2, 0), 1) || 0;
    if (b === undefined) return;
    load.at = [0, 1, 2].map((k) => this.model.places[3 * a + k] * (1 - share) + this.model.places[3 * b + k] * share) as Vector;
  }
}
