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

export interface Sphere {
  centre: Vector3;
  radius: number;
}

export class Camera {
  private readonly flat = new OrthographicCamera();
  private readonly deep = new PerspectiveCamera(FIELD);
  private readonly controls: OrbitControls;
  private size = { width: 1, height: 1 };
  private all: Sphere = { centre: new Vector3(), radius: 1 };
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

  setModel(all: Sphere): void {
    this.all = all;
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

  /** Moves so that a sphere fills the picture, seen from where the eye is. */
  fit({ centre, radius }: Sphere = this.all): void {
    const towards = this.current.position.clone().sub(this.controls.target).normalize();
    if (towards.lengthSq() === 0) towards.set(1, -1, 1).normalize();
    this.look(centre, towards, Math.max(radius, this.all.radius * 1e-4));
  }

  view(name: StandardView): void {
    const [eye, up] = VIEWS[name];
    this.current.up.set(...up);
    this.look(this.all.centre, new Vector3(...eye).normalize(), this.all.radius);
  }

  setOrthographic(orthographic: boolean): void {
    if (orthographic === this.isOrthographic) return;
    const radius = this.isOrthographic
      ? this.flat.top / this.flat.zoom
      : this.deep.position.distanceTo(this.controls.target) * Math.tan((FIELD * Math.PI) / 360);
    const towards = this.current.position.clone().sub(this.controls.target).normalize();
    this.isOrthographic = orthographic;
    this.controls.object = this.current;
    this.look(this.controls.target.clone(), towards, radius / 1.05);
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

  private look(centre: Vector3, towards: Vector3, radius: number): void {
    const reach = this.all.radius * 20 + radius;
    const ratio = Math.min(1, this.size.width / this.size.height);
    const half = (radius * 1.05) / ratio;
    this.controls.target.copy(centre);
    if (this.isOrthographic) {
      this.flat.zoom = 1;
      this.flat.top = half;
      this.flat.bottom = -half;
      this.flat.near = -reach;
      this.flat.far = reach;
      this.flat.position.copy(centre).addScaledVector(towards, this.all.radius * 2);
    } else {
      const distance = half / Math.tan((FIELD * Math.PI) / 360);
      this.deep.near = Math.min(distance, this.all.radius) / 200;
      this.deep.far = distance + reach;
      this.deep.position.copy(centre).addScaledVector(towards, distance);
    }
    this.resize(this.size.width, this.size.height);
    this.controls.update();
    this.controls.dispatchEvent({ type: "change" });
  }
}
