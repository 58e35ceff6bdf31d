// Reads the blocks of data in the page: see docs/report.md.

const CHUNK = 65536; // values whose bytes stand together

export type Words = Int32Array | Uint32Array | Float32Array;

function bytesOf(base64: string): Uint8Array<ArrayBuffer> {
  const newer = Uint8Array as unknown as { fromBase64?: (text: string) => Uint8Array<ArrayBuffer> };
  if (newer.fromBase64) return newer.fromBase64(base64);
  const text = atob(base64);
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) bytes[i] = text.charCodeAt(i);
  return bytes;
}

async function inflate(bytes: Uint8Array<ArrayBuffer>): Promise<Uint8Array<ArrayBuffer>> {
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
  return new Uint8Array(await new Response(stream).arrayBuffer());
}

/** The bytes of a block, whose element is removed; null if there is no such block. */
export async function readBytes(id: string): Promise<Uint8Array<ArrayBuffer> | null> {
  const element = document.getElementById(id);
  if (!element) return null;
  const bytes = bytesOf(element.textContent ?? "");
  const deflated = element.dataset.compression === "deflate";
  element.remove();
  return deflated ? inflate(bytes) : bytes;
}

/** Undoes the planes and differences of a block of words. */
export function joinWords(bytes: Uint8Array): Uint32Array<ArrayBuffer> {
  const words = new Uint32Array(bytes.length / 4);
  let last = 0;
  for (let first = 0; first < words.length; first += CHUNK) {
    const count = Math.min(CHUNK, words.length - first);
    const from = first * 4;
    for (let i = 0; i < count; ++i) {
      const j = from + i;
      last = (last + (bytes[j] | (bytes[j + count] << 8) | (bytes[j + 2 * count] << 16) | (bytes[j + 3 * count] << 24))) | 0;
      words[first + i] = last;
    }
  }
  return words;
}

async function readWords(id: string): Promise<Uint32Array<ArrayBuffer>> {
  return joinWords((await readBytes(id)) ?? new Uint8Array());
}

export async function readInts(id: string): Promise<Int32Array> {
  return new Int32Array((await readWords(id)).buffer);
}
export async function readPlaces(id: string): Promise<Uint32Array> {
  return readWords(id);
}
export async function readFloats(id: string): Promise<Float32Array> {
  return new Float32Array((await readWords(id)).buffer);
}

export async function readJson<T>(id: string): Promise<T> {
  return JSON.parse(new TextDecoder().decode((await readBytes(id)) ?? new Uint8Array())) as T;
}
