// Cards of a deck as far as the page follows them: their fields, and what of the model they are about.

const WIDTH = 8;

/** The fields of a card's lines, the keyword first, each continuation's first field left out. */
export function fieldsOf(lines: string[]): string[] {
  const fields: string[] = [];
  for (const raw of lines) {
    const line = raw.split("$", 1)[0].replace(/\t/g, " ".repeat(WIDTH)).trimEnd();
    const first = fields.length === 0;
    let cut: string[];
    if (line.includes(",")) {
      cut = line.split(",").map((field) => field.trim()).slice(0, 9);
    } else if (line.slice(0, WIDTH).includes("*")) {
      cut = [line.slice(0, WIDTH), ...[0, 1, 2, 3].map((i) => line.slice(WIDTH + 16 * i, WIDTH + 16 * (i + 1)))];
    } else {
      cut = Array.from({ length: 9 }, (_, i) => line.slice(WIDTH * i, WIDTH * (i + 1)));
    }
    fields.push(...cut.slice(first ? 0 : 1).map((field) => field.trim()));
  }
  if (fields.length > 0) fields[0] = fields[0].replace("*", "").toUpperCase();
  return fields;
}

/** Whether a line begins a card. */
export function beginsCard(line: string): boolean {
  return /^[A-Za-z]/.test(line);
}

export interface CardTargets {
  elements: number[];
  nodes: number[];
  properties: number[];
  materials: number[];
}

type Target = keyof CardTargets;

/** Where cards name what they are about: the kind, and places of fields; "list" goes on to the end, with THRU. */
const PLACES: [pattern: RegExp, target: Target, fields: number[] | "list", from?: number][] = [
  [/^GRID$/, "nodes", [1]],
  [/^(FORCE|MOMENT)[12]?$/, "nodes", [2]],
  [/^SPC1$/, "nodes", "list", 3],
  [/^(SPC|SPCD)$/, "nodes", [2, 5]],
  [/^TEMP$/, "nodes", [2, 4, 6]],
  [/^CORD1[RCS]$/, "nodes", [2, 3, 4]],
  [/^MPC$/, "nodes", [2, 5, 10, 13]],
  [/^RBE3$/, "nodes", [3]],
  [/^(RBAR|RROD|RBE1)$/, "nodes", [2, 3]],
  [/^RBE2$/, "elements", [1]],
  [/^(PLOAD1|PLOAD4|TEMPP1|TEMPRB)$/, "elements", [2]],
  [/^PLOAD2$/, "elements", "list", 3],
  [/^PLOAD$/, "nodes", [3, 4, 5, 6]],
  [/^(CORD|CQUADX|CASECC)/, "elements", []],
  [/^C/, "elements", [1]],
  [/^(PARAM|PLOT)/, "properties", []],
  [/^P/, "properties", [1]],
  [/^MAT/, "materials", [1]],
];

const MOST_RANGE = 1e6;

function idsOf(fields: string[]): number[] {
  const ids: number[] = [];
  for (let i = 0; i < fields.length; ++i) {
    if (fields[i].toUpperCase() === "THRU" && ids.length > 0) {
      const last = Math.min(Number.parseInt(fields[++i], 10), ids[ids.length - 1] + MOST_RANGE);
      for (let id = ids[ids.length - 1] + 1; id <= last; ++id) ids.push(id);
    } else if (/^\d+$/.test(fields[i])) {
      ids.push(Number.parseInt(fields[i], 10));
    }
  }
  return ids;
}

/** What of the model a card is about; empty for one that names nothing there. */
export function targetsOf(fields: string[]): CardTargets {
  const targets: CardTargets = { elements: [], nodes: [], properties: [], materials: [] };
  const row = PLACES.find(([pattern]) => pattern.test(fields[0] ?? ""));
  if (!row) return targets;
  const [, target, places, from] = row;
  const named = places === "list" ? fields.slice(from) : places.map((place) => fields[place] ?? "");
  targets[target] = idsOf(named);
  return targets;
}
