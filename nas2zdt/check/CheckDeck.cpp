// Reads grids, frames and elements.

#include "nas2zdt/check/CheckDeck.h"

#include "nas2zdt/check/FieldCheck.h"
#include "nas2zdt/check/ValueRules.h"
#include "nas2zdt/restate/PlateThickness.h"
#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

E_FRAME FrameKind(std::string_view sKeyword) {
    return sKeyword.back() == 'R' ? FRAME_RECTANGULAR : sKeyword.back() == 'C' ? FRAME_CYLINDRICAL : FRAME_SPHERICAL;
}

bool IsFrame(std::string_view sKeyword, char cKind) {
    return sKeyword.size() == 6 && sKeyword.starts_with("CORD") && sKeyword[4] == cKind &&
           (sKeyword[5] == 'R' || sKeyword[5] == 'C' || sKeyword[5] == 'S');
}

bool IsId(std::int32_t iID) {
    return iID > 0 && iID <= LARGEST_ID;
}

/// The place behind the last grid, or of the first field if others stand before and between the grids.
std::size_t FirstBehindGrids(const T_ELEMENTKIND_D& rKind) {
    return rKind.nSTEP > 1 || rKind.iPROPERTY == 0 ? 1 : rKind.iFIRST + rKind.nMOST;
}

/// What a card leaves to defaults, and to those of CBEAM.
enum E_BLANK : std::uint8_t {
    BLANK_CP = 1,
    BLANK_CD = 2,
    BLANK_PS = 4,
    BLANK_VECTOR = 8,
    BLANK_OFFT = 16,
    OF_BEAM = 32
};

bool HasOrientation(std::string_view sKeyword) {
    return sKeyword == "CBAR" || sKeyword == "CBEAM" || sKeyword == "CBEND";
}

} // namespace

CCheckDeck::CCheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice)
    : m_source(m_told, rChoice.iPART, rChoice.nRANGES) {
    constexpr std::uintmax_t LARGE = std::uintmax_t{1} << 22; // bytes; a smaller deck is read before a thread pays
    CCardSink& rSelf = *this;
    if (Reserve(sDeck) >= LARGE && rChoice.nTHREADS > 1) {
        m_relay.emplace(rSelf, true);
        m_source.Read(sDeck, rChoice.join, &*m_relay);
        m_relay->Finish();
    } else {
        m_source.Read(sDeck, rChoice.join, &rSelf);
    }
    ChooseCase(rChoice);
    FillGrids();
    FillOrientations();
    m_model.Resolve();
    m_gridRows.Fill(m_model.m_grids.GetRows(), [](const auto& rRow) { return rRow.first; });
    m_elementRows.Fill(m_aElements, [](const T_DECKELEMENT_D& r) { return r.iEID; });
}

/// Room for the tables of an ordinary deck without includes: what they don't need of it is never touched, while a table
/// that grows is copied again and again. Gives the size of the deck.
std::uintmax_t CCheckDeck::Reserve(const std::string& sDeck) {
    constexpr std::size_t CARD_BYTES = 64, MOST_BYTES = std::size_t{1} << 28;
    std::error_code error;
    const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(sDeck), error);
    if (error) return 0; // there is none, or it goes by another name
    const std::size_t nCards = std::min<std::uintmax_t>(nBytes, MOST_BYTES) / CARD_BYTES;
    m_model.m_grids.Reserve(nCards);
    m_aGridOrigins.reserve(nCards);
    m_aGridBlanks.reserve(nCards);
    m_aElements.reserve(nCards);
    m_aNodes.reserve(4 * nCards);
    return nBytes;
}

/// Takes what needs no second look: fields behind the grids of an element, and all that may be wrong, do.
bool CCheckDeck::OnLine(std::string_view sLine, const T_ORIGINLINE_D& rOrigin) {
    m_columns.ReadLine(sLine);
    const T_COLUMNS_D keyword = m_columns.GetKeyword();
    if (keyword.nWORD != m_nKeyword) { // most cards stand among others of their kind
        std::string sKeyword(keyword.Text());
        std::transform(sKeyword.begin(), sKeyword.end(), sKeyword.begin(), &ToUpper);
        m_nKeyword = keyword.nWORD;
        m_table = FindTable(sKeyword);
    }
    if (m_table.eTABLE == TABLE_GRIDS) {
        const T_GRIDCARD_D read = ReadGRID(m_columns);
        if (m_columns.HasOther() || !FitsIds(read)) return false;
        AddGRID(read, rOrigin);
        return true;
    }
    if (m_table.eTABLE != TABLE_ELEMENTS) return false;
    const T_ELEMENTKIND_D& rKind = *m_table.pKIND;
    if (m_columns.GetCount() > FirstBehindGrids(rKind)) return false;
    ReadElement(m_columns, rKind);
    if (m_columns.HasOther() || m_element.bORIENTED || !FitsIds(rKind)) return false;
    AddElement(rOrigin);
    return true;
}

