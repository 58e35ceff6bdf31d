#include "nas2zdt/check/DeckIds.h"

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/restate/IdList.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::array<T_FAMILY_D, FAMILY_COUNT> FAMILIES = {{
    {"PSHELL/PCOMP", "PSHELL PCOMP PCOMPG PLPLANE", "CQUAD4 CQUAD8 CQUADR CTRIA3 CTRIA6 CTRIAR"},
    {"PSOLID", "PSOLID PLSOLID PCOMPS PCOMPLS", "CHEXA CPENTA CPYRAM CTETRA"},
    {"PBAR/PBARL", "PBAR PBARL PBRSECT", "CBAR"},
    {"PBEAM/PBEAML", "PBEAM PBEAML PBCOMP PBMSECT", "CBEAM"},
    {"PBEND", "PBEND", "CBEND"},
    {"PROD", "PROD", "CROD"},
    {"PTUBE", "PTUBE", "CTUBE"},
    {"PVISC", "PVISC", "CVISC"},
    {"PSHEAR", "PSHEAR", "CSHEAR"},
    {"PELAS", "PELAS", "CELAS1 CELAS3"},
    {"PDAMP", "PDAMP", "CDAMP1 CDAMP3"},
    {"PMASS", "PMASS", "CMASS1 CMASS3"},
    {"PBUSH", "PBUSH", "CBUSH"},
    {"PBUSH1D", "PBUSH1D", "CBUSH1D"},
    {"PGAP", "PGAP", "CGAP"},
    {"PFAST", "PFAST", ""},
    {"PWELD", "PWELD", ""},
}};

/// Keywords of the cards that make sets, whose ids they begin with.
struct T_SETCARDS_D {
    E_SETKIND eKIND;
    std::string_view sKEYWORDS;
};
constexpr T_SETCARDS_D SET_CARDS[] = {
    {SETS_SUPPORTS, "SPC SPC1 SPCADD"},
    {SETS_EQUATIONS, "MPC MPCADD"},
    {SETS_LOADS, "FORCE FORCE1 FORCE2 MOMENT MOMENT1 MOMENT2 PLOAD PLOAD1 PLOAD2 PLOAD4 GRAV RFORCE ACCEL ACCEL1 SLOAD "
                 "SPCD LOAD TEMP TEMPD TEMPP1 TEMPRB"},
    {SETS_TEMPERATURES, "TEMP TEMPD TEMPP1 TEMPRB"},
    {SETS_METHODS, "EIGB EIGC EIGR EIGRL"},
};

bool HasWord(std::string_view sWords, std::string_view sWord) {
    for (std::size_t i = sWords.find(sWord); i != std::string_view::npos; i = sWords.find(sWord, i + 1)) {
        const std::size_t iEnd = i + sWord.size();
        if ((i == 0 || sWords[i - 1] == ' ') && (iEnd == sWords.size() || sWords[iEnd] == ' ')) return true;
    }
    return false;
}

bool IsSum(std::string_view sKeyword) {
    return sKeyword == "SPCADD" || sKeyword == "MPCADD" || sKeyword == "LOAD";
}

bool HasIn(const std::vector<std::int32_t>& rSorted, std::int32_t iFirst, std::int32_t iLast) {
    const auto pFound = std::lower_bound(rSorted.begin(), rSorted.end(), iFirst);
    return pFound != rSorted.end() && *pFound <= iLast;
}

/// From the id of one property or material of a card to that of the next, 0 if there is one alone.
std::size_t StepOf(std::string_view sKeyword) {
    if (sKeyword == "PELAS" || sKeyword == "PVISC") return 4;
    return sKeyword == "PDAMP" || sKeyword == "PMASS" ? 2 : 0;
}

} // namespace

std::span<const T_FAMILY_D> GetFamilies() {
    return FAMILIES;
}

std::size_t FindFamilyOfElement(std::string_view sKeyword) {
    const auto pFound = std::ranges::find_if(FAMILIES, [&](const auto& r) { return HasWord(r.sELEMENTS, sKeyword); });
    return static_cast<std::size_t>(pFound - FAMILIES.begin());
}

std::size_t FindFamilyOfProperty(std::string_view sKeyword) {
    const auto pFound = std::ranges::find_if(FAMILIES, [&](const auto& r) { return HasWord(r.sKEYWORDS, sKeyword); });
    return static_cast<std::size_t>(pFound - FAMILIES.begin());
}

