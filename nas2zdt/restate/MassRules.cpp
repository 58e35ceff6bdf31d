// Restates masses and scalar springs.

#include "nas2zdt/restate/MassRules.h"

#include <algorithm>
#include <cmath>

namespace {

enum E_RULE { MASS_AXES, MASS_MATRIX, MASS_ID, SPRING_PROPERTY, SPRING_COMPONENTS };

using T_TENSOR = std::array<std::array<double, 3>, 3>;

constexpr double NOTHING = 1e-12; // of the size of what it is a part of

// places of CONM2
constexpr std::size_t CID = 2, OFFSET = 4, INERTIA = 8;
struct T_PLACE_D {
    std::size_t iROW, iCOLUMN;
};
constexpr std::array<T_PLACE_D, 6> INERTIAS = {{{0, 0}, {1, 0}, {1, 1}, {2, 0}, {2, 1}, {2, 2}}}; // I11, I21, ...

/// The tensor of products given along axes, along the basic ones. What is left by rounding is nothing.
T_TENSOR ToBasic(const T_TENSOR& rTensor, const std::array<T_VECTOR, 3>& rAxes) {
    T_TENSOR basic = {};
    double dSize = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            dSize = std::max(dSize, std::fabs(rTensor[i][k]));
            for (std::size_t m = 0; m < 3; ++m) {
                for (std::size_t n = 0; n < 3; ++n) basic[m][n] += rAxes[i][m] * rTensor[i][k] * rAxes[k][n];
            }
        }
    }
    for (auto& rRow : basic) {
        for (double& rValue : rRow) {
            if (std::fabs(rValue) <= NOTHING * dSize) rValue = 0.0;
        }
    }
    return basic;
}

bool IsFinite(const T_TENSOR& rTensor) {
    return std::all_of(rTensor.begin(), rTensor.end(), [](const auto& rRow) {
        return std::all_of(rRow.begin(), rRow.end(), [](double d) { return std::isfinite(d); });
    });
}

/// Products of inertia have another sign on the card than in the tensor. Zeros are left blank.
CFieldValue InertiaField(const T_TENSOR& rTensor, const T_PLACE_D& rPlace) {
    const double dValue = rTensor[rPlace.iROW][rPlace.iCOLUMN];
    if (dValue == 0.0) return {};
    return rPlace.iROW == rPlace.iCOLUMN ? dValue : -dValue;
}

} // namespace

const std::vector<T_RULE_D> CMassRules::RULES = {
    {"mass-axes", CLASS_NOTE, "CONM2", "CID", "restated: inertias and offsets in basic axes"},
    {"mass-matrix", CLASS_NOTE, "CONM1", "a diagonal of one mass and three inertias", "restated: CONM2"},
    {"mass-id", CLASS_NOTE, "CONM2", "an id that another element has", "restated: an id of its own"},
    {"spring-property", CLASS_NOTE, "CELAS1", "a blank PID", "restated: the property of the element's own id"},
    {"spring-components", CLASS_MODEL, "CELAS1 CELAS2", "different components of coincident grids",
     "springs between different components of coincident grids"},
};

std::vector<T_CARDRULES_D> CMassRules::GetCards() {
    std::vector<T_CARDRULES_D> aCards = {
        {"CONM1", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherMass(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateCONM1(rCard); }},
        {"CONM2", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherMass(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateCONM2(rCard); }},
    };
    for (const bool bProperty : {true, false}) {
        aCards.push_back(
            {bProperty ? "CELAS1" : "CELAS2",
             [this, bProperty](const CCardFields& rCard, std::uint32_t) { return GatherSpring(rCard, bProperty); },
             [this, bProperty](CRestateCard& rCard) { RestateSpring(rCard, bProperty); }});
    }
    return aCards;
}

std::uint8_t CMassRules::GatherMass(const CCardFields& rCard, std::uint32_t iCard) {
    m_rModel.UseElementId(rCard.Int(0));
    m_aMasses.emplace_back(rCard.Int(0), iCard);
    return rCard.GetKeyword() == "CONM1" || !(rCard.IsBlank(CID) || rCard.Is(CID, "0")) ? NEED_ALWAYS : NEED_NOTHING;
}

std::uint8_t CMassRules::GatherSpring(const CCardFields& rCard, bool bProperty) {
    m_rModel.UseElementId(rCard.Int(0));
    const bool bBlank = bProperty && rCard.IsBlank(1);
    const bool bDifferent = !rCard.IsBlank(3) && !rCard.IsBlank(5) && rCard.Int(3) != rCard.Int(5);
    return bBlank || bDifferent ? NEED_ALWAYS : NEED_NOTHING;
}

void CMassRules::Begin() {
    for (const auto& [iID, iCard] : m_aMasses) {
        if (m_rModel.m_elements.Has(iID)) m_rCards[iCard].nNEEDS |= NEED_ALWAYS;
    }
}

