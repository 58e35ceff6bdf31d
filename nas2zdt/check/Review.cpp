// Which sums a reviewer sees, and which cards they are made of.

#include "nas2zdt/check/Review.h"

#include "nas2zdt/account/AccountOutput.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace {

// What cards a sum is made of, by the beginnings of their keywords.
constexpr std::string_view NODES = "GRID GRDSET CORD";
constexpr std::string_view LINES = "CROD CONROD CTUBE CBAR CBEAM CBEND BAROR BEAMOR";
constexpr std::string_view PLATES = "CTRIA CQUAD CSHEAR";
constexpr std::string_view SOLIDS = "CTETRA CPENTA CHEXA CPYRAM";
constexpr std::string_view PROPERTIES =
    "PROD PTUBE PBAR PBEAM PBCOMP PBEND PSHELL PCOMP PSHEAR PSOLID CONROD CTRIA CQUAD";
constexpr std::string_view MASSES = "MAT PROD PTUBE PBAR PBEAM PBCOMP PBEND PSHELL PCOMP PSHEAR CONROD NSM";
constexpr std::string_view ALL_MASSES = "MAT PROD PTUBE PBAR PBEAM PBCOMP PBEND PSHELL PCOMP PSHEAR CONROD NSM CONM";
constexpr std::string_view SUPPORTS = "SPC GRID GRDSET";
constexpr std::string_view TIES = "RBE RBAR RROD MPC";
constexpr std::string_view POINT_LOADS = "FORCE MOMENT";
constexpr std::string_view FACED = "CTRIA CQUAD CTETRA CPENTA CHEXA CPYRAM";
constexpr std::string_view LINE_LOADS = "PLOAD1 BAROR BEAMOR CBAR CBEAM CBEND";
constexpr std::string_view LOADS = "FORCE MOMENT PLOAD GRAV LOAD";

struct T_FORMROW_D {
    const char* sNAME;
    std::string_view sCARDS;
};
constexpr T_FORMROW_D FORMS[FORM_COUNT] = {
    {"rods", "CROD CONROD CTUBE"},
    {"beams", "CBAR CBEAM CBEND CTUBE"},
    {"triangles", "CTRIA"},
    {"quads", "CQUAD"},
    {"shear panels", "CSHEAR"},
    {"tetrahedra", "CTETRA"},
    {"wedges", "CPENTA"},
    {"hexahedra", "CHEXA"},
    {"pyramids", "CPYRAM"},
    {"springs", "CELAS PELAS"},
    {"bushes and gaps", "CBUSH CGAP PBUSH PGAP"},
    {"dampers", "CDAMP CVISC"},
    {"scalar masses", "CMASS"},
};

/// A sum of one side, with the cards that it is made of.
struct T_SUMROW_D {
    std::string sGROUP, sNAME;
    double dVALUE = 0.0, dSIZE = 0.0;
    bool bCOUNT = false;
    std::uint64_t nCHECK = 0;
    std::vector<std::string_view> aCARDS;
    bool bHIDDEN = false; // shown only if it differs
};

class CSumList {
  public:
    void Begin(std::string sGroup) { m_sGroup = std::move(sGroup); }
    void Count(std::string sName, std::uint64_t nCount, std::vector<std::string_view> aCards,
               std::uint64_t nCheck = 0) {
        m_aRows.push_back(
            {m_sGroup, std::move(sName), static_cast<double>(nCount), 0.0, true, nCheck, std::move(aCards), false});
    }
    /// Nothing but rounding counts as nothing.
    void Value(std::string sName, double dValue, double dSize, std::vector<std::string_view> aCards,
               std::uint64_t nCheck = 0) {
        constexpr double ROUNDING = 1e-13;
        if (std::fabs(dValue) <= ROUNDING * dSize) dValue = 0.0;
        m_aRows.push_back({m_sGroup, std::move(sName), dValue, dSize, false, nCheck, std::move(aCards), false});
    }
    void Vector(const std::string& sName, const T_VECTOR& rValue, double dSize,
                const std::vector<std::string_view>& aCards) {
        constexpr const char* AXES[] = {" x", " y", " z"};
        for (std::size_t i = 0; i < 3; ++i) Value(sName + AXES[i], rValue[i], dSize, aCards);
    }
    void HideLast(std::size_t nRows) {
        for (std::size_t i = 0; i < nRows; ++i) m_aRows[m_aRows.size() - 1 - i].bHIDDEN = true;
    }
    std::vector<T_SUMROW_D> Take() { return std::move(m_aRows); }

