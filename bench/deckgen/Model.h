#pragma once
// What the cards of a deck are about: a lattice of grids, and who is whose neighbour and property.

#include "deckgen/CardText.h"
#include "deckgen/IdOrder.h"
#include "deckgen/Random.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Cards that can stand for each other. Those up to SETS have a share in a mix; property and material groups come
/// along with the cards that need them.
enum E_GROUP : int {
    GROUP_GRIDS,
    GROUP_SHELLS,
    GROUP_BARS,
    GROUP_SOLIDS,
    GROUP_SPRINGS, // and masses, bushes, gaps, rigid elements
    GROUP_FRAMES,
    GROUP_LOADS,
    GROUP_SUPPORTS,
    GROUP_SETS, // cards that are a set of their own: gravity, combinations, default temperatures, eigenvalues
    GROUP_BAR_SECTIONS,
    GROUP_BEAM_SECTIONS,
    GROUP_BEND_SECTIONS,
    GROUP_ROD_SECTIONS,
    GROUP_TUBE_SECTIONS,
    GROUP_SHELL_SECTIONS,
    GROUP_SHEAR_SECTIONS,
    GROUP_SOLID_SECTIONS,
    GROUP_SPRING_SECTIONS,
    GROUP_BUSH_SECTIONS,
    GROUP_GAP_SECTIONS,
    GROUP_MATERIALS,
    GROUPS,
    GROUP_NONE = GROUPS,
};

/// Things whose ids must differ.
enum E_SPACE : int {
    SPACE_GRIDS,
    SPACE_ELEMENTS,
    SPACE_PROPERTIES,
    SPACE_MATERIALS,
    SPACE_FRAMES,
    SPACE_SETS,
    SPACE_ENTRIES, // of load and constraint sets: they are counted, and have no ids
    SPACES,
};

class CModel;

/// A kind of card.
struct T_KIND_D {
    std::string_view sNAME;
    void (*pfnPUT)(CCardText& rText, const CModel& rModel, std::uint64_t n); // the fields of the card of thing n
    E_GROUP iGROUP;
    int nWEIGHT = 0;             // share within its group in a mix
    E_GROUP iNEEDS = GROUP_NONE; // what its cards refer to, besides grids
    int nIDS = 1;                // ids that a card takes
};

/// The kinds of all 66 converted cards.
extern const std::span<const T_KIND_D> ELEMENT_KINDS;
extern const std::span<const T_KIND_D> PROPERTY_KINDS;
extern const std::span<const T_KIND_D> LOAD_KINDS;

/// A place in a cell of the lattice.
struct T_CORNER_D {
    int iX, iY, iZ;
};

/// Things are numbered from 0 in their space, those of a group side by side. Whatever looks random depends on the seed,
/// the thing and a salt of the asking card's choice, and on nothing else.
class CModel {
  public:
    /// aCounts holds the things of each group.
    CModel(const std::array<std::uint64_t, GROUPS>& aCounts, E_ID_ORDER iOrder, std::uint64_t nSeed);

    static E_SPACE SpaceOf(E_GROUP iGroup);

    /// From now on cards say other values under the same ids.
    void SetRepeating() { m_nSeed = Mix(m_nSeed); }

    std::uint64_t Random(std::uint64_t n, std::uint64_t nSalt) const { return RandomAt(m_nSeed ^ (nSalt << 56), n); }
    std::uint64_t Pick(std::uint64_t n, std::uint64_t nSalt, std::uint64_t nBelow) const {
        return Random(n, nSalt) % nBelow;
    }
    std::uint64_t Count(E_GROUP iGroup) const { return m_aCounts[static_cast<std::size_t>(iGroup)]; }
    std::uint64_t First(E_GROUP iGroup) const { return m_aFirst[static_cast<std::size_t>(iGroup)]; }

    std::int64_t Id(E_SPACE iSpace, std::uint64_t n) const { return m_aIds[static_cast<std::size_t>(iSpace)].At(n); }
    std::int64_t ElementId(std::uint64_t n) const { return Id(SPACE_ELEMENTS, n); }
    std::int64_t GridId(std::uint64_t n) const { return Id(SPACE_GRIDS, n % m_nGrids); }

    /// Id of one of a group, the same for the same n. 0 if the group is empty.
    std::int64_t OneOf(E_GROUP iGroup, std::uint64_t n) const;

    /// Id of the grid at a corner of cell n, which is nSpan places wide.
    std::int64_t CornerId(std::uint64_t n, int nSpan, T_CORNER_D corner) const;

    /// Coordinates of a grid in units of 1e-7: about a quarter apart, and never quite in line.
    std::array<std::int64_t, 3> Coordinates(std::uint64_t n) const;

  private:
    std::array<std::uint64_t, GROUPS> m_aCounts;
    std::array<std::uint64_t, GROUPS> m_aFirst{};
    std::array<CIdOrder, SPACES> m_aIds;
    std::uint64_t m_nSeed;
    std::uint64_t m_nGrids = 1;
    std::uint64_t m_nX = 1, m_nY = 1, m_nZ = 1; // grids along each side of the lattice
};
