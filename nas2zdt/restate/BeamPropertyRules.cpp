// Restates sections of bars and beams.

#include "nas2zdt/restate/BeamPropertyRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

enum E_RULE { SECTION_SHAPE, SECTION_VALUES, SECTION_UNKNOWN, BEAM_CONSTANT, BEAM_ENDS, BEAM_STATIONS };

constexpr std::size_t FIELD_TYPE = 3;
constexpr std::size_t FIRST_LINE = 8; // fields of a line, and so the first of the second line
constexpr double SAME_PLACE = 1e-6;   // the converter's

bool IsStationWord(const CCardFields& rCard, std::size_t i) {
    return rCard.Is(i, "YES") || rCard.Is(i, "YESA") || rCard.Is(i, "NO");
}

bool IsEndB(double dX) {
    return std::fabs(dX - 1.0) < SAME_PLACE;
}

/// Whether a value is what a straight line from end to end gives.
bool IsBetween(double dValue, double dA, double dB, double dX) {
    const double dLine = dA + (dB - dA) * dX;
    return std::fabs(dValue - dLine) <= 1e-6 * std::max(std::fabs(dA), std::fabs(dB));
}

} // namespace

const std::vector<T_RULE_D> CBeamPropertyRules::RULES = {
    {"section-shape", CLASS_NOTE, "PBARL PBEAML", "TYPE I1, TUBE2, BOX1 of equal walls",
     "restated: the same section by a TYPE that the file has", "bar-dimensions"},
    {"section-values", CLASS_NOTE, "PBARL PBEAML", "other TYPEs that the file hasn't",
     "restated: A, I1, I2, I12, J worked out of the dimensions", "bar-turned bar-shape"},
    {"section-unknown", CLASS_MODEL, "PBARL PBEAML", "a TYPE that isn't known or dimensions that make no section",
     "left out: a section of a TYPE that isn't known or of dimensions that make none"},
    {"beam-constant", CLASS_NOTE, "PBEAML", "equal sections all along", "restated: PBARL"},
    {"beam-ends", CLASS_NOTE, "PBEAM PBEAML", "blank K1 and K2, values of end B, sections that differ",
     "restated: PBEAM with the values of both ends, K1 and K2", "meaning"},
    {"beam-stations", CLASS_MODEL, "PBEAM PBEAML", "a section between the ends that isn't on a line between theirs",
     "left out: sections between the ends of a beam"},
};

std::vector<T_CARDRULES_D> CBeamPropertyRules::GetCards() {
    const auto gather = [this](std::uint8_t nNeeds) {
        return [this, nNeeds](const CCardFields& rCard, std::uint32_t iCard) {
            m_rModel.m_properties.Put(rCard.Int(0), iCard);
            return nNeeds;
        };
    };
    return {{"PBAR", gather(NEED_NOTHING), nullptr},
            {"PBARL", gather(NEED_ALWAYS), [this](CRestateCard& rCard) { RestatePBARL(rCard); }},
            {"PBEAM", gather(NEED_ALWAYS), [this](CRestateCard& rCard) { RestatePBEAM(rCard); }},
            {"PBEAML", gather(NEED_ALWAYS), [this](CRestateCard& rCard) { RestatePBEAML(rCard); }}};
}

/// A shape of the file as PBARL, another as PBAR with its values.
void CBeamPropertyRules::WriteShape(CRestateCard& rCard, const T_SECTIONSHAPE_D& rShape, std::string_view sNSM) {
    const std::string_view sPID = rCard.Text(0), sMID = rCard.Text(1);
    const std::string sGroup(rCard.Text(2));
    if (const std::optional<T_SECTIONSHAPE_D> shape = ShapeOfFile(rShape)) {
        std::vector<CFieldValue> aFields = {sPID, sMID, std::string_view(sGroup), std::string_view(shape->sTYPE)};
        aFields.resize(FIRST_LINE);
        for (const double dDim : shape->aDIM) aFields.emplace_back(dDim);
        aFields.emplace_back(sNSM);
        rCard.Write("PBARL", std::move(aFields));
        if (shape->sTYPE != rShape.sTYPE) rCard.Tell(RULES[SECTION_SHAPE], rShape.sTYPE);
        return;
    }
    const std::optional<T_SECTIONVALUES_D> values = ValuesOf(rShape);
    if (!values) {
        rCard.Drop();
        return rCard.Tell(RULES[SECTION_UNKNOWN], rShape.sTYPE);
    }
    std::vector<CFieldValue> aFields = {sPID, sMID, values->dA, values->dI1, values->dI2, values->dJ, sNSM};
    if (values->dI12 != 0.0) {
        aFields.resize(18);
        aFields.emplace_back(values->dI12);
    }
    rCard.Write("PBAR", std::move(aFields));
    rCard.Tell(RULES[SECTION_VALUES], rShape.sTYPE);
}

