#pragma once
// Load sets with their entries, load combinations, eigenvalue extraction.

#include "store/Array.h"

#include <array>
#include <cstddef>
#include <cstdint>
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
    std::int32_t iID = 0; // grid, or element of PLOAD1, PLOAD2, PLOAD4
    // A load set may have millions of entries, so codes are as narrow as they can be.
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

/// The entries of a load set in card order. Their kinds are also kept side by side, so that a walk over those of one
/// kind doesn't touch the others. Entries are changed through UpdateEach alone.
class CLoadEntries : private CArray<T_MBLD_D> {
  public:
    using CArray::GetSize;
    using CArray::IsEmpty;
    CONST_POSITION begin() const { return CArray::begin(); }
    CONST_POSITION end() const { return CArray::end(); }
    const T_MBLD_D& operator[](std::size_t i) const { return CArray::operator[](i); }

    void Add(const T_MBLD_D& rEntry) {
        CArray::Add(rEntry);
        m_aKinds.push_back(rEntry.iKIND);
    }

    /// The kind of each entry.
    const std::vector<std::int8_t>& GetKinds() const { return m_aKinds; }

    /// Calls change(entry) for the entries whose kinds taken accepts, in order.
    template <class PREDICATE, class CHANGE>
    void UpdateEach(PREDICATE taken, CHANGE change) {
        for (std::size_t i = 0; i < m_aKinds.size(); ++i) {
            if (!taken(m_aKinds[i])) continue;
            T_MBLD_D& rEntry = CArray::operator[](i);
            change(rEntry);
            m_aKinds[i] = rEntry.iKIND;
        }
    }

    /// Some of the entries, in order.
    template <class PREDICATE>
    class CWalk {
      public:
        CWalk(const CLoadEntries& rEntries, PREDICATE taken) : m_rEntries(rEntries), m_taken(taken) {}
        bool IsEmpty() const { return Next(0) == m_rEntries.GetSize(); }
        class CPosition {
          public:
            CPosition(const CWalk& rWalk, std::size_t iPlace) : m_rWalk(rWalk), m_iPlace(iPlace) {}
            const T_MBLD_D& operator*() const { return m_rWalk.m_rEntries[m_iPlace]; }
            CPosition& operator++() {
                m_iPlace = m_rWalk.Next(m_iPlace + 1);
                return *this;
            }
            bool operator!=(const CPosition& rOther) const { return m_iPlace != rOther.m_iPlace; }

          private:
            const CWalk& m_rWalk;
            std::size_t m_iPlace;
        };
        CPosition begin() const { return {*this, Next(0)}; }
        CPosition end() const { return {*this, m_rEntries.GetSize()}; }

      private:
        /// The first place from iPlace on whose entry is taken.
        std::size_t Next(std::size_t iPlace) const {
            const std::vector<std::int8_t>& aKinds = m_rEntries.m_aKinds;
            while (iPlace < aKinds.size() && !m_taken(aKinds[iPlace])) ++iPlace;
            return iPlace;
        }

        const CLoadEntries& m_rEntries;
        PREDICATE m_taken;
    };

    /// The entries whose kinds taken accepts. None may be added during the walk.
    template <class PREDICATE>
    auto Walk(PREDICATE taken) const {
        return CWalk<PREDICATE>(*this, taken);
    }

    /// The entries of one kind.
    auto Walk(E_LOAD_KIND eKind) const {
        return Walk([eKind](std::int8_t iKind) { return iKind == eKind; });
    }

  private:
    std::vector<std::int8_t> m_aKinds;
};

/// A nodal temperature.
struct T_NTLD_D {
    std::int32_t iNODE = 0;
    double dTEMP = 0.0;
};

/// An element temperature.
struct T_ETLD_D {
    std::int32_t iELEM = 0;
    double dTBAR = 0.0;          // mean
    double dT2 = 0.0, dT1 = 0.0; // at the two faces
};

/// A load set, which is also a static load case. Key: the SID.
struct T_LOAD_D {
    std::int32_t iGRAVCID = 0;
    double dTEMPD = 0.0;                             // default temperature
    std::int32_t bTEMPD = 0;                         // 1 if it was given
    std::int32_t bGRAV = 0;                          // 1 if the gravity vector was given
    double dGRAVX = 0.0, dGRAVY = 0.0, dGRAVZ = 0.0; // acceleration, scale included
    CLoadEntries aMBLD;
    CArray<T_NTLD_D> aNTLD;
    CArray<T_ETLD_D> aETLD;
};

/// A load combination. Key: the SID of the LOAD card.
struct T_LDCB_D {
    double dSCALE = 0.0;
    CArray<std::int32_t> aLOADS; // load sets
    CArray<double> aFACTORS;     // their factors, in step
};

/// EIGB. Key: the SID.
struct T_EIGB_D {
    std::int32_t iMETHOD = 0; // 0 INV, 1 SINV
    double dL1 = 0.0, dL2 = 0.0;
    std::int32_t iNEP = 0;
    std::int32_t iNDN = 0;
    std::int32_t iNORM = 0; // 0 MAX, 1 POINT
    std::int32_t iG = 0, iC = 0;

    bool operator==(const T_EIGB_D&) const = default;
};
inline const char* KeywordOf(const T_EIGB_D&) {
    return "EIGB";
}

/// EIGRL. Key: the SID.
struct T_EIRL_D {
    double dV1 = 0.0, dV2 = 0.0;
    std::int32_t iND = 0;
    std::int32_t iMSGLVL = 0;
    std::int32_t iMAXSET = 0;
    double dSHFSCL = 0.0;
    std::int32_t iNORM = 0; // 0 MASS, 1 MAX

    bool operator==(const T_EIRL_D&) const = default;
};
inline const char* KeywordOf(const T_EIRL_D&) {
    return "EIGRL";
}
