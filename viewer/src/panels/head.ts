// Above all: which conversion it is, and the verdict.

import { count, h } from "../dom";
import type { FileEntry, Report } from "../data/report";
import { verdictOf } from "./verdict";

const MARKS = { good: "✓", fair: "!", poor: "✗" };
const WORDS = { good: "sound", fair: "to be looked at", poor: "with losses" };

function fileRow(title: string, file: FileEntry): HTMLElement[] {
  const size = file.bytes === null ? "not a file that could be read" : `${count(file.bytes)} bytes, ${count(file.lines)} lines`;
  return [
    h("dt", {}, title),
    h("dd", {}, h("span", { class: "name" }, file.name), ` ${size}`, h("code", { class: "hash" }, file.sha256 ? `SHA-256 ${file.sha256}` : "SHA-256 not known")),
  ];
}

const MOST_FILES = 20;

export function makeHead(report: Report): HTMLElement {
  const verdict = verdictOf(report);
  const files = report.files.slice(0, MOST_FILES);
  return h("header", { class: "head" },
    h("h1", {}, "Conversion of ", h("span", { class: "name" }, report.result.deck)),
    h("p", { class: `verdict ${verdict.grade}`, id: "verdict" },
      h("strong", {}, h("span", { "aria-hidden": "true" }, MARKS[verdict.grade]), ` ${WORDS[verdict.grade]}: `),
      verdict.sentences.join(" "),
    ),
    h("details", { class: "facts", open: false },
      h("summary", {}, `${report.program}, ${report.date}; files and options`),
      h("dl", {},
        files.flatMap((file, i) => fileRow(i === 0 ? "deck" : "with", file)),
        report.files.length > MOST_FILES && [h("dt", {}, ""), h("dd", {}, `and ${count(report.files.length - MOST_FILES)} other files`)],
        fileRow("result", report.target),
        h("dt", {}, "program"), h("dd", {}, report.program),
        h("dt", {}, "date"), h("dd", {}, report.date),
        h("dt", {}, "options"), h("dd", {}, h("code", {}, report.arguments.join(" "))),
      ),
    ),
  );
}
