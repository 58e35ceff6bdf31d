// Converts one deck.

#include "nas2zdt/library/Conversion.h"

#include "messages/ZdtMsgMgr.h"
#include "nas2zdt/flatten/DeckError.h"
#include "nas2zdt/flatten/Flatten.h"
#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/report/RunNotes.h"
#include "nas2zdt/text/TextReader.h"
#include "platform/Dialogs.h"
#include "platform/Paths.h"
#include "platform/TempPath.h"
#include "reader/DeckObserver.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace {

/// Thrown where a conversion is cancelled.
class CCancelled : public std::exception {
  public:
    const char* what() const noexcept override { return "cancelled"; }
};

/// Asks nothing, hands on the log, and keeps the failure of the output file.
class CSilentDialogs : public CDialogs {
  public:
    explicit CSilentDialogs(CConversionWatch& rWatch) : m_rWatch(rWatch) {}
    void ShowNotice(const std::string&) override {}
    int ChooseDeck(std::string&) override { return 0; }
    void ShowFileError(const CFileException& rError) override { m_fileError = rError; }
    void ShowRunError(const std::string&) override {}
    void ShowMessages(const std::vector<std::string>& aLines) override { m_rWatch.OnLog(aLines); }
    std::optional<CFileException> m_fileError;

  private:
    CConversionWatch& m_rWatch;
};

std::int32_t CodeOf(E_FAILURE eFailure) {
    switch (eFailure) {
    case FAILURE_NONE:
        return NAS2ZDT_DONE;
    case FAILURE_DECK_NOT_OPENED:
        return NAS2ZDT_DECK_NOT_OPENED;
    case FAILURE_INCLUDE_NOT_OPENED:
        return NAS2ZDT_INCLUDE_NOT_OPENED;
    case FAILURE_INCLUDE_CYCLE:
        return NAS2ZDT_INCLUDE_CYCLE;
    case FAILURE_DECK_NOT_READ:
        return NAS2ZDT_DECK_NOT_READ;
    case FAILURE_LINE_TOO_LONG:
    case FAILURE_TOO_MANY_LINES:
    case FAILURE_RANGE_TOO_LONG:
        return NAS2ZDT_TOO_LARGE;
    case FAILURE_LIMIT_RANGES:
    case FAILURE_LIMIT_DECKS:
    case FAILURE_LIMIT_OUTPUT:
    case FAILURE_LIMIT_FRAMES:
        return NAS2ZDT_LIMIT;
    case FAILURE_NOT_WRITTEN:
        return NAS2ZDT_NOT_WRITTEN;
    case FAILURE_EXHAUSTED:
        return NAS2ZDT_NO_MEMORY;
    case FAILURE_INTERNAL:
        break;
    }
    return NAS2ZDT_INTERNAL;
}

/// ": there are 1, 2 and 3 more", for an error.
std::string ListCases(const std::vector<std::int32_t>& aCases) {
    constexpr std::size_t MOST = 20;
    if (aCases.empty()) return ": the deck has none";
    std::string sText = ": there are ";
    for (std::size_t i = 0; i < std::min(aCases.size(), MOST); ++i) {
        sText += (i > 0 ? ", " : "") + std::to_string(aCases[i]);
    }
    return sText + (aCases.size() > MOST ? " and " + std::to_string(aCases.size() - MOST) + " more" : "");
}

} // namespace

/// Passes the events of a run on to the account, the notes and the watch.
class CConversion::CRunWatch : public CDeckObserver {
  public:
    /// pLines is null unless the deck was joined.
    CRunWatch(CConversion& rConversion, const CLineMap* pLines)
        : m_rConversion(rConversion), m_pAccount(rConversion.m_pAccount.get()), m_pNotes(rConversion.m_rWanted.pNOTES),
          m_pLines(pLines), m_bProgress(rConversion.m_rWatch.BeginReading()) {}

    /// Whether the run has to be observed at all.
    bool IsNeeded() const { return m_pAccount || m_pNotes || m_pLines || m_bProgress; }