bool CCheckDeck::OnCard(const T_SOURCECARD_D& rCard) {
    m_card.Read(rCard);
    m_pCard = &rCard;
    m_bKept = false;
    const T_TABLE_D table = FindTable(m_card.GetKeyword());
    switch (table.eTABLE) {
    case TABLE_GRIDS:
        TakeGRID();
        break;
    case TABLE_ELEMENTS:
        TakeElement(*table.pKIND);
        break;
    case TABLE_FRAMES_BY_GRIDS:
        TakeFrameByGrids();
        break;
    case TABLE_FRAMES_BY_POINTS:
        TakeFrameByPoints();
        break;
    case TABLE_DEFAULTS:
        TakeDefaults();
        Keep(m_aRest);
        break;
    case TABLE_NONE:
        Keep(m_aRest);
        break;
    }
    return m_bKept;
}

CCheckDeck::T_TABLE_D CCheckDeck::FindTable(std::string_view sKeyword) {
    if (sKeyword == "GRID") return {TABLE_GRIDS};
    if (const T_ELEMENTKIND_D* pKind = FindElementKind(sKeyword)) return {TABLE_ELEMENTS, pKind};
    if (IsFrame(sKeyword, '1')) return {TABLE_FRAMES_BY_GRIDS};
    if (IsFrame(sKeyword, '2')) return {TABLE_FRAMES_BY_POINTS};
    const bool bDefaults = sKeyword == "GRDSET" || sKeyword == "BAROR" || sKeyword == "BEAMOR";
    return {bDefaults ? TABLE_DEFAULTS : TABLE_NONE};
}

void CCheckDeck::ChooseCase(const T_CHOICE_D& rChoice) {
    CCaseRequests requests;
    bool bCase = false;
    for (const T_CONTROL_D& rLine : m_source.GetControl()) {
        if (StartsWithoutCase(rLine.sTEXT, "CEND")) {
            bCase = true;
        } else if (bCase) {
            const T_CASELINE_D line = ReadCaseLine(rLine.sTEXT);
            m_bAsked = m_bAsked || line.pASKED;
            requests.Add(line);
        }
    }
    m_aCases = requests.GetCases();
    m_case = m_aCases.front();
    for (const T_CASE_D& rCase : m_aCases) {
        if (rCase.iID == rChoice.iSUBCASE) {
            m_case = rCase;
            break;
        }
    }
}

void CCheckDeck::TakeDefaults() {
    const std::string_view sKeyword = m_card.GetKeyword();
    if (sKeyword == "GRDSET") {
        const T_GRIDDEFAULTS_D defaults = {m_card.Int(1), m_card.Int(5), m_card.Components(6)};
        if (m_card.GetBroken() == CCardFields::NOWHERE) m_gridDefaults = defaults;
    } else if (sKeyword == "BAROR") {
        m_barDefaults = ReadOrientation(m_card, 4);
        m_iBarProperty = m_card.Int(1);
    } else if (sKeyword == "BEAMOR") {
        m_beamDefaults = ReadOrientation(m_card, 4);
        m_iBeamProperty = m_card.Int(1);
    }
}

/// Fills in defaults once the whole deck is read: their cards may stand behind those that they are for.
void CCheckDeck::FillGrids() {
    auto pBlanks = m_aGridBlanks.begin();
    for (auto& [iGrid, rGrid] : m_model.m_grids.GetRows()) {
        const std::uint8_t nBlanks = *pBlanks++;
        if (nBlanks & BLANK_CP) rGrid.iCP = m_gridDefaults.iCP;
        if (nBlanks & BLANK_CD) rGrid.iCD = m_gridDefaults.iCD;
        if (nBlanks & BLANK_PS) rGrid.nPS = m_gridDefaults.nPS;
    }
    std::vector<std::uint8_t>().swap(m_aGridBlanks);
}

