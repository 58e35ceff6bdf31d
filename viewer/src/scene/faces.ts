// Faces as one mesh, with the edges of the elements drawn in by the shader, and rays that meet them.

import {
  BufferAttribute,
  BufferGeometry,
  Color,
  DoubleSide,
  GLSL3,
  Mesh,
  type Ray,
  ShaderMaterial,
  Vector3,
} from "three";
import { MeshBVH } from "three-mesh-bvh";

import { HIDDEN, LIT, type Paint, TRIANGLE } from "./paint";

/** Quads, or triangles that repeat their last corner, at places of their own. */
export interface FaceMesh {
  positions: Float32Array;
  triangle: Uint8Array;
  parts: Uint32Array;
}

const VERTEX = `
in vec4 paint;
uniform float uDim;
out vec3 vView;
out vec3 vColour;
out vec2 vCorner;
flat out int vFlags;
void main() {
  int flags = int(paint.a * 255.0 + 0.5);
  int corner = gl_VertexID & 3;
  vCorner = vec2(corner == 1 || corner == 2 ? 1.0 : 0.0, corner >= 2 ? 1.0 : 0.0);
  vColour = paint.rgb;
  vFlags = flags;
  vec4 view = modelViewMatrix * vec4(position, 1.0);
  vView = view.xyz;
  gl_Position = (flags & ${HIDDEN}) != 0 ? vec4(2.0, 2.0, 2.0, 1.0) : projectionMatrix * view;
}`;

const FRAGMENT = `
precision highp float;
in vec3 vView;
in vec3 vColour;
in vec2 vCorner;
flat in int vFlags;
uniform float uDim;
uniform float uEdges;
uniform vec3 uPaper;
uniform vec3 uLit;
out vec4 colour;
void main() {
  vec3 normal = normalize(cross(dFdx(vView), dFdy(vView)));
  bool lit = (vFlags & ${LIT}) != 0;
  vec3 base = lit ? uLit : vColour;
  if (uDim > 0.0 && !lit) base = mix(vec3(dot(base, vec3(0.3, 0.59, 0.11))), uPaper, 0.62);
  base *= 0.58 + 0.42 * abs(normal.z);
  float u = vCorner.x, v = vCorner.y;
  vec4 away = (vFlags & ${TRIANGLE}) != 0 ? vec4(v, 1.0 - u, u - v, 1.0) : vec4(v, 1.0 - u, 1.0 - v, u);
  vec4 slope = max(fwidth(away), 1e-6);
  vec4 pixels = away / slope;
  float nearest = min(min(pixels.x, pixels.y), min(pixels.z, (vFlags & ${TRIANGLE}) != 0 ? 1e9 : pixels.w));
  float size = 1.0 / max(max(slope.x, slope.y), slope.z);
  float line = (1.0 - smoothstep(0.4, 1.3, nearest)) * smoothstep(3.0, 9.0, size) * uEdges;
  colour = vec4(mix(base, base * 0.35, line), 1.0);
}`;

export interface FaceHit {
  part: number;
  face: number;
  distance: number;
  point: Vector3;
}

export class FacesLayer {
  readonly mesh: Mesh<BufferGeometry, ShaderMaterial>;
  private tree: MeshBVH | null = null;
  private triangle: Uint8Array = new Uint8Array();
  private parts: Uint32Array = new Uint32Array();

  constructor() {
    const material = new ShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: VERTEX,
      fragmentShader: FRAGMENT,
      side: DoubleSide,
      polygonOffset: true,
      polygonOffsetFactor: 1,
      polygonOffsetUnits: 1,
      uniforms: {
        uDim: { value: 0 },
        uEdges: { value: 1 },
        uPaper: { value: new Color() },
        uLit: { value: new Color() },
      },
    });
    this.mesh = new Mesh(new BufferGeometry(), material);
    this.mesh.frustumCulled = false;
  }

  get uniforms() {
    return this.mesh.material.uniforms;
  }

  set(faces: FaceMesh): void {
    this.mesh.geometry.dispose();
    const geometry = new BufferGeometry();
    const count = faces.parts.length;
    geometry.setAttribute("position", new BufferAttribute(faces.positions, 3));
    geometry.setAttribute("paint", new BufferAttribute(new Uint8Array(count * 16), 4, true));
    const index = new Uint32Array(count * 6);
    for (let face = 0, k = 0; face < count; ++face) {
      const at = 4 * face;
      index[k++] = at;
      index[k++] = at + 1;
      index[k++] = at + 2;
      index[k++] = at;
      index[k++] = at + 2;
      index[k++] = at + 3;
    }
    geometry.setIndex(new BufferAttribute(index, 1));
    this.mesh.geometry = geometry;
    this.triangle = faces.triangle;
    this.parts = faces.parts;
    this.tree = null;
  }

  paint(paint: Paint): void {
    const attribute = this.mesh.geometry.getAttribute("paint") as BufferAttribute;
    const words = new Uint32Array(attribute.array.buffer);
    for (let face = 0; face < this.parts.length; ++face) {
      const part = this.parts[face];
      const flags = paint.flags[part] | (this.triangle[face] ? TRIANGLE : 0);
      const word =
        paint.colours[3 * part] | (paint.colours[3 * part + 1] << 8) | (paint.colours[3 * part + 2] << 16) | (flags << 24);
      words.fill(word, 4 * face, 4 * face + 4);
    }
    attribute.needsUpdate = true;
  }

  /** The nearest face on a ray that is shown. The first time after a change of the faces it takes long. */
  meet(ray: Ray, paint: Paint): FaceHit | null {
    if (this.parts.length === 0) return null;
    const geometry = this.mesh.geometry;
    this.tree ??= new MeshBVH(geometry, { indirect: true });
    const index = (geometry.index as BufferAttribute).array;
    let nearest: FaceHit | null = null;
    for (const hit of this.tree.raycast(ray, DoubleSide)) {
      const face = index[3 * (hit.faceIndex as number)] >> 2;
      const part = this.parts[face];
      if (paint.flags[part] & HIDDEN || (nearest && nearest.distance <= hit.distance)) continue;
      nearest = { part, face, distance: hit.distance, point: hit.point };
    }
    return nearest;
  }
}
