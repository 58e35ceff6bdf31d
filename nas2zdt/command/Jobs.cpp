// Plans the conversions of a command line.

#include "nas2zdt/command/Jobs.h"

#include "driver/CConvertNastran.h"
#include "nas2zdt/report/Page.h"
#include "platform/Paths.h"

#include <map>
#include <system_error>
#include <utility>

namespace {

/// The path of the result beside a deck. The extension is what follows the last "." of the full path, so a deck without
/// one needs the full path.
std::string TargetBeside(const std::string& sDeck) {
    if (ToText(ToPath(sDeck).filename()).find('.') != std::string::npos) return CConvertNastran::TargetPath(sDeck);
    const std::string sFull = FullPath(sDeck);
    return sFull.find('.') == std::string::npos ? sDeck + ".zdt" : CConvertNastran::TargetPath(sFull);
}

std::string Target(const std::string& sDeck, const std::string& sOutput, bool bFolder) {
    if (sOutput.empty()) return TargetBeside(sDeck);
    if (!bFolder) return sOutput;
    return ToText(ToPath(sOutput) / ToPath(CConvertNastran::TargetPath(ToText(ToPath(sDeck).filename()))));
}

/// Whether sOutput names a folder, there or not.
bool NamesFolder(const std::string& sOutput) {
    return sOutput.ends_with('/') || sOutput.ends_with(static_cast<char>(std::filesystem::path::preferred_separator));
}

/// An option for a picture of each deck.
struct T_PICTURE_D {
    const char* sOPTION;
    const char* sWHAT;
    const char* sEXTENSION;
    std::string T_OPTIONS_D::*pPATH;
    std::string T_JOB_D::*pFILE;
};
constexpr T_PICTURE_D PICTURES[] = {
    {"--view", "picture", ".svg", &T_OPTIONS_D::sVIEW, &T_JOB_D::sVIEW},
    {"--vtu", "grid", ".vtu", &T_OPTIONS_D::sVTU, &T_JOB_D::sVTU},
};

/// The path of a picture or grid: sOutput, or a file of the deck's name in that folder.
std::string PicturePath(const std::string& sDeck, const std::string& sOutput, const char* sExtension) {
    if (!NamesFolder(sOutput) && !IsFolder(sOutput)) return sOutput;
    return ToText(ToPath(sOutput) / ToPath(ToText(ToPath(sDeck).stem()) + sExtension));
}

/// An error if the folder of sFile doesn't exist, else empty.
std::string TestFolderOf(const std::string& sFile) {
    const std::string sFolder = ToText(ToPath(sFile).parent_path());
    if (sFolder.empty() || IsFolder(sFolder)) return {};
    return sFolder + ": no such folder";
}

/// The outputs of a command line.
class COutputs {
  public:
    explicit COutputs(const T_INPUTS& rInputs) : m_rInputs(rInputs) {}

    /// Adds an output. Returns the deck or earlier output that it would overwrite, or an empty text.
    std::string Add(const std::string& sPath, const std::string& sWhat) {
        const T_TARGET_D target = FindTarget(sPath);
        if (target.eTARGET == TARGET_STREAM || target.folder == T_FILEID_D()) return {}; // nothing to overwrite
        if (target.eTARGET == TARGET_FILE) {
            if (const auto pInput = m_rInputs.find(target.id); pInput != m_rInputs.end()) return pInput->second;
            if (const auto [pFile, bNew] = m_mapFiles.emplace(target.id, sWhat); !bNew) return pFile->second;
        }
        const auto [pPlace, bNew] = m_mapPlaces.emplace(std::pair(target.folder, target.sNAME), sWhat);
        return bNew ? std::string() : pPlace->second;
    }

