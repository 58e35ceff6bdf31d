#pragma once
// The entries of load sets.

#include "store/Array.h"
#include "store/Blocks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Kinds of an entry, T_MBLD_D::iKIND.
enum E_LOAD_KIND : std::int8_t {
    LOAD_UNKNOWN = 0, // a PLOAD1 of unknown TYPE
    LOAD_FORCE = 1,
    LOAD_MOMENT = 2,
    LOAD_DISPLACEMENT = 3,
    LOAD_BEAM_MOMENT = 40,
    LOAD_BEAM_FORCE = 41,
    LOAD_PRESSURE = 42,
};

/// How an entry gives its values, T_MBLD_D::iFORM.
enum E_LOAD_FORM : std::int8_t {
    FORM_PLAIN = 0,     // components of a force or moment; any entry that isn't named below
    FORM_TWO_GRIDS = 1, // FORCE1, MOMENT1: a magnitude along a line of two grids
    FORM_CROSS = 2,     // FORCE2, MOMENT2: a magnitude normal to two lines of two grids
    FORM_CORNERS = 1,   // PLOAD4: a pressure at each corner
};

/// Codes of PLOAD1's SCALE, T_MBLD_D::iSCALE.
enum E_LOAD_SCALE : std::int8_t {
    SCALE_LE = 0,    // positions are lengths
    SCALE_FR = 1,    // positions are fractions of the element's length
    SCALE_LEPR = 2,  // lengths, and the load is projected
    SCALE_FPPR = 3,  // fractions, and the load is projected
    SCALE_OTHER = 4, // a text that isn't known: positions count as lengths
};

/// Where a PLOAD1 points, T_MBLD_D::iDIR: along an axis of the basic frame or of the element.
enum E_LOAD_DIRECTION : std::int8_t { DIR_X = 1, DIR_Y, DIR_Z, DIR_XE, DIR_YE, DIR_ZE };

/// An entry of a load set on a grid or an element. Only the members of its kind are filled.
struct T_MBLD_D {
    std::int32_t iID = 0;                   // grid, or element of PLOAD1, PLOAD2, PLOAD4
    std::int8_t iKIND = 0;                  // E_LOAD_KIND
    std::int8_t iFORM = 0;                  // E_LOAD_FORM
    std::int8_t iSCALE = 0;                 // PLOAD1: E_LOAD_SCALE
    std::int8_t iDIR = 0;                   // PLOAD1: E_LOAD_DIRECTION, 0 with an unknown TYPE
    std::int32_t iCID = 0;                  // frame of the card, 0 basic
    std::int32_t iFACEG1 = 0, iFACEG34 = 0; // PLOAD4: grids that name a solid's face
    std::array<std::int32_t, 4> iG = {};    // FORM_TWO_GRIDS, FORM_CROSS: grids of the direction
    std::array<double, 6> dV = {};          // dV1 to dV6: the values
    std::array<double, 3> dN = {};          // PLOAD4: direction
};

/// Keyword of the card that a force or moment comes from.
inline const char* KeywordOf(const T_MBLD_D& rLoad) {
    const bool bForce = rLoad.iKIND == LOAD_FORCE;
    if (rLoad.iFORM == FORM_TWO_GRIDS) return bForce ? "FORCE1" : "MOMENT1";
    if (rLoad.iFORM == FORM_CROSS) return bForce ? "FORCE2" : "MOMENT2";
    return bForce ? "FORCE" : "MOMENT";
}

/// The entries of a load set in card order, each in the words that it fills: a uniform pressure takes four. Their kinds
/// are kept side by side, so that a walk over those of one kind doesn't touch the others. Walks give copies; entries
/// are changed through UpdateEach alone.
class CLoadEntries {
  public:
    std::size_t GetSize() const { return m_aKinds.size(); }
    bool IsEmpty() const { return m_aKinds.empty(); }

    /// Throws std::invalid_argument for a place at or past the end.
    T_MBLD_D operator[](std::size_t i) const;

    void Add(const T_MBLD_D& rEntry);

