#pragma once
// Long sections are formatted in pieces, by several threads.

#include "platform/File.h"
#include "platform/TextSink.h"
#include "store/Left.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

/// Lines of a section, and what their rows leave out.
struct T_PIECE_D {
    CTextPiece text;
    std::vector<T_LEFT_D> aLEFT;
};

/// Calls make(i, piece) for the pieces from 0 to nPieces - 1, on up to nThreads threads, this one among them, and
/// take(piece) on this thread for one after the other. A piece is empty when it is made anew. Throws what the two
/// throw.
void MakePieces(std::size_t nPieces, std::size_t nThreads, const std::function<void(std::size_t, T_PIECE_D&)>& make,
                const std::function<void(T_PIECE_D&)>& take);

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
    MakePieces((nRows + PIECE - 1) / PIECE, nThreads, make, take);
}