  private:
    const T_INPUTS& m_rInputs;
    std::map<T_FILEID_D, std::string> m_mapFiles; // existing ones
    std::map<std::pair<T_FILEID_D, std::string>, std::string> m_mapPlaces;
};

/// An error if sFile can't take the picture, grid, page or log, else empty.
std::string TestOutput(const std::string& sFile, const std::string& sWhat, COutputs& rOutputs) {
    if (IsFolder(sFile)) return sFile + ": is a folder";
    std::string sWrong = TestFolderOf(sFile);
    if (!sWrong.empty()) return sWrong;
    const std::string sLost = rOutputs.Add(sFile, sWhat + " " + sFile);
    return sLost.empty() ? sLost : sFile + ": " + sWhat + " would overwrite " + sLost;
}

/// Adds the pictures of all jobs to the outputs. One that the user names fails the command line, one that is named by
/// its deck refuses that.
void PlanPictures(const T_PICTURE_D& rPicture, const T_OPTIONS_D& rOptions, T_JOBS_D& rJobs, COutputs& rOutputs) {
    const std::string sWhat = rPicture.sWHAT;
    for (T_JOB_D& rJob : rJobs.aJOBS) {
        const std::string& sFile = rJob.*rPicture.pFILE;
        if (sFile.empty() || !rJob.sREFUSED.empty()) continue;
        if (sFile == rOptions.*rPicture.pPATH) {
            if (rJobs.sFAILURE.empty()) rJobs.sFAILURE = TestOutput(sFile, "the " + sWhat, rOutputs);
            continue;
        }
        std::string sIts = "its " + sWhat, sOf = "the " + sWhat;
        const std::string sLost = rOutputs.Add(sFile, sOf.append(" of ").append(rJob.sDECK));
        if (!sLost.empty()) rJob.sREFUSED = sIts.append(" ").append(sFile).append(" would overwrite ").append(sLost);
    }
}

/// An error if sFolder, which may be empty, can't be one for pictures of load cases, else empty. It is made when there
/// is a picture.
std::string TestCasesFolder(const std::string& sFolder) {
    std::error_code error;
    const bool bOther = std::filesystem::exists(ToPath(sFolder), error) && !IsFolder(sFolder);
    return !sFolder.empty() && bOther ? sFolder + ": is no folder" : std::string();
}

/// An error if the options don't fit the number of decks, else empty.
std::string TestUsage(const T_OPTIONS_D& rOptions, bool bFolder) {
    const bool bChosen = rOptions.choice.iSUBCASE || rOptions.choice.iPART != 0;
    const bool bCheck = rOptions.NeedsCheck();
    if (!rOptions.bFAITHFUL && !rOptions.sRESTATED.empty()) return "--restated needs --faithful";
    if (!rOptions.bFAITHFUL && !bCheck && bChosen) return "--subcase and --super need --faithful, --check or --report";
    if (!rOptions.IsPrepared() && !bCheck && !rOptions.choice.join.mapFOLDERS.empty())
        return "--logical needs --faithful, --flatten, --check or --report";
    if (!bCheck && rOptions.dTOLERANCE >= 0.0) return "--tolerance needs --check or --report";
    if (rOptions.iCASE && rOptions.sVIEW.empty() && rOptions.sVTU.empty()) return "--case needs --view or --vtu";
    if (rOptions.eCOLOUR != BY_KIND && !rOptions.Draws()) return "--colour needs --view or --view-cases";
    const bool bMixed = rOptions.eACCOUNT == WANTED_JSON || rOptions.eCHECK == WANTED_JSON;
    if (bMixed && rOptions.IsJsonLines()) return "--account and --check can't be json and jsonl at a time";
    const bool bOthers = !rOptions.sREPORT.empty() || !rOptions.sRESTATED.empty() || !rOptions.sVIEWCASES.empty();
    if (rOptions.bRESUME && bOthers) return "--resume doesn't go with --report, --restated and --view-cases";
    if (!rOptions.HasSeveralDecks()) return {};
    if (!rOptions.sOUTPUT.empty() && !bFolder) return "-o must name a folder for several decks: " + rOptions.sOUTPUT;
    for (const T_PICTURE_D& rPicture : PICTURES) {
        const std::string& sPath = rOptions.*rPicture.pPATH;
        if (!sPath.empty() && !NamesFolder(sPath) && !IsFolder(sPath))
            return std::string(rPicture.sOPTION) + " must name a folder for several decks: " + sPath;
    }
    if (!rOptions.sREPORT.empty()) return "--report takes one deck";
    if (!rOptions.sRESTATED.empty()) return "--restated takes one deck";
    return {};
}

} // namespace

T_JOBS_D PlanJobs(const T_OPTIONS_D& rOptions) {
    T_JOBS_D jobs;
    const std::string& sOutput = rOptions.sOUTPUT;
    const bool bFolder = NamesFolder(sOutput) || IsFolder(sOutput);
    jobs.sUSAGE = TestUsage(rOptions, bFolder);
    if (!jobs.sUSAGE.empty()) return jobs;
    for (const std::string* pPath : {&sOutput, &rOptions.sVIEW, &rOptions.sVTU}) {
        if (jobs.sFAILURE.empty() && NamesFolder(*pPath) && !IsFolder(*pPath))
            jobs.sFAILURE = *pPath + ": no such folder";
    }
    if (jobs.sFAILURE.empty()) jobs.sFAILURE = TestCasesFolder(rOptions.sVIEWCASES);
    if (jobs.sFAILURE.empty() && !sOutput.empty() && !bFolder) jobs.sFAILURE = TestFolderOf(sOutput);
    if (!rOptions.sREPORT.empty() && !GetReportPage()) {
        jobs.sFAILURE = "--report: this command was built without its page; build it with Node.js 18 or later and npm, "
                        "and cmake -DCONVERTNASTRAN_VIEWER=ON";
    }

    for (const std::string& sDeck : rOptions.aDECKS) {
        T_JOB_D job{sDeck, Target(sDeck, sOutput, bFolder), {}};
        for (const T_PICTURE_D& rPicture : PICTURES) {
            const std::string& sPath = rOptions.*rPicture.pPATH;
            if (!sPath.empty()) job.*rPicture.pFILE = PicturePath(sDeck, sPath, rPicture.sEXTENSION);
        }
        CDeckFile file;
        std::string sCause; // reported when the deck is run
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
    for (const T_PICTURE_D& rPicture : PICTURES) PlanPictures(rPicture, rOptions, jobs, outputs);
    const std::pair<const std::string*, const char*> aOthers[] = {
        {&rOptions.sREPORT, "the report"}, {&rOptions.sRESTATED, "the restated deck"}, {&rOptions.sLOG, "the log"}};
    for (const auto& [pFile, sWhat] : aOthers) {
        if (!pFile->empty() && jobs.sFAILURE.empty()) jobs.sFAILURE = TestOutput(*pFile, sWhat, outputs);
    }
    return jobs;
}
