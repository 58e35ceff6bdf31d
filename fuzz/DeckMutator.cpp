// Mutations that know decks.

#include "support/DeckMaker.h"

#include <algorithm>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* pData, std::size_t nSize, std::size_t nMost);

namespace {

std::size_t Store(const std::string& sText, std::uint8_t* pData, std::size_t nMost) {
    return sText.copy(reinterpret_cast<char*>(pData), nMost);
}

std::string Text(const std::uint8_t* pData, std::size_t nSize) {
    return {reinterpret_cast<const char*>(pData), nSize};
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* pData, std::size_t nSize, std::size_t nMost,
                                               unsigned int nSeed) {
    CChance chance(nSeed);
    if (chance.Once(5)) return LLVMFuzzerMutate(pData, nSize, nMost);
    CDeckMaker maker(chance.Next());
    if (chance.Once(200)) return Store(maker.Deck(), pData, nMost);
    std::string sDeck = Text(pData, nSize);
    for (std::size_t n = 1 + chance.Below(4); n > 0; --n) maker.Spoil(sDeck);
    return Store(sDeck, pData, nMost);
}

/// Lines of the second deck amid the first.
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* pData1, std::size_t nSize1,
                                                 const std::uint8_t* pData2, std::size_t nSize2, std::uint8_t* pOut,
                                                 std::size_t nMost, unsigned int nSeed) {
    CChance chance(nSeed);
    std::string sDeck = Text(pData1, nSize1);
    const std::string sOther = Text(pData2, nSize2);
    const auto lineAt = [](const std::string& sText, std::size_t i) {
        const std::size_t iFeed = sText.find('\n', i);
        return iFeed == std::string::npos ? sText.size() : iFeed + 1;
    };
    const std::size_t iBegin = lineAt(sOther, chance.Below(sOther.size()));
    const std::size_t iEnd = lineAt(sOther, std::min(iBegin + chance.Below(400), sOther.size()));
    sDeck.insert(lineAt(sDeck, chance.Below(sDeck.size())), sOther, iBegin, iEnd - iBegin);
    return Store(sDeck, pOut, nMost);
}
