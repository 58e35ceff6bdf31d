#pragma once
// Blocks of data in a page: arrays and texts, compressed, as base64 in script elements that no browser runs.

#include "nas2zdt/report/Deflate.h"
#include "nas2zdt/text/Base64.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

/// A block of bytes. Its element has the attributes id, data-type and data-compression.
class CBlock : private CByteSink {
  public:
    /// rFile must outlive this object.
    CBlock(CFile& rFile, std::string_view sId, std::string_view sType, E_CONTENT eContent = CONTENT_TEXT);

    void Write(std::span<const std::uint8_t> aBytes) { m_deflate.Write(aBytes); }
    void Write(std::string_view sText) {
        Write({reinterpret_cast<const std::uint8_t*>(sText.data()), sText.size()}); // bytes of any kind
    }

    /// Ends the block, which is to be called once.
    void Finish();

  private:
    void Take(std::span<const std::uint8_t> aBytes) override { m_text.AddBytes(aBytes); }

    CFile& m_rFile;
    CBase64 m_text;
    CDeflate m_deflate;
};

/// A block of values of four bytes: "i32", "u32" or "f32". Neighbours are much alike, so what is written is each one's
/// difference from the one before, of the numbers that their bits make, modulo 2^32; and of each CHUNK of them first
/// the lowest bytes, then the second ones and so on.
class CWordBlock {
  public:
    static constexpr std::size_t CHUNK = 65536;

    CWordBlock(CFile& rFile, std::string_view sId, std::string_view sType)
        : m_block(rFile, sId, sType, CONTENT_PLANES) {}

    template <class VALUE>
    void Add(VALUE value) {
        const auto nBits = std::bit_cast<std::uint32_t>(value);
        m_aDifferences.push_back(nBits - m_nLast);
        m_nLast = nBits;
        if (m_aDifferences.size() == CHUNK) Send();
    }
    void Finish() {
        Send();
        m_block.Finish();
    }

  private:
    void Send();

    CBlock m_block;
    std::uint32_t m_nLast = 0;
    std::vector<std::uint32_t> m_aDifferences;
    std::vector<std::uint8_t> m_aBytes;
};

/// The name of a type of values in blocks.
template <class VALUE>
constexpr std::string_view BlockType() {
    if constexpr (std::is_same_v<VALUE, std::int32_t>) return "i32";
    if constexpr (std::is_same_v<VALUE, std::uint32_t>) return "u32";
    if constexpr (std::is_same_v<VALUE, float>) return "f32";
}

/// A block with get(item) of each item.
template <class VALUE, class ITEMS, class GET>
void WriteWords(CFile& rFile, std::string_view sId, const ITEMS& rItems, GET get) {
    CWordBlock block(rFile, sId, BlockType<VALUE>());
    for (const auto& rItem : rItems) block.Add(static_cast<VALUE>(get(rItem)));
    block.Finish();
}

/// The same of bytes, type "u8", as they are.
template <class ITEMS, class GET>
void WriteBytes(CFile& rFile, std::string_view sId, const ITEMS& rItems, GET get) {
    std::vector<std::uint8_t> aBytes;
    aBytes.reserve(rItems.size());
    for (const auto& rItem : rItems) aBytes.push_back(get(rItem));
    CBlock block(rFile, sId, "u8", CONTENT_PLANES);
    block.Write(aBytes);
    block.Finish();
}
