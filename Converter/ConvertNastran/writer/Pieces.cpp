// Shares the pieces of a section out.

#include "writer/Pieces.h"

#include "platform/WorkRing.h"

void MakePieces(std::size_t nPieces, std::size_t nThreads, const std::function<void(std::size_t, T_PIECE_D&)>& make,
                const std::function<void(T_PIECE_D&)>& take) {
    struct T_SLOT_D {
        T_PIECE_D piece;
        std::size_t iPIECE = 0;
    };
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
