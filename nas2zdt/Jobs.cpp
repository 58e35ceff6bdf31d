// Planning the decks of a command line.

#include "nas2zdt/Jobs.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/Paths.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace {

std::optional<T_FILEID_D> FindId(const std::string& sPath) {
    CDeckFile file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) return std::nullopt;
    return file.GetId();
}

/// The same for a file that is to be written: it goes by its exact name.
std::optional<T_FILEID_D> FindTarget(const std::string& sPath) {
    std::error_code error;
    return std::filesystem::exists(ToPath(sPath), error) ? FindId(sPath) : std::nullopt;
}

/// A name that two paths of one file share, whether it exists or not.
std::string Canonical(const std::string& sPath) {
    std::error_code error;
    const std::filesystem::path path =
        std::filesystem::weakly_canonical(std::filesystem::absolute(ToPath(sPath), error), error);
    return error ? sPath : ToText(path);
}

bool IsFolder(const std::string& sPath) {
    std::error_code error;
    return std::filesystem::is_directory(ToPath(sPath), error);
}

/// The path of a deck's result.
std::string Target(const std::string& sDeck, const std::string& sOutput, bool bFolder) {
    if (sOutput.empty()) return CConvertNastran::TargetPath(sDeck);
    if (!bFolder) return sOutput;
    return ToText(ToPath(sOutput) / ToPath(CConvertNastran::TargetPath(ToText(ToPath(sDeck).filename()))));
}

/// What is wrong with a folder that a file is to stand in; empty if it exists.
std::string TestFolderOf(const std::string& sFile) {
    const std::string sFolder = ToText(ToPath(sFile).parent_path());
    if (sFolder.empty() || IsFolder(sFolder)) return {};
    return sFolder + ": no such folder";
}

} // namespace

T_JOBS_D PlanJobs(const T_OPTIONS_D& rOptions) {
    T_JOBS_D jobs;
    const std::string& sOutput = rOptions.sOUTPUT;
    const bool bNamesFolder =
        sOutput.ends_with('/') || sOutput.ends_with(static_cast<char>(std::filesystem::path::preferred_separator));
    const bool bFolder = bNamesFolder || IsFolder(sOutput);
    if (bNamesFolder && !IsFolder(sOutput)) jobs.sFAILURE = sOutput + ": no such folder";
    if (!sOutput.empty() && !bFolder) jobs.sFAILURE = TestFolderOf(sOutput);
    if ((!rOptions.sVIEW.empty() || !rOptions.sVTU.empty()) && rOptions.aDECKS.size() > 1)
        jobs.sUSAGE = "--view and --vtu take one deck";
    if (!sOutput.empty() && !bFolder && rOptions.aDECKS.size() > 1)
        jobs.sUSAGE = "-o must name a folder for several decks: " + sOutput;
    if (!rOptions.sLOG.empty() && jobs.sFAILURE.empty())
        jobs.sFAILURE = IsFolder(rOptions.sLOG) ? rOptions.sLOG + ": is a folder" : TestFolderOf(rOptions.sLOG);

    std::vector<std::optional<T_FILEID_D>> aIds;
    std::vector<std::string> aTargets;
    for (const std::string& sDeck : rOptions.aDECKS) {
        aIds.push_back(FindId(sDeck));
        aTargets.push_back(Canonical(Target(sDeck, sOutput, bFolder)));
        if (aIds.back()) jobs.aDECKS.push_back(*aIds.back());
    }
    const auto same = [&](std::size_t i) { // place of the first deck of this identity
        return static_cast<std::size_t>(std::find(aIds.begin(), aIds.end(), aIds[i]) - aIds.begin());
    };
    for (std::size_t i = 0; i < aIds.size(); ++i) {
        T_JOB_D job{rOptions.aDECKS[i], Target(rOptions.aDECKS[i], sOutput, bFolder), {}};
        const auto iSameTarget =
            static_cast<std::size_t>(std::find(aTargets.begin(), aTargets.end(), aTargets[i]) - aTargets.begin());
        const std::optional<T_FILEID_D> target = FindTarget(job.sTARGET);
        const auto pOverwritten = target ? std::find(aIds.begin(), aIds.end(), target) : aIds.end();
        if (aIds[i] && same(i) != i) {
            job.sREFUSED = "this deck is given twice";
        } else if (iSameTarget != i) {
            job.sREFUSED = "its result would overwrite that of " + rOptions.aDECKS[iSameTarget];
        } else if (pOverwritten != aIds.end() && pOverwritten != aIds.begin() + static_cast<std::ptrdiff_t>(i)) {
            job.sREFUSED = "its result would overwrite the deck " +
                           rOptions.aDECKS[static_cast<std::size_t>(pOverwritten - aIds.begin())];
        }
        jobs.aJOBS.push_back(job);
    }
    if (!rOptions.sLOG.empty()) {
        const std::optional<T_FILEID_D> log = FindTarget(rOptions.sLOG);
        if (log && std::find(aIds.begin(), aIds.end(), log) != aIds.end())
            jobs.sFAILURE = rOptions.sLOG + ": the log would overwrite a deck";
        if (std::find(aTargets.begin(), aTargets.end(), Canonical(rOptions.sLOG)) != aTargets.end())
            jobs.sFAILURE = rOptions.sLOG + ": the log would overwrite a result";
    }
    return jobs;
}
