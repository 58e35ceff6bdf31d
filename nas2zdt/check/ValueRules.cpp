#include "nas2zdt/check/ValueRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

namespace {

bool IsZero(const CCardFields& rCard, std::size_t i) {
    double dValue = 0.0;
    return !rCard.IsBlank(i) && ReadReal(rCard.Text(i), dValue) && dValue == 0.0;
}

bool IsNothing(const CCardFields& rCard, std::size_t i) {
    return rCard.IsBlank(i) || IsZero(rCard, i);
}

/// How many dimensions a section has.
struct T_SHAPE_D {
    std::string_view sTYPE;
    std::size_t nDIMS;
};
constexpr T_SHAPE_D SHAPES[] = {
    {"BAR", 2}, {"BOX", 4}, {"BOX1", 6}, {"CHAN", 4}, {"CHAN1", 4}, {"CHAN2", 4}, {"CROSS", 4}, {"DBOX", 10},
    {"H", 4},   {"HAT", 4}, {"HAT1", 5}, {"HEXA", 3}, {"I", 6},     {"I1", 4},    {"L", 4},     {"ROD", 1},
    {"T", 4},   {"T1", 4},  {"T2", 4},   {"TUBE", 2}, {"TUBE2", 2}, {"Z", 4},
};

// Words of PLOAD1.
constexpr std::string_view LOAD_TYPES[] = {"FX", "FY", "FZ", "FXE", "FYE", "FZE",
                                           "MX", "MY", "MZ", "MXE", "MYE", "MZE"};
constexpr std::string_view LOAD_SCALES[] = {"LE", "FR", "LEPR", "FRPR"};

/// One rule after the other may tell of the card.
class CValueRules {
  public:
    CValueRules(const CCardFields& rCard, const T_CARDPLACE_D& rPlace, CFindings& rFindings)
        : m_rCard(rCard), m_rPlace(rPlace), m_rFindings(rFindings) {}

    /// E and G with E. A G of its own is enough.
    void CheckMAT1() const {
        if (m_rCard.IsBlank(1) && m_rCard.IsBlank(2)) return Complain(FIELD_BLANK, "E and G are blank");
        if (!IsNothing(m_rCard, 1) || !IsNothing(m_rCard, 2)) return;
        if (IsZero(m_rCard, 1)) return Complain(VALUE_ZERO, m_rCard.IsBlank(2) ? "E is 0" : "E and G are 0");
        Complain(VALUE_ZERO, "G is 0 and E is blank");
    }

    void CheckRod(std::size_t iArea) const {
        if (!HasStiffness(m_rCard, iArea)) Complain(VALUE_ZERO, "A and J are 0");
    }

    void CheckPBAR() const {
        if (IsNothing(m_rCard, 2)) Complain(VALUE_SECTION, m_rCard.IsBlank(2) ? "A is blank" : "A is 0");
    }

    void CheckPBARL() const {
        const auto* pShape = std::ranges::find_if(SHAPES, [&](const auto& r) { return m_rCard.Is(3, r.sTYPE); });
        if (pShape == std::end(SHAPES)) return;
        for (std::size_t i = 0; i < pShape->nDIMS; ++i) {
            if (m_rCard.IsBlank(8 + i)) Complain(FIELD_BLANK, "DIM" + std::to_string(i + 1) + " is blank");
        }
        if (IsZero(m_rCard, 8)) Complain(VALUE_ZERO, "DIM1 is 0");
    }

    /// The first ply must have what the others take from the one before.
    void CheckPlies(std::size_t iMaterial) const {
        if (m_rCard.GetCount() <= 8) return Complain(FIELD_BLANK, "there are no plies");
        if (m_rCard.IsBlank(iMaterial)) Complain(FIELD_BLANK, "MID1 is blank");
        if (m_rCard.IsBlank(iMaterial + 1)) Complain(FIELD_BLANK, "T1 is blank");
    }

    /// A blank field is told by the table of cards.
    void CheckWord(std::size_t i, std::span<const std::string_view> aWords, const char* sName) const {
        const auto isIt = [&](std::string_view sWord) { return m_rCard.Is(i, sWord); };
        if (m_rCard.IsBlank(i) || std::ranges::any_of(aWords, isIt)) return;
        Complain(FIELD_NUMBER, sName + (" is " + std::string(m_rCard.Text(i))) + ", which isn't one of its words");
    }
    void CheckPLOAD1() const {
        CheckWord(2, LOAD_TYPES, "TYPE");
        CheckWord(3, LOAD_SCALES, "SCALE");
    }

  private:
    void Complain(E_REFERENCE eKind, const std::string& sText) const {
        Tell(m_rFindings, eKind, m_rPlace, [&] { return sText; });
    }

    const CCardFields& m_rCard;
    const T_CARDPLACE_D& m_rPlace;
    CFindings& m_rFindings;
};

} // namespace

bool HasStiffness(const CCardFields& rCard, std::size_t iArea) {
    return !IsNothing(rCard, iArea) || !IsNothing(rCard, iArea + 1);
}

void CheckValues(const CCardFields& rCard, const T_CARDPLACE_D& rPlace, CFindings& rFindings) {
    if (rPlace.sKEYWORD[0] != 'P' && rPlace.sKEYWORD != "MAT1" && rPlace.sKEYWORD != "CONROD") return;
    const CValueRules rules(rCard, rPlace, rFindings);
    if (rPlace.sKEYWORD == "MAT1") return rules.CheckMAT1();
    if (rPlace.sKEYWORD == "CONROD") return rules.CheckRod(CONROD_AREA);
    if (rPlace.sKEYWORD == "PROD") return rules.CheckRod(2);
    if (rPlace.sKEYWORD == "PLOAD1") return rules.CheckPLOAD1();
    if (rPlace.sKEYWORD == "PBAR") return rules.CheckPBAR();
    if (rPlace.sKEYWORD == "PBARL") return rules.CheckPBARL();
    if (rPlace.sKEYWORD == "PCOMP") return rules.CheckPlies(8);
    if (rPlace.sKEYWORD == "PCOMPG") return rules.CheckPlies(9);
}
