// Restates properties of rods, bushes and gaps. All properties are known by their ids.

#include "nas2zdt/restate/PropertyRules.h"

#include "nas2zdt/restate/BushValues.h"
#include "nas2zdt/restate/FieldText.h"

#include <cmath>

namespace {

enum E_RULE { TUBE_ROD, TUBE_TAPER, BUSH_ORDER, GAP_SHEAR };

constexpr double PI = 3.141592653589793;

/// Cards of properties and the places of their ids.
struct T_IDS_D {
    const char* sKEYWORD;
    std::vector<std::size_t> aPLACES = {0};
};

} // namespace

const std::vector<T_RULE_D> CPropertyRules::RULES = {
    {"tube-section", CLASS_NOTE, "PTUBE", "all", "restated: PROD with the tube's area and torsion constant", "meaning"},
    {"tube-taper", CLASS_MODEL, "PTUBE", "an OD2 that isn't OD", "a tapered tube, taken as one of its mean diameter"},
    {"bush-order", CLASS_NOTE, "PBUSH", "K and B where the converter doesn't read them",
     "restated: K and B in the places that are read"},
    {"gap-shear", CLASS_NOTE, "PGAP", "a blank KT", "restated: KT is MU1 times KA"},
};

std::vector<T_CARDRULES_D> CPropertyRules::GetCards() {
    const std::vector<T_IDS_D> aIds = {
        {"PTUBE"},         {"PBUSH"},   {"PGAP"},    {"PROD"},    {"PSHELL"},
        {"PELAS", {0, 4}}, {"PCOMP"},   {"PCOMPG"},  {"PSHEAR"},  {"PSOLID"},
        {"PLPLANE"},       {"PLSOLID"}, {"PBEND"},   {"PBCOMP"},  {"PBUSH1D"},
        {"PFAST"},         {"PWELD"},   {"PBMSECT"}, {"PBRSECT"}, {"PDAMP", {0, 2, 4, 6}},
        {"PVISC", {0, 4}},
    };
    std::vector<T_CARDRULES_D> aCards;
    for (const T_IDS_D& rIds : aIds) {
        const bool bRestated = aCards.size() < 3;
        aCards.push_back({rIds.sKEYWORD,
                          [this, rIds, bRestated](const CCardFields& rCard, std::uint32_t iCard) {
                              for (const std::size_t i : rIds.aPLACES) {
                                  if (!rCard.IsBlank(i)) m_rModel.m_properties.Put(rCard.Int(i), iCard);
                              }
                              return bRestated ? NEED_ALWAYS : NEED_NOTHING;
                          },
                          nullptr});
    }
    aCards[0].restate = [this](CRestateCard& rCard) { RestatePTUBE(rCard); };
    aCards[1].restate = [this](CRestateCard& rCard) { RestatePBUSH(rCard); };
    aCards[2].restate = [this](CRestateCard& rCard) { RestatePGAP(rCard); };
    return aCards;
}

/// A tube without T is solid; one with OD2 has that diameter at its second end.
void CPropertyRules::RestatePTUBE(CRestateCard& rCard) {
    const double dOD1 = rCard.Real(2), dOD2 = rCard.Real(5, dOD1);
    const double dOD = 0.5 * (dOD1 + dOD2);
    const double dT = rCard.Real(3);
    const double dID = dT == 0.0 ? 0.0 : dOD - 2.0 * dT;
    const double dA = PI * (dOD * dOD - dID * dID) / 4.0;
    const double dJ = PI * (std::pow(dOD, 4) - std::pow(dID, 4)) / 32.0;
    if (!std::isfinite(dA) || !std::isfinite(dJ)) return;
    rCard.Write("PROD", {rCard.Text(0), rCard.Text(1), dA, dJ, {}, rCard.Text(4)});
    rCard.Tell(RULES[TUBE_ROD]);
    if (dOD2 != dOD1) rCard.Tell(RULES[TUBE_TAPER]);
}

void CPropertyRules::RestatePBUSH(CRestateCard& rCard) {
    const std::vector<T_BUSHLINE_D> aLines = ReadBushLines(rCard);
    const std::vector<CFieldValue> aFields = BushFields(rCard.Int(0), aLines);
    bool bMoved = false;
    for (std::size_t i = 1; i < aFields.size(); ++i)
        bMoved = bMoved || aFields[i].GetText() != PlainField(rCard.Text(i));
    if (!bMoved) return;
    rCard.Write("PBUSH", aFields);
    rCard.Tell(RULES[BUSH_ORDER]);
}

void CPropertyRules::RestatePGAP(CRestateCard& rCard) {
    if (!rCard.IsBlank(5)) return;
    const double dKT = rCard.Real(6) * rCard.Real(3);
    if (dKT == 0.0 || !std::isfinite(dKT)) return;
    rCard.Set(5, dKT);
    rCard.Tell(RULES[GAP_SHEAR]);
}
