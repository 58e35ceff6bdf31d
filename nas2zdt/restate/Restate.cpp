// Reads, gathers, restates.

#include "nas2zdt/restate/Restate.h"

#include "nas2zdt/flatten/DeckError.h"
#include "nas2zdt/restate/CardWriter.h"
#include "nas2zdt/restate/DeckModel.h"
#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/restate/RestateCard.h"
#include "nas2zdt/restate/RuleFamilies.h"
#include "nas2zdt/restate/SourceDeck.h"
#include "nas2zdt/text/Words.h"
#include "reader/Card.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <span>

namespace {

enum E_DECKRULE { DECK_LAYOUT, DECK_BROKEN, DECK_ENDING };

const std::vector<T_RULE_D> DECK_RULES = {
    {"layout", CLASS_NOTE, "", "tabs, comments, short lines and numbers that the converter reads otherwise",
     "restated: fields put into their columns",
     "text-tab text-short text-comment text-mark text-colon text-large-free plus-sign cut-off"},
    {"not-understood", CLASS_MODEL, "", "a field that isn't what it should be",
     "goes through as it stands, since a field isn't what it should be"},
    {"ending", CLASS_CONTROL, "", "a line that isn't ENDDATA but holds it", "left out: a line that holds ENDDATA",
     "ended-early"},
};

std::vector<std::string_view> SplitWords(std::string_view sText) {
    std::vector<std::string_view> aWords;
    while (!(sText = TrimText(sText)).empty()) {
        aWords.push_back(sText.substr(0, sText.find(' ')));
        sText.remove_prefix(aWords.back().size());
    }
    return aWords;
}

/// A field that refers to something by its id.
struct T_REFERENCE_D {
    std::string_view sKEYWORD;
    std::size_t iFIELD;
};
constexpr T_REFERENCE_D TO_FRAMES[] = {
    {"GRID", 1},  {"GRID", 5},  {"GRDSET", 1}, {"GRDSET", 5}, {"CORD2R", 1}, {"CORD2C", 1}, {"CORD2S", 1},
    {"CONM1", 2}, {"CONM2", 2}, {"CBUSH", 7},  {"FORCE", 2},  {"MOMENT", 2}, {"GRAV", 1},   {"PLOAD4", 8},
};
constexpr T_REFERENCE_D TO_PROPERTIES[] = {
    {"CBAR", 1},   {"CBEAM", 1},  {"CBEND", 1},  {"CROD", 1},   {"CTUBE", 1},  {"CTRIA3", 1},
    {"CTRIA6", 1}, {"CTRIAR", 1}, {"CQUAD4", 1}, {"CQUAD8", 1}, {"CQUADR", 1}, {"CSHEAR", 1},
    {"CTETRA", 1}, {"CPENTA", 1}, {"CHEXA", 1},  {"CELAS1", 1}, {"CBUSH", 1},  {"CGAP", 1},
};

} // namespace

class CRestate {
  public:
    CRestate(const std::string& sDeck, CFile& rFile, const T_CHOICE_D& rChoice)
        : m_rChoice(rChoice), m_rFile(rFile), m_source(m_told, rChoice.iPART, rChoice.nRANGES),
          m_model(rChoice.join.NameOf(sDeck), rChoice.nRANGES), m_writer(rFile, m_restated.lines) {
        const T_RULEBENCH_D bench{m_model, m_told, m_source.GetCards()};
        m_aFamilies = MakeFamilies(bench);
        m_model.m_findLastFrame = [this] { return FindLast(TO_FRAMES); };
        m_model.m_findLastProperty = [this] { return FindLast(TO_PROPERTIES); };
        m_aRows.push_back({}); // of cards without rules
        for (const auto& pFamily : m_aFamilies) {
            for (T_CARDRULES_D& rRow : pFamily->GetCards()) m_aRows.push_back(std::move(rRow));
        }
        for (std::size_t i = 1; i < m_aRows.size(); ++i) m_mapRows[m_aRows[i].sKEYWORD] = static_cast<std::uint8_t>(i);
    }

    T_RESTATED_D Run(const std::string& sDeck) {
        m_source.Read(sDeck, m_rChoice.join);
        for (const std::string& rFile : m_source.GetFiles()) m_restated.lines.AddFile(rFile);
        ChooseCase();
        for (std::size_t i = 0; i < m_source.GetCards().size(); ++i) Gather(static_cast<std::uint32_t>(i));
        for (const auto& pFamily : m_aFamilies) pFamily->Close();
        m_model.Resolve();
        for (const auto& pFamily : m_aFamilies) pFamily->Begin();
        WriteControl();
        for (const T_SOURCECARD_D& rCard : m_source.GetCards()) RestateCard(rCard);
        for (const auto& pFamily : m_aFamilies) pFamily->Finish(m_writer);
        m_writer.Copy("ENDDATA\n", 1);
        m_rFile.Close();
        m_restated.files = m_source.GetInputs();
        m_restated.aFILES = m_source.GetFiles();
        m_restated.aTOLD = m_told.GetAll();
        return std::move(m_restated);
    }