CDeckIds::CDeckIds(const CCheckDeck& rDeck, CFindings& rFindings) : m_rDeck(rDeck), m_rFindings(rFindings) {
    for (const std::int32_t iID : rDeck.GetGrids().GetIds()) m_grids.Add(iID);
    for (const T_DECKELEMENT_D& rElement : rDeck.GetElements()) {
        const E_BODY eBody = rElement.GetKind().eBODY;
        if (eBody == BODY_TRIANGLE || eBody == BODY_QUAD) m_surfaces.Add(rElement.iEID);
    }
}

/// What the cards of a keyword are for. Most cards have the keyword of the one before.
const CDeckIds::T_ROLE_D& CDeckIds::FindRole(std::string_view sKeyword) {
    if (m_role.sKEYWORD == sKeyword) return m_role;
    m_iLastSet = 0;
    m_role = {std::string(sKeyword), FindCardFormat(sKeyword), FindFamilyOfProperty(sKeyword), {}, '-'};
    for (const T_SETCARDS_D& rCards : SET_CARDS) m_role.bSETS[rCards.eKIND] = HasWord(rCards.sKEYWORDS, sKeyword);
    if (sKeyword == "GRID") {
        m_role.cOTHER = 'G';
    } else if (sKeyword.starts_with("CORD")) {
        m_role.cOTHER = 'F';
    } else if (sKeyword.starts_with("MAT")) {
        m_role.cOTHER = m_role.pFORMAT ? '-' : 'M';
    } else if (!sKeyword.empty() && (!m_role.pFORMAT || sKeyword[0] == 'C')) {
        m_role.cOTHER = sKeyword[0];
    }
    return m_role;
}

void CDeckIds::TakeCard(const CCardFields& rCard) {
    const T_ROLE_D& rRole = FindRole(rCard.GetKeyword());
    if (rRole.cOTHER != '-') {
        AddOther(rCard, rRole.cOTHER);
        if (!rRole.pFORMAT) AddOther(rCard, 'S');
    } else if (rRole.iFAMILY != NO_FAMILY) {
        AddProperties(rCard, rRole.iFAMILY);
    } else if (rRole.sKEYWORD.starts_with("MAT")) {
        AddMaterial(rCard);
    } else if (rRole.sKEYWORD == "SPOINT" || rRole.sKEYWORD == "EPOINT") {
        AddPoints(rCard);
    } else {
        AddSets(rCard, rRole);
    }
}

void CDeckIds::AddPoints(const CCardFields& rCard) {
    for (const T_IDRANGE_D& rRange : ReadIdList(rCard, 0, rCard.GetCount())) {
        m_aScalars.emplace_back(rRange.iFIRST, rRange.iLAST);
    }
}

/// Adds a property or material, and tells if its id is taken.
void CDeckIds::Put(CIdTable<T_PROPERTY_D>& rTable, std::int32_t iID, const T_PROPERTY_D& rProperty) {
    if (const T_PROPERTY_D* pFirst = rTable.Find(iID)) {
        Tell(m_rFindings, TWICE, {rProperty.sKEYWORD, iID, rProperty.origin}, [&] {
            return "there is a " + std::string(pFirst->sKEYWORD) + " " + std::to_string(iID) + " at " +
                   m_rDeck.GetPlace(pFirst->origin);
        });
    }
    rTable.Put(iID, rProperty);
}

void CDeckIds::AddProperties(const CCardFields& rCard, std::size_t iFamily) {
    // a text of the tables, which outlives the card
    const std::string_view sKeyword = m_role.pFORMAT ? m_role.pFORMAT->sKEYWORD : FAMILIES[iFamily].sNAME;
    const std::size_t nStep = StepOf(sKeyword);
    for (std::size_t i = 0; i < rCard.GetCount(); i += nStep) {
        if (rCard.HasInt(i)) {
            T_PROPERTY_D property{sKeyword, rCard.GetOrigin()};
            double dThickness = 0.0;
            property.bTHICK = sKeyword != "PSHELL" || (rCard.IsBlank(1) && rCard.IsBlank(3)) ||
                              (!rCard.IsBlank(2) && !(ReadReal(rCard.Text(2), dThickness) && dThickness == 0.0));
            Put(m_properties[iFamily], rCard.Int(i), property);
        }
        if (nStep == 0) break;
    }
}

void CDeckIds::AddMaterial(const CCardFields& rCard) {
    if (!rCard.HasInt(0)) return;
    const std::string_view sKeyword = m_role.pFORMAT->sKEYWORD;
    CIdTable<T_PROPERTY_D>& rMaterials = sKeyword == "MAT4" || sKeyword == "MAT5" ? m_thermal : m_materials;
    Put(rMaterials, rCard.Int(0), {sKeyword, rCard.GetOrigin()});
}

