// Marks of a size in pixels: supports, masses, springs to ground, arrows of loads, lit nodes.

import { BufferAttribute, BufferGeometry, Color, ConeGeometry, CylinderGeometry, GLSL3, InstancedBufferAttribute, InstancedBufferGeometry, Mesh, OctahedronGeometry, BoxGeometry, ShaderMaterial, TorusGeometry } from "three";
import { mergeGeometries } from "three/examples/jsm/utils/BufferGeometryUtils.js";

import type { Rgb } from "./paint";

export interface Glyph {
  at: [number, number, number];
  /** Of length 1; for forms without a direction it doesn't matter. */
  axis: [number, number, number];
  /** Pixels along the axis and across. */
  length: number;
  width: number;
  colour: Rgb;
}

/** Along z, from 0 to 1; those that point at their place from -1 to 0. */
function arrow(heads: number): BufferGeometry {
  const shaft = new CylinderGeometry(0.16, 0.16, 0.7, 6).rotateX(Math.PI / 2).translate(0, 0, 0.35);
  const parts: BufferGeometry[] = [shaft];
  for (let i = 0; i < heads; ++i) parts.push(new ConeGeometry(0.5, 0.3, 8).rotateX(Math.PI / 2).translate(0, 0, 0.85 - 0.24 * i));
  return mergeGeometries(parts);
}

const FORMS = {
  arrow: () => arrow(1),
  double: () => arrow(2),
  into: () => arrow(1).translate(0, 0, -1),
  cone: () => new ConeGeometry(0.5, 1, 4).rotateX(Math.PI / 2).translate(0, 0, -0.5),
  ring: () => new TorusGeometry(0.5, 0.11, 4, 12).translate(0, 0, -1.15),
  box: () => new BoxGeometry(1, 1, 1),
  ball: () => new OctahedronGeometry(0.5, 1),
} as const;

export type Form = keyof typeof FORMS;

const VERTEX = `
in vec3 anchor;
in vec3 axis;
in vec2 extent;
in vec3 tint;
uniform float uPixel;
out vec3 vView;
out vec3 vColour;
void main() {
  vColour = tint;
  vec4 place = projectionMatrix * modelViewMatrix * vec4(anchor, 1.0);
  float pixel = uPixel * place.w;
  vec3 other = abs(axis.z) < 0.9 ? vec3(0.0, 0.0, 1.0) : vec3(1.0, 0.0, 0.0);
  vec3 across = normalize(cross(other, axis));
  vec3 third = cross(axis, across);
  vec3 from = (across * position.x + third * position.y) * extent.y + axis * position.z * extent.x;
  vec4 view = modelViewMatrix * vec4(anchor + from * pixel, 1.0);
  vView = view.xyz;
  gl_Position = projectionMatrix * view;
  gl_Position.z -= 0.0005 * gl_Position.w;
}`;

const FRAGMENT = `
precision highp float;
in vec3 vView;
in vec3 vColour;
out vec4 colour;
void main() {
  vec3 normal = normalize(cross(dFdx(vView), dFdy(vView)));
  colour = vec4(vColour * (0.6 + 0.4 * abs(normal.z)), 1.0);
}`;

export class GlyphLayer {
  readonly mesh: Mesh<InstancedBufferGeometry, ShaderMaterial>;
  private readonly form: BufferGeometry;
  glyphs: Glyph[] = [];

  constructor(form: Form) {
    const material = new ShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: VERTEX,
      fragmentShader: FRAGMENT,
      side: 2,
      uniforms: { uPixel: { value: 1 }, uTint: { value: new Color() } },
    });
    this.form = FORMS[form]();
    this.mesh = new Mesh(new InstancedBufferGeometry(), material);
    this.mesh.frustumCulled = false;
    this.mesh.visible = false;
  }

  set(glyphs: Glyph[]): void {
    this.glyphs = glyphs;
    this.mesh.geometry.dispose();
    const geometry = new InstancedBufferGeometry();
    geometry.setAttribute("position", this.form.getAttribute("position") as BufferAttribute);
    geometry.setIndex(this.form.index);
    const floats = (width: number, of: (glyph: Glyph) => number[]) => {
      const values = new Float32Array(glyphs.length * width);
      glyphs.forEach((glyph, i) => values.set(of(glyph), i * width));
      return new InstancedBufferAttribute(values, width);
    };
    geometry.setAttribute("anchor", floats(3, (glyph) => glyph.at));
    geometry.setAttribute("axis", floats(3, (glyph) => glyph.axis));
    geometry.setAttribute("extent", floats(2, (glyph) => [glyph.length, glyph.width]));
    geometry.setAttribute("tint", floats(3, (glyph) => glyph.colour.map((value) => value / 255)));
    geometry.instanceCount = glyphs.length;
    this.mesh.geometry = geometry;
    this.mesh.visible = glyphs.length > 0;
  }
}
