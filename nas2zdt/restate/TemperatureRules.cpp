// Restates temperatures.

#include "nas2zdt/restate/TemperatureRules.h"

#include <cmath>

namespace {

enum E_RULE {
    TEMP_GRID,
    TEMPD_PAIRS,
    ELEMENT_LIST,
    ELEMENT_MISSING,
    PLATE_GRADIENT,
    BEAM_MEAN,
    BEAM_ENDS,
    BEAM_GRADIENT,
};

constexpr std::size_t PAIRS_OF_TEMP = 3, PAIRS_OF_TEMPD = 4;

} // namespace

const std::vector<T_RULE_D> CTemperatureRules::RULES = {
    {"temperature-grid", CLASS_MODEL, "TEMP", "a grid that the deck lacks",
     "left out: temperatures of grids that the deck lacks"},
    {"temperature-pairs", CLASS_NOTE, "TEMPD", "fewer than four pairs",
     "restated: the last pair given again, since blank ones make a load case 0", "load-case-zero"},
    {"temperature-list", CLASS_NOTE, "TEMPP1 TEMPRB", "THRU, lists over lines", "restated: one card an element",
     "thru fields-past-read"},
    {"temperature-element", CLASS_MODEL, "TEMPP1 TEMPRB", "an element that the deck lacks",
     "left out: temperatures of elements that the deck lacks"},
    {"temperature-gradient-plate", CLASS_NOTE, "TEMPP1", "TPRIME", "restated: TPRIME over the thickness as T1 and T2",
     "fields"},
    {"temperature-mean-beam", CLASS_NOTE, "TEMPRB", "TB", "restated: the mean of TA and TB"},
    {"temperature-ends-beam", CLASS_MODEL, "TEMPRB", "TA other than TB",
     "temperatures that vary along a beam are their mean"},
    {"temperature-gradient-beam", CLASS_MODEL, "TEMPRB", "gradients, temperatures of points",
     "gradients and temperatures of points of a cross section aren't in the file"},
};

std::vector<T_CARDRULES_D> CTemperatureRules::GetCards() {
    return {
        {"TEMP", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherTEMP(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateTEMP(rCard); }},
        {"TEMPD", {}, [this](CRestateCard& rCard) { RestateTEMPD(rCard); }},
        {"TEMPP1", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherTEMPP1(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateTEMPP1(rCard); }},
        {"TEMPRB", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherTEMPRB(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateTEMPRB(rCard); }},
    };
}

std::uint8_t CTemperatureRules::GatherTEMP(const CCardFields& rCard, std::uint32_t iCard) {
    if (rCard.IsBlank(1)) return NEED_ALWAYS;
    for (std::size_t i = 1; i <= 2 * PAIRS_OF_TEMP; i += 2) {
        if (!rCard.IsBlank(i)) m_aGrids.emplace_back(iCard, rCard.Int(i));
    }
    return NEED_NOTHING;
}

std::uint8_t CTemperatureRules::GatherTEMPP1(const CCardFields& rCard, std::uint32_t iCard) {
    if (rCard.GetCount() > 6 || rCard.Real(3) != 0.0) return NEED_ALWAYS;
    m_aElements.emplace_back(iCard, rCard.Int(1));
    return NEED_NOTHING;
}

std::uint8_t CTemperatureRules::GatherTEMPRB(const CCardFields& rCard, std::uint32_t iCard) {
    if (rCard.GetCount() > 3) return NEED_ALWAYS;
    m_aElements.emplace_back(iCard, rCard.Int(1));
    return NEED_NOTHING;
}

/// Grids and elements that the deck lacks are seen now that all are known.
void CTemperatureRules::Close() {
    for (const auto& [iCard, iGrid] : m_aGrids) {
        if (!m_rModel.m_grids.Has(iGrid)) m_rCards[iCard].nNEEDS = NEED_ALWAYS;
    }
    for (const auto& [iCard, iEID] : m_aElements) {
        if (!m_rModel.m_elements.Has(iEID)) m_rCards[iCard].nNEEDS = NEED_ALWAYS;
    }
}