  private:
    void ChooseCase();
    void Gather(std::uint32_t iCard);
    std::int32_t FindLast(std::span<const T_REFERENCE_D> aReferences) const;
    void WriteControl();
    void RestateCard(const T_SOURCECARD_D& rSource);
    void TellField(std::size_t i);
    void Pass(const T_SOURCECARD_D& rSource);

    const T_CHOICE_D& m_rChoice;
    CFile& m_rFile;
    T_RESTATED_D m_restated;
    CTold m_told;
    CSourceDeck m_source;
    CDeckModel m_model;
    CCardWriter m_writer;
    CRestateCard m_card;
    std::vector<std::unique_ptr<CRuleFamily>> m_aFamilies;
    std::vector<T_CARDRULES_D> m_aRows;
    std::map<std::string, std::uint8_t, std::less<>> m_mapRows;
};

/// Finds the subcases that ask for sets, and the one whose supports the file has.
void CRestate::ChooseCase() {
    CCaseRequests requests;
    bool bCase = false, bAsked = false;
    for (const T_CONTROL_D& rLine : m_source.GetControl()) {
        const bool bEnd = StartsWithoutCase(rLine.sTEXT, "CEND");
        const T_CASELINE_D line = bCase && !bEnd ? ReadCaseLine(rLine.sTEXT) : T_CASELINE_D();
        bAsked = bAsked || line.pASKED;
        requests.Add(line);
        bCase = bCase || bEnd;
    }
    const std::vector<T_CASE_D> aCases = requests.GetCases();
    if (bAsked) m_model.m_aCases = aCases;
    m_model.m_case = aCases.front();
    if (!m_rChoice.iSUBCASE) return;
    const auto pChosen = std::find_if(aCases.begin(), aCases.end(),
                                      [&](const T_CASE_D& rCase) { return rCase.iID == *m_rChoice.iSUBCASE; });
    if (pChosen == aCases.end()) {
        throw CChoiceError(m_source.GetFiles().front(), "there is no subcase " + std::to_string(*m_rChoice.iSUBCASE));
    }
    m_model.m_case = *pChosen;
}

void CRestate::Gather(std::uint32_t iCard) {
    T_SOURCECARD_D& rSource = m_source.GetCards()[iCard];
    std::array<char, 8> aWord;
    std::size_t nWord = 0;
    for (const char c : rSource.Text()) {
        if (nWord == aWord.size() || IsWhite(c) || c == ',' || c == '*') break;
        aWord[nWord++] = ToUpper(c);
    }
    const auto pRow = m_mapRows.find(std::string_view(aWord.data(), nWord));
    if (pRow == m_mapRows.end()) return;
    rSource.iROW = pRow->second;
    const T_CARDRULES_D& rRow = m_aRows[rSource.iROW];
    rSource.nNEEDS = NEED_ALWAYS;
    if (!rRow.gather) return;
    m_card.Read(rSource);
    rSource.nNEEDS = rRow.gather(m_card, iCard);
    if (m_card.GetBroken() != CCardFields::NOWHERE) rSource.nNEEDS |= NEED_ALWAYS; // to be told
}

/// The largest id in fields that refer to something, 0 at least.
std::int32_t CRestate::FindLast(std::span<const T_REFERENCE_D> aReferences) const {
    std::multimap<std::string_view, std::size_t> mapFields;
    for (const T_REFERENCE_D& rReference : aReferences) mapFields.emplace(rReference.sKEYWORD, rReference.iFIELD);
    std::int32_t iLast = 0;
    CCardFields card;
    for (const T_SOURCECARD_D& rSource : m_source.GetCards()) {
        const auto [pFirst, pEnd] = mapFields.equal_range(m_aRows[rSource.iROW].sKEYWORD);
        if (pFirst == pEnd) continue;
        card.Read(rSource);
        for (auto p = pFirst; p != pEnd; ++p) iLast = std::max(iLast, card.Int(p->second));
    }
    return iLast;
}

/// Copies the executive and case control. What asks for supports and equations asks for the set that has them.
void CRestate::WriteControl() {
    bool bCase = false;
    for (const T_CONTROL_D& rLine : m_source.GetControl()) {
        m_writer.SetOrigin(rLine.origin);
        const T_CASELINE_D line = bCase ? ReadCaseLine(rLine.sTEXT) : T_CASELINE_D();
        if (line.pASKED == &T_CASE_D::iSPC || line.pASKED == &T_CASE_D::iMPC) continue;
        std::string sText(rLine.sTEXT.substr(0, static_cast<std::size_t>(LONGEST_BULK_LINE)));
        std::string sUpper = sText;
        std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(), &ToUpper);
        if (sUpper.find("ENDDATA") != std::string::npos) {
            m_told.Tell(DECK_RULES[DECK_ENDING], {}, rLine.origin);
            continue;
        }
        m_writer.Copy(sText += '\n', 1);
        if (bCase || !StartsWithoutCase(sText, "CEND")) continue;
        bCase = true;
        if (m_model.m_aCases.empty()) continue;
        if (m_model.m_iAskedSPC != 0) m_writer.Copy("SPC = " + std::to_string(m_model.m_iAskedSPC) + "\n", 1);
        if (m_model.m_iAskedMPC != 0) m_writer.Copy("MPC = " + std::to_string(m_model.m_iAskedMPC) + "\n", 1);
    }
    m_writer.Copy("BEGIN BULK\n", 1);
}