/// The same for the orientations and properties of bars.
void CCheckDeck::FillOrientations() {
    auto pBlanks = m_aOrientationBlanks.begin();
    for (auto& [iEID, rOrientation] : m_orientations.GetRows()) {
        const std::uint8_t nBlanks = *pBlanks++;
        const T_ORIENTATION_D& rDefaults = nBlanks & OF_BEAM ? m_beamDefaults : m_barDefaults;
        if (nBlanks & BLANK_VECTOR) {
            rOrientation.iG0 = rDefaults.iG0;
            rOrientation.vector = rDefaults.vector;
        }
        if (nBlanks & BLANK_OFFT) rOrientation.bBASIC = rDefaults.bBASIC;
    }
    std::vector<std::uint8_t>().swap(m_aOrientationBlanks);
    for (const std::uint32_t iRow : m_aWithoutProperty) {
        T_DECKELEMENT_D& rBar = m_aElements[iRow];
        const std::int32_t iProperty = rBar.GetKind().sKEYWORD == "CBEAM" ? m_iBeamProperty : m_iBarProperty;
        if (iProperty != 0) rBar.iPID = iProperty;
    }
}

/// Keeps the card in hand among others.
void CCheckDeck::Keep(std::vector<T_SOURCECARD_D>& rCards) {
    rCards.push_back(*m_pCard);
    m_bKept = true;
}

/// Whether all fields of the card that were read can be read. A card with one that isn't as it should be is remembered.
bool CCheckDeck::IsSound(bool bFits) {
    const bool bSound = m_card.GetBroken() == CCardFields::NOWHERE;
    const bool bOdd = !bSound || !bFits || m_card.HasIntegerForReal();
    if (bOdd && (m_aOdd.empty() || m_aOdd.back().pTEXT != m_pCard->pTEXT)) Keep(m_aOdd);
    return bSound;
}

template <class FIELDS>
CCheckDeck::T_GRIDCARD_D CCheckDeck::ReadGRID(const FIELDS& rCard) {
    T_GRIDCARD_D read;
    read.iID = rCard.Int(0);
    read.grid.iCP = rCard.Int(1);
    read.grid.dX = {rCard.Real(2), rCard.Real(3), rCard.Real(4)};
    read.grid.iCD = rCard.Int(5);
    read.grid.nPS = rCard.Components(6);
    read.nBLANKS = static_cast<std::uint8_t>((rCard.IsBlank(1) ? BLANK_CP : 0) | (rCard.IsBlank(5) ? BLANK_CD : 0) |
                                             (rCard.IsBlank(6) ? BLANK_PS : 0));
    return read;
}

void CCheckDeck::AddGRID(const T_GRIDCARD_D& rRead, const T_ORIGINLINE_D& rOrigin) {
    m_model.m_grids.Put(rRead.iID, rRead.grid);
    m_aGridOrigins.push_back(rOrigin);
    m_aGridBlanks.push_back(rRead.nBLANKS);
}

void CCheckDeck::TakeGRID() {
    const T_GRIDCARD_D read = ReadGRID(m_card);
    if (IsSound(FitsIds(read))) AddGRID(read, m_card.GetOrigin());
}

/// A vector or grid from field iFirst on, then OFFT, whose "B" stands for a basic vector.
template <class FIELDS>
T_ORIENTATION_D CCheckDeck::ReadOrientation(const FIELDS& rCard, std::size_t iFirst) {
    T_ORIENTATION_D read;
    read.bBASIC = !rCard.IsBlank(iFirst + 3) && ToUpper(rCard.Text(iFirst + 3)[0]) == 'B';
    if (rCard.HasInt(iFirst) && rCard.IsBlank(iFirst + 1) && rCard.IsBlank(iFirst + 2)) {
        read.iG0 = rCard.Int(iFirst);
    } else if (!rCard.IsBlank(iFirst) || !rCard.IsBlank(iFirst + 1) || !rCard.IsBlank(iFirst + 2)) {
        read.vector = {rCard.Real(iFirst), rCard.Real(iFirst + 1), rCard.Real(iFirst + 2)};
    }
    return read;
}

