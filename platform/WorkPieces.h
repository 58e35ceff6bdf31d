#pragma once
// Pieces of work that several threads do and one takes in order.

#include "platform/WorkRing.h"

#include <algorithm>
#include <cstddef>
#include <vector>

/// Calls make(i, piece) for the pieces from 0 to nPieces - 1, on up to nThreads threads, this one among them, and
/// take(piece) on this thread for one after the other. A piece is as take left it when it is made anew. Throws what the
/// two throw.
template <class PIECE, class MAKE, class TAKE>
void MakePieces(std::size_t nPieces, std::size_t nThreads, MAKE make, TAKE take) {
    struct T_SLOT_D {
        PIECE piece;
        std::size_t iPIECE = 0;
    };
    nThreads = std::clamp<std::size_t>(nThreads, 1, std::max<std::size_t>(nPieces, 1));
    std::vector<T_SLOT_D> aSlots(CWorkRing::SlotsFor(nThreads));
    std::size_t iNext = 0;
    const auto begin = [&](std::size_t iSlot) {
        if (iNext == nPieces) return false;
        aSlots[iSlot].iPIECE = iNext++;
        return true;
    };
    CWorkRing ring(nThreads, begin, [&](std::size_t iSlot) { make(aSlots[iSlot].iPIECE, aSlots[iSlot].piece); });
    for (std::size_t iSlot = ring.Take(); iSlot != CWorkRing::NONE; iSlot = ring.Take()) take(aSlots[iSlot].piece);
}
