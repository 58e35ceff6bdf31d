// Finds what is under a point of the picture.

import { type Camera, Raycaster, Vector2, Vector3 } from "three";

import type { Model } from "../data/model";
import type { FacesLayer } from "./faces";
import type { LinesLayer } from "./lines";
import { HIDDEN, type Paint } from "./paint";

const REACH = 7; // pixels from a line or a point

/** A point of the picture, in pixels from its upper left corner, and its size. */
export interface Spot {
  x: number;
  y: number;
  width: number;
  height: number;
}

/** Maps places of the model to pixels, with the depth as third. */
function projector(camera: Camera, spot: Spot): (places: Float32Array, at: number, to: Vector3) => Vector3 {
  return (places, at, to) => {
    to.set(places[at], places[at + 1], places[at + 2]).project(camera);
    return to.set(((to.x + 1) / 2) * spot.width, ((1 - to.y) / 2) * spot.height, to.z);
  };
}

export interface Layers {
  faces: FacesLayer;
  lines: LinesLayer;
  /** Parts drawn as points, at the node that each has. */
  points: number[];
}

/** The part under a point of the picture, -1 for none. What is a line or point goes before the face that it lies on. */
export function pickPart(model: Model, layers: Layers, paint: Paint, camera: Camera, spot: Spot): number {
  const ray = new Raycaster();
  const meet = (x: number, y: number) => {
    ray.setFromCamera(new Vector2((x / spot.width) * 2 - 1, 1 - (y / spot.height) * 2), camera);
    return layers.faces.meet(ray.ray, paint);
  };
  const hit = meet(spot.x, spot.y) ?? meet(spot.x + 0.4, spot.y + 0.3); // rays may pass between two triangles
  const depth = hit ? hit.point.clone().project(camera).z + 1e-3 : 1;

  const project = projector(camera, spot);
  const a = new Vector3();
  const b = new Vector3();
  let best = REACH;
  let part = hit?.part ?? -1;
  const { ends, parts } = layers.lines;
  for (let i = 0; i < parts.length; ++i) {
    if (paint.flags[parts[i]] & HIDDEN) continue;
    project(ends, 6 * i, a);
    project(ends, 6 * i + 3, b);
    const [dx, dy] = [b.x - a.x, b.y - a.y];
    const square = dx * dx + dy * dy;
    const share = square > 0 ? Math.min(Math.max(((spot.x - a.x) * dx + (spot.y - a.y) * dy) / square, 0), 1) : 0;
    const away = Math.hypot(a.x + share * dx - spot.x, a.y + share * dy - spot.y);
    const z = a.z + share * (b.z - a.z);
    if (away < best && z <= depth && z > -1) {
      best = away;
      part = parts[i];
    }
  }
  for (const point of layers.points) {
    if (paint.flags[point] & HIDDEN) continue;
    project(model.places, 3 * model.cornersOf(point)[0], a);
    const away = Math.hypot(a.x - spot.x, a.y - spot.y);
    if (away <= best && a.z <= depth && a.z > -1) {
      best = away;
      part = point;
    }
  }
  return part;
}

/** The node next to a point of the picture, -1 for none: a corner of the part there, or else any near node. */
export function pickNode(model: Model, part: number, camera: Camera, spot: Spot): number {
  const project = projector(camera, spot);
  const at = new Vector3();
  let best = part >= 0 ? Infinity : 2 * REACH;
  let found = -1;
  const test = (node: number) => {
    project(model.places, 3 * node, at);
    const away = Math.hypot(at.x - spot.x, at.y - spot.y);
    if (away < best && at.z > -1 && at.z < 1) {
      best = away;
      found = node;
    }
  };
  if (part >= 0) model.cornersOf(part).forEach(test);
  else for (let node = 0; node < model.nodeIds.length; ++node) test(node);
  return found;
}