    /// An entry in few words, which AddWords takes. They lie in rRoom.
    static constexpr std::size_t MOST_WORDS = 27;
    using ROOM = std::array<std::uint32_t, MOST_WORDS>;
    static std::span<const std::uint32_t> Pack(const T_MBLD_D& rEntry, ROOM& rRoom);
    void AddWords(std::span<const std::uint32_t> aWords);

    /// The id of an entry alone.
    std::int32_t IdOf(std::size_t i) const { return static_cast<std::int32_t>(m_words.At(m_aPlaces[i])[ID_WORD]); }

    /// Asks for an entry's memory, which takes long to answer, before it is needed.
    void Fetch(std::size_t i) const { __builtin_prefetch(m_words.At(m_aPlaces[i])); }

    /// The kind of each entry.
    const std::vector<std::int8_t>& GetKinds() const { return m_aKinds; }

    /// Calls change(entry) for the entries whose kinds taken accepts, in order.
    template <class PREDICATE, class CHANGE>
    void UpdateEach(PREDICATE taken, CHANGE change) {
        for (std::size_t i = 0; i < m_aKinds.size(); ++i) {
            if (!taken(m_aKinds[i])) continue;
            T_MBLD_D entry = (*this)[i];
            change(entry);
            Replace(i, entry);
        }
    }

    /// Some of the entries, in order.
    template <class PREDICATE>
    class CWalk {
      public:
        CWalk(const CLoadEntries& rEntries, PREDICATE taken, std::size_t iBegin, std::size_t iEnd)
            : m_rEntries(rEntries), m_taken(taken), m_iBegin(iBegin), m_iEnd(iEnd) {}
        bool IsEmpty() const { return Next(m_iBegin) == m_iEnd; }

        /// Number of the entries that it comes by, and a walk over those from iBegin on before iEnd.
        std::size_t GetCount() const { return m_iEnd - m_iBegin; }
        CWalk Part(std::size_t iBegin, std::size_t iEnd) const {
            return {m_rEntries, m_taken, m_iBegin + iBegin, m_iBegin + iEnd};
        }
        class CPosition {
          public:
            CPosition(const CWalk& rWalk, std::size_t iPlace) : m_rWalk(rWalk), m_iPlace(iPlace) {}
            T_MBLD_D operator*() const { return m_rWalk.m_rEntries[m_iPlace]; }
            CPosition& operator++() {
                m_iPlace = m_rWalk.Next(m_iPlace + 1);
                return *this;
            }
            bool operator!=(const CPosition& rOther) const { return m_iPlace != rOther.m_iPlace; }

          private:
            const CWalk& m_rWalk;
            std::size_t m_iPlace;
        };
        CPosition begin() const { return {*this, Next(m_iBegin)}; }
        CPosition end() const { return {*this, m_iEnd}; }

      private:
        /// The first place from iPlace on whose entry is taken.
        std::size_t Next(std::size_t iPlace) const {
            const std::vector<std::int8_t>& aKinds = m_rEntries.m_aKinds;
            while (iPlace < m_iEnd && !m_taken(aKinds[iPlace])) ++iPlace;
            return iPlace;
        }

        const CLoadEntries& m_rEntries;
        PREDICATE m_taken;
        std::size_t m_iBegin, m_iEnd;
    };

    /// The entries whose kinds taken accepts. None may be added during the walk.
    template <class PREDICATE>
    auto Walk(PREDICATE taken) const {
        return CWalk<PREDICATE>(*this, taken, 0, GetSize());
    }

    /// The entries of one kind.
    auto Walk(E_LOAD_KIND eKind) const {
        return Walk([eKind](std::int8_t iKind) { return iKind == eKind; });
    }

  private:
    static constexpr std::size_t ID_WORD = 1; // behind the codes

    void Replace(std::size_t i, const T_MBLD_D& rEntry);

    std::vector<std::int8_t> m_aKinds;
    CArray<std::uint32_t> m_aPlaces; // in m_words
    CWords m_words;
};
