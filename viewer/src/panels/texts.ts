// What is text alone: warnings, log, case control, sections of the file, what was restated.

import { count, h } from "../dom";
import type { Report, RestatedRow } from "../data/report";
import { makeTable } from "./table";

export function makeWarnings({ warnings }: Report): HTMLElement[] {
  if (warnings.length === 0) return [h("p", {}, "No warnings.")];
  return [h("ul", { class: "warnings" }, warnings.map((text) => h("li", {}, text)))];
}

export function makeLog({ result }: Report): HTMLElement[] {
  return [h("pre", { tabindex: "0" }, result.log.join("\n"))];
}

export function makeControl({ control, controlLines }: Report): HTMLElement[] {
  if (control.length === 0) return [h("p", {}, "The deck has no case control.")];
  const more = controlLines - control.length;
  return [
    h("p", { class: "hint" }, "Executive and case control as they were read. They aren’t converted."),
    h("pre", { tabindex: "0" }, control.join("\n") + (more > 0 ? `\n… and ${count(more)} lines` : "")),
  ];
}

export function makeSections({ result }: Report): HTMLElement[] {
  const { sections } = result.account;
  if (sections.length === 0) return [h("p", {}, "The file’s sections couldn’t be counted.")];
  return [makeTable(["section", "blocks", "lines"], sections.map((row) => ({ cells: [row.section, row.blocks, row.lines] })))];
}

export function makeRestated({ restated }: Report, choose: (row: RestatedRow) => void): HTMLElement[] {
  if (restated.length === 0) return [h("p", {}, "Nothing was restated: the deck was converted as it stands.")];
  const rows = restated.map((row) => ({
    cells: [row.rule, row.keyword, row.count, row.takes, row.detail ? `${row.gives} (${row.detail})` : row.gives, row.class === "note" ? "" : row.class],
    choose: () => choose(row),
  }));
  return [makeTable(["rule", "keyword", "count", "takes", "gives", "left behind"], rows)];
}