void CBeamPropertyRules::RestatePBARL(CRestateCard& rCard) {
    T_SECTIONSHAPE_D shape{PlainField(rCard.Text(FIELD_TYPE)), {}};
    const std::size_t nDim = CountDimensions(shape.sTYPE);
    for (std::size_t i = 0; i < nDim; ++i) shape.aDIM.push_back(rCard.Real(FIRST_LINE + i));
    const std::optional<T_SECTIONSHAPE_D> inFile = ShapeOfFile(shape);
    if (inFile && inFile->sTYPE == shape.sTYPE) return;
    WriteShape(rCard, shape, nDim > 0 ? rCard.Text(FIRST_LINE + nDim) : std::string_view());
}

/// Blank dimensions of a section are those of end A, a blank place is end B.
void CBeamPropertyRules::RestatePBEAML(CRestateCard& rCard) {
    const std::string sType = PlainField(rCard.Text(FIELD_TYPE));
    const std::size_t nDim = CountDimensions(sType);
    if (nDim == 0) {
        rCard.Drop();
        return rCard.Tell(RULES[SECTION_UNKNOWN], sType);
    }
    std::vector<T_STATION_D> aStations;
    for (std::size_t i = FIRST_LINE; i < rCard.GetCount() || aStations.empty(); i += nDim + 1) {
        T_STATION_D station;
        if (!aStations.empty()) {
            station = aStations.front();
            station.dX = rCard.Real(i + 1, 1.0);
            i += 2; // SO and the place
        }
        station.aDIM.resize(nDim);
        for (std::size_t k = 0; k < nDim; ++k) station.aDIM[k] = rCard.Real(i + k, station.aDIM[k]);
        if (!rCard.IsBlank(i + nDim)) station.sNSM = PlainField(rCard.Text(i + nDim));
        aStations.push_back(std::move(station));
    }
    const T_STATION_D& rA = aStations.front();
    const auto pEndB =
        std::find_if(aStations.begin() + 1, aStations.end(), [](const T_STATION_D& r) { return IsEndB(r.dX); });
    const T_STATION_D& rB = pEndB == aStations.end() ? rA : *pEndB;
    bool bStraight = true;
    for (const T_STATION_D& rStation : aStations) {
        for (std::size_t k = 0; k < nDim; ++k) {
            bStraight = bStraight && IsBetween(rStation.aDIM[k], rA.aDIM[k], rB.aDIM[k], rStation.dX);
        }
    }
    if (!bStraight) rCard.Tell(RULES[BEAM_STATIONS]);
    if (rA.aDIM != rB.aDIM) return WriteEnds(rCard, sType, rA, rB);
    rCard.Tell(RULES[BEAM_CONSTANT]);
    WriteShape(rCard, {sType, rA.aDIM}, rA.sNSM);
}

void CBeamPropertyRules::WriteEnds(CRestateCard& rCard, const std::string& rType, const T_STATION_D& rA,
                                   const T_STATION_D& rB) {
    std::vector<CFieldValue> aFields = {rCard.Text(0), rCard.Text(1)};
    for (const T_STATION_D* pEnd : {&rA, &rB}) {
        const std::optional<T_SECTIONVALUES_D> values = ValuesOf({rType, pEnd->aDIM});
        if (!values) {
            rCard.Drop();
            return rCard.Tell(RULES[SECTION_UNKNOWN], rType);
        }
        if (pEnd == &rB) aFields.insert(aFields.end(), {"YES", 1.0});
        aFields.insert(aFields.end(),
                       {values->dA, values->dI1, values->dI2, values->dI12, values->dJ, std::string_view(pEnd->sNSM)});
        aFields.resize(aFields.size() + FIRST_LINE); // without points of stress recovery
    }
    aFields.insert(aFields.end(), {1.0, 1.0});
    rCard.Write("PBEAM", std::move(aFields));
    rCard.Tell(RULES[BEAM_ENDS], rType);
}

