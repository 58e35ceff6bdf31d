// Finds elements, and what loads want to know of them.

#include "nas2zdt/restate/ElementLook.h"

#include "nas2zdt/restate/PlateThickness.h"

#include "nas2zdt/text/Words.h"

#include <algorithm>

namespace {

/// Elements that can be loaded.
struct T_KIND_D {
    std::string_view sKEYWORD;
    E_ELEMENT eKIND;
    std::size_t iFIRST; // field of the first grid
    std::size_t nCORNERS;
};
constexpr T_KIND_D KINDS[] = {
    {"CQUAD4", ELEMENT_PLATE, 2, 4}, {"CTRIA3", ELEMENT_PLATE, 2, 3}, {"CHEXA", ELEMENT_SOLID, 2, 8},
    {"CTETRA", ELEMENT_SOLID, 2, 4}, {"CPENTA", ELEMENT_SOLID, 2, 6}, {"CBAR", ELEMENT_LINE, 2, 2},
    {"CBEAM", ELEMENT_LINE, 2, 2},   {"CROD", ELEMENT_LINE, 2, 2},    {"CONROD", ELEMENT_LINE, 1, 2},
    {"CTUBE", ELEMENT_LINE, 2, 2},   {"CBEND", ELEMENT_LINE, 2, 2},   {"CQUAD8", ELEMENT_PLATE, 2, 4},
    {"CTRIA6", ELEMENT_PLATE, 2, 3}, {"CQUADR", ELEMENT_PLATE, 2, 4}, {"CTRIAR", ELEMENT_PLATE, 2, 3},
    {"CSHEAR", ELEMENT_PLATE, 2, 4},
};

const T_KIND_D* FindKind(const CDeckModel& rModel, const std::vector<T_SOURCECARD_D>& rCards, std::int32_t iEID) {
    const std::uint32_t* pPlace = rModel.m_elements.Find(iEID);
    if (!pPlace) return nullptr;
    const std::string_view sText = rCards[*pPlace].Text();
    for (const T_KIND_D& rKind : KINDS) {
        const std::size_t nWord = rKind.sKEYWORD.size();
        if (StartsWithoutCase(sText, rKind.sKEYWORD) && sText.find_first_of(" ,*\t\n", nWord) == nWord) return &rKind;
    }
    return nullptr;
}

} // namespace

E_ELEMENT CElementLook::GetKind(std::int32_t iEID) const {
    const T_KIND_D* pKind = FindKind(m_rModel, m_rCards, iEID);
    return pKind ? pKind->eKIND : ELEMENT_OTHER;
}

std::string_view CElementLook::GetKeyword(std::int32_t iEID) const {
    const T_KIND_D* pKind = FindKind(m_rModel, m_rCards, iEID);
    return pKind ? pKind->sKEYWORD : std::string_view();
}

std::vector<std::int32_t> CElementLook::GetCorners(std::int32_t iEID) {
    std::vector<std::int32_t> aCorners;
    const T_KIND_D* pKind = FindKind(m_rModel, m_rCards, iEID);
    if (!pKind) return aCorners;
    m_card.Read(m_rCards[*m_rModel.m_elements.Find(iEID)]);
    for (std::size_t i = 0; i < pKind->nCORNERS; ++i) aCorners.push_back(m_card.Int(pKind->iFIRST + i));
    return aCorners;
}

double CElementLook::GetThickness(std::int32_t iEID) {
    if (GetKind(iEID) != ELEMENT_PLATE) return 0.0;
    m_card.Read(m_rCards[*m_rModel.m_elements.Find(iEID)]);
    const std::uint32_t* pProperty = m_rModel.m_properties.Find(m_card.Int(1, iEID));
    if (!pProperty) return 0.0;
    CCardFields property;
    property.Read(m_rCards[*pProperty]);
    if (property.GetKeyword() != "PSHELL") return 0.0;
    return ReadThickness(m_card, ThicknessOf(m_card.GetKeyword()), property.Real(2));
}

std::vector<std::int32_t> CElementLook::ReadList(const CCardFields& rCard, std::size_t iFrom, E_ELEMENT eKind) const {
    std::vector<std::int32_t> aIds;
    for (std::size_t i = iFrom; i < rCard.GetCount(); ++i) {
        if (rCard.IsBlank(i)) continue;
        if (aIds.empty() || !rCard.Is(i, "THRU")) {
            aIds.push_back(rCard.Int(i));
            continue;
        }
        std::size_t iEnd = i + 1;
        while (iEnd < rCard.GetCount() && rCard.IsBlank(iEnd)) ++iEnd;
        const std::int32_t iLast = rCard.Int(iEnd < rCard.GetCount() ? iEnd : i); // a THRU to nowhere is no number
        i = iEnd;
        const std::int32_t iFirst = aIds.back();
        aIds.pop_back();
        const std::vector<std::int32_t> aRange = GetRange(iFirst, iLast, eKind);
        aIds.insert(aIds.end(), aRange.begin(), aRange.end());
    }
    return aIds;
}

std::vector<std::int32_t> CElementLook::GetRange(std::int32_t iFirst, std::int32_t iLast, E_ELEMENT eKind) const {
    std::vector<std::int32_t> aIds = m_rModel.m_elements.GetRange(iFirst, iLast);
    m_rModel.CountRange(aIds.size());
    std::erase_if(aIds, [&](std::int32_t iEID) { return GetKind(iEID) != eKind; });
    return aIds;
}
