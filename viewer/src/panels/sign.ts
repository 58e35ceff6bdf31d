// Where the reviewer signs. What is written here is printed with the page and kept nowhere else.

import { h } from "../dom";

export function makeSignOff(print: () => void): HTMLElement[] {
  const field = (label: string, name: string) => {
    const input = h("input", { type: "text", name, autocomplete: "off" });
    return h("label", { class: "field" }, h("span", {}, label), input);
  };
  const notes = h("textarea", { name: "notes", rows: "10" });
  const printed = h("div", { class: "printed-notes" });
  notes.addEventListener("input", () => printed.replaceChildren(notes.value));
  const decisions = ["accepted", "accepted with remarks", "not accepted"].map((text) =>
    h("label", { class: "decision" }, h("input", { type: "radio", name: "decision", value: text }), ` ${text}`),
  );
  return [
    field("Reviewer", "reviewer"),
    field("Date", "date"),
    h("fieldset", {}, h("legend", {}, "The conversion is"), decisions),
    h("label", { class: "field" }, h("span", {}, "Notes"), notes),
    printed,
    h("p", { class: "signature" }, "Signature"),
    h("p", { class: "hint" }, "Nothing written here leaves the page. ", h("button", { type: "button", click: print }, "Print or save as PDF")),
  ];
}