/// Fills m_element, whose rest stays as it was.
template <class FIELDS>
void CCheckDeck::ReadElement(const FIELDS& rCard, const T_ELEMENTKIND_D& rKind) {
    T_DECKELEMENT_D& rElement = m_element.element;
    rElement.iEID = rCard.Int(0);
    rElement.iPID = rKind.iPROPERTY == 0 ? 0 : rCard.Int(rKind.iPROPERTY, rElement.iEID);
    rElement.iKIND = static_cast<std::uint8_t>(&rKind - GetElementKinds().data());
    rElement.nNODES = rKind.nCORNERS;
    rElement.nENDS = 0;
    rElement.bMORE = false;
    const std::size_t nCount = rKind.nMOST > rKind.nCORNERS ? rCard.GetCount() : 0;
    for (std::size_t i = 0; i < rKind.nMOST; ++i) {
        const std::size_t iField = rKind.iFIRST + i * rKind.nSTEP;
        if (i >= rKind.nCORNERS && iField >= nCount) break;
        m_element.aNODES[i] = rCard.Int(iField);
        if (i >= rKind.nCORNERS && m_element.aNODES[i] != 0) rElement.nNODES = static_cast<std::uint8_t>(i + 1);
        if (rKind.nSTEP == 2 && rCard.Int(iField + 1) != 0) rElement.nENDS |= static_cast<std::uint8_t>(1u << i);
    }
    m_element.bORIENTED = HasOrientation(rKind.sKEYWORD);
    if (!m_element.bORIENTED) return;
    m_element.orientation = ReadOrientation(rCard, 4);
    const bool bVector = m_element.orientation.iG0 || m_element.orientation.vector;
    m_element.nBLANKS = static_cast<std::uint8_t>((bVector ? 0 : BLANK_VECTOR) | (rCard.IsBlank(7) ? BLANK_OFFT : 0) |
                                                  (rKind.sKEYWORD == "CBEAM" ? OF_BEAM : 0));
}

void CCheckDeck::AddElement(const T_ORIGINLINE_D& rOrigin) {
    const std::int32_t iEID = m_element.element.iEID;
    if (m_element.bORIENTED) {
        m_orientations.Put(iEID, m_element.orientation);
        m_aOrientationBlanks.push_back(m_element.nBLANKS);
    }
    m_element.element.iFIRST = static_cast<std::uint32_t>(m_aNodes.size());
    m_element.element.origin = rOrigin;
    m_aElements.push_back(m_element.element);
    const auto pNodes = m_element.aNODES.begin();
    m_aNodes.insert(m_aNodes.end(), pNodes, pNodes + m_element.element.nNODES);
}

/// Whether the ids of the element in hand may be ids.
bool CCheckDeck::FitsIds(const T_ELEMENTKIND_D& rKind) const {
    const T_DECKELEMENT_D& rElement = m_element.element;
    bool bFits = IsId(rElement.iEID) && (rKind.iPROPERTY == 0 || IsId(rElement.iPID));
    for (std::size_t i = 0; i < rElement.nNODES; ++i) {
        const std::int32_t iNode = m_element.aNODES[i];
        bFits = bFits && (IsId(iNode) || (iNode == 0 && (i >= rKind.nCORNERS || rKind.eBODY == BODY_LINK)));
    }
    return bFits;
}

bool CCheckDeck::FitsIds(const T_GRIDCARD_D& rRead) {
    return IsId(rRead.iID) && rRead.grid.iCP >= 0 && rRead.grid.iCD >= -1;
}

void CCheckDeck::TakeElement(const T_ELEMENTKIND_D& rKind) {
    ReadElement(m_card, rKind);
    m_element.element.bMORE = m_card.GetCount() > FirstBehindGrids(rKind);
    const bool bMoreFits = !m_element.element.bMORE || ReadMore(m_element.element);
    if (!IsSound(FitsIds(rKind) && bMoreFits)) {
        while (!m_aUses.empty() && m_aUses.back().iROW == m_aElements.size()) m_aUses.pop_back();
        return;
    }
    const bool bPlate = rKind.eFORM == FORM_TRIANGLE || rKind.eFORM == FORM_QUAD;
    const bool bThick = bPlate && HasThickness(m_card, ThicknessOf(rKind.sKEYWORD));
    if (bThick || rKind.sKEYWORD == "CONROD") Keep(m_aSized);
    if (m_element.bORIENTED && m_card.IsBlank(rKind.iPROPERTY)) {
        m_aWithoutProperty.push_back(static_cast<std::uint32_t>(m_aElements.size()));
    }
    AddElement(m_card.GetOrigin());
}

/// Looks at the fields of the element's card that are in no table. Whether they are what they should be.
bool CCheckDeck::ReadMore(const T_DECKELEMENT_D& rElement) {
    const T_ELEMENTKIND_D& rKind = rElement.GetKind();
    const T_CARDFORMAT_D* pFormat = FindCardFormat(rKind.sKEYWORD);
    const bool bStiff = rKind.sKEYWORD != "CONROD" || HasStiffness(m_card, CONROD_AREA);
    const auto take = [&](E_REFERRED eTarget, std::int32_t iID) {
        if (eTarget == TARGET_POINT && rKind.nSTEP > 1) return; // a grid of the table
        if (!m_aUses.empty() && m_aUses.back().eTARGET == eTarget && m_aUses.back().iID == iID) return;
        m_aUses.push_back({eTarget, iID, static_cast<std::uint32_t>(m_aElements.size())});
    };
    return FitsFormat(m_card, *pFormat, FirstBehindGrids(rKind), take) && bStiff;
}

