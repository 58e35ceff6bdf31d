// What became of the deck's cards: losses by class, then every keyword.

import { count, h } from "../dom";
import type { Loss, LossClass, Report } from "../data/report";
import { makeTable } from "./table";

const TITLES: Record<LossClass, string> = {
  model: "Lost or changed in the model",
  mass: "Lost of its mass",
  control: "Lost of what controls the analysis",
  note: "Changed without consequences for results",
};

export function makeAccount(report: Report, choose: (loss: Loss) => void): HTMLElement[] {
  const { account } = report.result;
  const classes = (Object.keys(TITLES) as LossClass[]).flatMap((name) => {
    const losses = account.lost.filter((loss) => loss.class === name);
    if (losses.length === 0) return [];
    const rows = losses.map((loss) => ({ cells: [loss.keyword || "deck", loss.count, loss.text], choose: () => choose(loss), class: "loss" }));
    return [h("h3", {}, `${TITLES[name]} (${count(account.classes[name])})`), h("div", { class: "losses" }, makeTable(["keyword", "count", "what"], rows))];
  });
  const keywords = account.keywords.map((row) => ({
    cells: [row.keyword || "(none)", row.read, row.stored, row.replaced, row.reported, row.skipped, row.unknown, row.lost, row.cut_off].map(
      (value) => (value === 0 ? null : value),
    ),
  }));
  return [
    ...(classes.length > 0
      ? [h("p", { class: "hint" }, "A row lights what it is about in the model and shows the lines of the deck."), ...classes]
      : [h("p", {}, "Nothing was lost.")]),
    h("h3", {}, "Cards"),
    makeTable(["keyword", "read", "stored", "replaced", "reported", "skipped", "unknown", "lost", "cut off"], keywords),
  ];
}
