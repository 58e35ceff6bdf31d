// Elements of the page. Texts of decks go in as text alone, never as markup.

type Child = Node | string | number | null | undefined | false;
type Attributes = Record<string, string | boolean | ((event: Event) => void)>;

/** An element with attributes, of which functions are listeners, and children. */
export function h<K extends keyof HTMLElementTagNameMap>(
  name: K,
  attributes: Attributes = {},
  ...children: (Child | Child[])[]
): HTMLElementTagNameMap[K] {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (typeof value === "function") element.addEventListener(key, value);
    else if (typeof value === "boolean") element.toggleAttribute(key, value);
    else element.setAttribute(key, value);
  }
  for (const child of children.flat()) {
    if (child !== null && child !== undefined && child !== false) element.append(child instanceof Node ? child : String(child));
  }
  return element;
}

/** "1,234,567". */
export function count(value: number): string {
  return value.toLocaleString("en-US");
}

/** "1 loss", "2 losses". */
export function plural(value: number, one: string, many = `${one}s`): string {
  return `${count(value)} ${value === 1 ? one : many}`;
}