    void OnDeckBegin(const std::string& sPath) override {
        const bool bMain = std::exchange(m_bMain, false); // a joined deck has a temporary path
        const std::string& sName = bMain ? m_rConversion.m_rWanted.GetName() : sPath;
        if (m_pAccount) m_pAccount->OnDeckBegin(sName);
        if (m_pNotes) m_pNotes->OnDeckBegin(sName);
        if (!m_bProgress) return;
        std::error_code error;
        const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(sPath), error);
        m_rConversion.m_rWatch.OnDeck(sName, error ? 0 : nBytes);
    }
    void OnDeckEnd(bool bBulk) override {
        if (m_pAccount) m_pAccount->OnDeckEnd(bBulk);
    }
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) override {
        if (m_pAccount) m_pAccount->OnCard(rCard, rUse, iFirst, iLast);
    }
    void OnLoss(const T_LOSS_D& rLoss) override {
        if (m_pAccount) m_pAccount->OnLoss(rLoss);
    }
    void OnFieldsDeleted(std::size_t nFields, std::int32_t iLine) override {
        if (m_pAccount) m_pAccount->OnFieldsDeleted(nFields, iLine);
    }
    void OnControlLine(std::string_view sText, std::int32_t iLine) override {
        if (m_pAccount) m_pAccount->OnControlLine(sText, iLine);
        if (m_pNotes) m_pNotes->OnControlLine(sText);
    }
    void OnText(std::span<const T_RAWLINE_D> aLines, std::int32_t iFirst) override {
        if (m_pAccount) m_pAccount->OnText(aLines, iFirst);
    }
    void OnSaidIgnored(std::int32_t iLine) override {
        if (m_pAccount) m_pAccount->OnSaidIgnored(iLine);
    }
    T_QUIET_D& GetQuiet() override { return m_pAccount ? m_pAccount->GetQuiet() : m_quiet; }
    void OnReplaced(const char* sKeyword, bool bSame) override {
        if (m_pAccount) m_pAccount->OnReplaced(sKeyword, bSame);
    }
    void OnLeft(const T_LEFT_D& rLeft) override {
        if (m_pAccount) m_pAccount->OnLeft(rLeft);
        if (m_pNotes) m_pNotes->OnLeft(rLeft);
    }
    void OnBytesRead(std::uint64_t nBytes) override {
        if (!m_bProgress) return;
        m_rConversion.m_rWatch.OnBytesRead(nBytes);
        m_rConversion.Poll();
    }
    std::string LineText(std::int32_t iLine) const override {
        if (!m_pLines) return CDeckObserver::LineText(iLine);
        const T_ORIGIN_D origin = m_pLines->Find(iLine);
        return origin.sFILE + ":" + std::to_string(origin.iLINE);
    }

  private:
    CConversion& m_rConversion;
    CAccount* m_pAccount;
    CRunNotes* m_pNotes;
    const CLineMap* m_pLines;
    bool m_bProgress;
    bool m_bMain = true; // whether the next deck is the main one
};

CConversion::CConversion(const T_CONVERSION_D& rWanted, T_INPUTS& rInputs, CConversionWatch& rWatch)
    : m_rWanted(rWanted), m_rInputs(rInputs), m_rWatch(rWatch) {
    m_result.sDECK = m_rWanted.GetName();
    m_result.sTARGET = m_rWanted.sTARGET;
}

void CConversion::Fail(std::int32_t iCode, const T_ORIGIN_D& rPlace, const std::string& sText) {
    m_result.sERROR = sText;
    m_failure = {iCode, rPlace, sText};
    m_rWatch.OnFailure(sText);
}

void CConversion::FailFile(std::int32_t iCode, const CFileException& rError) {
    Fail(iCode, {rError.GetFile(), 0}, rError.GetText());
}

/// Ends the conversion if it is cancelled.
void CConversion::Poll() {
    m_bCancelled = m_bCancelled || m_rWatch.IsCancelled();
    if (m_bCancelled) throw CCancelled();
}