void CDeckIds::AddSets(const CCardFields& rCard, const T_ROLE_D& rRole) {
    const bool bMany = rRole.sKEYWORD == "TEMPD"; // pairs with a set each
    for (std::size_t i = 0; i < rCard.GetCount() && (i == 0 || bMany); i += 2) {
        std::int32_t iSet = 0;
        if (!ReadInteger(rCard.Text(i), iSet) || (iSet == m_iLastSet && !bMany)) continue;
        m_iLastSet = iSet;
        for (std::size_t iKind = 0; iKind < SETS_COUNT; ++iKind) {
            if (!rRole.bSETS[iKind]) continue;
            T_SET_D& rSet = m_aSets[iKind][iSet];
            if (rSet.sKEYWORD.empty()) {
                rSet.sKEYWORD = rRole.pFORMAT->sKEYWORD;
                rSet.origin = rCard.GetOrigin();
            }
            (IsSum(rRole.sKEYWORD) ? rSet.bSUM : rSet.bOWN) = true;
        }
    }
}

void CDeckIds::AddOther(const CCardFields& rCard, char cKind) {
    if (rCard.HasInt(0)) m_mapOthers[cKind].push_back(rCard.Int(0));
}

void CDeckIds::Finish() {
    for (auto& [cKind, rIDs] : m_mapOthers) std::sort(rIDs.begin(), rIDs.end());
    std::sort(m_aScalars.begin(), m_aScalars.end());
    std::vector<std::pair<std::int32_t, std::int32_t>> aJoined;
    for (const auto& rRange : m_aScalars) {
        if (aJoined.empty() || rRange.first > aJoined.back().second) {
            aJoined.push_back(rRange);
        } else {
            aJoined.back().second = std::max(aJoined.back().second, rRange.second);
        }
    }
    m_aScalars = std::move(aJoined);
}

bool CDeckIds::IsOther(char cKind, std::int32_t iID) const {
    const auto pFound = m_mapOthers.find(cKind);
    return pFound != m_mapOthers.end() && HasIn(pFound->second, iID, iID);
}

bool CDeckIds::IsScalarIn(std::int32_t iFirst, std::int32_t iLast) const {
    const auto pBehind = std::upper_bound(m_aScalars.begin(), m_aScalars.end(), iLast,
                                          [](std::int32_t i, const auto& rRange) { return i < rRange.first; });
    return pBehind != m_aScalars.begin() && std::prev(pBehind)->second >= iFirst;
}

bool CDeckIds::HasMaterial(std::int32_t iID) const {
    return m_materials.Has(iID) || m_thermal.Has(iID) || IsOther('M', iID);
}

bool CDeckIds::HasPointIn(std::int32_t iFirst, std::int32_t iLast) const {
    if (HasPoint(iFirst) || HasPoint(iLast)) return true;
    if (m_aSortedGrids.empty()) {
        m_aSortedGrids = m_rDeck.GetGrids().GetIds();
        std::sort(m_aSortedGrids.begin(), m_aSortedGrids.end());
    }
    return HasIn(m_aSortedGrids, iFirst, iLast) || IsScalarIn(iFirst, iLast);
}

bool CDeckIds::HasElementIn(std::int32_t iFirst, std::int32_t iLast) const {
    if (m_rDeck.FindElement(iFirst) || m_rDeck.FindElement(iLast)) return true;
    if (m_aSortedElements.empty()) {
        for (const T_DECKELEMENT_D& rElement : m_rDeck.GetElements()) m_aSortedElements.push_back(rElement.iEID);
        if (const auto pOthers = m_mapOthers.find('C'); pOthers != m_mapOthers.end()) {
            m_aSortedElements.insert(m_aSortedElements.end(), pOthers->second.begin(), pOthers->second.end());
        }
        std::sort(m_aSortedElements.begin(), m_aSortedElements.end());
    }
    return HasIn(m_aSortedElements, iFirst, iLast);
}

const T_SET_D* CDeckIds::FindSet(E_SETKIND eKind, std::int32_t iID) const {
    const auto pFound = m_aSets[eKind].find(iID);
    return pFound == m_aSets[eKind].end() ? nullptr : &pFound->second;
}

bool CDeckIds::HasSetIn(E_SETKIND eKind, std::int32_t iFirst, std::int32_t iLast) const {
    const auto pFound = m_aSets[eKind].lower_bound(iFirst);
    return pFound != m_aSets[eKind].end() && pFound->first <= iLast;
}
