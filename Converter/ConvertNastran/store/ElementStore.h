#pragma once
// Elements in little room.

#include "store/Blocks.h"
#include "store/ElementRecords.h"
#include "store/Records.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

/// An element takes the words that it fills: its property, as many nodes as its shape has, and what else there is.
template <>
class CRecords<T_ELEM_D> {
  public:
    using FOUND = std::optional<T_ELEM_D>;
    static constexpr bool ENDS = false;

    T_ELEM_D Get(std::size_t i) const;
    FOUND Found(std::size_t i) const { return Get(i); }

    /// A record in few words, and what it consists of.
    struct T_WORDS_D {
        std::uint16_t nFORM;
        std::span<const std::uint32_t> aWORDS;
    };

    void Make(std::size_t i, const T_ELEM_D& record);
    void Make(std::size_t i, const T_WORDS_D& record);
    void Unmake(std::size_t) noexcept {}

    /// A record that needs more words than the one before goes elsewhere.
    void Replace(std::size_t i, const T_ELEM_D& record);

    template <class CHANGE>
    void Change(std::size_t i, CHANGE change) {
        T_ELEM_D record = Get(i);
        change(record);
        Replace(i, record);
    }

    std::uint16_t Traits(std::size_t i) const { return m_aForms[i] & TRAITS; }

    /// Number of the first nRecords whose traits taken accepts.
    template <class PREDICATE>
    std::size_t Count(std::size_t nRecords, PREDICATE taken) const {
        std::size_t nTaken = 0;
        m_aForms.ForEachBlock(nRecords, [&](std::span<const std::uint16_t> aForms) {
            for (const std::uint16_t nForm : aForms) nTaken += taken(static_cast<std::uint16_t>(nForm & TRAITS));
        });
        return nTaken;
    }

    void Fetch(std::size_t i) const { __builtin_prefetch(m_words.At(m_aPlaces[i])); }

    /// What a record consists of, and how many of its nodes it has words for.
    static std::uint16_t FormOf(const T_ELEM_D& record, std::size_t& rNodes);

    /// The number of words, which Write fills and Read takes out.
    static std::size_t CountWords(std::uint16_t nForm, std::size_t nNodes);
    static void Write(const T_ELEM_D& record, std::uint16_t nForm, std::size_t nNodes, std::uint32_t* pWords);
    static T_ELEM_D Read(std::uint16_t nForm, const std::uint32_t* pWords);

  private:
    /// What a record consists of: its traits, and a bit for each part that it has beside property and nodes.
    enum E_FORM_BITS : std::uint16_t {
        TRAITS = (1u << 10) - 1,
        WITH_NODES = 1u << 10,  // more than its shape has: their number stands before them
        WITH_G0 = 1u << 11,     // iG0 and bVECTOR
        WITH_ANGLE = 1u << 12,  // dX1 alone
        WITH_VECTOR = 1u << 13, // dX1 to dX3
    };
    static_assert(ElementTraits(TYPE_BUSH, 15) <= TRAITS);

    CBlocks<std::uint16_t> m_aForms;
    CBlocks<std::uint32_t> m_aPlaces; // in m_words
    CWords m_words;
};
