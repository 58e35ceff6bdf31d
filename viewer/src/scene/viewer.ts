// The picture of the model: what is in it, what is shown, lit and cut, and when it is drawn anew.

import { Color, Scene, type Vector2, WebGLRenderer } from "three";

import { h } from "../dom";
import { Cell, type Model } from "../data/model";
import type { Report } from "../data/report";
import { Camera, type Points } from "./camera";
import { type ColourBy, type Colouring, colouring, type ColourSources, LIT_COLOUR } from "./colours";
import { type FaceMesh, FacesLayer } from "./faces";
import { type Form, GlyphLayer } from "./glyphs";
import { LinesLayer } from "./lines";
import { type LoadCase, Loads } from "./loads";
import { type GlyphSets, nodeMarks, pointMarks, supportMarks } from "./marks";
import { Overlay } from "./overlay";
import { HIDDEN, LIT, type Paint } from "./paint";
import { pickNode, pickPart, type Spot } from "./picking";
import { extrude } from "./sections";
import { findFaces } from "./skin";

export interface Options {
  edges: boolean;
  extruded: boolean;
  supports: boolean;
  loads: boolean;
  values: boolean;
}

/** Whole elements whose middle is beyond the plane are taken away. */
export interface Cut {
  axis: 0 | 1 | 2;
  share: number;
  flipped: boolean;
}

export class Viewer {
  readonly element: HTMLElement;
  readonly loads: Loads;
  readonly camera: Camera;
  readonly options: Options = { edges: true, extruded: false, supports: true, loads: true, values: true };
  colouring: Colouring;
  loadCase: LoadCase | null = null;
  /** How many arrows are drawn of how many loads. */
  arrows = { drawn: 0, all: 0 };

  private readonly renderer: WebGLRenderer;
  private readonly scene = new Scene();
  private readonly faces = new FacesLayer();
  private readonly lines = new LinesLayer();
  private readonly marks = new Map<string, GlyphLayer>();
  private readonly overlay = new Overlay();
  private readonly paint: Paint;
  private readonly hidden: Uint8Array;
  private readonly cutAway: Uint8Array;
  private readonly hasSolids: boolean;
  private points: number[] = [];
  private by: ColourBy = "kind";
  private litParts: ReadonlySet<number> = new Set();
  private litNodes: ReadonlySet<number> = new Set();
  private isWaiting = false;
  private paper = new Color();

  /** Throws if the browser has no WebGL 2. */
  constructor(
    private readonly model: Model,
    private readonly report: Report,
    private readonly sources: Omit<ColourSources, "loaded">,
  ) {
    this.renderer = new WebGLRenderer({ antialias: true });
    this.renderer.setPixelRatio(Math.min(window.devicePixelRatio, 2));
    const canvas = this.renderer.domElement;
    canvas.tabIndex = 0;
    canvas.setAttribute("role", "img");
    canvas.setAttribute("aria-label", "The model. Arrows turn it, plus and minus zoom, F fits, 1 to 7 are standard views.");
    this.element = h("div", { class: "canvas" }, canvas, this.overlay.element);
    this.loads = new Loads(model, report);
    this.paint = { colours: new Uint8Array(model.partCount * 3), flags: new Uint8Array(model.partCount) };
    this.hidden = new Uint8Array(model.partCount);
    this.cutAway = new Uint8Array(model.partCount);
    this.hasSolids = model.cells.some((cell) => cell >= Cell.Tetra);
    this.camera = new Camera(canvas, () => this.draw());
    this.scene.add(this.faces.mesh, this.lines.mesh);
    this.colouring = this.makeColouring();
    this.rebuild();
    this.setSupports();
    this.camera.setModel(this.pointsOf(this.usedNodes()));
    this.resize();
    this.camera.view("isometric");
    new ResizeObserver(() => this.resize()).observe(this.element);
  }

  get canvas(): HTMLCanvasElement {
    return this.renderer.domElement;
  }

  setOption(name: keyof Options, value: boolean): void {
    this.options[name] = value;
    if (name === "extruded") this.rebuild();
    if (name === "supports") this.setSupports();
    if (name === "loads" || name === "values") this.setCase(this.loadCase);
    this.draw();
  }

  setColour(by: ColourBy): void {
    this.by = by;
    this.colouring = this.makeColouring();
    this.repaint();
  }