  private:
    std::string m_sGroup;
    std::vector<T_SUMROW_D> m_aRows;
};

void ListModel(CSumList& rList, const T_TOTALS_D& r) {
    rList.Begin("nodes");
    rList.Count("count", r.nodes.nCOUNT, {NODES}, r.nodes.nCHECK);
    const double dExtent = std::max(Length(r.dLOW), Length(r.dHIGH));
    rList.Vector("lowest", r.dLOW, dExtent, {NODES});
    rList.Vector("highest", r.dHIGH, dExtent, {NODES});
    rList.Vector("sum by id of", r.weighted.dSUM, r.weighted.dSIZE, {NODES});
    rList.HideLast(3);
    rList.Count("with axes of their own", r.axes.nCOUNT, {NODES}, r.axes.nCHECK);
    rList.Begin("elements");
    for (std::size_t i = 0; i < FORM_COUNT; ++i) rList.Count(FORMS[i].sNAME, r.aFORMS[i], {FORMS[i].sCARDS});
    const auto measure = [&](const char* sName, std::initializer_list<E_BODY> aBodies, std::string_view sCards) {
        T_SUM_D sum;
        std::uint64_t nCheck = 0;
        for (const E_BODY eBody : aBodies) {
            sum.Add(r.aMEASURES[eBody].dSUM, r.aMEASURES[eBody].dSIZE);
            nCheck += r.aELEMENTS[eBody].nCHECK;
        }
        rList.Value(sName, sum.dSUM, sum.dSIZE, {sCards, NODES}, nCheck);
    };
    measure("length of rods and beams", {BODY_LINE}, LINES);
    measure("area of plates", {BODY_TRIANGLE, BODY_QUAD}, PLATES);
    measure("volume of solids", {BODY_TETRA, BODY_WEDGE, BODY_HEXA, BODY_PYRAMID}, SOLIDS);
    for (const auto& [iPID, rGroup] : r.mapPROPERTIES) {
        rList.Begin("property " + std::to_string(iPID));
        rList.Count("elements", rGroup.nELEMENTS, {LINES, PLATES, PROPERTIES});
        rList.Value("length or area", rGroup.measure.dSUM, rGroup.measure.dSIZE, {LINES, PLATES, PROPERTIES, NODES});
    }
    for (const auto& [iMID, rGroup] : r.mapMATERIALS) {
        rList.Begin("material " + std::to_string(iMID));
        rList.Count("elements", rGroup.nELEMENTS, {LINES, PLATES, SOLIDS, PROPERTIES, "MAT"});
        rList.Value("mass", rGroup.mass.dSUM, rGroup.mass.dSIZE, {MASSES, LINES, PLATES, SOLIDS, NODES});
    }
}