void CConversion::Run() {
    const std::string& sName = m_rWanted.GetName();
    if (m_rWanted.bACCOUNT || m_rWanted.bCHECK) m_pAccount = std::make_unique<CAccount>();
    if (m_rWanted.eCOLOUR == BY_LOSS) m_pAccount->KeepMarks();
    if (m_rWanted.nPLACES > 0) m_pAccount->KeepPlaces(m_rWanted.nPLACES);
    try {
        Poll();
        if (m_rWanted.bCHECK) Check();
        Prepare();
    } catch (const CCancelled&) {
        Fail(NAS2ZDT_CANCELLED, {sName, 0}, sName + ": cancelled");
    } catch (const CDeckError& rError) {
        Fail(CodeOf(rError.GetFailure()), rError.GetPlace(), rError.GetText());
    } catch (const CChoiceError& rError) {
        FailFile(NAS2ZDT_NO_SUBCASE, rError);
    } catch (const CFileException& rError) {
        FailFile(NAS2ZDT_NOT_WRITTEN, rError);
    } catch (const std::exception& rError) {
        const bool bExhausted = IsOutOfMemory(rError);
        Fail(bExhausted ? NAS2ZDT_NO_MEMORY : NAS2ZDT_INTERNAL, {sName, 0},
             sName + (bExhausted ? ": not enough memory" : std::string(": internal error: ") + rError.what()));
    }
}

/// Joins or restates the deck if that is wanted, and converts what comes of it.
void CConversion::Prepare() {
    if (!m_rWanted.IsPrepared()) return Convert(m_rWanted.sDECK, nullptr);
    CTempPath folder;
    folder.MakeFolder();
    CTempPath deck;
    CFile file;
    deck.MakeFile(file, FindTarget(folder.GetPath() + "/deck"), folder.GetPath());
    if (m_rWanted.bFAITHFUL) {
        m_restated = RestateDeck(m_rWanted.sDECK, file, Choice());
        m_rInputs.insert(m_restated.files.begin(), m_restated.files.end());
        KeepRestated(deck.GetPath());
    } else {
        T_JOINRULES_D rules = Choice().join;
        rules.bFORGIVING = false;
        T_JOINED_D joined = FlattenDeck(m_rWanted.sDECK, file, rules);
        m_rInputs.insert(joined.files.begin(), joined.files.end());
        m_restated.lines = std::move(joined.lines);
    }
    Convert(deck.GetPath(), &m_restated.lines);
}

/// How the deck is read as NASTRAN means it.
T_CHOICE_D CConversion::Choice() {
    T_CHOICE_D choice = m_rWanted.choice;
    choice.join.nDECKS = m_rWanted.limits.nDECKS;
    choice.join.bFORGIVING = true;
    choice.join.sNAME = m_rWanted.sNAME;
    choice.join.fnPOLL = [this] { Poll(); };
    choice.nRANGES = m_rWanted.limits.nRANGES;
    choice.nTHREADS = m_rWanted.nTHREADS;
    return choice;
}

/// Checks the deck before it is converted, so that both never need memory at a time. A deck that can't be read fails
/// when it is converted.
void CConversion::Check() {
    try {
        m_pCheck = std::make_unique<T_CHECK_D>(CheckDeck(m_rWanted.sDECK, Choice(), m_rWanted.dTOLERANCE));
    } catch (const CFileException& rError) {
        m_rWatch.OnHint(rError.GetText());
    }
}

/// Copies the restated deck to where it is wanted.
void CConversion::KeepRestated(const std::string& sDeck) {
    if (m_rWanted.sRESTATED.empty()) return;
    CWholeFile kept(m_rWanted.sRESTATED, m_rInputs);
    CTextReader reader;
    std::string sCause;
    if (!reader.Open(sDeck, sCause)) throw CFileException(m_rWanted.sRESTATED, "can't be copied: " + sCause);
    for (std::string_view sLine; reader.Read(sLine);) kept.GetFile().Write(sLine);
    if (reader.HasFailed()) throw CFileException(m_rWanted.sRESTATED, "can't be copied to its end");
    kept.Finish();
}