void CCheckDeck::TakeFrameByGrids() {
    for (std::size_t i = 0; i <= 4; i += 4) {
        if (m_card.IsBlank(i)) continue;
        T_FRAMECARD_D frame;
        frame.eKIND = FrameKind(m_card.GetKeyword());
        frame.bGRIDS = true;
        frame.origin = m_card.GetOrigin();
        const std::int32_t iCID = m_card.Int(i);
        frame.iG = {m_card.Int(i + 1), m_card.Int(i + 2), m_card.Int(i + 3)};
        const bool bFits = IsId(iCID) && std::ranges::all_of(frame.iG, IsId);
        if (IsSound(bFits)) m_model.m_frameCards.Put(iCID, frame);
    }
}

void CCheckDeck::TakeFrameByPoints() {
    T_FRAMECARD_D frame;
    frame.eKIND = FrameKind(m_card.GetKeyword());
    frame.origin = m_card.GetOrigin();
    const std::int32_t iCID = m_card.Int(0);
    frame.iRID = m_card.Int(1);
    for (std::size_t i = 0; i < 9; ++i) frame.dPOINTS[i / 3][i % 3] = m_card.Real(2 + i);
    if (IsSound(IsId(iCID) && frame.iRID >= 0)) m_model.m_frameCards.Put(iCID, frame);
}

std::vector<std::int32_t> CCheckDeck::GetElementRange(std::int32_t iFirst, std::int32_t iLast) const {
    return m_elementIds.GetRange(
        m_aElements, [](const T_DECKELEMENT_D& rElement) { return rElement.iEID; }, iFirst, iLast);
}

const T_ORIENTATION_D* CCheckDeck::FindOrientation(const T_DECKELEMENT_D& rElement) const {
    return HasOrientation(rElement.GetKind().sKEYWORD) ? m_orientations.Find(rElement.iEID) : nullptr;
}

bool CCheckDeck::FindVector(const T_DECKELEMENT_D& rBar, T_VECTOR& rVector) const {
    const T_ORIENTATION_D* pOrientation = FindOrientation(rBar);
    const std::int32_t iFirst = GetNodes(rBar)[0];
    const T_VECTOR* pEnd = FindPosition(iFirst);
    if (!pOrientation || !pEnd) return false;
    if (pOrientation->iG0) {
        const T_VECTOR* pReference = FindPosition(*pOrientation->iG0);
        if (pReference) rVector = Subtract(*pReference, *pEnd);
        return pReference != nullptr;
    }
    const T_VECTOR vector = pOrientation->vector.value_or(T_VECTOR{});
    const T_FRAME_D* pFrame = pOrientation->bBASIC ? nullptr : m_model.FindFrame(m_model.m_grids.Find(iFirst)->iCD);
    if (!pFrame && !pOrientation->bBASIC) return false;
    rVector = pFrame ? pFrame->VectorToBasic(vector, *pEnd) : vector;
    return true;
}

void CCheckDeck::WalkCards(const std::vector<T_SOURCECARD_D>& rCards, std::span<CCardTaker* const> aTakers) const {
    CCardFields card;
    for (const T_SOURCECARD_D& rCard : rCards) {
        card.Read(rCard);
        for (CCardTaker* pTaker : aTakers) pTaker->TakeCard(card);
    }
}

void CCheckDeck::WalkOdd(CCardTaker& rTaker) const {
    CCardTaker* const pTaker = &rTaker;
    WalkCards(m_aOdd, {&pTaker, 1});
}

void CCheckDeck::WalkSized(CCardTaker& rTaker) const {
    CCardTaker* const pTaker = &rTaker;
    WalkCards(m_aSized, {&pTaker, 1});
}

void CCheckDeck::Walk(std::span<CCardTaker* const> aTakers) const {
    WalkCards(m_aRest, aTakers);
}

std::string CCheckDeck::GetPlace(const T_ORIGINLINE_D& rOrigin) const {
    return GetFiles()[rOrigin.iFILE] + ":" + std::to_string(rOrigin.iLINE);
}
