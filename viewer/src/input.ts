// The mouse and the keyboard on the picture.

import { STANDARD_VIEWS } from "./scene/camera";
import type { Viewer } from "./scene/viewer";

export interface Picked {
  part: number;
  node: number;
  wantsNode: boolean;
}

const CLICK = 4; // pixels that a click may move

export function bindPicking(viewer: Viewer, take: (picked: Picked) => void): void {
  const { canvas } = viewer;
  let from: { x: number; y: number } | null = null;
  canvas.addEventListener("pointerdown", (event) => {
    from = event.button === 0 ? { x: event.clientX, y: event.clientY } : null;
  });
  canvas.addEventListener("pointerup", (event) => {
    if (!from || Math.hypot(event.clientX - from.x, event.clientY - from.y) > CLICK) return;
    from = null;
    const { left, top } = canvas.getBoundingClientRect();
    take({ ...viewer.pick(event.clientX - left, event.clientY - top), wantsNode: event.shiftKey });
  });
}

export function bindKeys({ canvas, camera }: Viewer): void {
  const STEP = 10; // degrees
  const keys: Record<string, () => void> = {
    ArrowLeft: () => camera.turn(-STEP, 0),
    ArrowRight: () => camera.turn(STEP, 0),
    ArrowUp: () => camera.turn(0, STEP),
    ArrowDown: () => camera.turn(0, -STEP),
    "+": () => camera.zoom(1.25),
    "-": () => camera.zoom(0.8),
    f: () => camera.fit(),
  };
  STANDARD_VIEWS.forEach((name, i) => {
    keys[String(i + 1)] = () => camera.view(name);
  });
  canvas.addEventListener("keydown", (event) => {
    const act = keys[event.key] ?? keys[event.key.toLowerCase()];
    if (!act || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    act();
  });
}