  setCase(loadCase: LoadCase | null): void {
    this.loadCase = loadCase;
    const marks = loadCase && this.options.loads ? this.loads.marks(loadCase) : null;
    this.arrows = marks ? { drawn: marks.drawn, all: marks.all } : { drawn: 0, all: 0 };
    this.setMarks("load", marks?.sets ?? {});
    this.overlay.setLabels(marks && this.options.values ? marks.labels.map(({ at, text }) => ({ at, text })) : []);
    if (this.by === "case") this.setColour("case");
    this.draw();
  }

  light(parts: ReadonlySet<number>, nodes: ReadonlySet<number>): void {
    this.litParts = parts;
    this.litNodes = nodes;
    this.setMarks("lit", { ball: nodeMarks(this.model, nodes, LIT_COLOUR) });
    this.repaint();
  }

  hide(parts: Iterable<number>): void {
    for (const part of parts) this.hidden[part] = 1;
    this.reveal();
  }

  isolate(parts: ReadonlySet<number>): void {
    for (let part = 0; part < this.hidden.length; ++part) this.hidden[part] = parts.has(part) ? 0 : 1;
    this.reveal();
  }

  showAll(): void {
    this.hidden.fill(0);
    this.reveal();
  }

  cut(cut: Cut | null): void {
    this.cutAway.fill(0);
    if (cut) {
      let low = Infinity;
      let high = -Infinity;
      for (const node of this.usedNodes()) {
        const place = this.model.places[3 * node + cut.axis];
        if (place < low) low = place;
        if (place > high) high = place;
      }
      const at = low + cut.share * (high - low);
      for (let part = 0; part < this.cutAway.length; ++part) {
        const beyond = this.model.middleOf(part)[cut.axis] > at;
        this.cutAway[part] = beyond !== cut.flipped ? 1 : 0;
      }
    }
    this.reveal();
  }

  fitTo(parts: ReadonlySet<number>, nodes: ReadonlySet<number>): void {
    const all = new Set(nodes);
    for (const part of parts) for (const node of this.model.cornersOf(part)) all.add(node);
    this.camera.fit(this.pointsOf(all));
  }

  /** The part and the node nearest to a point of the canvas, -1 for none. */
  pick(x: number, y: number): { part: number; node: number } {
    const { width, height } = this.canvas.getBoundingClientRect();
    const spot: Spot = { x, y, width, height };
    const layers = { faces: this.faces, lines: this.lines, points: this.points };
    const part = pickPart(this.model, layers, this.paint, this.camera.current, spot);
    return { part, node: pickNode(this.model, part, this.camera.current, spot) };
  }

  /** A picture of a load case on white, of the model as it is seen at the moment. */
  picture(loadCase: LoadCase | null): string {
    const before = this.loadCase;
    const paper = `#${this.paper.getHexString()}`;
    this.setTheme("#ffffff");
    this.setCase(loadCase);
    this.render();
    const url = this.canvas.toDataURL("image/png");
    this.setTheme(paper);
    this.setCase(before);
    return url;
  }

  setTheme(paper: string): void {
    this.paper.set(paper);
    this.renderer.setClearColor(this.paper, 1);
    const lit = new Color(...(LIT_COLOUR.map((value) => value / 255) as [number, number, number]));
    for (const { uniforms } of [this.faces, this.lines]) {
      uniforms.uPaper.value = this.paper.clone().convertLinearToSRGB();
      uniforms.uLit.value = lit;
    }
    this.draw();
  }

  draw(): void {
    if (this.isWaiting) return;
    this.isWaiting = true;
    requestAnimationFrame(() => {
      this.isWaiting = false;
      this.render();
    });
  }

  render(): void {
    const { width, height } = this.canvas.getBoundingClientRect();
    const dim = this.litParts.size + this.litNodes.size > 0 ? 1 : 0;
    this.faces.uniforms.uDim.value = this.lines.uniforms.uDim.value = dim;
    this.faces.uniforms.uEdges.value = this.options.edges ? 1 : 0;
    (this.lines.uniforms.uSize.value as Vector2).set(width / 2, height / 2);
    for (const layer of this.marks.values()) layer.mesh.material.uniforms.uPixel.value = this.camera.pixel;
    this.renderer.render(this.scene, this.camera.current);
    this.overlay.update(this.camera.current, width, height);
  }

  private makeColouring(): Colouring {
    const loaded = () => (this.loadCase ? this.loads.valuesOfParts(this.loadCase) : new Map<number, number>());
    return colouring(this.by, this.model, this.report, { ...this.sources, loaded });
  }

  private isShown(part: number): boolean {
    return this.hidden[part] === 0 && this.cutAway[part] === 0;
  }

