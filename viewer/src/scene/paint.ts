// What each part and node looks like at the moment: its colour, whether it is shown and whether it is lit.

export const HIDDEN = 1;
export const TRIANGLE = 2;
export const LIT = 4;

/** Three bytes a part, and its flags. */
export interface Paint {
  colours: Uint8Array;
  flags: Uint8Array;
}

export type Rgb = [red: number, green: number, blue: number];

export function rgbOf(hex: string): Rgb {
  const value = Number.parseInt(hex.slice(1), 16);
  return [value >> 16, (value >> 8) & 255, value & 255];
}

export function cssOf([red, green, blue]: Rgb): string {
  return `rgb(${red} ${green} ${blue})`;
}
