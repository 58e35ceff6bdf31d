// What the reader chooses for the picture.

import { h } from "../dom";
import { STANDARD_VIEWS } from "../scene/camera";
import { COLOUR_NAMES, type ColourBy } from "../scene/colours";
import type { LoadCase } from "../scene/loads";
import type { Cut, Options, Viewer } from "../scene/viewer";

const OPTION_NAMES: Record<keyof Options, string> = {
  edges: "edges",
  extruded: "sections of bars",
  supports: "supports",
  loads: "loads",
  values: "values",
};

export interface ToolbarActions {
  search(kind: "element" | "node" | "property", id: number): void;
  changed(): void;
}

function labelled(text: string, control: HTMLElement): HTMLElement {
  return h("label", {}, `${text} `, control);
}

function choice(id: string, options: [value: string, text: string][], change: (value: string) => void): HTMLSelectElement {
  const select = h("select", { id }, options.map(([value, text]) => h("option", { value }, text)));
  select.addEventListener("change", () => change(select.value));
  return select;
}

export function makeToolbar(viewer: Viewer, cases: LoadCase[], actions: ToolbarActions): HTMLElement {
  const caseChoice = choice("case", [["", "none"], ...cases.map(({ name }, i): [string, string] => [String(i), name])], (value) => {
    viewer.setCase(value === "" ? null : cases[Number(value)]);
    actions.changed();
  });
  const colourChoice = choice("colour", Object.entries(COLOUR_NAMES), (value) => {
    viewer.setColour(value as ColourBy);
    actions.changed();
  });
  if (cases.length > 0) {
    caseChoice.value = "0";
    viewer.setCase(cases[0]);
  }
  const options = (Object.keys(OPTION_NAMES) as (keyof Options)[]).map((name) => {
    const box = h("input", { type: "checkbox", id: `option-${name}`, checked: viewer.options[name] });
    box.addEventListener("change", () => viewer.setOption(name, box.checked));
    return h("label", {}, box, ` ${OPTION_NAMES[name]}`);
  });
  const views = STANDARD_VIEWS.map((name, i) =>
    h("button", { type: "button", title: `${name} (${i + 1})`, click: () => viewer.camera.view(name) }, name),
  );
  const projection = h("button", { type: "button", id: "projection", "aria-pressed": "true" }, "orthographic");
  projection.addEventListener("click", () => {
    viewer.camera.setOrthographic(!viewer.camera.isOrthographic);
    projection.setAttribute("aria-pressed", String(viewer.camera.isOrthographic));
  });
  return h("div", { class: "toolbar", role: "toolbar", "aria-label": "The picture" },
    h("div", { class: "tools" }, labelled("load case", caseChoice), labelled("colour by", colourChoice), makeSearch(actions)),
    h("div", { class: "tools" }, options, makeCut(viewer)),
    h("div", { class: "tools" },
      h("button", { type: "button", title: "fit (F)", click: () => viewer.camera.fit() }, "fit"),
      views,
      projection,
      h("button", { type: "button", id: "show-all", click: () => viewer.showAll() }, "show all"),
    ),
  );
}

function makeSearch(actions: ToolbarActions): HTMLElement {
  const kind = h("select", { id: "search-kind", "aria-label": "what to search" }, ["element", "node", "property"].map((name) => h("option", {}, name)));
  const id = h("input", { type: "search", id: "search", size: "9", inputmode: "numeric", placeholder: "id", "aria-label": "id to search" });
  const form = h("form", { role: "search" }, kind, id, h("button", { type: "submit" }, "find"));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    const value = Number.parseInt(id.value, 10);
    if (Number.isFinite(value)) actions.search(kind.value as "element" | "node" | "property", value);
  });
  return form;
}

function makeCut(viewer: Viewer): HTMLElement {
  const state: { axis: string; share: number; flipped: boolean } = { axis: "", share: 0.5, flipped: false };
  const apply = () => viewer.cut(state.axis === "" ? null : ({ ...state, axis: Number(state.axis) } as Cut));
  const axis = choice("cut", [["", "none"], ["0", "x"], ["1", "y"], ["2", "z"]], (value) => {
    state.axis = value;
    apply();
  });
  const share = h("input", { type: "range", id: "cut-share", min: "0", max: "1", step: "0.01", value: "0.5", "aria-label": "place of the section" });
  share.addEventListener("input", () => {
    state.share = Number(share.value);
    apply();
  });
  const flip = h("button", { type: "button", title: "the other side" }, "⇄");
  flip.addEventListener("click", () => {
    state.flipped = !state.flipped;
    apply();
  });
  return h("span", { class: "cut" }, labelled("section across", axis), share, flip);
}