  /** After a change of what is shown: solids get faces where others went. */
  private reveal(): void {
    if (this.hasSolids) this.rebuild();
    else this.repaint();
    this.setPoints();
    this.draw();
  }

  private rebuild(): void {
    const isShown = (part: number) => !this.hasSolids || this.isShown(part);
    const { corners, parts } = findFaces(this.model, isShown);
    const positions = new Float32Array(corners.length * 3);
    const triangle = new Uint8Array(parts.length);
    const { places } = this.model;
    for (let i = 0; i < corners.length; ++i) {
      const at = 3 * corners[i];
      positions[3 * i] = places[at];
      positions[3 * i + 1] = places[at + 1];
      positions[3 * i + 2] = places[at + 2];
    }
    for (let i = 0; i < parts.length; ++i) triangle[i] = corners[4 * i + 3] === corners[4 * i + 2] ? 1 : 0;
    const skin: FaceMesh = { positions, triangle, parts };
    this.faces.set(this.options.extruded ? join(skin, extrude(this.model, this.report.properties, isShown)) : skin);
    this.setLines();
    this.setPoints();
    this.repaint();
  }

  private setLines(): void {
    const { places, cells } = this.model;
    const ends: number[] = [];
    const parts: number[] = [];
    for (let part = 0; part < cells.length; ++part) {
      if (cells[part] !== Cell.Line) continue;
      const [a, b] = this.model.cornersOf(part);
      const from = ends.length;
      for (const node of [a, b]) ends.push(places[3 * node], places[3 * node + 1], places[3 * node + 2]);
      if (ends.slice(from).some(Number.isNaN)) ends.length = from;
      else parts.push(part);
    }
    this.lines.set({ ends: new Float32Array(ends), parts: new Uint32Array(parts) });
  }

  private setPoints(): void {
    const { glyphs, parts } = pointMarks(this.model, (part) => this.isShown(part));
    this.points = parts;
    this.setMarks("point", { ball: glyphs });
  }

  private setSupports(): void {
    this.setMarks("support", this.options.supports ? supportMarks(this.model) : {});
  }

  private setMarks(group: string, sets: GlyphSets): void {
    for (const [name, layer] of this.marks) if (name.startsWith(`${group} `) && layer.mesh.visible) layer.set([]);
    for (const [form, glyphs] of Object.entries(sets)) {
      const name = `${group} ${form}`;
      let layer = this.marks.get(name);
      if (!layer) {
        layer = new GlyphLayer(form as Form);
        this.marks.set(name, layer);
        this.scene.add(layer.mesh);
      }
      layer.set(glyphs);
    }
  }

  private repaint(): void {
    const { colours, flags } = this.paint;
    for (let part = 0; part < flags.length; ++part) {
      const [red, green, blue] = this.colouring.of(part);
      colours[3 * part] = red;
      colours[3 * part + 1] = green;
      colours[3 * part + 2] = blue;
      flags[part] = (this.isShown(part) ? 0 : HIDDEN) | (this.litParts.has(part) ? LIT : 0);
    }
    this.faces.paint(this.paint);
    this.lines.paint(this.paint);
    this.draw();
  }

  private resize(): void {
    const { width, height } = this.element.getBoundingClientRect();
    if (width === 0 || height === 0) return;
    this.renderer.setSize(width, height);
    this.camera.resize(width, height);
    this.draw();
  }

  /** Nodes that parts have, each once; all if no part has any. */
  private usedNodes(): number[] {
    const used = new Uint8Array(this.model.nodeIds.length);
    for (const node of this.model.corners) used[node] = 1;
    const nodes: number[] = [];
    for (let node = 0; node < used.length; ++node) if (used[node] || this.model.corners.length === 0) nodes.push(node);
    return nodes;
  }

  private pointsOf(nodes: Iterable<number>): Points {
    const points: number[] = [];
    for (const node of nodes) for (let k = 0; k < 3; ++k) points.push(this.model.places[3 * node + k]);
    return new Float32Array(points);
  }
}

function join(a: FaceMesh, b: FaceMesh): FaceMesh {
  const positions = new Float32Array(a.positions.length + b.positions.length);
  positions.set(a.positions);
  positions.set(b.positions, a.positions.length);
  const triangle = new Uint8Array(a.triangle.length + b.triangle.length);
  triangle.set(a.triangle);
  const parts = new Uint32Array(a.parts.length + b.parts.length);
  parts.set(a.parts);
  parts.set(b.parts, a.parts.length);
  return { positions, triangle, parts };
}