/// Called once all decks are read, which no output may overwrite. Gives the file to write to.
CFile& CConversion::Open(const T_INPUTS& rDecks) {
    if (!m_rWanted.IsPrepared()) m_rInputs.insert(rDecks.begin(), rDecks.end()); // else they are in it
    std::vector<std::string> aOutputs = {m_rWanted.sTARGET, m_rWanted.sVIEW, m_rWanted.sVTU, m_rWanted.sREPORT,
                                         m_rWanted.sLOG};
    std::erase(aOutputs, std::string());
    m_rWatch.BeforeReplacing(aOutputs, false, m_rInputs);
    m_bRefused = true;
    for (const std::string& sOutput : aOutputs) RefuseInput(sOutput, m_rInputs);
    m_bRefused = false;
    Poll();
    m_rWatch.BeforeWriting();
    if (m_pSums) m_pSums->Begin();
    m_pTarget = std::make_unique<CWholeFile>(m_rWanted.sTARGET, m_rInputs);
    return m_pTarget->GetFile();
}

/// Converts sDeck, which is the wanted deck or, with pLines, the file it was joined into.
void CConversion::Convert(const std::string& sDeck, const CLineMap* pLines) {
    Poll();
    CSilentDialogs dialogs(m_rWatch);
    CRunWatch watch(*this, pLines);
    if (m_pAccount) m_pAccount->SetLines(pLines);
    CConvertNastran run(dialogs);
    CFileSums sums(run.GetDataPool(), m_rWanted.nTHREADS > 1);
    if (m_pCheck) m_pSums = &sums;
    const T_CONVERT_D wanted{watch.IsNeeded() ? &watch : nullptr, this, m_rWanted.GetName(), m_rWanted.limits,
                             m_rWanted.nTHREADS};
    const bool bEnded = run.Convert(sDeck, wanted) != 0;
    m_result.aLOG = run.GetMsgMgr().GetMessages();
    if (m_bCancelled) throw CCancelled();
    if (!bEnded) return FailRun(run.GetFailure(), pLines);
    if (m_pAccount) {
        m_pAccount->EndRun(run.GetDataPool());
        if (m_rWanted.bNOTES) m_pAccount->AddRounding(run.GetDataPool());
        m_pAccount->AddRestated(m_restated.aTOLD, m_restated.aFILES);
        m_result.bACCOUNT = true;
    }
    if (m_pCheck) {
        m_pCheck->aREVIEW = ReviewTotals(m_pCheck->totals, sums.Take(), m_pAccount.get(), m_pCheck->findings);
    }
    if (m_rWanted.bMODEL) m_pModel = std::make_unique<CModelTables>(run.GetDataPool());
    if (!dialogs.m_fileError) {
        Poll();
        FinishTarget();
    } else {
        FailFile(NAS2ZDT_NOT_WRITTEN, *dialogs.m_fileError);
    }
    if (m_bRefused) return;
    DrawModel(run.GetDataPool());
    m_rWatch.OnModel(run.GetDataPool());
}

/// Gives the target file its name. Sections are counted before, while no other program can change the file.
void CConversion::FinishTarget() {
    const std::string& sWritten = m_pTarget->GetTemporaryPath();
    std::vector<T_SECTION_D> aSections;
    try {
        if (m_rWanted.bSECTIONS && !sWritten.empty()) aSections = CountSections(sWritten);
    } catch (const CFileException& rError) { // the file is whole all the same
        Fail(NAS2ZDT_NOT_WRITTEN, {m_rWanted.sTARGET, 0},
             m_rWanted.sTARGET + ": can't be read for the account: " + rError.GetCause());
    }
    m_pTarget->Finish();
    m_result.aSECTIONS = std::move(aSections);
}

/// Writes the pictures that are wanted.
void CConversion::DrawModel(const CDataPool& rPool) {
    const std::vector<std::int32_t> aCases = FindLoadCases(rPool);
    if (m_rWanted.iCASE && !std::binary_search(aCases.begin(), aCases.end(), *m_rWanted.iCASE)) {
        Fail(NAS2ZDT_NO_SUBCASE, {m_rWanted.GetName(), 0},
             m_rWanted.GetName() + ": there is no load case " + std::to_string(*m_rWanted.iCASE) + ListCases(aCases));
    } else {
        if (!m_rWanted.sVIEW.empty() || !m_rWanted.sVIEWCASES.empty()) DrawPictures(rPool, aCases);
        if (!m_rWanted.sVTU.empty()) WriteGrid(rPool);
    }
}

