#pragma once
// Whether the text of a card leaves no doubt where its fields are.

#include "platform/TextWord.h"
#include "reader/LineGroup.h"

/// Whether there is no mark behind the fields of a line.
inline bool IsEndBlank(const T_LINE_D& rLine) {
    return LoadWord(rLine.aTEXT + 72) == RepeatInWord(' ');
}

/// True if the reader cuts these lines, which aren't empty, into the fields that NASTRAN sees. False if it may not:
/// somebody who cares has to cut them the other way and compare.
bool HavePlainFields(const CLineGroup& rLines);

/// The same of a card on one small field line, where blanks inside a field don't matter.
inline bool IsPlainSmallLine(const CLineGroup& rLines) {
    const T_LINE_D& rLine = rLines.First();
    return rLines.GetCount() == 1 && !(rLine.bMARKED | rLine.bTABBED | rLine.bCUT) && IsEndBlank(rLine);
}