void CRestate::RestateCard(const T_SOURCECARD_D& rSource) {
    m_writer.SetOrigin(rSource.origin);
    const T_CARDRULES_D& rRow = m_aRows[rSource.iROW];
    if (!rRow.restate || !(rSource.nNEEDS & m_model.m_nActive)) return Pass(rSource);
    m_card.Clear();
    m_card.Read(rSource);
    rRow.restate(m_card);
    if (m_card.GetBroken() != CCardFields::NOWHERE) {
        TellField(m_card.GetBroken());
        return Pass(rSource);
    }
    for (const auto& [pRule, sDetail] : m_card.m_aTold)
        m_told.Tell(*pRule, m_card.GetKeyword(), rSource.origin, sDetail);
    if (!m_card.IsChanged()) return Pass(rSource);
    m_card.Finish(m_writer);
}

/// Tells of a field of the card in hand that isn't what it should be.
void CRestate::TellField(std::size_t i) {
    const std::string sField = "field " + std::to_string(i + 2) + ": " + std::string(m_card.Text(i));
    m_told.Tell(DECK_RULES[DECK_BROKEN], m_card.GetKeyword(), m_card.GetOrigin(), sField);
}

/// Lets a card through, in columns that the converter cuts as NASTRAN does.
void CRestate::Pass(const T_SOURCECARD_D& rSource) {
    if (rSource.bPLAIN) {
        const std::string_view sText = rSource.Text();
        return m_writer.Copy(sText, static_cast<std::int32_t>(std::count(sText.begin(), sText.end(), '\n')));
    }
    m_card.Clear();
    m_card.Read(rSource);
    const std::vector<T_CARDLINE_D>& rLines = m_card.GetText().GetLines();
    bool bOtherwise = false;
    for (std::size_t i = 0; i < rLines.size(); ++i) {
        const T_CARDLINE_D& rLine = rLines[i];
        const bool bMoved = rLine.bSHORT && i + 1 < rLines.size();
        bOtherwise = bOtherwise || rLine.bTABBED || rLine.bCOMMENTED || rLine.bPASTMARK ||
                     (rLine.bFREE && rLine.bLARGE) || (bMoved && (rLine.bFREE || rLine.bLARGE));
    }
    for (std::size_t i = 0; i < m_card.GetCount(); ++i) {
        const std::string_view sField = m_card.Text(i);
        if (FindForeign(sField) != std::string_view::npos) TellField(i);
        bOtherwise = bOtherwise || (IsReal(sField) && sField.find_first_of("Dd+") != std::string_view::npos) ||
                     sField.find(':') != std::string_view::npos;
        if (PlainField(sField).find("ENDDATA") == std::string::npos) continue;
        return m_told.Tell(DECK_RULES[DECK_ENDING], m_card.GetKeyword(), rSource.origin);
    }
    if (bOtherwise) m_told.Tell(DECK_RULES[DECK_LAYOUT], m_card.GetKeyword(), rSource.origin);
    m_card.Finish(m_writer);
}

T_RESTATED_D RestateDeck(const std::string& sDeck, CFile& rFile, const T_CHOICE_D& rChoice) {
    return CRestate(sDeck, rFile, rChoice).Run(sDeck);
}

std::vector<T_RULE_D> GetRestateRules() {
    std::vector<T_RULE_D> aRules;
    for (const std::vector<T_RULE_D>* pRules : {&CSourceDeck::RULES, &DECK_RULES}) {
        aRules.insert(aRules.end(), pRules->begin(), pRules->end());
    }
    const std::vector<T_RULE_D> aFamilies = GetFamilyRules();
    aRules.insert(aRules.end(), aFamilies.begin(), aFamilies.end());
    return aRules;
}

T_MENDED FindMended() {
    T_MENDED mended;
    for (const T_RULE_D& rRule : GetRestateRules()) {
        const std::vector<std::string_view> aKinds = SplitWords(rRule.sMENDS);
        std::vector<std::string_view> aKeywords = SplitWords(rRule.sKEYWORDS);
        if (aKeywords.empty()) aKeywords.emplace_back();
        for (const std::string_view sKeyword : aKeywords) {
            for (const std::string_view sKind : aKinds) mended.emplace(sKeyword, sKind);
        }
    }
    return mended;
}

bool IsMended(const T_MENDED& rMended, std::string_view sKeyword, std::string_view sKind) {
    return rMended.contains({sKeyword, sKind}) || rMended.contains({std::string_view(), sKind});
}
