// One deck from the command line to its result.

#include "nas2zdt/DeckRun.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/LimitNames.h"
#include "nas2zdt/RunWatch.h"
#include "nas2zdt/TempFiles.h"
#include "nas2zdt/picture/SvgWriter.h"
#include "nas2zdt/picture/VtuWriter.h"
#include "platform/console/ConsoleDialogs.h"

#include <iostream>
#include <new>

namespace {

/// Nothing is asked; the log goes to standard output unless it is kept back. Remembers how the output file failed.
class CCommandDialogs : public CConsoleDialogs {
  public:
    CCommandDialogs(CProgress& rProgress, bool bShowLog) : m_rProgress(rProgress), m_bShowLog(bShowLog) {}
    void ShowFileError(const CFileException& rError) override { m_sFileError = rError.GetText(); }
    void ShowMessages(const std::vector<std::string>& aLines) override {
        m_rProgress.Clear();
        if (m_bShowLog) CConsoleDialogs::ShowMessages(aLines);
    }
    std::string m_sFileError;

  private:
    CProgress& m_rProgress;
    bool m_bShowLog;
};

bool IsIncludeFailure(E_FAILURE eFailure) {
    return eFailure == FAILURE_INCLUDE_NOT_OPENED || eFailure == FAILURE_INCLUDE_CYCLE;
}

} // namespace

void CDeckRun::Fail(const std::string& sWhy) {
    m_result.sERROR = sWhy;
    std::cerr << Paint(stderr, COLOUR_RED, "nas2zdt: ") << sWhy << '\n';
}

void CDeckRun::Run() {
    m_result.sDECK = m_rJob.sDECK;
    m_result.sTARGET = m_rJob.sTARGET;
    if (m_rOptions.eACCOUNT != ACCOUNT_NONE || m_rOptions.bSTRICT) m_pAccount = std::make_unique<CAccount>();
    if (!m_rJob.sREFUSED.empty()) return Fail(m_rJob.sDECK + ": " + m_rJob.sREFUSED);
    try {
        if (!m_rOptions.bFLATTEN) return Convert(m_rJob.sDECK, nullptr);
        const CJoinFolder folder;
        m_joined = FlattenDeck(m_rJob.sDECK, folder.GetFile(), m_rOptions.limits.nDECKS);
        m_aKeep.insert(m_aKeep.end(), m_joined.aFILES.begin(), m_joined.aFILES.end());
        Convert(folder.GetFile(), &m_joined.lines);
    } catch (const CFlattenError& rError) {
        Fail(rError.GetText());
    } catch (const CFileException& rError) {
        Fail(rError.GetText());
    } catch (const std::bad_alloc&) {
        Fail(m_rJob.sDECK + ": not enough memory");
    } catch (const std::exception& rError) {
        Fail(m_rJob.sDECK + ": internal error: " + rError.what());
    }
}

/// Converts sDeck, which is the job's own deck or, with pLines, what it was joined into.
void CDeckRun::Convert(const std::string& sDeck, const CLineMap* pLines) {
    CProgress progress;
    CCommandDialogs dialogs(progress, !m_rOptions.bQUIET && m_rOptions.eACCOUNT != ACCOUNT_JSON);
    CRunWatch watch(m_pAccount.get(), pLines, m_rJob.sDECK, progress);
    if (m_pAccount) m_pAccount->SetLines(pLines);
    CConvertNastran run(dialogs);
    if (watch.IsNeeded()) run.SetObserver(&watch);
    run.SetTarget(m_rJob.sTARGET, m_aKeep);
    run.SetDeckName(m_rJob.sDECK);
    run.SetLimits(m_rOptions.limits);
    const bool bEnded = run.Convert(sDeck) != 0;
    progress.Clear();
    m_result.aLOG = run.GetMsgMgr().GetMessages();
    if (!bEnded) return FailRun(run.GetFailure(), pLines);
    if (!dialogs.m_sFileError.empty()) Fail(dialogs.m_sFileError);
    if (m_pAccount) TakeAccount(run.GetDataPool());
    DrawModel(run.GetDataPool());
}

/// Writes the pictures of the model that were asked for.
void CDeckRun::DrawModel(const CDataPool& rPool) {
    if (!m_rOptions.sVIEW.empty()) WriteSvg(rPool, m_rJob.sDECK, m_rOptions.sVIEW, m_aKeep);
    if (m_rOptions.sVTU.empty()) return;
    const std::size_t nLeftOut = WriteVtu(rPool, m_rOptions.sVTU, m_aKeep);
    if (nLeftOut > 0)
        std::cerr << "nas2zdt: " << m_rOptions.sVTU << ": " << nLeftOut << " elements without nodes left out\n";
}

/// Fills the result from the finished run.
void CDeckRun::TakeAccount(const CDataPool& rPool) {
    m_pAccount->AddModel(rPool);
    m_result.bACCOUNT = true;
    if (m_result.sERROR.empty()) m_result.aSECTIONS = CountSections(m_rJob.sTARGET);
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
        std::cerr << "nas2zdt: " << m_rJob.sDECK << ": the option --limit " << sLimit << "=N sets this limit\n";
    }
    if (!IsIncludeFailure(failure.eFAILURE)) return;
    std::cerr << "nas2zdt: " << m_rJob.sDECK << ": the option --flatten reads includes as NASTRAN does\n";
}
