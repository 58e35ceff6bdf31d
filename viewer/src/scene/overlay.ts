// Texts and axes in front of the picture.

import { type Camera, Vector3 } from "three";

import { h } from "../dom";

const SVG = "http://www.w3.org/2000/svg";

const LABEL_WIDTH = 90; // pixels within which one label covers another
const LABEL_HEIGHT = 15;

export interface Label {
  at: [number, number, number];
  text: string;
}

export class Overlay {
  readonly element = h("div", { class: "overlay", "aria-hidden": "true" });
  private readonly axes = document.createElementNS(SVG, "svg");
  private labels: { at: Vector3; element: HTMLElement }[] = [];

  constructor() {
    this.axes.setAttribute("viewBox", "-40 -40 80 80");
    this.axes.setAttribute("class", "axes");
    this.element.append(this.axes);
  }

  setLabels(labels: Label[]): void {
    for (const { element } of this.labels) element.remove();
    this.labels = labels.map(({ at, text }) => ({ at: new Vector3(...at), element: h("span", { class: "label" }, text) }));
    this.element.append(...this.labels.map(({ element }) => element));
  }

  update(camera: Camera, width: number, height: number): void {
    const shown: { x: number; y: number }[] = [];
    for (const { at, element } of this.labels) { // the largest loads first
      const seen = at.clone().project(camera);
      const place = { x: ((seen.x + 1) / 2) * width + 6, y: ((1 - seen.y) / 2) * height - 6 };
      const isCovered = shown.some(({ x, y }) => Math.abs(x - place.x) < LABEL_WIDTH && Math.abs(y - place.y) < LABEL_HEIGHT);
      element.hidden = isCovered || Math.abs(seen.x) > 1 || Math.abs(seen.y) > 1 || Math.abs(seen.z) > 1;
      if (!element.hidden) shown.push(place);
      element.style.left = `${place.x}px`;
      element.style.top = `${place.y}px`;
    }
    const turn = camera.quaternion.clone().invert();
    const axes = (["x", "y", "z"] as const).map((name, i) => {
      const direction = new Vector3(i === 0 ? 1 : 0, i === 1 ? 1 : 0, i === 2 ? 1 : 0).applyQuaternion(turn);
      return { name, direction };
    });
    axes.sort((a, b) => a.direction.z - b.direction.z);
    this.axes.replaceChildren(...axes.flatMap(({ name, direction }) => this.axis(name, direction)));
  }

  private axis(name: string, { x, y }: Vector3): Element[] {
    const line = document.createElementNS(SVG, "line");
    line.setAttribute("x2", String(x * 26));
    line.setAttribute("y2", String(-y * 26));
    line.setAttribute("class", `axis-${name}`);
    const text = document.createElementNS(SVG, "text");
    text.setAttribute("x", String(x * 34));
    text.setAttribute("y", String(-y * 34 + 4));
    text.textContent = name.toUpperCase();
    return [line, text];
  }
}
