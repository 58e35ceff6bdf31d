#pragma once
// Long sections are formatted in pieces, by several threads.

#include "platform/File.h"
#include "platform/TextSink.h"
#include "platform/WorkPieces.h"
#include "store/Left.h"

#include <algorithm>
#include <cstddef>
#include <vector>

/// Lines of a section, and what their rows leave out.
struct T_PIECE_D {
    CTextPiece text;
    std::vector<T_LEFT_D> aLEFT;
};

/// Writes the rows of a walk. format(part, sink, tell) formats those of a part of it to a sink, and tells what they
/// leave out; with more than one thread it is called on all of them. The file and tell get everything in order.
template <class WALK, class FORMAT, class TELL>
void WriteRows(CFile& rFile, const WALK& rWalk, std::size_t nThreads, FORMAT format, TELL tell) {
    constexpr std::size_t PIECE = 8192, FEW = 4 * PIECE; // a thread costs as much as some hundred lines
    const std::size_t nRows = rWalk.GetCount();
    if (nThreads < 2 || nRows < FEW) return format(rWalk.Part(0, nRows), rFile, tell);
    const auto make = [&](std::size_t iPiece, T_PIECE_D& rPiece) {
        const std::size_t iBegin = iPiece * PIECE;
        format(rWalk.Part(iBegin, std::min(iBegin + PIECE, nRows)), rPiece.text,
               [&](const T_LEFT_D& rLeft) { rPiece.aLEFT.push_back(rLeft); });
    };
    const auto take = [&](T_PIECE_D& rPiece) {
        rFile.Append(rPiece.text);
        for (const T_LEFT_D& rLeft : rPiece.aLEFT) tell(rLeft);
        rPiece.aLEFT.clear();
    };
    MakePieces<T_PIECE_D>((nRows + PIECE - 1) / PIECE, nThreads, make, take);
}