/// The id of a mass, which isn't in the file. The converter keeps masses with the elements, so it has to be free.
CFieldValue CMassRules::FreeId(CRestateCard& rCard) {
    if (!m_rModel.m_elements.Has(rCard.Int(0))) return rCard.Text(0);
    rCard.Tell(RULES[MASS_ID]);
    return m_rModel.NewElementId();
}

/// The axes that CID gives at the grid of the card. False if they aren't known.
bool CMassRules::FindAxes(const CCardFields& rCard, std::array<T_VECTOR, 3>& rAxes) const {
    const T_FRAME_D* pFrame = m_rModel.FindFrame(std::max(rCard.Int(CID), 0)); // -1 means basic axes
    const T_VECTOR* pPosition = m_rModel.FindPosition(rCard.Int(1));
    if (!pFrame || (!pPosition && pFrame->eKIND != FRAME_RECTANGULAR)) return false;
    rAxes = pFrame->AxesAt(pPosition ? *pPosition : T_VECTOR{});
    return true;
}

void CMassRules::RestateCONM1(CRestateCard& rCard) {
    constexpr std::size_t FIRST = 3, ROWS = 6;
    T_TENSOR inertias = {};
    const double dMass = rCard.Real(FIRST);
    std::size_t i = FIRST;
    for (std::size_t iRow = 0; iRow < ROWS; ++iRow) {
        for (std::size_t iColumn = 0; iColumn <= iRow; ++iColumn, ++i) {
            const double dValue = rCard.Real(i);
            if (iRow != iColumn && dValue != 0.0) return;
            if (iRow == iColumn && iRow < 3 && dValue != dMass) return;
            if (iRow == iColumn && iRow >= 3) inertias[iRow - 3][iRow - 3] = dValue;
        }
    }
    std::array<T_VECTOR, 3> axes;
    if (!FindAxes(rCard, axes)) return;
    inertias = ToBasic(inertias, axes);
    if (!IsFinite(inertias)) return;
    const std::int32_t iGrid = rCard.Int(1);
    std::vector<CFieldValue> aFields = {FreeId(rCard), iGrid, {}, dMass, {}, {}, {}, {}};
    for (const T_PLACE_D& rPlace : INERTIAS) aFields.push_back(InertiaField(inertias, rPlace));
    rCard.Write("CONM2", std::move(aFields));
    rCard.Tell(RULES[MASS_MATRIX]);
}

/// Offsets of CID -1 are positions.
void CMassRules::RestateCONM2(CRestateCard& rCard) {
    if (m_rModel.m_elements.Has(rCard.Int(0))) rCard.Set(0, FreeId(rCard));
    const std::int32_t iCID = rCard.Int(CID);
    const T_VECTOR* pPosition = m_rModel.FindPosition(rCard.Int(1));
    std::array<T_VECTOR, 3> axes;
    if (iCID == 0 || !FindAxes(rCard, axes) || (iCID < 0 && !pPosition)) return;
    T_VECTOR offset = {};
    double dSize = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        offset = Add(offset, Scale(axes[i], rCard.Real(OFFSET + i)));
        dSize = std::max(dSize, std::fabs(rCard.Real(OFFSET + i)));
    }
    if (iCID < 0) offset = Subtract(offset, *pPosition);
    T_TENSOR inertias = {};
    for (std::size_t i = 0; i < INERTIAS.size(); ++i) {
        const auto [iRow, iColumn] = INERTIAS[i];
        const double dValue = rCard.Real(INERTIA + i);
        inertias[iRow][iColumn] = inertias[iColumn][iRow] = iRow == iColumn ? dValue : -dValue;
    }
    inertias = ToBasic(inertias, axes);
    if (!IsFinite(inertias) || !std::isfinite(Length(offset))) return;
    rCard.Set(CID, {});
    for (std::size_t i = 0; i < 3; ++i) {
        rCard.Set(OFFSET + i, std::fabs(offset[i]) <= NOTHING * dSize ? CFieldValue() : CFieldValue(offset[i]));
    }
    for (std::size_t i = 0; i < INERTIAS.size(); ++i) rCard.Set(INERTIA + i, InertiaField(inertias, INERTIAS[i]));
    rCard.Tell(RULES[MASS_AXES]);
}

void CMassRules::RestateSpring(CRestateCard& rCard, bool bProperty) {
    constexpr double COINCIDENT = 1e-05; // as the converter tells grids apart
    const T_VECTOR* pFirst = m_rModel.FindPosition(rCard.Int(2));
    const T_VECTOR* pSecond = m_rModel.FindPosition(rCard.Int(4));
    if (rCard.Int(3) != 0 && rCard.Int(5) != 0 && rCard.Int(3) != rCard.Int(5) && pFirst && pSecond) {
        const T_VECTOR apart = Subtract(*pFirst, *pSecond);
        if (std::all_of(apart.begin(), apart.end(), [](double d) { return std::fabs(d) < COINCIDENT; })) {
            rCard.Drop();
            return rCard.Tell(RULES[SPRING_COMPONENTS]);
        }
    }
    if (!bProperty || !rCard.IsBlank(1)) return;
    rCard.Set(1, rCard.Int(0));
    rCard.Tell(RULES[SPRING_PROPERTY]);
}