/// Both ends with their points of stress recovery, then what is behind all sections. Blank values of end B are those of
/// end A, blank K1 and K2 are 1.0. The converter finds what is behind only behind an end B.
void CBeamPropertyRules::RestatePBEAM(CRestateCard& rCard) {
    constexpr std::size_t FIRST_VALUE = 2, VALUES = 6;
    const bool bPoints = !IsStationWord(rCard, FIRST_LINE);
    const auto fields = [&](std::size_t i, std::size_t n) {
        std::vector<CFieldValue> aFields;
        for (std::size_t k = 0; k < n; ++k) aFields.emplace_back(rCard.Text(i + k));
        return aFields;
    };
    std::vector<CFieldValue> aPoints = bPoints ? fields(FIRST_LINE, FIRST_LINE) : std::vector<CFieldValue>(FIRST_LINE);
    std::vector<CFieldValue> aNew = fields(0, FIRST_LINE);
    aNew.insert(aNew.end(), aPoints.begin(), aPoints.end());
    std::vector<CFieldValue> aEndB = fields(FIRST_VALUE, VALUES);
    std::vector<CFieldValue> aPointsB = aPoints;
    std::string sEndB = "1.";
    std::vector<std::size_t> aBetween; // places of sections
    std::size_t i = bPoints ? 2 * FIRST_LINE : FIRST_LINE;
    for (; IsStationWord(rCard, i); i += rCard.Is(i, "YES") ? 2 * FIRST_LINE : FIRST_LINE) {
        if (!IsEndB(rCard.Real(i + 1))) {
            aBetween.push_back(i);
            continue;
        }
        sEndB = rCard.Text(i + 1);
        for (std::size_t k = 0; k < VALUES; ++k) {
            if (!rCard.IsBlank(i + 2 + k)) aEndB[k] = rCard.Text(i + 2 + k);
        }
        if (rCard.Is(i, "YES")) aPointsB = fields(i + FIRST_LINE, FIRST_LINE);
        if (rCard.Is(i, "NO")) aPointsB.assign(FIRST_LINE, {});
    }
    bool bStraight = true;
    for (const std::size_t iBetween : aBetween) {
        for (std::size_t k = 0; k < VALUES; ++k) {
            double dB = 0.0;
            if (!rCard.IsBlank(iBetween + 2 + k) && ReadReal(aEndB[k].GetText(), dB)) {
                bStraight = bStraight && IsBetween(rCard.Real(iBetween + 2 + k), rCard.Real(FIRST_VALUE + k), dB,
                                                   rCard.Real(iBetween + 1));
            }
        }
    }
    if (!bStraight) rCard.Tell(RULES[BEAM_STATIONS]);
    aNew.insert(aNew.end(), {"YES", std::string_view(sEndB)});
    aNew.insert(aNew.end(), aEndB.begin(), aEndB.end());
    aNew.insert(aNew.end(), aPointsB.begin(), aPointsB.end());
    for (std::size_t k = 0; k < 2; ++k) {
        aNew.push_back(rCard.IsBlank(i + k) ? CFieldValue(1.0) : CFieldValue(rCard.Text(i + k)));
    }
    for (std::size_t k = i + 2; k < rCard.GetCount(); ++k) aNew.emplace_back(rCard.Text(k));
    bool bNew = rCard.GetCount() > aNew.size();
    for (std::size_t k = 0; k < aNew.size(); ++k) bNew = bNew || aNew[k].GetText() != PlainField(rCard.Text(k));
    if (!bNew) return;
    rCard.Write("PBEAM", std::move(aNew));
    rCard.Tell(RULES[BEAM_ENDS]);
}
