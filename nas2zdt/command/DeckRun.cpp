// Runs one deck of the command line.

#include "nas2zdt/command/DeckRun.h"

#include "messages/ZdtMsgMgr.h"
#include "nas2zdt/command/Terminal.h"
#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/report/Report.h"
#include "nas2zdt/text/TextReader.h"
#include "platform/Paths.h"
#include "platform/TempPath.h"
#include "platform/console/ConsoleDialogs.h"

#include <algorithm>
#include <iostream>
#include <system_error>
#include <utility>

namespace {

/// Asks nothing. Shows the log on standard output if wanted, and keeps the failure of the output file.
class CCommandDialogs : public CConsoleDialogs {
  public:
    CCommandDialogs(CProgressLine& rProgress, bool bShowLog) : m_rProgress(rProgress), m_bShowLog(bShowLog) {}
    void ShowFileError(const CFileException& rError) override { m_sFileError = rError.GetText(); }
    void ShowMessages(const std::vector<std::string>& aLines) override {
        m_rProgress.Clear();
        if (m_bShowLog) WriteLines(aLines); // without waiting for anybody to close them
    }
    std::string m_sFileError;

  private:
    CProgressLine& m_rProgress;
    bool m_bShowLog;
};

/// Passes the events of a run on to the account, the notes for a page and the progress line.
class CRunWatch : public CDeckObserver {
  public:
    /// pAccount and pNotes may be null; pLines is null unless the deck was joined. sDeck is the main deck as the user
    /// named it.
    CRunWatch(CAccount* pAccount, CRunNotes* pNotes, const CLineMap* pLines, const std::string& sDeck,
              CProgressLine& rProgress)
        : m_pAccount(pAccount), m_pNotes(pNotes), m_pLines(pLines), m_sDeck(sDeck), m_rProgress(rProgress) {}

    /// Whether the run has to be observed at all.
    bool IsNeeded() const { return m_pAccount || m_pNotes || m_pLines || m_rProgress.IsShown(); }

    void OnDeckBegin(const std::string& sPath) override {
        const bool bMain = std::exchange(m_bMain, false); // a joined deck has a temporary path
        const std::string& sName = bMain ? m_sDeck : sPath;
        if (m_pAccount) m_pAccount->OnDeckBegin(sName);
        if (m_pNotes) m_pNotes->OnDeckBegin(sName);
        if (!m_rProgress.IsShown()) return;
        std::error_code error;
        const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(sPath), error);
        m_rProgress.Begin(sName, error ? 0 : nBytes);
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
    void OnBytesRead(std::uint64_t nBytes) override { m_rProgress.Update(nBytes); }
    std::string LineText(std::int32_t iLine) const override {
        if (!m_pLines) return CDeckObserver::LineText(iLine);
        const T_ORIGIN_D origin = m_pLines->Find(iLine);
        return origin.sFILE + ":" + std::to_string(origin.iLINE);
    }

