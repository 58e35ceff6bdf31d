// Vectors of three.

export type Vector = [number, number, number];

export interface Axes {
  along: Vector;
  up: Vector;
  third: Vector;
}

export function subtract(a: Vector, b: Vector): Vector {
  return [a[0] - b[0], a[1] - b[1], a[2] - b[2]];
}

export function cross(a: Vector, b: Vector): Vector {
  return [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
}

export function dot(a: Vector, b: Vector): number {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/** The direction with length 1; null for a vector without one. */
export function unit(a: Vector): Vector | null {
  const length = Math.hypot(...a);
  return length > 0 && Number.isFinite(length) ? [a[0] / length, a[1] / length, a[2] / length] : null;
}
