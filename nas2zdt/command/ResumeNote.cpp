// A note is text: a head, and a line for each file.

#include "nas2zdt/command/ResumeNote.h"

#include "nas2zdt/text/TextReader.h"
#include "platform/Paths.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view DECK = "the deck "; // in front of the path of an input
constexpr std::string_view READ = "read ";
constexpr std::string_view WRITTEN = "written ";

/// Some file systems tell times to two seconds.
constexpr std::int64_t COARSEST_TIME = 2'000'000'000;

int FindStamp(const std::string& sPath, T_FILESTAMP_D& rStamp) {
    CDeckFile file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) return 0;
    rStamp = file.GetStamp();
    return 1;
}

/// What must be the same for the same result; exact conversions find includes from the current folder.
std::string Head(const T_OPTIONS_D& rOptions) {
    return "nas2zdt " NAS2ZDT_VERSION "\noptions" + rOptions.sMATTERS + "\nfolder " + FullPath(".") + "\n";
}

std::string FileLine(std::string_view sKind, const std::string& sPath, const T_FILESTAMP_D& rStamp) {
    return std::string(sKind) + std::to_string(rStamp.nBYTES) + " " + std::to_string(rStamp.nTIME) + " " + sPath + "\n";
}

/// The path in a FileLine.
std::string PathOf(std::string_view sLine) {
    for (int i = 0; i < 3; ++i) sLine.remove_prefix(std::min(sLine.find(' '), sLine.size() - 1) + 1);
    return std::string(sLine.substr(0, sLine.find('\n')));
}

/// Whether a line of a note is still true.
bool IsTrue(std::string_view sLine, T_INPUTS& rRead) {
    const bool bRead = sLine.starts_with(READ);
    const std::string sPath = PathOf(sLine);
    CDeckFile file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) return false;
    if (bRead) rRead.emplace(file.GetId(), std::string(DECK) + sPath);
    return FileLine(bRead ? READ : WRITTEN, sPath, file.GetStamp()) == sLine;
}

} // namespace

void CResumeNote::KeepRead(const T_INPUTS& rDecks) {
    for (const auto& [rId, sWhat] : rDecks) {
        if (!sWhat.starts_with(DECK)) continue;
        const std::string sPath = sWhat.substr(DECK.size());
        FindStamp(sPath, m_mapRead[sPath]);
    }
}

std::string CResumeNote::Make(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob) const {
    std::string sNote = Head(rOptions);
    std::size_t nLines = 3;
    for (const auto& [sPath, rStamp] : m_mapRead) {
        if (rStamp.nTIME == 0 || rStamp.nTIME + COARSEST_TIME > m_nBegun) return {};
        sNote += FileLine(READ, sPath, rStamp);
        ++nLines;
    }
    for (const std::string* pPath : {&rJob.sTARGET, &rJob.sVIEW, &rJob.sVTU}) {
        if (pPath->empty()) continue;
        T_FILESTAMP_D stamp;
        if (!FindStamp(*pPath, stamp)) return {};
        sNote += FileLine(WRITTEN, *pPath, stamp);
        ++nLines;
    }
    const auto nBreaks = static_cast<std::size_t>(std::count(sNote.begin(), sNote.end(), '\n'));
    return nBreaks == nLines ? sNote : std::string();
}

std::string NotePath(const T_JOB_D& rJob) {
    return rJob.sTARGET + ".made";
}

bool IsDone(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rRead) {
    CTextReader note;
    std::string sCause;
    if (!note.Open(NotePath(rJob), sCause)) return false;
    std::string sHead = Head(rOptions);
    std::string_view sLeft = sHead;
    bool bDeck = false, bWritten = false;
    for (std::string_view sLine; note.Read(sLine);) {
        if (!sLeft.empty()) {
            if (!sLeft.starts_with(sLine)) return false;
            sLeft.remove_prefix(sLine.size());
            continue;
        }
        if (!IsTrue(sLine, rRead)) return false;
        bDeck = bDeck || (sLine.starts_with(READ) && PathOf(sLine) == rJob.sDECK);
        bWritten = bWritten || PathOf(sLine) == rJob.sTARGET;
    }
    return sLeft.empty() && bDeck && bWritten && !note.HasFailed();
}