  private:
    CAccount* m_pAccount;
    CRunNotes* m_pNotes;
    const CLineMap* m_pLines;
    const std::string& m_sDeck;
    CProgressLine& m_rProgress;
    bool m_bMain = true; // whether the next deck is the main one
};

bool IsIncludeFailure(E_FAILURE eFailure) {
    return eFailure == FAILURE_INCLUDE_NOT_OPENED || eFailure == FAILURE_INCLUDE_CYCLE;
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

void CDeckRun::Fail(const std::string& sWhy) {
    m_result.sERROR = sWhy;
    TellFailure(sWhy);
}

void CDeckRun::Run() {
    m_result.sDECK = m_rJob.sDECK;
    m_result.sTARGET = m_rJob.sTARGET;
    if (m_rOptions.NeedsAccount()) m_pAccount = std::make_unique<CAccount>();
    if (m_rOptions.eCOLOUR == BY_LOSS) m_pAccount->KeepMarks();
    if (!m_rOptions.sREPORT.empty()) {
        m_pNotes = std::make_unique<CRunNotes>();
        m_pAccount->KeepPlaces(T_REPORT_D::MOST_PLACES);
    }
    if (!m_rJob.sREFUSED.empty()) return Fail(m_rJob.sDECK + ": " + m_rJob.sREFUSED);
    try {
        if (m_rOptions.NeedsCheck()) Check();
        if (!m_rOptions.IsPrepared()) return Convert(m_rJob.sDECK, nullptr);
        CTempPath folder;
        folder.MakeFolder();
        CTempPath deck;
        CFile file;
        deck.MakeFile(file, FindTarget(folder.GetPath() + "/deck"), folder.GetPath());
        if (m_rOptions.bFAITHFUL) {
            m_restated = RestateDeck(m_rJob.sDECK, file, Choice());
            m_rInputs.insert(m_restated.files.begin(), m_restated.files.end());
            KeepRestated(deck.GetPath());
        } else {
            T_JOINRULES_D rules = Choice().join;
            rules.bFORGIVING = false;
            T_JOINED_D joined = FlattenDeck(m_rJob.sDECK, file, rules);
            m_rInputs.insert(joined.files.begin(), joined.files.end());
            m_restated.lines = std::move(joined.lines);
        }
        Convert(deck.GetPath(), &m_restated.lines);
    } catch (const CFileException& rError) {
        Fail(rError.GetText());
    } catch (const std::exception& rError) {
        Fail(m_rJob.sDECK +
             (IsOutOfMemory(rError) ? ": not enough memory" : std::string(": internal error: ") + rError.what()));
    }
}

/// How the deck is read as NASTRAN means it.
T_CHOICE_D CDeckRun::Choice() const {
    T_CHOICE_D choice = m_rOptions.choice;
    choice.join.nDECKS = m_rOptions.limits.nDECKS;
    choice.join.bFORGIVING = true;
    choice.nRANGES = m_rOptions.limits.nRANGES;
    choice.nTHREADS = m_rOptions.CountThreads();
    return choice;
}

/// Checks the deck before it is converted, so that both never need memory at a time. A deck that can't be read fails
/// when it is converted.
void CDeckRun::Check() {
    try {
        m_pCheck = std::make_unique<T_CHECK_D>(CheckDeck(m_rJob.sDECK, Choice(), m_rOptions.dTOLERANCE));
    } catch (const CFileException& rError) {
        TellHint(rError.GetText());
    }
}

/// Copies the restated deck to where the options want it.
void CDeckRun::KeepRestated(const std::string& sDeck) {
    if (m_rOptions.sRESTATED.empty()) return;
    CWholeFile kept(m_rOptions.sRESTATED, m_rInputs);
    CTextReader reader;
    std::string sCause;
    if (!reader.Open(sDeck, sCause)) throw CFileException(m_rOptions.sRESTATED, "can't be copied: " + sCause);
    for (std::string_view sLine; reader.Read(sLine);) kept.GetFile().Write(sLine);
    if (reader.HasFailed()) throw CFileException(m_rOptions.sRESTATED, "can't be copied to its end");
    kept.Finish();
}

/// Called once all decks are read, which no output may overwrite. Gives the file to write to.
CFile& CDeckRun::Open(const T_INPUTS& rDecks) {
    if (!m_rOptions.IsPrepared()) m_rInputs.insert(rDecks.begin(), rDecks.end()); // else they are in it
    m_bRefused = true;
    for (const std::string* pOutput :
         {&m_rJob.sTARGET, &m_rJob.sVIEW, &m_rJob.sVTU, &m_rOptions.sREPORT, &m_rOptions.sLOG}) {
        if (!pOutput->empty()) RefuseInput(*pOutput, m_rInputs);
    }
    m_bRefused = false;
    std::cout << std::flush; // the target file may go there too
    if (m_pSums) m_pSums->Begin();
    m_pTarget = std::make_unique<CWholeFile>(m_rJob.sTARGET, m_rInputs);
    return m_pTarget->GetFile();
}

/// Converts sDeck, which is the job's deck or, with pLines, the file it was joined into.
void CDeckRun::Convert(const std::string& sDeck, const CLineMap* pLines) {
    CProgressLine progress;
    CCommandDialogs dialogs(progress, !m_rOptions.bQUIET && !m_rOptions.IsJson());
    CRunWatch watch(m_pAccount.get(), m_pNotes.get(), pLines, m_rJob.sDECK, progress);
    if (m_pAccount) m_pAccount->SetLines(pLines);
    CConvertNastran run(dialogs);
    CFileSums sums(run.GetDataPool(), m_rOptions.CountThreads() > 1);
    if (m_pCheck) m_pSums = &sums;
    const T_CONVERT_D wanted{watch.IsNeeded() ? &watch : nullptr, this, m_rJob.sDECK, m_rOptions.limits,
                             m_rOptions.CountThreads()};
    const bool bEnded = run.Convert(sDeck, wanted) != 0;
    progress.Clear();
    m_result.aLOG = run.GetMsgMgr().GetMessages();
    if (!bEnded) return FailRun(run.GetFailure(), pLines);
    if (m_pAccount) {
        m_pAccount->EndRun(run.GetDataPool());
        if (m_rOptions.NeedsNotes()) m_pAccount->AddRounding(run.GetDataPool());
        m_pAccount->AddRestated(m_restated.aTOLD, m_restated.aFILES);
        m_result.bACCOUNT = true;
    }
    if (m_pCheck) {
        m_pCheck->aREVIEW = ReviewTotals(m_pCheck->totals, sums.Take(), m_pAccount.get(), m_pCheck->findings);
    }
    if (dialogs.m_sFileError.empty()) {
        FinishTarget();
    } else {
        Fail(dialogs.m_sFileError);
    }
    if (m_bRefused) return;
    DrawModel(run.GetDataPool());
    if (m_pNotes) WritePage(run.GetDataPool());
}

/// Gives the target file its name. Sections are counted before, while no other program can change the file.
void CDeckRun::FinishTarget() {
    const std::string& sWritten = m_pTarget->GetTemporaryPath();
    std::vector<T_SECTION_D> aSections;
    try {
        if (m_rOptions.NeedsSections() && !sWritten.empty()) aSections = CountSections(sWritten);
    } catch (const CFileException& rError) { // the file is whole all the same
        Fail(m_rJob.sTARGET + ": can't be read for the account: " + rError.GetCause());
    }
    m_pTarget->Finish();
    m_result.aSECTIONS = std::move(aSections);
}

/// Writes the pictures that the options ask for.
void CDeckRun::DrawModel(const CDataPool& rPool) {
    const std::vector<std::int32_t> aCases = FindLoadCases(rPool);
    if (m_rOptions.iCASE && !std::binary_search(aCases.begin(), aCases.end(), *m_rOptions.iCASE)) {
        Fail(m_rJob.sDECK + ": there is no load case " + std::to_string(*m_rOptions.iCASE) + ListCases(aCases));
    } else {
        if (m_rOptions.Draws()) DrawPictures(rPool, aCases);
        if (!m_rJob.sVTU.empty()) WriteGrid(rPool);
    }
}

void CDeckRun::DrawPictures(const CDataPool& rPool, const std::vector<std::int32_t>& aCases) {
    CSvgPicture picture(rPool, m_rOptions.eCOLOUR, m_pAccount.get());
    if (!m_rJob.sVIEW.empty()) {
        const std::optional<std::int32_t>& rCase = m_rOptions.iCASE;
        picture.Write(m_rJob.sDECK + (rCase ? ", load case " + std::to_string(*rCase) : ""), m_rJob.sVIEW, m_rInputs,
                      rCase);
    }
    if (!m_rOptions.sVIEWCASES.empty()) DrawCases(picture, aCases);
}

/// A picture of each load case, named by deck and case. Outputs of this and other runs may have such a name, and these
/// aren't known before, so none overwrites another.
void CDeckRun::DrawCases(CSvgPicture& rPicture, const std::vector<std::int32_t>& aCases) {
    const std::string& sFolder = m_rOptions.sVIEWCASES;
    if (aCases.empty()) return TellHint(m_rJob.sDECK + ": no load cases to draw");
    std::error_code error;
    std::filesystem::create_directories(ToPath(sFolder), error);
    if (error) throw CFileException(sFolder, error.message());
    for (const std::string* pOutput : {&m_rJob.sTARGET, &m_rJob.sVIEW, &m_rJob.sVTU}) Protect(*pOutput);
    const std::string sStem = ToText(ToPath(m_rJob.sDECK).stem());
    for (const std::int32_t iCase : aCases) {
        const std::string sCase = std::to_string(iCase);
        const std::string sPath = ToText(ToPath(sFolder) / ToPath(sStem + "-case-" + sCase + ".svg"));
        RefuseInput(sPath, m_rInputs);
        rPicture.Write(m_rJob.sDECK + ", load case " + sCase, sPath, m_rInputs, iCase);
        Protect(sPath);
    }
}

/// Keeps an output of this run from being overwritten by another.
void CDeckRun::Protect(const std::string& sPath) {
    if (sPath.empty()) return;
    const T_TARGET_D target = FindTarget(sPath);
    if (target.eTARGET == TARGET_FILE) m_rInputs.emplace(target.id, "the output " + sPath);
}

void CDeckRun::WriteGrid(const CDataPool& rPool) {
    const T_LEFTOUT_D leftOut = WriteVtu(rPool, m_rJob.sVTU, m_rInputs, m_rOptions.iCASE);
    if (leftOut.nPARTS > 0) {
        TellHint(m_rJob.sVTU + ": " + std::to_string(leftOut.nPARTS) +
                 (leftOut.nPARTS == 1 ? " element" : " elements") + " without nodes left out");
    }
    if (leftOut.nCASES > 0) {
        TellHint(m_rJob.sVTU + ": the last " + std::to_string(leftOut.nCASES) +
                 (leftOut.nCASES == 1 ? " load case" : " load cases") + " left out: the option --case chooses one");
    }
}

/// Writes the page in which the conversion is reviewed.
void CDeckRun::WritePage(const CDataPool& rPool) {
    const T_REPORT_D report{m_result,
                            *m_pAccount,
                            m_pCheck.get(),
                            *m_pNotes,
                            m_restated.aTOLD,
                            m_restated.lines.GetFiles(),
                            MakeWarnings(*m_pAccount, m_rOptions.allowed, m_rOptions.bFAITHFUL),
                            m_rOptions.aARGUMENTS,
                            ReportDate()};
    WriteReport(report, rPool, m_rOptions.sREPORT, m_rInputs);
}

/// Reports why the run failed, with lines of a joined deck traced back to the user's files.
void CDeckRun::FailRun(T_FAIL_D failure, const CLineMap* pLines) {
    if (pLines) {
        const T_ORIGIN_D origin = failure.iLINE > 0 ? pLines->Find(failure.iLINE) : T_ORIGIN_D{m_rJob.sDECK, 0};
        failure.sFILE = origin.sFILE;
        failure.iLINE = origin.iLINE;
    }
    if (failure.sFILE.empty()) failure.sFILE = m_rJob.sDECK; // the failure is no particular deck's
    Fail(failure.GetText());
    if (const std::string_view sLimit = NameOfLimit(failure.eFAILURE); !sLimit.empty()) {
        TellHint(m_rJob.sDECK + ": the option --limit " + std::string(sLimit) + "=N sets this limit");
    }
    if (!IsIncludeFailure(failure.eFAILURE)) return;
    TellHint(m_rJob.sDECK + ": the option --flatten reads includes as NASTRAN does");
}
