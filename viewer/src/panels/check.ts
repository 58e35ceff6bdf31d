// Whether the deck is sound, and sums of deck and file side by side.

import { h } from "../dom";
import type { Check, Finding, TotalRow } from "../data/report";
import { makeTable, type Row } from "./table";

function findings(check: Check, severity: Finding["severity"], choose: (finding: Finding) => void): HTMLElement[] {
  const found = check.findings.filter((finding) => finding.severity === severity);
  if (found.length === 0) return [];
  const rows = found.map((finding) => ({
    cells: [
      finding.keyword || "deck",
      finding.count,
      finding.code,
      h("ul", { class: "places" },
        finding.places.slice(0, 5).map(({ id, file, line, text }) =>
          h("li", {}, id !== null && `${id} `, file !== null && h("span", { class: "where" }, `(${file}:${line}) `), text),
        ),
        finding.count > 5 && h("li", {}, "…"),
      ),
    ],
    choose: () => choose(finding),
    class: severity,
  }));
  return [h("h3", {}, severity === "error" ? "Errors" : "Warnings"), makeTable(["keyword", "count", "kind", "where and what"], rows)];
}

function difference(row: TotalRow): string | number | null {
  if (!row.differs) return null;
  if (row.deck === null || row.file === null) return "differs";
  return row.file === row.deck ? "other ids" : row.file - row.deck;
}

function totals(check: Check): HTMLElement[] {
  if (check.totals.length === 0) return [];
  const rows: Row[] = [];
  let group = "";
  for (const row of check.totals) {
    if (row.group !== group) rows.push({ cells: [h("strong", {}, row.group), "", "", "", ""], class: "group" });
    group = row.group;
    const gap = difference(row);
    rows.push({
      cells: [row.name, row.deck, row.file, gap, row.differs ? row.why.join("; ") || "nothing explains it" : ""],
      class: row.differs ? "differs" : "",
    });
  }
  const table = makeTable(["sum", "deck", "file", "difference", "because of"], rows);
  return [h("h3", {}, "Totals, in units of the deck"), table];
}

export function makeCheck(check: Check | null, choose: (finding: Finding) => void, chooseElement: (id: number) => void): HTMLElement[] {
  if (!check) return [h("p", {}, "The deck couldn’t be read for the check.")];
  const errors = findings(check, "error", choose);
  const warnings = findings(check, "warning", choose);
  const shapes = check.shapes.map((shape) => ({
    cells: [shape.name, shape.elements, shape.worst, shape.element, shape.limit, shape.past],
    choose: () => chooseElement(shape.element),
    class: shape.past > 0 ? "warning" : "",
  }));
  return [
    ...errors,
    ...warnings,
    ...(errors.length + warnings.length === 0 ? [h("p", {}, "Nothing is wrong with the deck.")] : []),
    ...(shapes.length > 0 ? [h("h3", {}, "Shapes of elements"), makeTable(["measure", "elements", "worst", "element", "limit", "past it"], shapes)] : []),
    ...totals(check),
  ];
}
