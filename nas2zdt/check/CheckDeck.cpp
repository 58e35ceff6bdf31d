// Keeps what a review needs of a deck.

#include "nas2zdt/check/CheckDeck.h"

#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

E_FRAME FrameKind(std::string_view sKeyword) {
    return sKeyword.back() == 'R' ? FRAME_RECTANGULAR : sKeyword.back() == 'C' ? FRAME_CYLINDRICAL : FRAME_SPHERICAL;
}

} // namespace

CCheckDeck::CCheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice)
    : m_source(m_told, rChoice.iPART, rChoice.nRANGES), m_nThreads(rChoice.nTHREADS) {
    Reserve(sDeck);
    m_source.Read(sDeck, rChoice.join, this);
    ChooseCase(rChoice);
    m_rows.grids.Finish(m_gridDefaults);
    m_rows.grids.Resolve(m_frames);
    FillBars();
    m_elementRows.Fill(m_rows.aELEMENTS, [](const T_DECKELEMENT_D& r) { return r.iEID; });
    m_barRows.Fill(m_rows.aBARS, [](const T_BAR_D& r) { return r.iEID; });
}

/// Room for the tables of an ordinary deck without includes: what they don't need of it is never touched, while a table
/// that grows is copied again and again.
void CCheckDeck::Reserve(const std::string& sDeck) {
    constexpr std::size_t CARD_BYTES = 64, MOST_BYTES = std::size_t{1} << 28;
    std::error_code error;
    const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(sDeck), error);
    if (error) return; // there is none, or it goes by another name
    const std::size_t nCards = std::min<std::uintmax_t>(nBytes, MOST_BYTES) / CARD_BYTES;
    m_rows.grids.Reserve(nCards);
    m_rows.aELEMENTS.reserve(nCards);
    m_rows.aNODES.reserve(4 * nCards);
}

/// Takes what was made of cards ahead, without their text as far as they are in tables.
void CCheckDeck::OnRun(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINERUN_D& rRun,
                       CLinesAhead& rAhead) {
    const auto& rMaker = static_cast<const CRowsAhead&>(rAhead); // of MakeAhead
    const CRowsAhead::T_RUNROWS_D& rMade = rMaker.GetRun(rRun);
    if (rMade.bROWS) return m_rows.Append(rMaker.GetRows(rRun), rMade.begin, rMade.end, rOrigin);
    if (rMade.first.bRETURNS) {
        m_sText.clear();
        AppendWithoutReturns(m_sText, sText);
        sText = m_sText;
    }
    m_texts.Begin();
    m_texts.Append(sText);
    T_CARDS_D& rCards = m_aRest.emplace_back();
    rCards.nCARDS = static_cast<std::uint32_t>(rMade.nCARDS);
    rCards.first.pTEXT = m_texts.GetOpen().data();
    rCards.first.nTEXT = static_cast<std::uint32_t>(sText.size());
    rCards.first.origin = rOrigin;
    rCards.first.bPLAIN = rMade.first.bPLAIN;
    rCards.first.bCOLUMNS = rMade.first.bCOLUMNS;
}

bool CCheckDeck::OnCard(const T_SOURCECARD_D& rCard) {
    const T_READCARD_D read = m_reader.Read(rCard, true);
    bool bRest = read.eTABLE == TABLE_NONE, bOdd = read.bODD;
    if (read.eTABLE == TABLE_DEFAULTS) {
        TakeDefaults();
        bRest = true;
    }
    if (read.eTABLE == TABLE_FRAMES_BY_GRIDS) bOdd = !TakeFrameByGrids();
    if (read.eTABLE == TABLE_FRAMES_BY_POINTS) bOdd = !TakeFrameByPoints();
    if (bRest) m_aRest.push_back({rCard});
    if (bOdd) m_aOdd.push_back({rCard});
    if (read.bSIZED) m_aSized.push_back({rCard});
    return bRest || bOdd || read.bSIZED;
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
    const CCardFields& rCard = m_reader.GetCard();
    const std::string_view sKeyword = rCard.GetKeyword();
    if (sKeyword == "GRDSET") {
        const T_GRIDKIND_D defaults = {rCard.Int(1), rCard.Int(5), rCard.Components(6)};
        if (rCard.GetBroken() == CCardFields::NOWHERE) m_gridDefaults = defaults;
    } else if (sKeyword == "BAROR") {
        m_barDefaults = ReadOrientation(rCard, 4);
        m_iBarProperty = rCard.Int(1);
    } else if (sKeyword == "BEAMOR") {
        m_beamDefaults = ReadOrientation(rCard, 4);
        m_iBeamProperty = rCard.Int(1);
    }
}

