// One deck from the command line to its result.

#include "nas2zdt/command/DeckRun.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/command/LimitNames.h"
#include "nas2zdt/command/RunWatch.h"
#include "nas2zdt/picture/SvgWriter.h"
#include "nas2zdt/picture/VtuWriter.h"
#include "platform/TempPath.h"
#include "platform/console/ConsoleDialogs.h"

#include <iostream>
#include <utility>

namespace {

/// Nothing is asked; the log goes to standard output unless it is kept back. Remembers how the output file failed.
class CCommandDialogs : public CConsoleDialogs {
  public:
    CCommandDialogs(CProgressLine& rProgress, bool bShowLog) : m_rProgress(rProgress), m_bShowLog(bShowLog) {}
    void ShowFileError(const CFileException& rError) override { m_sFileError = rError.GetText(); }
    void ShowMessages(const std::vector<std::string>& aLines) override {
        m_rProgress.Clear();
        if (m_bShowLog) WriteLines(aLines); // nobody is asked to close them
    }
    std::string m_sFileError;

  private:
    CProgressLine& m_rProgress;
    bool m_bShowLog;
};

bool IsIncludeFailure(E_FAILURE eFailure) {
    return eFailure == FAILURE_INCLUDE_NOT_OPENED || eFailure == FAILURE_INCLUDE_CYCLE;
}

} // namespace

void CDeckRun::Fail(const std::string& sWhy) {
    m_result.sERROR = sWhy;
    TellFailure(sWhy);
}

void CDeckRun::Run() {
    m_result.sDECK = m_rJob.sDECK;
    m_result.sTARGET = m_rJob.sTARGET;
    if (m_rOptions.eACCOUNT != ACCOUNT_NONE || m_rOptions.bSTRICT) m_pAccount = std::make_unique<CAccount>();
    if (!m_rJob.sREFUSED.empty()) return Fail(m_rJob.sDECK + ": " + m_rJob.sREFUSED);
    try {
        if (!m_rOptions.bFLATTEN) return Convert(m_rJob.sDECK, nullptr);
        CTempPath folder;
        folder.MakeFolder();
        CTempPath deck;
        CFile file;
        deck.MakeFile(file, FindTarget(folder.GetPath() + "/deck"), folder.GetPath());
        m_joined = FlattenDeck(m_rJob.sDECK, file, m_rOptions.limits.nDECKS);
        m_rInputs.insert(m_joined.files.begin(), m_joined.files.end());
        Convert(deck.GetPath(), &m_joined.lines);
    } catch (const CFlattenError& rError) {
        Fail(rError.GetText());
    } catch (const CFileException& rError) {
        Fail(rError.GetText());
    } catch (const std::exception& rError) {
        Fail(m_rJob.sDECK +
             (IsOutOfMemory(rError) ? ": not enough memory" : std::string(": internal error: ") + rError.what()));
    }
}

/// Gives the file to write to when it is known what the run has read, which no output may overwrite.
CFile& CDeckRun::Open(const T_INPUTS& rDecks) {
    if (!m_rOptions.bFLATTEN) m_rInputs.insert(rDecks.begin(), rDecks.end()); // else those that were joined are there
    m_bRefused = true;
    for (const std::string* pOutput : {&m_rJob.sTARGET, &m_rOptions.sVIEW, &m_rOptions.sVTU, &m_rOptions.sLOG}) {
        if (!pOutput->empty()) RefuseInput(*pOutput, m_rInputs);
    }
    m_bRefused = false;
    std::cout << std::flush; // where the target file may go too
    m_pTarget = std::make_unique<CWholeFile>(m_rJob.sTARGET, m_rInputs);
    return m_pTarget->GetFile();
}

/// Converts sDeck, which is the job's own deck or, with pLines, what it was joined into.
void CDeckRun::Convert(const std::string& sDeck, const CLineMap* pLines) {
    CProgressLine progress;
    CCommandDialogs dialogs(progress, !m_rOptions.bQUIET && m_rOptions.eACCOUNT != ACCOUNT_JSON);
    CRunWatch watch(m_pAccount.get(), pLines, m_rJob.sDECK, progress);
    if (m_pAccount) m_pAccount->SetLines(pLines);
    CConvertNastran run(dialogs);
    if (watch.IsNeeded()) run.SetObserver(&watch);
    run.SetOutput(this);
    run.SetDeckName(m_rJob.sDECK);
    run.SetLimits(m_rOptions.limits);
    const bool bEnded = run.Convert(sDeck) != 0;
    progress.Clear();
    m_result.aLOG = run.GetMsgMgr().GetMessages();
    if (!bEnded) return FailRun(run.GetFailure(), pLines);
    m_result.bACCOUNT = m_pAccount != nullptr;
    if (dialogs.m_sFileError.empty()) {
        FinishTarget();
    } else {
        Fail(dialogs.m_sFileError);
    }
    if (!m_bRefused) DrawModel(run.GetDataPool());
}

/// Gives the target file its name. The sections of the account are counted before, while only this run knows the file.
void CDeckRun::FinishTarget() {
    const std::string& sWritten = m_pTarget->GetTemporaryPath();
    std::vector<T_SECTION_D> aSections;
    try {
        if (m_pAccount && !sWritten.empty()) aSections = CountSections(sWritten);
    } catch (const CFileException& rError) { // the file is whole all the same
        Fail(m_rJob.sTARGET + ": can't be read for the account: " + rError.GetCause());
    }
    m_pTarget->Finish();
    m_result.aSECTIONS = std::move(aSections);
}

/// Writes the pictures of the model that were asked for.
void CDeckRun::DrawModel(const CDataPool& rPool) {
    if (!m_rOptions.sVIEW.empty()) WriteSvg(rPool, m_rJob.sDECK, m_rOptions.sVIEW, m_rInputs);
    if (m_rOptions.sVTU.empty()) return;
    const std::size_t nLeftOut = WriteVtu(rPool, m_rOptions.sVTU, m_rInputs);
    if (nLeftOut > 0) {
        TellHint(m_rOptions.sVTU + ": " + std::to_string(nLeftOut) + (nLeftOut == 1 ? " element" : " elements") +
                 " without nodes left out");
    }
}

/// Tells why the run ended before its time, by the lines of the decks that the user has.
void CDeckRun::FailRun(T_FAIL_D failure, const CLineMap* pLines) {
    if (pLines) {
        const T_ORIGIN_D origin = failure.iLINE > 0 ? pLines->Find(failure.iLINE) : T_ORIGIN_D{m_rJob.sDECK, 0};
        failure.sFILE = origin.sFILE;
        failure.iLINE = origin.iLINE;
    }
    if (failure.sFILE.empty()) failure.sFILE = m_rJob.sDECK; // of no deck in particular
    Fail(failure.GetText());
    if (const std::string_view sLimit = NameOfLimit(failure.eFAILURE); !sLimit.empty()) {
        TellHint(m_rJob.sDECK + ": the option --limit " + std::string(sLimit) + "=N sets this limit");
    }
    if (!IsIncludeFailure(failure.eFAILURE)) return;
    TellHint(m_rJob.sDECK + ": the option --flatten reads includes as NASTRAN does");
}
