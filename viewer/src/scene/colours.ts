// Colours of parts by what the reader chooses. They suit the colour-blind: the palette of Okabe and Ito for what is
// told apart, viridis for values.

import { Kind, type Model } from "../data/model";
import type { Property, Report } from "../data/report";
import { type Rgb, rgbOf } from "./paint";

const OKABE_ITO = ["#56b4e9", "#e69f00", "#009e73", "#f0e442", "#0072b2", "#d55e00", "#cc79a7", "#999999"].map(rgbOf);
const VIRIDIS = ["#440154", "#482878", "#3e4989", "#31688e", "#26828e", "#1f9e89", "#35b779", "#6ece58", "#b5de2b", "#fde725"].map(rgbOf);
export const NEUTRAL = rgbOf("#b4b4b4");
export const LIT_COLOUR = rgbOf("#d55e00");

/** By place of the kind: the colours of the pictures that --view draws. */
const KINDS = ["#e69f00", "#d55e00", "#009e73", "#56b4e9", "#f0e442", "#cc79a7", "#0072b2", "#777777", "#0072b2", "#777777"].map(rgbOf);

export type ColourBy = "kind" | "property" | "material" | "thickness" | "case" | "loss";

export const COLOUR_NAMES: Record<ColourBy, string> = {
  kind: "kind",
  property: "property",
  material: "material",
  thickness: "thickness",
  case: "loads of the case",
  loss: "what was lost",
};

export interface LegendEntry {
  colour: Rgb;
  text: string;
  /** The parts that have it; null for a mark of a scale. */
  has: ((part: number) => boolean) | null;
}

export interface Colouring {
  of(part: number): Rgb;
  legend: LegendEntry[];
}

/** A colour for the nth of things that are told apart; past the palette they get lighter or darker. */
function distinct(n: number): Rgb {
  const base = OKABE_ITO[n % OKABE_ITO.length];
  const round = Math.floor(n / OKABE_ITO.length) % 4;
  const shade = [1, 0.72, 1.25, 0.5][round];
  return base.map((value) => Math.min(255, Math.round(value * shade))) as Rgb;
}

export function viridis(share: number): Rgb {
  const at = Math.min(Math.max(share, 0), 1) * (VIRIDIS.length - 1);
  const low = Math.min(Math.floor(at), VIRIDIS.length - 2);
  return VIRIDIS[low].map((value, i) => Math.round(value + (VIRIDIS[low + 1][i] - value) * (at - low))) as Rgb;
}

const MOST_ENTRIES = 40;

function byKey(model: Model, keys: Int32Array | Uint8Array, nameOf: (key: number) => string, colourOf: (key: number, place: number) => Rgb): Colouring {
  const counts = new Map<number, number>();
  for (let i = 0; i < model.partCount; ++i) counts.set(keys[i], (counts.get(keys[i]) ?? 0) + 1);
  const sorted = [...counts.keys()].sort((a, b) => a - b);
  const colours = new Map(sorted.map((key, place) => [key, colourOf(key, place)]));
  const legend = sorted.slice(0, MOST_ENTRIES).map((key) => ({
    colour: colours.get(key) as Rgb,
    text: `${nameOf(key)} (${counts.get(key)})`,
    has: (part: number) => keys[part] === key,
  }));
  if (sorted.length > MOST_ENTRIES) {
    legend.push({ colour: NEUTRAL, text: `and ${sorted.length - MOST_ENTRIES} more`, has: () => false });
  }
  return { of: (part) => colours.get(keys[part]) as Rgb, legend };
}

/** Colours by a value; parts without one are grey. */
export function byValue(values: Map<number, number> | ((part: number) => number | undefined), range: Iterable<number>, unit: string): Colouring {
  let low = Infinity;
  let high = -Infinity;
  for (const value of range) {
    if (!Number.isFinite(value)) continue;
    low = Math.min(low, value);
    high = Math.max(high, value);
  }
  const valueOf = typeof values === "function" ? values : (part: number) => values.get(part);
  const share = (value: number) => (high > low ? (value - low) / (high - low) : 0.5);
  const none = { colour: NEUTRAL, text: `no ${unit}`, has: (part: number) => valueOf(part) === undefined };
  if (low > high) return { of: () => NEUTRAL, legend: [none] };
  const marks = high > low ? [0, 0.25, 0.5, 0.75, 1] : [0.5];
  const legend: LegendEntry[] = marks.map((mark) => ({
    colour: viridis(mark),
    text: Number((high > low ? low + mark * (high - low) : low).toPrecision(4)).toString(),
    has: null,
  }));
  return {
    of: (part) => {
      const value = valueOf(part);
      return value === undefined || !Number.isFinite(value) ? NEUTRAL : viridis(share(value));
    },
    legend: [...legend, none],
  };
}

export function thicknessOf(properties: Property[]): Map<number, number> {
  return new Map(properties.flatMap(({ id, thickness }) => (thickness == null ? [] : [[id, thickness]])));
}

function byThickness(model: Model, report: Report): Colouring {
  const thickness = thicknessOf(report.properties);
  const valueOf = (part: number) => {
    const kind = model.kinds[part];
    return kind === Kind.Plate || kind === Kind.PlaneStress ? thickness.get(model.properties[part]) : undefined;
  };
  return byValue(valueOf, thickness.values(), "thickness");
}

/** Parts that a loss of the class touches, worst first. */
function byLoss(lost: ReadonlyMap<number, string>): Colouring {
  const classes = ["model", "mass", "control", "note"];
  const colours = [rgbOf("#d55e00"), rgbOf("#e69f00"), rgbOf("#56b4e9"), rgbOf("#8fbfd9")];
  const legend = classes.map((name, i) => ({
    colour: colours[i],
    text: name,
    has: (part: number) => lost.get(part) === name,
  }));
  const entries = legend.filter((entry) => [...lost.values()].includes(entry.text));
  entries.push({ colour: NEUTRAL, text: "nothing lost", has: (part) => !lost.has(part) });
  return {
    of: (part) => {
      const name = lost.get(part);
      return name === undefined ? NEUTRAL : colours[classes.indexOf(name)];
    },
    legend: entries,
  };
}

export interface ColourSources {
  /** A value of each part that the chosen case loads. */
  loaded(): Map<number, number>;
  /** The worst class of loss of each part that has any. */
  lost(): ReadonlyMap<number, string>;
}

export function colouring(by: ColourBy, model: Model, report: Report, sources: ColourSources): Colouring {
  switch (by) {
    case "kind":
      return byKey(model, model.kinds, (kind) => report.kinds[kind], (kind) => KINDS[kind]);
    case "property":
      return byKey(model, model.properties, (id) => (id === 0 ? "none" : `property ${id}`), (id, place) => (id === 0 ? NEUTRAL : distinct(place)));
    case "material":
      return byKey(model, model.materials, (id) => (id === 0 ? "none" : `material ${id}`), (id, place) => (id === 0 ? NEUTRAL : distinct(place)));
    case "thickness":
      return byThickness(model, report);
    case "case": {
      const loaded = sources.loaded();
      return byValue(loaded, loaded.values(), "load");
    }
    case "loss":
      return byLoss(sources.lost());
  }
}
