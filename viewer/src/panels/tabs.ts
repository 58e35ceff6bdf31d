// Tabs as the ARIA practices have them: arrows move between them.

import { h } from "../dom";

export interface Tab {
  id: string;
  title: string;
  content: HTMLElement[];
}

export function makeTabs(tabs: Tab[]): HTMLElement {
  const buttons = tabs.map(({ id, title }) =>
    h("button", { type: "button", role: "tab", id: `tab-${id}`, "aria-controls": `panel-${id}` }, title),
  );
  const panels = tabs.map(({ id, title, content }) =>
    h("section", { role: "tabpanel", id: `panel-${id}`, "aria-labelledby": `tab-${id}` }, h("h2", { class: "print-title" }, title), content),
  );
  const select = (place: number) => {
    buttons.forEach((button, i) => {
      button.setAttribute("aria-selected", String(i === place));
      button.tabIndex = i === place ? 0 : -1;
      panels[i].classList.toggle("shown", i === place);
    });
  };
  buttons.forEach((button, i) => {
    button.addEventListener("click", () => select(i));
    button.addEventListener("keydown", ({ key }) => {
      const step = { ArrowRight: 1, ArrowLeft: -1 }[key];
      const place = key === "Home" ? 0 : key === "End" ? tabs.length - 1 : step && (i + step + tabs.length) % tabs.length;
      if (place === undefined) return;
      select(place);
      buttons[place].focus();
    });
  });
  select(0);
  return h("div", { class: "tabs" }, h("div", { role: "tablist", "aria-label": "The conversion" }, buttons), panels);
}
