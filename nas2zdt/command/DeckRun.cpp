// Runs one deck of the command line.

#include "nas2zdt/command/DeckRun.h"

#include "nas2zdt/account/Warnings.h"
#include "nas2zdt/report/Report.h"
#include "platform/console/ConsoleDialogs.h"

#include <algorithm>
#include <iostream>

namespace {

bool IsIncludeFailure(E_FAILURE eFailure) {
    return eFailure == FAILURE_INCLUDE_NOT_OPENED || eFailure == FAILURE_INCLUDE_CYCLE;
}

} // namespace

CDeckRun::CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs, CReplaceGuard* pGuard)
    : m_rOptions(rOptions), m_rJob(rJob), m_rInputs(rInputs), m_pGuard(pGuard), m_wanted(Plan(rOptions, rJob, m_notes)),
      m_conversion(m_wanted, rInputs, *this) {}

T_CONVERSION_D CDeckRun::Plan(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, CRunNotes& rNotes) {
    T_CONVERSION_D wanted;
    wanted.sDECK = rJob.sDECK;
    wanted.sTARGET = rJob.sTARGET;
    wanted.sRESTATED = rOptions.sRESTATED;
    wanted.sVIEW = rJob.sVIEW;
    wanted.sVIEWCASES = rOptions.sVIEWCASES;
    wanted.sVTU = rJob.sVTU;
    wanted.iCASE = rOptions.iCASE;
    wanted.eCOLOUR = rOptions.eCOLOUR;
    wanted.sREPORT = rOptions.sREPORT;
    wanted.sLOG = rOptions.sLOG;
    wanted.bFLATTEN = rOptions.bFLATTEN;
    wanted.bFAITHFUL = rOptions.bFAITHFUL;
    wanted.bACCOUNT = rOptions.NeedsAccount();
    wanted.bNOTES = rOptions.NeedsNotes();
    wanted.bSECTIONS = rOptions.NeedsSections();
    wanted.bCHECK = rOptions.NeedsCheck();
    wanted.dTOLERANCE = rOptions.dTOLERANCE;
    wanted.choice = rOptions.choice;
    wanted.limits = rOptions.limits;
    wanted.nTHREADS = rOptions.CountThreads();
    if (rOptions.sREPORT.empty()) return wanted;
    wanted.pNOTES = &rNotes;
    wanted.nPLACES = T_REPORT_D::MOST_PLACES;
    return wanted;
}

void CDeckRun::Run() {
    if (!m_rJob.sREFUSED.empty()) {
        return m_conversion.Fail(NAS2ZDT_WRONG_USAGE, {m_rJob.sDECK, 0}, m_rJob.sDECK + ": " + m_rJob.sREFUSED);
    }
    m_conversion.Run();
    const E_FAILURE eFailure = m_conversion.GetRunFailure();
    if (const std::string_view sLimit = NameOfLimit(eFailure); !sLimit.empty()) {
        TellHint(m_rJob.sDECK + ": the option --limit " + std::string(sLimit) + "=N sets this limit");
    }
    if (!IsIncludeFailure(eFailure)) return;
    TellHint(m_rJob.sDECK + ": the option --flatten reads includes as NASTRAN does");
}

bool CDeckRun::BeginReading() {
    m_progress.emplace();
    return m_progress->IsShown();
}

void CDeckRun::OnDeck(const std::string& sName, std::uint64_t nBytes) {
    m_progress->Begin(sName, nBytes);
}

void CDeckRun::OnBytesRead(std::uint64_t nBytes) {
    m_progress->Update(nBytes);
}

void CDeckRun::BeforeReplacing(const std::vector<std::string>& aPaths, bool bLate, T_INPUTS& rInputs) {
    if (m_rOptions.bRESUME && !bLate) m_resume.KeepRead(rInputs);
    if (m_pGuard) m_pGuard->BeforeReplacing(aPaths, bLate, rInputs);
}

/// A result that lacks an include isn't done: the include may be there the next time.
std::string CDeckRun::MakeNote() const {
    const std::vector<T_TOLD_D>& rTold = m_conversion.GetRestated().aTOLD;
    const bool bLacks =
        std::any_of(rTold.begin(), rTold.end(), [](const T_TOLD_D& rOne) { return rOne.sKEYWORD == "INCLUDE"; });
    return bLacks ? std::string() : m_resume.Make(m_rOptions, m_rJob);
}

void CDeckRun::BeforeWriting() {
    std::cout << std::flush; // the target file may go there too
}

/// Writes the page in which the conversion is reviewed.
void CDeckRun::OnModel(const CDataPool& rPool) {
    if (m_rOptions.sREPORT.empty()) return;
    const CAccount& rAccount = *m_conversion.GetAccount();
    const T_RESTATED_D& rRestated = m_conversion.GetRestated();
    const std::vector<std::string> aWarnings = MakeWarnings(rAccount, m_rOptions.allowed, m_rOptions.bFAITHFUL);
    const std::vector<std::string>& rFiles = rRestated.lines.GetFiles();
    const T_REPORT_D report{
        m_conversion.GetResult(), rAccount,    m_conversion.GetCheck(), m_notes, rRestated.aTOLD, rFiles, aWarnings,
        m_rOptions.aARGUMENTS,    ReportDate()};
    WriteReport(report, rPool, m_rOptions.sREPORT, m_rInputs);
}

void CDeckRun::OnLog(const std::vector<std::string>& aLines) {
    m_progress->Clear();
    if (!m_rOptions.bQUIET && !m_rOptions.IsJson()) CConsoleDialogs::WriteLines(aLines);
}

void CDeckRun::OnHint(const std::string& sText) {
    if (m_progress) m_progress->Clear();
    TellHint(sText);
}

void CDeckRun::OnFailure(const std::string& sText) {
    if (m_progress) m_progress->Clear();
    TellFailure(sText);
}
