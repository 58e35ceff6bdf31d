// Dark and light: as the system has it, or as the reader says.

import { h } from "./dom";

const dark = window.matchMedia("(prefers-color-scheme: dark)");
const listeners: ((paper: string) => void)[] = [];

function tell(): void {
  const stage = document.querySelector(".stage");
  if (!stage) return;
  const paper = getComputedStyle(stage).backgroundColor;
  for (const listener of listeners) listener(paper);
}

/** Calls take with the colour behind the model, now and when it changes. */
export function followTheme(take: (paper: string) => void): void {
  listeners.push(take);
  tell();
}

export function makeThemeSwitch(): HTMLElement {
  const button = h("button", { type: "button", class: "theme", title: "dark or light" }, "◐", h("span", { class: "unseen" }, " dark or light"));
  button.addEventListener("click", () => {
    const root = document.documentElement;
    const isDark = root.dataset.theme ? root.dataset.theme === "dark" : dark.matches;
    root.dataset.theme = isDark ? "light" : "dark";
    tell();
  });
  dark.addEventListener("change", tell);
  return button;
}