/// Fills in defaults once the whole deck is read: their cards may stand behind those that they are for.
void CCheckDeck::FillBars() {
    for (T_BAR_D& rBar : m_rows.aBARS) {
        const bool bBeam = (rBar.nBLANKS & OF_BEAM) != 0;
        const T_ORIENTATION_D& rDefaults = bBeam ? m_beamDefaults : m_barDefaults;
        if (rBar.nBLANKS & BLANK_VECTOR) {
            rBar.orientation.iG0 = rDefaults.iG0;
            rBar.orientation.vector = rDefaults.vector;
        }
        if (rBar.nBLANKS & BLANK_OFFT) rBar.orientation.bBASIC = rDefaults.bBASIC;
        const std::int32_t iProperty = bBeam ? m_iBeamProperty : m_iBarProperty;
        if ((rBar.nBLANKS & BLANK_PID) && iProperty != 0) m_rows.aELEMENTS[rBar.iROW].iPID = iProperty;
    }
}

/// Whether both frames of the card are as they should be.
bool CCheckDeck::TakeFrameByGrids() {
    const CCardFields& rCard = m_reader.GetCard();
    bool bRight = true;
    for (std::size_t i = 0; i <= 4; i += 4) {
        if (rCard.IsBlank(i)) continue;
        T_FRAMECARD_D frame;
        frame.bGRIDS = true;
        const std::int32_t iCID = rCard.Int(i);
        frame.iG = {rCard.Int(i + 1), rCard.Int(i + 2), rCard.Int(i + 3)};
        bRight = TakeFrame(iCID, frame, std::ranges::all_of(frame.iG, IsId)) && bRight;
    }
    return bRight;
}

bool CCheckDeck::TakeFrameByPoints() {
    const CCardFields& rCard = m_reader.GetCard();
    T_FRAMECARD_D frame;
    const std::int32_t iCID = rCard.Int(0);
    frame.iRID = rCard.Int(1);
    for (std::size_t i = 0; i < 9; ++i) frame.dPOINTS[i / 3][i % 3] = rCard.Real(2 + i);
    return TakeFrame(iCID, frame, frame.iRID >= 0);
}

/// Takes a frame of the card in hand if its fields can be read. Whether they are as they should be.
bool CCheckDeck::TakeFrame(std::int32_t iCID, const T_FRAMECARD_D& rFrame, bool bFits) {
    const CCardFields& rCard = m_reader.GetCard();
    const bool bSound = rCard.GetBroken() == CCardFields::NOWHERE;
    if (bSound) {
        T_FRAMECARD_D frame = rFrame;
        frame.eKIND = FrameKind(rCard.GetKeyword());
        frame.origin = rCard.GetOrigin();
        m_frames.Put(iCID, frame);
    }
    return bSound && bFits && IsId(iCID) && !rCard.HasIntegerForReal();
}

std::vector<std::int32_t> CCheckDeck::GetElementRange(std::int32_t iFirst, std::int32_t iLast) const {
    return m_elementIds.GetRange(
        m_rows.aELEMENTS, [](const T_DECKELEMENT_D& rElement) { return rElement.iEID; }, iFirst, iLast);
}

const T_ORIENTATION_D* CCheckDeck::FindOrientation(const T_DECKELEMENT_D& rElement) const {
    const std::uint32_t iRow =
        HasOrientation(rElement.GetKind().sKEYWORD) ? m_barRows.Find(rElement.iEID) : CKeyIndex::NONE;
    return iRow == CKeyIndex::NONE ? nullptr : &m_rows.aBARS[iRow].orientation;
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
    const CDeckGrids& rGrids = m_rows.grids;
    const T_FRAME_D* pFrame =
        pOrientation->bBASIC ? nullptr : m_frames.Find(rGrids.GetKind(rGrids.FindRow(iFirst)).iCD);
    if (!pFrame && !pOrientation->bBASIC) return false;
    rVector = pFrame ? pFrame->VectorToBasic(vector, *pEnd) : vector;
    return true;
}

void CCheckDeck::WalkCards(const std::vector<T_CARDS_D>& rCards, std::span<CCardTaker* const> aTakers) {
    CCardFields fields;
    for (const T_CARDS_D& rSame : rCards) {
        T_SOURCECARD_D card = rSame.first;
        std::string_view sRest = card.Text();
        for (std::uint32_t i = 0; i < rSame.nCARDS; ++i) {
            const std::size_t nText = rSame.nCARDS == 1 ? sRest.size() : sRest.find('\n') + 1;
            card.pTEXT = sRest.data();
            card.nTEXT = static_cast<std::uint32_t>(nText);
            fields.Read(card);
            for (CCardTaker* pTaker : aTakers) pTaker->TakeCard(fields);
            const auto wants = [&](const CCardTaker* pTaker) { return pTaker->Wants(fields.GetKeyword()); };
            if (i == 0 && card.bCOLUMNS && std::ranges::none_of(aTakers, wants)) break;
            sRest.remove_prefix(nText);
            ++card.origin.iLINE;
        }
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
