// Room for words.

#include "store/Blocks.h"

#include <limits>
#include <stdexcept>

void CWords::MakeRoom(std::size_t nWords) {
    constexpr std::size_t FEW = 64;
    if (m_aBlocks.size() <= 1 && m_iNext + nWords <= BLOCK) {
        const std::size_t nBlock = std::min(BLOCK, std::max(FEW, std::bit_ceil(m_iNext + nWords)));
        auto pBlock = std::make_unique_for_overwrite<std::uint32_t[]>(nBlock);
        if (m_aBlocks.empty()) m_aBlocks.emplace_back();
        std::copy_n(m_aBlocks[0].get(), m_iNext, pBlock.get());
        m_aBlocks[0] = std::move(pBlock);
        m_nRoom = nBlock - m_iNext;
        return;
    }
    if (m_aBlocks.size() == std::numeric_limits<std::uint32_t>::max() / BLOCK) {
        throw std::length_error("CWords: too many words");
    }
    m_aBlocks.push_back(std::make_unique_for_overwrite<std::uint32_t[]>(BLOCK));
    TakePages(m_aBlocks.back().get(), BLOCK * sizeof(std::uint32_t)); // where there are many there will be more
    m_iNext = static_cast<std::uint32_t>((m_aBlocks.size() - 1) * BLOCK);
    m_nRoom = BLOCK;
}
