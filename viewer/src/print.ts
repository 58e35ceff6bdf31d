// Pictures for paper: one a load case, as the model is seen when it is printed.

import { h, plural } from "./dom";
import type { LoadCase } from "./scene/loads";
import type { Viewer } from "./scene/viewer";

/** Shows on paper what is folded on the screen. */
export function openForPrint(root: HTMLElement): void {
  let folded: HTMLDetailsElement[] = [];
  window.addEventListener("beforeprint", () => {
    folded = [...root.querySelectorAll("details")].filter((details) => !details.open);
    for (const details of folded) details.open = true;
  });
  window.addEventListener("afterprint", () => {
    for (const details of folded) details.open = false;
  });
}

const MOST_PICTURES = 24;

/** How many loads there are, and the largest of each type. */
function summary(viewer: Viewer, loadCase: LoadCase): string {
  const { labels, all } = viewer.loads.marks(loadCase);
  const largest = labels.filter(({ type }, i) => labels.findIndex((label) => label.type === type) === i);
  return [`${plural(all, "load")} with a direction`, ...largest.map(({ text }) => `largest ${text}`)].join(", ");
}

export function makePrintPictures(viewer: Viewer, cases: LoadCase[]): HTMLElement {
  const element = h("section", { class: "pictures" });
  const picture = (loadCase: LoadCase | null) => {
    const title = loadCase ? `Load case ${loadCase.name}: ${summary(viewer, loadCase)}` : "The model";
    return h("figure", {}, h("img", { src: viewer.picture(loadCase), alt: title }), h("figcaption", {}, title));
  };
  window.addEventListener("beforeprint", () => {
    const figures = (cases.length > 0 ? cases.slice(0, MOST_PICTURES) : [null]).map(picture);
    const more = cases.length - MOST_PICTURES;
    element.replaceChildren(
      h("h2", {}, "Pictures"),
      ...figures,
      ...(more > 0 ? [h("p", {}, `${more} other load cases have no picture here.`)] : []),
    );
  });
  window.addEventListener("afterprint", () => element.replaceChildren());
  return element;
}
