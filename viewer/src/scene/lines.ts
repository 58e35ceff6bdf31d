// Lines of some pixels' width: rods, beams, links.

import {
  Color,
  GLSL3,
  InstancedBufferAttribute,
  InstancedBufferGeometry,
  BufferAttribute,
  Mesh,
  ShaderMaterial,
  Vector2,
} from "three";

import { HIDDEN, LIT, type Paint } from "./paint";

export interface LineSet {
  /** Both ends of each line. */
  ends: Float32Array;
  parts: Uint32Array;
}

const VERTEX = `
in vec3 start;
in vec3 end;
in vec4 paint;
uniform vec2 uSize;
uniform float uDim;
uniform vec3 uPaper;
uniform vec3 uLit;
out vec3 vColour;
void main() {
  int flags = int(paint.a * 255.0 + 0.5);
  bool lit = (flags & ${LIT}) != 0;
  vec3 base = lit ? uLit : paint.rgb;
  if (uDim > 0.0 && !lit) base = mix(vec3(dot(base, vec3(0.3, 0.59, 0.11))), uPaper, 0.5);
  vColour = base;
  vec4 a = projectionMatrix * modelViewMatrix * vec4(start, 1.0);
  vec4 b = projectionMatrix * modelViewMatrix * vec4(end, 1.0);
  vec2 along = (b.xy / b.w - a.xy / a.w) * uSize;
  along = length(along) > 0.0 ? normalize(along) : vec2(1.0, 0.0);
  vec4 at = position.x > 0.5 ? b : a;
  float width = lit ? 5.0 : 2.5;
  at.xy += vec2(-along.y, along.x) * position.y * width / uSize * at.w;
  gl_Position = (flags & ${HIDDEN}) != 0 ? vec4(2.0, 2.0, 2.0, 1.0) : at;
}`;

const FRAGMENT = `
precision highp float;
in vec3 vColour;
out vec4 colour;
void main() { colour = vec4(vColour, 1.0); }`;

export class LinesLayer {
  readonly mesh: Mesh<InstancedBufferGeometry, ShaderMaterial>;
  ends: Float32Array = new Float32Array();
  parts: Uint32Array = new Uint32Array();

  constructor() {
    const material = new ShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: VERTEX,
      fragmentShader: FRAGMENT,
      uniforms: {
        uDim: { value: 0 },
        uSize: { value: new Vector2(1, 1) },
        uPaper: { value: new Color() },
        uLit: { value: new Color() },
      },
    });
    material.side = 2;
    this.mesh = new Mesh(new InstancedBufferGeometry(), material);
    this.mesh.frustumCulled = false;
    this.mesh.visible = false;
  }

  get uniforms() {
    return this.mesh.material.uniforms;
  }

  set({ ends, parts }: LineSet): void {
    this.mesh.geometry.dispose();
    const geometry = new InstancedBufferGeometry();
    geometry.setAttribute("position", new BufferAttribute(new Float32Array([0, -0.5, 0, 1, -0.5, 0, 1, 0.5, 0, 0, 0.5, 0]), 3));
    geometry.setIndex([0, 1, 2, 0, 2, 3]);
    const starts = new Float32Array(parts.length * 3);
    const stops = new Float32Array(parts.length * 3);
    for (let i = 0; i < parts.length; ++i) {
      starts.set(ends.subarray(6 * i, 6 * i + 3), 3 * i);
      stops.set(ends.subarray(6 * i + 3, 6 * i + 6), 3 * i);
    }
    geometry.setAttribute("start", new InstancedBufferAttribute(starts, 3));
    geometry.setAttribute("end", new InstancedBufferAttribute(stops, 3));
    geometry.setAttribute("paint", new InstancedBufferAttribute(new Uint8Array(parts.length * 4), 4, true));
    geometry.instanceCount = parts.length;
    this.mesh.geometry = geometry;
    this.mesh.visible = parts.length > 0;
    this.ends = ends;
    this.parts = parts;
  }

  paint(paint: Paint): void {
    if (this.parts.length === 0) return;
    const attribute = this.mesh.geometry.getAttribute("paint") as BufferAttribute;
    const bytes = attribute.array as Uint8Array;
    for (let i = 0; i < this.parts.length; ++i) {
      const part = this.parts[i];
      bytes.set(paint.colours.subarray(3 * part, 3 * part + 3), 4 * i);
      bytes[4 * i + 3] = paint.flags[part];
    }
    attribute.needsUpdate = true;
  }
}
