// What is lit or picked: its ids and values, and its lines in the deck.

import { count, h, plural } from "../dom";
import type { Deck, DeckLine } from "../data/deck";
import type { LossPlaces, Places } from "../data/losses";
import type { Model } from "../data/model";
import type { Property, Report } from "../data/report";
import type { Load } from "../scene/loads";
import { makeTable } from "./table";

const MOST_IDS = 200;

export interface SelectionActions {
  light(places: Places): void;
  fit(): void;
  hide(): void;
  isolate(): void;
  clear(): void;
  loadsOn(isIt: (load: Load) => boolean): Load[];
}

function propertyText(property: Property): string {
  const { form, thickness, area, shape, dimensions } = property;
  if (thickness != null) return `${form}, thickness ${thickness}`;
  if (form === "shape") return `${shape} ${dimensions?.join(" × ")}`;
  return area != null ? `section of area ${area}` : form;
}

export class SelectionPanel {
  readonly element = h("section", { class: "selection", "aria-label": "Selection", "aria-live": "polite", tabindex: "0" });

  constructor(
    private readonly report: Report,
    private readonly model: Model,
    private readonly deck: Deck,
    private readonly places: LossPlaces,
    private readonly actions: SelectionActions,
  ) {
    this.clear();
  }

  clear(): void {
    this.element.replaceChildren(h("p", { class: "hint" }, "Click an element of the model, with the shift key a node, or a row of a table."));
  }

  /** What a loss, finding or search is about. */
  showPlaces(found: Places): void {
    const ids = (places: ReadonlySet<number>, of: Int32Array) => [...new Set(Array.from(places, (place) => of[place]))].sort((a, b) => a - b);
    const elements = ids(found.parts, this.model.partIds);
    const nodes = ids(found.nodes, this.model.nodeIds);
    const nothing = elements.length + nodes.length === 0;
    this.element.replaceChildren(
      ...this.heading(found.title, !nothing),
      h("p", { id: "lit" }, nothing ? "Nothing of the model that is drawn." : `${plural(elements.length, "element")}, ${plural(nodes.length, "node")}`, found.remark !== "" && ` – ${found.remark}`),
      ...this.idList("elements", elements, (id) => this.showElement(id)),
      ...this.idList("nodes", nodes, (id) => this.showNode(id)),
      ...this.lines(found.lines),
    );
  }

  showElement(id: number): void {
    const found = this.places.ofElement(id);
    this.actions.light(found);
    const [part] = found.parts;
    if (part === undefined) return this.showNothing(`element ${id}`);
    const { report, model } = this;
    const property = report.properties.find((row) => row.id === model.properties[part]);
    const material = report.materials.find((row) => row.id === model.materials[part]);
    const values = material ? Object.entries(material).filter(([key]) => key !== "id" && key !== "kind") : [];
    const corners = [...new Set(Array.from(found.parts).flatMap((own) => Array.from(model.cornersOf(own))))].slice(0, 100);
    const nodes = corners.map((node) => ({
      cells: [String(model.nodeIds[node]), ...model.coordinates(node, report)],
      choose: () => this.showNode(model.nodeIds[node]),
    }));
    const facts: [string, string][] = [["kind", report.kinds[model.kinds[part]]]];
    if (model.properties[part] !== 0) facts.push(["property", `${model.properties[part]}${property ? `: ${propertyText(property)}` : " (not in the file)"}`]);
    if (model.materials[part] !== 0) {
      const text = material ? `: ${material.kind}, ${values.map(([key, value]) => `${key} ${value}`).join(", ")}` : " (not in the file)";
      facts.push(["material", `${model.materials[part]}${text}`]);
    }
    const loads = this.actions.loadsOn((load) => found.parts.has(load.part));
    const propertyLines = model.properties[part] !== 0 ? this.deck.findCards("property", model.properties[part]) : [];
    this.element.replaceChildren(
      ...this.heading(`element ${id}`, true),
      this.facts(facts),
      makeTable(["node", "x", "y", "z"], nodes),
      ...this.loadList(loads),
      ...this.lines([...found.lines, ...propertyLines], `element ${id}`),
    );
  }

  showNode(id: number): void {
    const found = this.places.ofNode(id);
    this.actions.light(found);
    const [node] = found.nodes;
    if (node === undefined) return this.showNothing(`node ${id}`);
    const { model, report } = this;
    const held = [1, 2, 3, 4, 5, 6].filter((component) => model.held[node] & (1 << (component - 1)));
    const loads = this.actions.loadsOn((load) => load.node === node);
    this.element.replaceChildren(
      ...this.heading(`node ${id}`, true),
      this.facts([
        ["coordinates", model.coordinates(node, report).join(", ")],
        ["held", held.length > 0 ? held.join("") : "free"],
      ]),
      ...this.loadList(loads),
      ...this.lines(found.lines, `GRID ${id}`),
    );
  }

  showNothing(what: string): void {
    this.element.replaceChildren(...this.heading(what, false), h("p", { id: "lit" }, "The file has no such thing."));
  }

  private heading(title: string, actions: boolean): HTMLElement[] {
    const button = (text: string, click: () => void) => h("button", { type: "button", click }, text);
    return [
      h("h2", { id: "selected" }, title),
      h("div", { class: "actions" },
        actions && [
          button("fit", () => this.actions.fit()),
          button("hide", () => this.actions.hide()),
          button("isolate", () => this.actions.isolate()),
        ],
        button("clear", () => this.actions.clear()),
      ),
    ];
  }

  private facts(facts: [string, string][]): HTMLElement {
    return h("dl", { class: "facts" }, facts.flatMap(([name, value]) => [h("dt", {}, name), h("dd", {}, value)]));
  }

  private idList(name: string, ids: number[], choose: (id: number) => void): HTMLElement[] {
    if (ids.length === 0) return [];
    const buttons = ids.slice(0, MOST_IDS).map((id) => h("button", { type: "button", class: "id", click: () => choose(id) }, id));
    return [h("div", { class: "ids", id: `lit-${name}` }, h("span", {}, `${name}: `), buttons, ids.length > MOST_IDS && ` and ${count(ids.length - MOST_IDS)} more`)];
  }

  private loadList(loads: Load[]): HTMLElement[] {
    if (loads.length === 0) return [];
    return [h("h3", {}, "Loads of the case"), h("ul", { class: "loads" }, loads.map((load) => h("li", {}, load.text)))];
  }

  private lines(lines: DeckLine[], card = ""): HTMLElement[] {
    if (lines.length === 0) {
      if (this.deck.isWhole || card === "") return [];
      return [h("p", { class: "hint" }, `The decks are too large to be part of this page; look for ${card} in ${this.report.files[0]?.name ?? "the deck"}.`)];
    }
    const several = this.report.files.length > 1;
    return [
      h("h3", {}, "In the deck"),
      h("pre", { class: "deck", tabindex: "0" },
        lines.map(({ file, line, text }) => [
          h("span", { class: "place" }, `${several ? `${this.report.files[file].name}:` : ""}${line}`.padStart(7)),
          ` ${text}\n`,
        ]).flat(),
      ),
    ];
  }
}