void CTemperatureRules::RestateTEMP(CRestateCard& rCard) {
    std::vector<CFieldValue> aFields = {rCard.Int(0)};
    for (std::size_t i = 1; i <= 2 * PAIRS_OF_TEMP; i += 2) {
        const double dTemperature = rCard.Real(i + 1);
        if (rCard.IsBlank(i)) continue;
        if (m_rModel.m_grids.Has(rCard.Int(i))) {
            aFields.insert(aFields.end(), {rCard.Int(i), dTemperature});
        } else {
            rCard.Tell(RULES[TEMP_GRID]);
        }
    }
    rCard.Drop();
    if (aFields.size() > 1) rCard.Write("TEMP", std::move(aFields));
}

void CTemperatureRules::RestateTEMPD(CRestateCard& rCard) {
    std::vector<CFieldValue> aFields;
    for (std::size_t i = 0; i < 2 * PAIRS_OF_TEMPD; i += 2) {
        const double dTemperature = rCard.Real(i + 1);
        if (!rCard.IsBlank(i)) aFields.insert(aFields.end(), {rCard.Int(i), dTemperature});
    }
    if (aFields.empty() || aFields.size() == 2 * PAIRS_OF_TEMPD) return;
    while (aFields.size() < 2 * PAIRS_OF_TEMPD) aFields.insert(aFields.end(), {*(aFields.end() - 2), aFields.back()});
    rCard.Write("TEMPD", std::move(aFields));
    rCard.Tell(RULES[TEMPD_PAIRS]);
}

/// The elements of field 3 and of the fields from iRest on that there are.
std::vector<std::int32_t> CTemperatureRules::TakeElements(CRestateCard& rCard, std::size_t iRest, E_ELEMENT eKind) {
    std::vector<std::int32_t> aIds = m_elements.ReadList(rCard, iRest, eKind);
    aIds.insert(aIds.begin(), rCard.Int(1));
    if (aIds.size() > 1) rCard.Tell(RULES[ELEMENT_LIST]);
    const std::size_t nMissing = std::erase_if(aIds, [&](std::int32_t iEID) { return !m_rModel.m_elements.Has(iEID); });
    if (nMissing > 0) rCard.Tell(RULES[ELEMENT_MISSING]);
    rCard.Drop();
    return aIds;
}

/// The converter takes the gradient of T1 and T2, the temperatures at the bottom and at the top.
void CTemperatureRules::RestateTEMPP1(CRestateCard& rCard) {
    const double dMean = rCard.Real(2), dGradient = rCard.Real(3);
    for (const std::int32_t iEID : TakeElements(rCard, 6, ELEMENT_PLATE)) {
        std::vector<CFieldValue> aFields = {rCard.Int(0),  iEID,          rCard.Text(2),
                                            rCard.Text(3), rCard.Text(4), rCard.Text(5)};
        const double dHalf = dGradient * m_elements.GetThickness(iEID) / 2.0;
        if (dHalf != 0.0 && std::isfinite(dMean - dHalf) && std::isfinite(dMean + dHalf)) {
            aFields[3] = {};
            aFields[4] = dMean - dHalf;
            aFields[5] = dMean + dHalf;
            rCard.Tell(RULES[PLATE_GRADIENT]);
        }
        rCard.Write("TEMPP1", std::move(aFields));
    }
}

/// The converter reads pairs of element and temperature.
void CTemperatureRules::RestateTEMPRB(CRestateCard& rCard) {
    constexpr std::size_t TA = 2, TB = 3, FIRST_OF_LIST = 16;
    const double dA = rCard.Real(TA), dB = rCard.Real(TB, dA);
    const std::vector<std::int32_t> aIds = TakeElements(rCard, FIRST_OF_LIST, ELEMENT_LINE);
    bool bGradient = false;
    for (std::size_t i = TB + 1; i < FIRST_OF_LIST; ++i) bGradient = rCard.Real(i) != 0.0 || bGradient;
    if (bGradient) rCard.Tell(RULES[BEAM_GRADIENT]);
    if (!rCard.IsBlank(TB)) rCard.Tell(RULES[dA == dB ? BEAM_MEAN : BEAM_ENDS]);
    for (const std::int32_t iEID : aIds) rCard.Write("TEMPRB", {rCard.Int(0), iEID, dA / 2.0 + dB / 2.0});
}
