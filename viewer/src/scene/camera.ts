// Where the model is looked at from: orthographic or in perspective, standard views, fitting.

import { OrthographicCamera, PerspectiveCamera, Vector3 } from "three";
import { OrbitControls } from "three/examples/jsm/controls/OrbitControls.js";

const FIELD = 35; // degrees

export type StandardView = "front" | "back" | "left" | "right" | "top" | "bottom" | "isometric";

/** From the model to the eye, and what points up. */
const VIEWS: Record<StandardView, [eye: [number, number, number], up: [number, number, number]]> = {
  front: [[0, -1, 0], [0, 0, 1]],
  back: [[0, 1, 0], [0, 0, 1]],
  left: [[-1, 0, 0], [0, 0, 1]],
  right: [[1, 0, 0], [0, 0, 1]],
  top: [[0, -1e-4, 1], [0, 0, 1]],
  bottom: [[0, -1e-4, -1], [0, 0, 1]],
  isometric: [[1, -1, 1], [0, 0, 1]],
};
export const STANDARD_VIEWS = Object.keys(VIEWS) as StandardView[];

/** x, y, z of points that are to be seen, one behind the other. */
export type Points = Float32Array;

const MARGIN = 1.12; // around them

export class Camera {
  private readonly flat = new OrthographicCamera();
  private readonly deep = new PerspectiveCamera(FIELD);
  private readonly controls: OrbitControls;
  private size = { width: 1, height: 1 };
  private all: Points = new Float32Array();
  private radius = 1; // of the model
  isOrthographic = true;

  constructor(element: HTMLElement, onChange: () => void) {
    for (const camera of [this.flat, this.deep]) camera.up.set(0, 0, 1);
    this.controls = new OrbitControls(this.flat, element);
    this.controls.zoomToCursor = true;
    this.controls.addEventListener("change", onChange);
  }

  get current(): OrthographicCamera | PerspectiveCamera {
    return this.isOrthographic ? this.flat : this.deep;
  }

  /** A pixel's size in the model at a depth w of 1. */
  get pixel(): number {
    if (this.isOrthographic) return (this.flat.top - this.flat.bottom) / this.flat.zoom / this.size.height;
    return (2 * Math.tan((FIELD * Math.PI) / 360)) / this.size.height;
  }

  setModel(all: Points): void {
    this.all = all;
    const axes = [new Vector3(1, 0, 0), new Vector3(0, 1, 0), new Vector3(0, 0, 1)];
    const [x, y, z] = axes.map((axis) => extentOf(all, axis));
    this.radius = Math.hypot(x.high - x.low, y.high - y.low, z.high - z.low) / 2 || 1;
  }

  resize(width: number, height: number): void {
    const ratio = width / height;
    const half = this.flat.top || 1;
    this.size = { width, height };
    this.flat.left = -half * ratio;
    this.flat.right = half * ratio;
    this.deep.aspect = ratio;
    this.flat.updateProjectionMatrix();
    this.deep.updateProjectionMatrix();
  }

  /** Moves so that points fill the picture, seen from where the eye is. */
  fit(points: Points = this.all): void {
    this.frame(points, this.current.position.clone().sub(this.controls.target).normalize());
  }

  view(name: StandardView): void {
    const [eye, up] = VIEWS[name];
    this.current.up.set(...up);
    this.frame(this.all, new Vector3(...eye).normalize());
  }

  setOrthographic(orthographic: boolean): void {
    if (orthographic === this.isOrthographic) return;
    const half = this.isOrthographic
      ? this.flat.top / this.flat.zoom
      : this.deep.position.distanceTo(this.controls.target) * Math.tan((FIELD * Math.PI) / 360);
    const towards = this.current.position.clone().sub(this.controls.target).normalize();
    this.isOrthographic = orthographic;
    this.controls.object = this.current;
    this.look(this.controls.target.clone(), towards, half);
  }

  /** Turns about the target: degrees to the right and upwards. */
  turn(right: number, up: number): void {
    const camera = this.current;
    const from = camera.position.clone().sub(this.controls.target);
    from.applyAxisAngle(new Vector3(0, 0, 1), (-right * Math.PI) / 180);
    const side = new Vector3(0, 0, 1).cross(from).normalize();
    if (side.lengthSq() > 0) {
      const turned = from.clone().applyAxisAngle(side, (-up * Math.PI) / 180);
      if (Math.abs(turned.clone().normalize().z) < 0.9999) from.copy(turned);
    }
    camera.position.copy(this.controls.target).add(from);
    this.controls.update();
  }

  zoom(factor: number): void {
    if (this.isOrthographic) {
      this.flat.zoom *= factor;
      this.flat.updateProjectionMatrix();
      this.controls.dispatchEvent({ type: "change" });
    } else {
      this.deep.position.lerp(this.controls.target, 1 - 1 / factor);
      this.controls.update();
    }
  }

  private frame(points: Points, towards: Vector3): void {
    const right = new Vector3(0, 0, 1).cross(towards).normalize();
    const up = towards.clone().cross(right);
    const extents = [right, up, towards].map((axis) => ({ axis, ...extentOf(points, axis) }));
    const centre = new Vector3();
    for (const { axis, low, high } of extents) centre.addScaledVector(axis, (low + high) / 2);
    const [width, height] = extents.map(({ low, high }) => (high - low) / 2);
    const ratio = this.size.width / this.size.height;
    this.look(centre, towards, MARGIN * Math.max(height, width / ratio, this.radius * 1e-4));
  }

  private look(centre: Vector3, towards: Vector3, half: number): void {
    const { radius } = this;
    const reach = radius * 20 + half;
    this.controls.target.copy(centre);
    if (this.isOrthographic) {
      this.flat.zoom = 1;
      this.flat.top = half;
      this.flat.bottom = -half;
      this.flat.near = -reach;
      this.flat.far = reach;
      this.flat.position.copy(centre).addScaledVector(towards, radius * 2);
    } else {
      const distance = half / Math.tan((FIELD * Math.PI) / 360);
      this.deep.near = Math.min(distance, radius) / 200;
      this.deep.far = distance + reach;
      this.deep.position.copy(centre).addScaledVector(towards, distance);
    }
    this.resize(this.size.width, this.size.height);
    this.controls.update();
    this.controls.dispatchEvent({ type: "change" });
  }
}

/** The least and the largest of the points' places along an axis; those without a place don't count. */
function extentOf(points: Points, axis: Vector3): { low: number; high: number } {
  let low = Infinity;
  let high = -Infinity;
  for (let i = 0; i < points.length; i += 3) {
    const at = points[i] * axis.x + points[i + 1] * axis.y + points[i + 2] * axis.z;
    if (at < low) low = at;
    if (at > high) high = at;
  }
  return low <= high ? { low, high } : { low: 0, high: 0 };
}
