// What the colours of the picture mean.

import { h } from "../dom";
import { cssOf } from "../scene/paint";
import type { LegendEntry } from "../scene/colours";

export function makeLegend(entries: LegendEntry[], choose: (entry: LegendEntry) => void): HTMLElement {
  const items = entries.map((entry) => {
    const swatch = h("span", { class: "swatch" });
    swatch.style.background = cssOf(entry.colour);
    if (!entry.has) return h("li", {}, swatch, ` ${entry.text}`);
    return h("li", {}, h("button", { type: "button", title: "light these", click: () => choose(entry) }, swatch, ` ${entry.text}`));
  });
  return h("ul", { class: "legend", "aria-label": "Colours" }, items);
}
