// The text of the decks, as far as the page holds it.

import { readBytes } from "./blocks";
import { beginsCard, fieldsOf } from "./cards";
import type { Report } from "./report";

export interface DeckLine {
  file: number;
  line: number;
  text: string;
}

/** Which cards have the ids that are looked for, in their first field. */
const FAMILIES = {
  node: /^GRID$/,
  element: /^(C(?!ORD)[A-Z]|RBE|RBAR|RROD)/,
  property: /^P(?!ARAM|LOAD|LOT)[A-Z]/,
  material: /^MAT/,
  frame: /^CORD/,
  supports: /^SPC(1|ADD)?$/,
  equations: /^MPC(ADD)?$/,
  loads: /^(FORCE|MOMENT|PLOAD|GRAV|TEMP|SPCD|LOAD)/,
};
export type Family = keyof typeof FAMILIES;

export class Deck {
  private readonly texts: (string[] | null)[];
  private readonly some = new Map<string, string>();
  private cards: Map<string, DeckLine[]> | null = null;

  private constructor(
    private readonly report: Report,
    bytes: Uint8Array | null,
  ) {
    this.texts = report.files.map((file) => {
      if (!bytes || file.from == null || file.bytes == null) return null;
      return decode(bytes.subarray(file.from, file.from + file.bytes)).split("\n");
    });
    for (const { file, first, text } of report.lines) text.forEach((line, i) => this.some.set(`${file}:${first + i}`, line));
  }

  static async read(report: Report): Promise<Deck> {
    return new Deck(report, await readBytes("decks"));
  }

  /** Whether all text is here, so that cards can be looked up. */
  get isWhole(): boolean {
    return this.texts.every((text, i) => text !== null || this.report.files[i].bytes === null);
  }

  fileOf(name: string): number {
    return this.report.files.findIndex((file) => file.name === name);
  }

  /** A line, from 1; null if the page doesn't hold it. */
  line(file: number, line: number): string | null {
    const text = this.texts[file];
    if (text) return text[line - 1]?.trimEnd() ?? null;
    return this.some.get(`${file}:${line}`) ?? null;
  }

  /** The lines of a stretch that the page holds. */
  lines(file: number, first: number, last: number, most = 200): DeckLine[] {
    const found: DeckLine[] = [];
    for (let line = first; line <= last && found.length < most; ++line) {
      const text = this.line(file, line);
      if (text !== null) found.push({ file, line, text });
    }
    return found;
  }

  /** The cards of a family with this id, whole; none unless all text is here. */
  findCards(family: Family, id: number): DeckLine[] {
    const found = (this.cards ??= this.indexCards()).get(`${family}:${id}`) ?? [];
    return found.flatMap(({ file, line }) => this.cardAt(file, line));
  }

  /** The lines of the card that begins in a line. */
  cardAt(file: number, line: number): DeckLine[] {
    const lines = this.lines(file, line, line);
    for (let next = line + 1; lines.length > 0 && lines.length < 200; ++next) {
      const text = this.line(file, next);
      if (text === null || text.startsWith("$") || text.trim() === "" || beginsCard(text)) break;
      lines.push({ file, line: next, text });
    }
    return lines;
  }

  private indexCards(): Map<string, DeckLine[]> {
    const cards = new Map<string, DeckLine[]>();
    this.texts.forEach((lines, file) =>
      lines?.forEach((text, i) => {
        if (!beginsCard(text)) return;
        const [keyword, id] = fieldsOf([text]);
        for (const [family, pattern] of Object.entries(FAMILIES)) {
          if (!pattern.test(keyword) || !/^\d+$/.test(id ?? "")) continue;
          const key = `${family}:${Number.parseInt(id, 10)}`;
          const found = cards.get(key);
          const line = { file, line: i + 1, text };
          if (found) found.push(line);
          else cards.set(key, [line]);
        }
      }),
    );
    return cards;
  }
}

/** UTF-8, or else each byte as the character of its number. */
function decode(bytes: Uint8Array): string {
  try {
    return new TextDecoder("utf-8", { fatal: true }).decode(bytes);
  } catch {
    return new TextDecoder("latin1").decode(bytes);
  }
}