void ListMasses(CSumList& rList, const T_TOTALS_D& r) {
    const std::vector<std::string_view> elements = {MASSES, LINES, PLATES, SOLIDS, NODES};
    const std::vector<std::string_view> cards = {ALL_MASSES, LINES, PLATES, SOLIDS, NODES};
    rList.Begin("mass");
    rList.Value("of elements by density", r.structure.mass.dSUM, r.structure.mass.dSIZE, elements);
    rList.Value("of elements, non-structural", r.added.mass.dSUM, r.added.mass.dSIZE, elements);
    rList.Count("masses at nodes", r.nMASSES, {"CONM"});
    rList.Value("of those", r.points.mass.dSUM, r.points.mass.dSIZE, {"CONM"});
    const T_MASSTOTALS_D total = r.structure + r.added + r.points;
    rList.Value("total", total.mass.dSUM, total.mass.dSIZE, cards);
    const double dMass = std::max(std::fabs(total.mass.dSUM), 1e-300);
    rList.Vector("centre of gravity", total.GetCentre(), total.moment.dSIZE / dMass, cards);
    constexpr const char* INERTIA[] = {"Ixx about it", "Iyy about it", "Izz about it",
                                       "Ixy about it", "Ixz about it", "Iyz about it"};
    const double dSize = static_cast<double>(total.dSECOND.size()) * total.dSECONDSIZE;
    const std::array<double, 6> inertia = total.GetInertia();
    for (std::size_t i = 0; i < inertia.size(); ++i) rList.Value(INERTIA[i], inertia[i], dSize, cards);
}

void ListTies(CSumList& rList, const T_TOTALS_D& r) {
    rList.Begin("supports");
    rList.Count("nodes", r.nHELD, {SUPPORTS});
    for (std::size_t i = 0; i < r.aHELD.size(); ++i) {
        rList.Count("component " + std::to_string(i + 1), r.aHELD[i].nCOUNT, {SUPPORTS}, r.aHELD[i].nCHECK);
    }
    rList.Begin("rigid links");
    rList.Count("components tied", r.rigid.nCOUNT, {TIES}, r.rigid.nCHECK);
}

T_RESULTANT_D operator+(T_RESULTANT_D a, const T_RESULTANT_D& b) {
    a.force.Add(b.force.dSUM, b.force.dSIZE);
    a.moment.Add(b.moment.dSUM, b.moment.dSIZE);
    return a;
}

/// All forces of a set, gravity on all masses among them.
T_RESULTANT_D ResultantOf(const T_SETTOTALS_D& rSet, const T_MASSTOTALS_D& rMass) {
    T_RESULTANT_D sum = rSet.nodal + rSet.pressure + rSet.line;
    const T_VECTOR& g = rSet.gravity.dSUM;
    if (IsZero(g)) return sum;
    sum.force.Add(Scale(g, rMass.mass.dSUM), Length(g) * rMass.mass.dSIZE);
    sum.moment.Add(Cross(rMass.moment.dSUM, g), Length(g) * rMass.moment.dSIZE);
    return sum;
}

void ListResultant(CSumList& rList, const T_RESULTANT_D& r, const std::vector<std::string_view>& aCards) {
    rList.Vector("force", r.force.dSUM, r.force.dSIZE, aCards);
    rList.Vector("moment", r.moment.dSUM, r.moment.dSIZE, aCards);
}

/// What the forces of a set depend on.
std::vector<std::string_view> CardsOf(const T_SETTOTALS_D& rSet) {
    std::vector<std::string_view> aCards;
    if (rSet.nFORCES + rSet.nMOMENTS > 0) aCards.push_back(POINT_LOADS);
    if (rSet.nPRESSURES > 0) aCards.insert(aCards.end(), {"PLOAD", FACED});
    if (rSet.nLINELOADS > 0) aCards.insert(aCards.end(), {LINE_LOADS, LINES});
    if (!IsZero(rSet.gravity.dSUM)) aCards.insert(aCards.end(), {"GRAV", ALL_MASSES});
    aCards.insert(aCards.end(), {LOADS, NODES});
    return aCards;
}