void CConversion::DrawPictures(const CDataPool& rPool, const std::vector<std::int32_t>& aCases) {
    CSvgPicture picture(rPool, m_rWanted.eCOLOUR, m_pAccount.get());
    if (!m_rWanted.sVIEW.empty()) {
        const std::optional<std::int32_t>& rCase = m_rWanted.iCASE;
        picture.Write(m_rWanted.GetName() + (rCase ? ", load case " + std::to_string(*rCase) : ""), m_rWanted.sVIEW,
                      m_rInputs, rCase);
    }
    if (!m_rWanted.sVIEWCASES.empty()) DrawCases(picture, aCases);
}

/// A picture of each load case, named by deck and case. Outputs of this and other runs may have such a name, and these
/// aren't known before, so none overwrites another.
void CConversion::DrawCases(CSvgPicture& rPicture, const std::vector<std::int32_t>& aCases) {
    const std::string& sFolder = m_rWanted.sVIEWCASES;
    if (aCases.empty()) return m_rWatch.OnHint(m_rWanted.GetName() + ": no load cases to draw");
    std::error_code error;
    std::filesystem::create_directories(ToPath(sFolder), error);
    if (error) throw CFileException(sFolder, error.message());
    for (const std::string* pOutput : {&m_rWanted.sTARGET, &m_rWanted.sVIEW, &m_rWanted.sVTU}) Protect(*pOutput);
    const std::string sStem = ToText(ToPath(m_rWanted.GetName()).stem());
    std::vector<std::string> aPaths;
    for (const std::int32_t iCase : aCases) {
        std::string sFile = sStem;
        sFile.append("-case-").append(std::to_string(iCase)).append(".svg");
        aPaths.push_back(ToText(ToPath(sFolder) / ToPath(sFile)));
    }
    m_rWatch.BeforeReplacing(aPaths, true, m_rInputs);
    for (std::size_t i = 0; i < aCases.size(); ++i) {
        std::string sTitle = m_rWanted.GetName();
        RefuseInput(aPaths[i], m_rInputs);
        rPicture.Write(sTitle.append(", load case ").append(std::to_string(aCases[i])), aPaths[i], m_rInputs,
                       aCases[i]);
        Protect(aPaths[i]);
    }
}

/// Keeps an output of this run from being overwritten by another.
void CConversion::Protect(const std::string& sPath) {
    if (sPath.empty()) return;
    const T_TARGET_D target = FindTarget(sPath);
    if (target.eTARGET == TARGET_FILE) m_rInputs.emplace(target.id, "the output " + sPath);
}

void CConversion::WriteGrid(const CDataPool& rPool) {
    const T_LEFTOUT_D leftOut = WriteVtu(rPool, m_rWanted.sVTU, m_rInputs, m_rWanted.iCASE);
    if (leftOut.nPARTS > 0) {
        m_rWatch.OnHint(m_rWanted.sVTU + ": " + std::to_string(leftOut.nPARTS) +
                        (leftOut.nPARTS == 1 ? " element" : " elements") + " without nodes left out");
    }
    if (leftOut.nCASES > 0) {
        m_rWatch.OnHint(m_rWanted.sVTU + ": the last " + std::to_string(leftOut.nCASES) +
                        (leftOut.nCASES == 1 ? " load case" : " load cases") +
                        " left out: the option --case chooses one");
    }
}

/// Reports why the run failed, with lines of a joined deck traced back to the user's files.
void CConversion::FailRun(T_FAIL_D failure, const CLineMap* pLines) {
    m_eRunFailure = failure.eFAILURE;
    if (pLines) {
        const T_ORIGIN_D origin = failure.iLINE > 0 ? pLines->Find(failure.iLINE) : T_ORIGIN_D{m_rWanted.GetName(), 0};
        failure.sFILE = origin.sFILE;
        failure.iLINE = origin.iLINE;
    }
    // the failure is no particular deck's, or that of a deck which goes by another name
    if (failure.sFILE.empty() || failure.sFILE == m_rWanted.sDECK) failure.sFILE = m_rWanted.GetName();
    Fail(CodeOf(failure.eFAILURE), {failure.sFILE, failure.iLINE}, failure.GetText());
}
