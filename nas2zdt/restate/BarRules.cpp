// Restates bars, beams, gaps and rods.

#include "nas2zdt/restate/BarRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <cmath>

namespace {

enum E_RULE { BAR_PID, BAR_DEFAULTS, BAR_FORM, BAR_AXES, ROD_OF_ITS_OWN, ROD_TUBE };

enum E_FIELD : std::size_t { FIELD_EID, FIELD_PID, FIELD_GA, FIELD_GB, FIELD_X1, FIELD_X2, FIELD_X3, FIELD_OFFT };

} // namespace

const std::vector<T_RULE_D> CBarRules::RULES = {
    {"bar-pid", CLASS_NOTE, "CBAR CBEAM CBEND CGAP CROD CTUBE", "a blank PID", "restated: PID is EID",
     "element-property-blank"},
    {"bar-defaults", CLASS_NOTE, "BAROR BEAMOR", "defaults of bars and beams", "restated: defaults filled in",
     "skipped"},
    {"bar-form", CLASS_NOTE, "CBAR CBEAM CGAP", "a vector whose X1 is blank or an integer",
     "restated: a vector of reals"},
    {"bar-axes", CLASS_NOTE, "CBAR CBEAM", "a vector in the CD axes of end A", "restated: a vector in basic axes",
     "beam-vector-cd"},
    {"rod-conrod", CLASS_NOTE, "CONROD", "all", "restated: CROD with a PROD of its own", "fields"},
    {"rod-tube", CLASS_NOTE, "CTUBE", "all", "restated: CROD", "tube-beam"},
};

std::vector<T_CARDRULES_D> CBarRules::GetCards() {
    const auto gatherLine = [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherLine(rCard, iCard); };
    const auto restatePID = [this](CRestateCard& rCard) { RestatePID(rCard, {}); };
    return {
        {"CBAR", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherBar(rCard, iCard, NEED_BAROR); },
         [this](CRestateCard& rCard) { RestateBar(rCard, m_bar); }},
        {"CBEAM",
         [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherBar(rCard, iCard, NEED_BEAMOR); },
         [this](CRestateCard& rCard) { RestateBar(rCard, m_beam); }},
        {"BAROR", [this](const CCardFields& rCard, std::uint32_t) { return GatherDefaults(rCard, NEED_BAROR, m_bar); },
         [](CRestateCard& rCard) { rCard.Drop(); }},
        {"BEAMOR",
         [this](const CCardFields& rCard, std::uint32_t) { return GatherDefaults(rCard, NEED_BEAMOR, m_beam); },
         [](CRestateCard& rCard) { rCard.Drop(); }},
        {"CBEND", gatherLine, restatePID},
        {"CROD", gatherLine, restatePID},
        {"CTUBE",
         [this](const CCardFields& rCard, std::uint32_t iCard) {
             GatherLine(rCard, iCard);
             return NEED_ALWAYS;
         },
         [this](CRestateCard& rCard) {
             RestatePID(rCard, {});
             rCard.SetKeyword("CROD");
             rCard.Tell(RULES[ROD_TUBE]);
         }},
        {"CONROD",
         [this](const CCardFields& rCard, std::uint32_t iCard) {
             GatherLine(rCard, iCard);
             return NEED_ALWAYS;
         },
         [this](CRestateCard& rCard) { RestateCONROD(rCard); }},
        {"CGAP",
         [this](const CCardFields& rCard, std::uint32_t iCard) {
             GatherLine(rCard, iCard);
             return NEED_ALWAYS;
         },
         [this](CRestateCard& rCard) { RestateGap(rCard); }},
    };
}

std::uint8_t CBarRules::GatherLine(const CCardFields& rCard, std::uint32_t iCard) {
    m_rModel.m_elements.Put(rCard.Int(FIELD_EID), iCard);
    return rCard.IsBlank(FIELD_PID) ? NEED_ALWAYS : NEED_NOTHING;
}

std::uint8_t CBarRules::GatherBar(const CCardFields& rCard, std::uint32_t iCard, E_NEED eDefaults) {
    m_rModel.m_elements.Put(rCard.Int(FIELD_EID), iCard);
    const bool bRest = !rCard.IsBlank(FIELD_X2) || !rCard.IsBlank(FIELD_X3);
    const bool bVector = rCard.Text(FIELD_X1).find('.') != std::string_view::npos;
    if (rCard.IsBlank(FIELD_PID) || (!bVector && (bRest || rCard.HasReal(FIELD_X1)))) return NEED_ALWAYS;
    if (!bVector) return rCard.IsBlank(FIELD_X1) || rCard.IsBlank(FIELD_OFFT) ? eDefaults : NEED_NOTHING;
    const bool bWhole = !rCard.IsBlank(FIELD_X2) && !rCard.IsBlank(FIELD_X3) && !rCard.IsBlank(FIELD_OFFT);
    return static_cast<std::uint8_t>(NEED_CD | (bWhole ? NEED_NOTHING : eDefaults));
}

std::uint8_t CBarRules::GatherDefaults(const CCardFields& rCard, E_NEED eNeed, T_DEFAULTS& rDefaults) {
    for (std::size_t i = FIELD_PID; i < DEFAULTS; ++i) rDefaults[i] = PlainField(rCard.Text(i));
    m_rModel.m_nActive |= eNeed;
    m_rTold.Tell(RULES[BAR_DEFAULTS], rCard.GetKeyword(), rCard.GetOrigin());
    return NEED_ALWAYS;
}

