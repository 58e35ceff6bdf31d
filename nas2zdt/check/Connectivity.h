#pragma once
// What belongs together: grids by elements, links and equations.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/GeometryTold.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Sets of rows that are joined.
class CJoints {
  public:
    explicit CJoints(std::size_t nRows);

    /// The lowest row that iRow is joined with.
    std::uint32_t Find(std::uint32_t iRow) {
        while (m_aLower[iRow] != iRow) iRow = m_aLower[iRow] = m_aLower[m_aLower[iRow]];
        return iRow;
    }
    /// iLowest is the lowest of its set. Gives that of both.
    std::uint32_t Join(std::uint32_t iLowest, std::uint32_t iRow) {
        iRow = Find(iRow);
        const std::uint32_t iLower = std::min(iLowest, iRow);
        m_aLower[iLowest] = m_aLower[iRow] = iLower;
        return iLower;
    }

  private:
    std::vector<std::uint32_t> m_aLower; // a joined row that isn't higher
};

/// Rows are those of the table of grids. Takes elements from its owner, and all other cards.
class CConnectivity : public CCardTaker {
  public:
    explicit CConnectivity(const CCheckDeck& rDeck);

    /// Place of a grid in the table, CKeyIndex::NONE if there is none.
    std::uint32_t FindRow(std::int32_t iGrid) const { return m_rGrids.FindRow(iGrid); }

    /// aRows are the element's grids, CKeyIndex::NONE for one that doesn't exist.
    void AddElement(const T_DECKELEMENT_D& rElement, E_BODY eBody, std::span<const std::uint32_t> aRows);

    /// Joins grids that may be at one place.
    void AddLink(std::span<const std::uint32_t> aRows) { Join(m_links, aRows); }

    void TakeCard(const CCardFields& rCard) override;
    bool Wants(std::string_view sKeyword) const override { return FindTie(sKeyword) != nullptr; }

    void TellFreeGrids(CGeometryTold& rTold);
    void TellParts(CGeometryTold& rTold);

    /// Whether elements, links or masses use a grid, and whether such a one has a position to reckon with.
    bool IsUsed(std::size_t iRow) const { return (m_aUses[iRow] & USE_PART) != 0; }
    bool IsPlaced(std::size_t iRow) const { return (m_aUses[iRow] & USE_PLACED) != 0; }

    /// The box around those.
    const T_VECTOR& GetLow() const { return m_low; }
    const T_VECTOR& GetHigh() const { return m_high; }

    /// Whether links join two grids, maybe by way of others.
    bool AreLinked(std::uint32_t iA, std::uint32_t iB) { return m_links.Find(iA) == m_links.Find(iB); }

  private:
    enum E_USE : std::uint8_t {
        USE_NAMED = 1, // for something that has no stiffness, such as a bar's orientation
        USE_PART = 2,  // for a part of the model
        USE_PLACED = 4 // beside USE_PART
    };
    struct T_TIE_D;
    static const std::vector<T_TIE_D> TIES;

    void Name(std::int32_t iGrid);
    void Use(std::uint32_t iRow) {
        if (!IsUsed(iRow)) UseFirst(iRow);
    }
    void UseFirst(std::uint32_t iRow);
    void Join(CJoints& rJoints, std::span<const std::uint32_t> aRows);
    const T_TIE_D* FindTie(std::string_view sKeyword) const;
    void TakeTie(const CCardFields& rCard, const T_TIE_D& rTie);
    void TakeWeighted(const CCardFields& rCard);
    void TakeSupport(const CCardFields& rCard);
    void TakeSupports(const CCardFields& rCard);
    void AddRow(std::int32_t iGrid);

    struct T_HELD_D {
        std::int32_t iFIRST, iLAST;
    };

    const CCheckDeck& m_rDeck;
    const CDeckGrids& m_rGrids;
    CJoints m_joints, m_links;
    T_VECTOR m_low, m_high;
    std::vector<std::uint8_t> m_aUses;
    std::vector<std::uint32_t> m_aRows;                          // of the card in hand
    std::vector<T_HELD_D> m_aHeld;                               // ids with all six components
    std::array<std::span<const T_TIE_D>, 'Z' - 'A' + 1> m_aTies; // by the first letter
};
