// What the page's JSON holds: see docs/report.md.

export interface Place {
  file: string;
  first: number;
  last: number;
}

export type LossClass = "model" | "mass" | "control" | "note";

export interface Loss {
  class: LossClass;
  kind: string;
  keyword: string;
  code: string;
  text: string;
  count: number;
  places: Place[];
  ids: number[];
}

export interface KeywordRow {
  keyword: string;
  read: number;
  stored: number;
  replaced: number;
  reported: number;
  skipped: number;
  unknown: number;
  lost: number;
  cut_off: number;
}

export interface Account {
  losses: number;
  classes: Record<LossClass, number>;
  keywords: KeywordRow[];
  lost: Loss[];
  sections: { section: string; blocks: number; lines: number }[];
}

export interface Finding {
  code: string;
  severity: "error" | "warning";
  keyword: string;
  count: number;
  places: { id: number | null; file: string | null; line: number | null; text: string }[];
}

export interface TotalRow {
  group: string;
  name: string;
  deck: number | null;
  file: number | null;
  differs: boolean;
  why: string[];
}

export interface Check {
  errors: number;
  warnings: number;
  findings: Finding[];
  shapes: { name: string; elements: number; worst: number | null; element: number; limit: number | null; past: number }[];
  totals: TotalRow[];
}

export interface Property {
  id: number;
  form: "value" | "tapered" | "shape" | "membrane" | "plate";
  area?: number | null;
  side?: number | null;
  sideB?: number | null;
  shape?: string;
  dimensions?: (number | null)[];
  thickness?: number | null;
}

export interface Material {
  id: number;
  kind: string;
  [value: string]: number | string | null;
}

export interface FileEntry {
  name: string;
  bytes: number | null;
  lines: number;
  sha256: string;
  from?: number | null;
}

export interface LossTarget {
  keyword: string;
  kind: string;
  text: string;
  firstId: number;
  ids: number;
  firstPlace: number;
  places: number;
}

export interface RestatedRow {
  rule: string;
  class: LossClass;
  keyword: string;
  takes: string;
  gives: string;
  detail: string;
  count: number;
  places: [file: number, line: number][];
}

export interface Report {
  version: number;
  program: string;
  date: string;
  arguments: string[];
  warnings: string[];
  control: string[];
  controlLines: number;
  target: FileEntry;
  kinds: string[];
  withoutNodes: number[];
  centre: [number, number, number];
  cases: { id: number; first: number; count: number }[];
  loadTypes: string[];
  loadWords: string[];
  loadsLeftOut: number;
  properties: Property[];
  materials: Material[];
  combinations: { id: number; shares: [set: number, factor: number][] }[];
  losses: LossTarget[];
  restated: RestatedRow[];
  files: FileEntry[];
  lines: { file: number; first: number; text: string[] }[];
  result: {
    deck: string;
    target: string;
    error: string | null;
    log: string[];
    account: Account;
    check: Check | null;
  };
}
