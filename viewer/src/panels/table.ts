// Tables, whose rows may be chosen by the mouse and by the keyboard.

import { h } from "../dom";

export type CellValue = string | number | null | Node;

export interface Row {
  cells: CellValue[];
  /** What happens when the row is chosen. */
  choose?: () => void;
  class?: string;
}

function chosen(row: HTMLTableRowElement): void {
  const before = document.querySelector("tr[aria-selected=true]");
  before?.setAttribute("aria-selected", "false");
  row.setAttribute("aria-selected", "true");
}

export function makeTable(titles: string[], rows: Row[], caption = ""): HTMLTableElement {
  const isNumber = (column: number) => rows.length > 0 && rows.every(({ cells }) => typeof cells[column] === "number" || cells[column] === null);
  const classes = titles.map((_, column) => (isNumber(column) ? "number" : ""));
  const body = rows.map((row) => {
    const cells = row.cells.map((cell, column) => {
      const text = typeof cell === "number" ? cell.toLocaleString("en-US", { maximumSignificantDigits: 7 }) : (cell ?? "–");
      return h("td", { class: classes[column] }, text);
    });
    const element = h("tr", { class: row.class ?? "" }, cells);
    if (row.choose) {
      const choose = () => {
        chosen(element);
        row.choose?.();
      };
      element.tabIndex = 0;
      element.classList.add("choice");
      element.setAttribute("aria-selected", "false");
      element.addEventListener("click", choose);
      element.addEventListener("keydown", (event) => {
        if (event.key !== "Enter" && event.key !== " ") return;
        event.preventDefault();
        choose();
      });
    }
    return element;
  });
  return h("table", {},
    caption !== "" && h("caption", {}, caption),
    h("thead", {}, h("tr", {}, titles.map((title, column) => h("th", { scope: "col", class: classes[column] }, title)))),
    h("tbody", {}, body),
  );
}
