// What came of the conversion, in a sentence a class.

import { plural } from "../dom";
import type { Report } from "../data/report";

export type Grade = "good" | "fair" | "poor";

export interface Verdict {
  grade: Grade;
  sentences: string[];
}

export function verdictOf({ result }: Report): Verdict {
  if (result.error !== null) return { grade: "poor", sentences: [`The conversion failed: ${result.error}`] };
  const { model, mass, control, note } = result.account.classes;
  const sentences: string[] = [];
  const lost = [
    model > 0 && `${plural(model, "loss", "losses")} of the model`,
    mass > 0 && `${plural(mass, "loss", "losses")} of mass`,
    control > 0 && `${plural(control, "loss", "losses")} of what controls the analysis`,
  ].filter((text): text is string => text !== false);
  if (lost.length > 0) sentences.push(`The file doesn’t say all that the deck says: ${lost.join(", ")}.`);
  else if (note > 0) sentences.push(`Nothing was lost that counts; ${plural(note, "change")} without consequences for results.`);
  else sentences.push("Nothing of the deck was lost.");

  const { check } = result;
  if (!check) {
    sentences.push("The deck couldn’t be read for the check.");
  } else {
    sentences.push(check.errors > 0 ? `The check finds ${plural(check.errors, "error")} of the deck.` : "The check finds no error of the deck.");
    const differing = check.totals.filter((row) => row.differs);
    const unexplained = differing.filter((row) => row.why.length === 0).length;
    if (unexplained > 0) sentences.push(`${plural(unexplained, "total")} of deck and file differ without an explanation.`);
    else if (differing.length > 0) sentences.push(`${plural(differing.length, "total")} of deck and file differ, as the losses explain.`);
    else sentences.push("All totals of deck and file agree.");
  }
  const poor = model + mass > 0 || !check || check.errors > 0 || check.totals.some((row) => row.differs && row.why.length === 0);
  return { grade: poor ? "poor" : control > 0 ? "fair" : "good", sentences };
}
