#pragma once
// A look at elements that loads and temperatures name.

#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/DeckModel.h"

#include <cstdint>
#include <string_view>
#include <vector>

enum E_ELEMENT : std::uint8_t { ELEMENT_OTHER, ELEMENT_LINE, ELEMENT_PLATE, ELEMENT_SOLID };

/// Finds elements by their ids. The deck must be gathered.
class CElementLook {
  public:
    CElementLook(CDeckModel& rModel, const std::vector<T_SOURCECARD_D>& rCards) : m_rModel(rModel), m_rCards(rCards) {}

    /// What an element is, and its keyword; neither reads its card.
    E_ELEMENT GetKind(std::int32_t iEID) const;
    std::string_view GetKeyword(std::int32_t iEID) const;

    /// The grids at its corners, by its card; none if there is no such element.
    std::vector<std::int32_t> GetCorners(std::int32_t iEID);

    /// The thickness of a plate by its card and its PSHELL, 0 if that isn't known.
    double GetThickness(std::int32_t iEID);

    /// The ids of a card's fields from iFrom on. THRU stands for the elements of a kind that there are.
    std::vector<std::int32_t> ReadList(const CCardFields& rCard, std::size_t iFrom, E_ELEMENT eKind) const;

    /// The elements of a kind that there are, ascending.
    std::vector<std::int32_t> GetRange(std::int32_t iFirst, std::int32_t iLast, E_ELEMENT eKind) const;

  private:
    CDeckModel& m_rModel;
    const std::vector<T_SOURCECARD_D>& m_rCards;
    CCardFields m_card;
};
