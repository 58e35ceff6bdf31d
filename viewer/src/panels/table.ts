// Tables, whose rows may be chosen by the mouse and by the keyboard.

import { count, h } from "../dom";

export type CellValue = string | number | null | Node;

export interface Row {
  cells: CellValue[];
  /** What happens when the row is chosen. */
  choose?: () => void;
  class?: string;
}

const MOST_ROWS = 5000; // more would keep the browser busy for long

/** No row is the one that was chosen. */
export function forgetChoice(): void {
  document.querySelector("tr[aria-current]")?.removeAttribute("aria-current");
}

export function makeTable(titles: string[], rows: Row[]): HTMLTableElement {
  const isNumber = (column: number) => rows.length > 0 && rows.every(({ cells }) => typeof cells[column] === "number" || cells[column] === null);
  const classes = titles.map((_, column) => (isNumber(column) ? "number" : ""));
  const body = rows.slice(0, MOST_ROWS).map((row) => {
    const cells = row.cells.map((cell, column) => {
      const text = typeof cell === "number" ? cell.toLocaleString("en-US", { maximumSignificantDigits: 7 }) : (cell ?? "–");
      return h("td", { class: classes[column] }, text);
    });
    const element = h("tr", { class: row.class ?? "" }, cells);
    if (row.choose) {
      const choose = () => {
        forgetChoice();
        element.setAttribute("aria-current", "true");
        row.choose?.();
      };
      element.tabIndex = 0;
      element.classList.add("choice");
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
    h("thead", {}, h("tr", {}, titles.map((title, column) => h("th", { scope: "col", class: classes[column] }, title)))),
    h("tbody", {}, body, rows.length > MOST_ROWS && h("tr", {}, h("td", {}, `and ${count(rows.length - MOST_ROWS)} more`))),
  );
}