void CBarRules::RestatePID(CRestateCard& rCard, const T_DEFAULTS& rDefaults) {
    if (!rCard.IsBlank(FIELD_PID)) return;
    if (!rDefaults[FIELD_PID].empty()) return rCard.Set(FIELD_PID, std::string_view(rDefaults[FIELD_PID]));
    rCard.Set(FIELD_PID, rCard.Int(FIELD_EID));
    rCard.Tell(RULES[BAR_PID]);
}

/// A bar's vector and the axes that it is in take their defaults field by field, unless the card names a grid.
void CBarRules::RestateBar(CRestateCard& rCard, const T_DEFAULTS& rDefaults) {
    RestatePID(rCard, rDefaults);
    const auto isGrid = [](std::string_view s1, std::string_view s2, std::string_view s3) {
        std::int32_t iGrid = 0;
        return s2.empty() && s3.empty() && (s1.empty() || ReadInteger(s1, iGrid));
    };
    std::array<std::string, 3> aTexts;
    for (std::size_t i = 0; i < 3; ++i) aTexts[i] = PlainField(rCard.Text(FIELD_X1 + i));
    if (aTexts[0].empty() || !isGrid(aTexts[0], aTexts[1], aTexts[2])) {
        for (std::size_t i = 0; i < 3; ++i) {
            if (aTexts[i].empty()) aTexts[i] = rDefaults[FIELD_X1 + i];
        }
    }
    std::string sAxes = rCard.IsBlank(FIELD_OFFT) ? rDefaults[FIELD_OFFT] : PlainField(rCard.Text(FIELD_OFFT));
    if (isGrid(aTexts[0], aTexts[1], aTexts[2])) {
        if (rCard.IsBlank(FIELD_X1) && !aTexts[0].empty()) rCard.Set(FIELD_X1, std::string_view(aTexts[0]));
        if (rCard.IsBlank(FIELD_OFFT) && !sAxes.empty()) rCard.Set(FIELD_OFFT, std::string_view(sAxes));
        return;
    }
    T_VECTOR vector = {};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!ReadReal(aTexts[i], vector[i])) rCard.Real(FIELD_X1 + i);
    }
    bool bWrite = false;
    if (aTexts[0].find('.') == std::string::npos) {
        bWrite = true;
        rCard.Tell(RULES[BAR_FORM]);
    }
    for (std::size_t i = 0; i < 3; ++i) bWrite = bWrite || (rCard.IsBlank(FIELD_X1 + i) && !aTexts[i].empty());
    // "GGG" or blank has the vector in the axes of end A, "BGG" in basic ones; a real is no such word.
    const T_POINT_D* pEnd = m_rModel.m_grids.Find(rCard.Int(FIELD_GA));
    const T_FRAME_D* pFrame = pEnd && pEnd->iCD != 0 ? m_rModel.FindFrame(pEnd->iCD) : nullptr;
    const T_VECTOR* pPosition = m_rModel.FindPosition(rCard.Int(FIELD_GA));
    if (pFrame && pPosition && !sAxes.starts_with('B') && !IsReal(sAxes)) {
        const T_VECTOR basic = pFrame->VectorToBasic(vector, *pPosition);
        if (basic != vector) {
            vector = basic;
            bWrite = true;
            sAxes = "B" + (sAxes.size() > 1 ? sAxes.substr(1) : std::string("GG"));
            rCard.Tell(RULES[BAR_AXES]);
        }
    }
    if (sAxes != PlainField(rCard.Text(FIELD_OFFT))) rCard.Set(FIELD_OFFT, std::string_view(sAxes));
    if (!bWrite) return;
    for (std::size_t i = 0; i < 3; ++i) rCard.Set(FIELD_X1 + i, vector[i]);
}

/// The file has nothing of a gap that depends on its Y and Z axes: the axes of the vector don't matter.
void CBarRules::RestateGap(CRestateCard& rCard) {
    RestatePID(rCard, {});
    if (rCard.Text(FIELD_X1).find('.') != std::string_view::npos) return;
    if (rCard.IsBlank(FIELD_X2) && rCard.IsBlank(FIELD_X3)) return;
    for (std::size_t i = 0; i < 3; ++i) rCard.Set(FIELD_X1 + i, rCard.Real(FIELD_X1 + i));
    rCard.Tell(RULES[BAR_FORM]);
}

void CBarRules::RestateCONROD(CRestateCard& rCard) {
    const std::int32_t iMID = rCard.Int(3);
    const double dA = rCard.Real(4), dJ = rCard.Real(5), dC = rCard.Real(6), dNSM = rCard.Real(7);
    const auto [pRod, bNew] = m_mapRods.try_emplace({iMID, dA, dJ, dC, dNSM}, 0);
    if (bNew) pRod->second = m_rModel.NewPropertyId();
    rCard.Write("CROD", {rCard.Int(0), pRod->second, rCard.Int(1), rCard.Int(2)});
    if (bNew) {
        std::vector<CFieldValue> aFields = {pRod->second, iMID};
        for (std::size_t i = 4; i < 8; ++i) aFields.emplace_back(rCard.Text(i));
        rCard.Write("PROD", std::move(aFields));
    }
    rCard.Tell(RULES[ROD_OF_ITS_OWN]);
}