void ListLoads(CSumList& rList, const T_TOTALS_D& r) {
    const T_MASSTOTALS_D mass = r.structure + r.added + r.points;
    std::map<std::int32_t, T_RESULTANT_D> mapResultants;
    for (const auto& [iSet, rSet] : r.mapSETS) {
        rList.Begin("load set " + std::to_string(iSet));
        rList.Count("forces", rSet.nFORCES, {POINT_LOADS, NODES});
        rList.Count("moments", rSet.nMOMENTS, {POINT_LOADS, NODES});
        rList.Count("elements under pressure", rSet.nPRESSURES, {"PLOAD", FACED, NODES});
        rList.Count("loads along beams", rSet.nLINELOADS, {LINE_LOADS, LINES, NODES});
        rList.Vector("acceleration", rSet.gravity.dSUM, rSet.gravity.dSIZE, {"GRAV CORD"});
        mapResultants[iSet] = ResultantOf(rSet, mass);
        ListResultant(rList, mapResultants[iSet], CardsOf(rSet));
        const auto values = [&](const std::string& sOf, const T_VALUESUM_D& rValues, std::string_view sCards) {
            rList.Count(sOf + " with temperatures", rValues.ids.nCOUNT, {sCards, NODES, LINES, PLATES},
                        rValues.ids.nCHECK);
            rList.Value("sum of these of " + sOf, rValues.sum.dSUM, rValues.sum.dSIZE, {sCards, NODES, LINES, PLATES});
        };
        values("nodes", rSet.temperatures, "TEMP");
        values("elements", rSet.elementTemperatures, "TEMP");
        rList.Count("displacements", rSet.displacements.nCOUNT, {"SPC", NODES}, rSet.displacements.nCHECK);
        rList.Value("sum of these", rSet.displacement.dSUM, rSet.displacement.dSIZE, {"SPC", NODES});
    }
    for (const auto& [iSum, rFactors] : r.mapCOMBINATIONS) {
        rList.Begin("combination " + std::to_string(iSum));
        T_RESULTANT_D sum;
        std::vector<std::string_view> aCards = {"LOAD"};
        for (const auto& [iSet, dFactor] : rFactors) {
            const std::vector<std::string_view> aPart = CardsOf(r.mapSETS.at(iSet));
            aCards.insert(aCards.end(), aPart.begin(), aPart.end());
            const T_RESULTANT_D& rPart = mapResultants[iSet];
            sum.force.Add(Scale(rPart.force.dSUM, dFactor), std::fabs(dFactor) * rPart.force.dSIZE);
            sum.moment.Add(Scale(rPart.moment.dSUM, dFactor), std::fabs(dFactor) * rPart.moment.dSIZE);
        }
        rList.Count("load sets", rFactors.size(), {"LOAD", LOADS});
        ListResultant(rList, sum, aCards);
    }
}

std::vector<T_SUMROW_D> ListSums(const T_TOTALS_D& r) {
    CSumList list;
    ListModel(list, r);
    ListMasses(list, r);
    ListTies(list, r);
    ListLoads(list, r);
    return list.Take();
}

/// Whether a keyword begins with one of some words.
bool BeginsWithAny(std::string_view sKeyword, std::string_view sWords) {
    while (!sWords.empty()) {
        const std::size_t iEnd = std::min(sWords.find(' '), sWords.size());
        if (sKeyword.starts_with(sWords.substr(0, iEnd))) return true;
        sWords.remove_prefix(std::min(iEnd + 1, sWords.size()));
    }
    return false;
}

std::string Describe(const T_WORD_D& rWord, const T_NOTE_D& rNote) {
    return (rWord.sNAME.empty() ? "" : rWord.sNAME + ": ") + NoteText(rNote);
}

// Losses of lines whose words don't tell which cards they are part of.
const std::set<E_NOTE> OF_TEXT = {NOTE_UNKNOWN_WORD, NOTE_CUT_OFF,     NOTE_STRAY_LINE, NOTE_REPLICATION,
                                  NOTE_NO_BULK,      NOTE_ENDED_EARLY, NOTE_PART,       NOTE_CONTROL_INCLUDE};

