// Planning the decks of a command line.

#include "nas2zdt/command/Jobs.h"

#include "driver/CConvertNastran.h"
#include "platform/Paths.h"

#include <map>
#include <system_error>
#include <utility>

namespace {

bool IsFolder(const std::string& sPath) {
    std::error_code error;
    return std::filesystem::is_directory(ToPath(sPath), error);
}

/// The path of the result beside a deck, as the user names the deck where that leads there: the last "." is that of the
/// full path.
std::string TargetBeside(const std::string& sDeck) {
    if (ToText(ToPath(sDeck).filename()).find('.') != std::string::npos) return CConvertNastran::TargetPath(sDeck);
    const std::string sFull = FullPath(sDeck);
    return sFull.find('.') == std::string::npos ? sDeck + ".zdt" : CConvertNastran::TargetPath(sFull);
}

/// The path of a deck's result.
std::string Target(const std::string& sDeck, const std::string& sOutput, bool bFolder) {
    if (sOutput.empty()) return TargetBeside(sDeck);
    if (!bFolder) return sOutput;
    return ToText(ToPath(sOutput) / ToPath(CConvertNastran::TargetPath(ToText(ToPath(sDeck).filename()))));
}

/// What is wrong with the folder that a file is to stand in; empty if it exists.
std::string TestFolderOf(const std::string& sFile) {
    const std::string sFolder = ToText(ToPath(sFile).parent_path());
    if (sFolder.empty() || IsFolder(sFolder)) return {};
    return sFolder + ": no such folder";
}

/// The files that a command line writes.
class COutputs {
  public:
    explicit COutputs(const T_INPUTS& rInputs) : m_rInputs(rInputs) {}

    /// Adds an output. Returns what it would overwrite, a deck or an output from before; empty if nothing.
    std::string Add(const std::string& sPath, const std::string& sWhat) {
        const T_TARGET_D target = FindTarget(sPath);
        if (target.eTARGET == TARGET_STREAM || target.folder == T_FILEID_D()) return {}; // nothing there can be lost
        if (target.eTARGET == TARGET_FILE) {
            if (const auto pInput = m_rInputs.find(target.id); pInput != m_rInputs.end()) return pInput->second;
            if (const auto [pFile, bNew] = m_mapFiles.emplace(target.id, sWhat); !bNew) return pFile->second;
        }
        const auto [pPlace, bNew] = m_mapPlaces.emplace(std::pair(target.folder, target.sNAME), sWhat);
        return bNew ? std::string() : pPlace->second;
    }

  private:
    const T_INPUTS& m_rInputs;
    std::map<T_FILEID_D, std::string> m_mapFiles; // those that are there already
    std::map<std::pair<T_FILEID_D, std::string>, std::string> m_mapPlaces;
};

/// What is wrong with an output that isn't a result; empty if nothing is.
std::string TestOutput(const std::string& sFile, const std::string& sWhat, COutputs& rOutputs) {
    if (IsFolder(sFile)) return sFile + ": is a folder";
    std::string sWrong = TestFolderOf(sFile);
    if (!sWrong.empty()) return sWrong;
    const std::string sLost = rOutputs.Add(sFile, sWhat + " " + sFile);
    return sLost.empty() ? sLost : sFile + ": " + sWhat + " would overwrite " + sLost;
}

/// What is wrong with the command line; empty if nothing is.
std::string TestUsage(const T_OPTIONS_D& rOptions, bool bFolder) {
    if (rOptions.aDECKS.size() == 1) return {};
    if (!rOptions.sOUTPUT.empty() && !bFolder) return "-o must name a folder for several decks: " + rOptions.sOUTPUT;
    if (!rOptions.sVIEW.empty() || !rOptions.sVTU.empty()) return "--view and --vtu take one deck";
    return {};
}

} // namespace

T_JOBS_D PlanJobs(const T_OPTIONS_D& rOptions) {
    T_JOBS_D jobs;
    const std::string& sOutput = rOptions.sOUTPUT;
    const bool bNamesFolder =
        sOutput.ends_with('/') || sOutput.ends_with(static_cast<char>(std::filesystem::path::preferred_separator));
    const bool bFolder = bNamesFolder || IsFolder(sOutput);
    jobs.sUSAGE = TestUsage(rOptions, bFolder);
    if (!jobs.sUSAGE.empty()) return jobs;
    if (bNamesFolder && !IsFolder(sOutput)) jobs.sFAILURE = sOutput + ": no such folder";
    if (!sOutput.empty() && !bFolder) jobs.sFAILURE = TestFolderOf(sOutput);

    for (const std::string& sDeck : rOptions.aDECKS) {
        T_JOB_D job{sDeck, Target(sDeck, sOutput, bFolder), {}};
        CDeckFile file;
        std::string sCause; // told when the deck is run
        const bool bThere = file.Open(sDeck, sCause) != 0;
        if (bThere && !jobs.decks.emplace(file.GetId(), "the deck " + sDeck).second) {
            job.sREFUSED = "this deck is given twice";
        }
        jobs.aJOBS.push_back(job);
    }
    COutputs outputs(jobs.decks);
    for (T_JOB_D& rJob : jobs.aJOBS) {
        if (!rJob.sREFUSED.empty()) continue;
        const std::string sLost = outputs.Add(rJob.sTARGET, "the result of " + rJob.sDECK);
        if (!sLost.empty()) rJob.sREFUSED = "its result " + rJob.sTARGET + " would overwrite " + sLost;
    }
    const std::pair<const std::string*, const char*> aOthers[] = {
        {&rOptions.sVIEW, "the picture"}, {&rOptions.sVTU, "the grid"}, {&rOptions.sLOG, "the log"}};
    for (const auto& [pFile, sWhat] : aOthers) {
        if (!pFile->empty() && jobs.sFAILURE.empty()) jobs.sFAILURE = TestOutput(*pFile, sWhat, outputs);
    }
    return jobs;
}