/// Losses that change results, of the first cards of a row that lost anything; else of text; else errors of these
/// cards, which mean nothing in the deck while the converter takes them for something.
std::vector<std::string> Explain(const CAccount& rAccount, const CFindings& rFindings,
                                 const std::vector<std::string_view>& rCards) {
    constexpr std::size_t MOST = 5;
    std::vector<std::string> aWhy;
    const auto look = [&](std::string_view sCards) {
        for (const T_WORD_D* pWord : rAccount.GetWords()) {
            if (!BeginsWithAny(pWord->sNAME, sCards)) continue;
            for (const T_NOTE_D& rNote : pWord->aNOTES) {
                if (rNote.eCLASS == CLASS_NOTE) continue;
                if (aWhy.size() < MOST) aWhy.push_back(Describe(*pWord, rNote));
            }
        }
        return !aWhy.empty();
    };
    for (const std::string_view sCards : rCards) {
        if (look(sCards)) return aWhy;
    }
    look("INCLUDE");
    for (const T_WORD_D* pWord : rAccount.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (aWhy.size() < MOST && OF_TEXT.contains(rNote.eNOTE)) aWhy.push_back(Describe(*pWord, rNote));
        }
    }
    if (!aWhy.empty()) return aWhy;
    for (const T_FINDING_D& rFinding : rFindings.GetAll()) {
        const auto isIts = [&](std::string_view sCards) { return BeginsWithAny(rFinding.sKEYWORD, sCards); };
        if (rFinding.pKIND->eSEVERITY != SEVERITY_ERROR || !std::ranges::any_of(rCards, isIts)) continue;
        if (aWhy.size() < MOST)
            aWhy.push_back(rFinding.sKEYWORD + ": an error of the deck: " + rFinding.pKIND->sMEANING);
    }
    return aWhy;
}

bool AreSame(const T_SUMROW_D& rA, const T_SUMROW_D& rB) {
    constexpr double SIX_DIGITS = 1e-6;
    if (rA.nCHECK != rB.nCHECK) return false;
    if (rA.dVALUE == rB.dVALUE || (std::isnan(rA.dVALUE) && std::isnan(rB.dVALUE))) return true;
    return std::fabs(rA.dVALUE - rB.dVALUE) <= SIX_DIGITS * std::max(rA.dSIZE, rB.dSIZE);
}

} // namespace

std::vector<T_REVIEWROW_D> ReviewTotals(const T_TOTALS_D& rDeck, const T_TOTALS_D& rFile, const CAccount* pAccount,
                                        const CFindings& rFindings) {
    // What both have is in the same order in both.
    const std::vector<T_SUMROW_D> aDeck = ListSums(rDeck), aFile = ListSums(rFile);
    std::set<std::pair<std::string_view, std::string_view>> inFile;
    for (const T_SUMROW_D& r : aFile) inFile.emplace(r.sGROUP, r.sNAME);
    std::vector<T_REVIEWROW_D> aRows;
    const auto add = [&](const T_SUMROW_D& rA, const T_SUMROW_D& rB) {
        const bool bSame = AreSame(rA, rB);
        const auto isNothing = [](double d) { return d == 0.0 || std::isnan(d); };
        if (bSame && (rA.bHIDDEN || (isNothing(rA.dVALUE) && isNothing(rB.dVALUE)))) return;
        T_REVIEWROW_D row{rA.sGROUP, rA.sNAME, rA.dVALUE, rB.dVALUE, rA.bCOUNT, !bSame, {}};
        if (row.bDIFFERS && pAccount) row.aWHY = Explain(*pAccount, rFindings, rA.aCARDS);
        aRows.push_back(std::move(row));
    };
    const auto without = [](const T_SUMROW_D& r) {
        T_SUMROW_D none = r;
        none.dVALUE = none.dSIZE = 0.0;
        none.nCHECK = 0;
        return none;
    };
    std::size_t iFile = 0;
    for (const T_SUMROW_D& rRow : aDeck) {
        if (!inFile.contains({rRow.sGROUP, rRow.sNAME})) {
            add(rRow, without(rRow));
            continue;
        }
        for (; aFile[iFile].sGROUP != rRow.sGROUP || aFile[iFile].sNAME != rRow.sNAME; ++iFile) {
            add(without(aFile[iFile]), aFile[iFile]);
        }
        add(rRow, aFile[iFile++]);
    }
    for (; iFile < aFile.size(); ++iFile) add(without(aFile[iFile]), aFile[iFile]);
    return aRows;
}
