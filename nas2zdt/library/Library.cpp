// The exported functions of the library.

#include "driver/ConvertNastranApp.h"
#include "nas2zdt/account/Warnings.h"
#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/library/Conversion.h"
#include "nas2zdt/text/Words.h"
#include "platform/Paths.h"
#include "platform/TempPath.h"
#include "platform/Worker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <new>
#include <optional>
#include <system_error>

/// Everything that a conversion leaves.
struct T_NAS2ZDT_RESULT_D {
    T_CONVERSIONFAILURE_D failure;
    std::vector<std::string> aLOG;
    std::optional<std::string> sACCOUNT, sCHECK, sOUTPUT;
    std::unique_ptr<CModelTables> pMODEL;
};

namespace {

const CConvertNastranApp g_app; // made when the library is loaded, gone when it is unloaded

/// What a call was given doesn't make sense.
class CUsageError : public std::exception {
  public:
    explicit CUsageError(const char* sText) : m_sText(sText) {}
    const char* what() const noexcept override { return m_sText; }

  private:
    const char* m_sText;
};

/// The host's options in the form of this version: what an older host doesn't know is zero.
T_NAS2ZDT_OPTIONS_D ReadOptions(const T_NAS2ZDT_OPTIONS_D* pGiven) {
    T_NAS2ZDT_OPTIONS_D options = {};
    if (!pGiven) return options;
    const std::size_t nGiven = pGiven->nSize;
    if (nGiven < sizeof pGiven->nSize) throw CUsageError("the options don't say how large they are");
    std::memcpy(&options, pGiven, std::min(nGiven, sizeof options));
    const char* const pBytes = reinterpret_cast<const char*>(pGiven);
    for (std::size_t i = sizeof options; i < nGiven; ++i) {
        if (pBytes[i] != 0) throw CUsageError("the options ask for what this version of the library doesn't know");
    }
    return options;
}

std::string TextOf(const char* sText) {
    return sText ? sText : "";
}

void SetLimit(std::int64_t& rLimit, std::int64_t nGiven) {
    if (nGiven < 0) throw CUsageError("a limit is negative");
    if (nGiven > 0) rLimit = nGiven;
}

T_CONVERSION_D MakePlan(const T_NAS2ZDT_OPTIONS_D& rOptions) {
    if (rOptions.eStrict < NAS2ZDT_STRICT_NONE || rOptions.eStrict > NAS2ZDT_STRICT_ANY) {
        throw CUsageError("eStrict isn't one of its numbers");
    }
    if (rOptions.nThreads < 0) throw CUsageError("the number of threads is negative");
    if (rOptions.bTolerance && !(rOptions.dTolerance >= 0.0 && std::isfinite(rOptions.dTolerance))) {
        throw CUsageError("the tolerance is no length");
    }
    if (rOptions.sRestated && !rOptions.bFaithful) throw CUsageError("sRestated needs bFaithful");
    T_CONVERSION_D wanted;
    wanted.bFLATTEN = rOptions.bFlatten != 0;
    wanted.bFAITHFUL = rOptions.bFaithful != 0;
    wanted.bACCOUNT = rOptions.bAccount != 0 || rOptions.eStrict != NAS2ZDT_STRICT_NONE;
    wanted.bNOTES = rOptions.bAccount != 0 || rOptions.eStrict == NAS2ZDT_STRICT_ANY;
    wanted.bSECTIONS = rOptions.bAccount != 0;
    wanted.bCHECK = rOptions.bCheck != 0;
    wanted.bMODEL = rOptions.bModel != 0;
    if (rOptions.bTolerance) wanted.dTOLERANCE = rOptions.dTolerance;
    if (rOptions.bSubcase) wanted.choice.iSUBCASE = rOptions.iSubcase;
    wanted.choice.iPART = rOptions.iSuper;
    SetLimit(wanted.limits.nRANGES, rOptions.nMostRanges);
    SetLimit(wanted.limits.nDECKS, rOptions.nMostDecks);
    SetLimit(wanted.limits.nOUTPUT, rOptions.nMostOutput);
    SetLimit(wanted.limits.nFRAMES, rOptions.nMostFrames);
    wanted.nTHREADS = rOptions.nThreads > 0 ? static_cast<std::size_t>(rOptions.nThreads) : CountCores();
    wanted.sRESTATED = TextOf(rOptions.sRestated);
    wanted.sVIEW = TextOf(rOptions.sView);
    wanted.sVTU = TextOf(rOptions.sVtu);
    return wanted;
}

/// Hands on to the host's functions what they want to know.
class CHostWatch : public CConversionWatch {
  public:
    explicit CHostWatch(const T_NAS2ZDT_OPTIONS_D& rOptions) : m_rOptions(rOptions) {}

    void Tell(std::int32_t eLine, const std::string& sText) const {
        if (m_rOptions.pfnLine) m_rOptions.pfnLine(m_rOptions.pUser, eLine, sText.c_str());
    }

  private:
    bool BeginReading() override { return m_rOptions.pfnProgress || m_rOptions.pfnCancelled; }
    void OnDeck(const std::string& sName, std::uint64_t nBytes) override {
        m_sDeck = sName;
        m_nBytes = nBytes;
        OnBytesRead(0);
    }
    void OnBytesRead(std::uint64_t nBytes) override {
        if (m_rOptions.pfnProgress) m_rOptions.pfnProgress(m_rOptions.pUser, m_sDeck.c_str(), nBytes, m_nBytes);
    }
    void OnLog(const std::vector<std::string>& aLines) override {
        for (const std::string& sLine : aLines) Tell(NAS2ZDT_LINE_LOG, sLine);
    }
    void OnHint(const std::string& sText) override { Tell(NAS2ZDT_LINE_HINT, sText); }
    void OnFailure(const std::string& sText) override { Tell(NAS2ZDT_LINE_FAILURE, sText); }
    bool IsCancelled() override { return m_rOptions.pfnCancelled && m_rOptions.pfnCancelled(m_rOptions.pUser) != 0; }

    const T_NAS2ZDT_OPTIONS_D& m_rOptions;
    std::string m_sDeck;
    std::uint64_t m_nBytes = 0;
};

/// A folder of our own for what a conversion needs in files: a deck and a target file that the host has in memory.
class CPrivateFiles {
  public:
    ~CPrivateFiles() {
        std::error_code error; // what is left stays in the folder for temporary files
        if (!m_sTarget.empty()) std::filesystem::remove(ToPath(m_sTarget), error);
    }

    /// Gives the path of a file with these bytes.
    const std::string& KeepDeck(std::string_view sBytes) {
        CFile file;
        m_deck.MakeFile(file, FindTarget(GetFolder() + "/deck"), GetFolder());
        file.Write(sBytes);
        file.Close();
        return m_deck.GetPath();
    }

    /// Gives a path for the target file.
    const std::string& MakeTarget() { return m_sTarget = GetFolder() + "/result.zdt"; }

    std::string ReadTarget() const {
        CDeckFile file;
        std::string sBytes, sCause;
        if (!file.Open(m_sTarget, sCause)) throw CFileException(m_sTarget, sCause);
        std::error_code error;
        const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(m_sTarget), error);
        sBytes.resize(error ? 0 : static_cast<std::size_t>(nBytes));
        std::size_t nRead = 0;
        while (nRead < sBytes.size()) {
            const std::ptrdiff_t nPiece = file.Read(sBytes.data() + nRead, sBytes.size() - nRead);
            if (nPiece <= 0) throw CFileException(m_sTarget, "can't be read to its end");
            nRead += static_cast<std::size_t>(nPiece);
        }
        return sBytes;
    }

  private:
    const std::string& GetFolder() {
        if (m_folder.GetPath().empty()) m_folder.MakeFolder();
        return m_folder.GetPath();
    }

    CTempPath m_folder; // goes last
    CTempPath m_deck;
    std::string m_sTarget;
};

/// Warns of losses, and ends with NAS2ZDT_LOSS if they are more than eStrict takes.
void JudgeLosses(const T_NAS2ZDT_OPTIONS_D& rOptions, const CAccount& rAccount, const std::string& sName,
                 const CHostWatch& rWatch, T_CONVERSIONFAILURE_D& rFailure) {
    T_ALLOWED allowed;
    const std::string sAllowed = TextOf(rOptions.sAllowed);
    for (std::string_view s = TrimText(sAllowed); !s.empty(); s = TrimText(s)) {
        const std::size_t nWord = std::min(s.find(' '), s.size());
        allowed.emplace(s.substr(0, nWord));
        s.remove_prefix(nWord);
    }
    if (rOptions.bAccount) {
        for (const std::string& sLine : MakeWarnings(rAccount, allowed, rOptions.bFaithful != 0)) {
            rWatch.Tell(NAS2ZDT_LINE_WARNING, sLine);
        }
    }
    if (rOptions.eStrict == NAS2ZDT_STRICT_NONE || rFailure.iCODE != NAS2ZDT_DONE) return;
    const CAccount::CLASS_COUNTS aCounts = CountLosses(rAccount, allowed);
    std::uint64_t nLosses = aCounts[CLASS_MODEL] + aCounts[CLASS_MASS];
    if (rOptions.eStrict == NAS2ZDT_STRICT_ANY) nLosses += aCounts[CLASS_CONTROL] + aCounts[CLASS_NOTE];
    if (nLosses == 0) return;
    rFailure.iCODE = NAS2ZDT_LOSS;
    rFailure.place.sFILE = sName;
    rFailure.sTEXT = sName + ": " + std::to_string(nLosses) + (nLosses == 1 ? " loss" : " losses");
    rWatch.Tell(NAS2ZDT_LINE_FAILURE, rFailure.sTEXT);
}

/// What is converted: the deck at a path, or bytes under a name.
struct T_SOURCE_D {
    const char* sPATH;
    std::optional<std::string_view> sBYTES;
};

void Convert(const T_SOURCE_D& rSource, const char* sTarget, const T_NAS2ZDT_OPTIONS_D* pOptions,
             T_NAS2ZDT_RESULT_D& rResult) {
    if (!rSource.sPATH) throw CUsageError("there is no deck");
    const T_NAS2ZDT_OPTIONS_D options = ReadOptions(pOptions);
    T_CONVERSION_D wanted = MakePlan(options);
    CPrivateFiles files;
    wanted.sDECK = rSource.sPATH;
    if (rSource.sBYTES) {
        wanted.sNAME = rSource.sPATH;
        wanted.sDECK = files.KeepDeck(*rSource.sBYTES);
    }
    wanted.sTARGET = sTarget ? sTarget : files.MakeTarget();
    T_INPUTS inputs;
    CHostWatch watch(options);
    CConversion conversion(wanted, inputs, watch);
    conversion.Run();
    rResult.failure = conversion.GetFailure();
    rResult.aLOG = conversion.GetResult().aLOG;
    rResult.pMODEL = conversion.TakeModel();
    if (const CAccount* pAccount = conversion.GetAccount(); pAccount && conversion.GetResult().bACCOUNT) {
        if (options.bAccount) rResult.sACCOUNT = AccountJson(conversion.GetResult(), *pAccount);
        JudgeLosses(options, *pAccount, wanted.GetName(), watch, rResult.failure);
    }
    if (const T_CHECK_D* pCheck = conversion.GetCheck()) rResult.sCHECK = CheckJson(*pCheck);
    const bool bWritten = rResult.failure.iCODE == NAS2ZDT_DONE || rResult.failure.iCODE == NAS2ZDT_LOSS;
    if (!sTarget && bWritten) rResult.sOUTPUT = files.ReadTarget();
}

/// Keeps the reason of the exception in hand; without a text if there is no memory for one.
void KeepFailure(T_CONVERSIONFAILURE_D& rFailure) noexcept {
    const auto keep = [&](std::int32_t iCode, const char* sText, const std::string& sFile = {}) {
        rFailure.iCODE = iCode;
        try {
            rFailure.sTEXT = sText;
            rFailure.place.sFILE = sFile;
        } catch (const std::exception&) {
            rFailure.sTEXT.clear();
        }
    };
    try {
        throw;
    } catch (const CUsageError& rError) {
        keep(NAS2ZDT_WRONG_USAGE, rError.what());
    } catch (const CFileException& rError) {
        keep(NAS2ZDT_NOT_WRITTEN, rError.what(), rError.GetFile());
    } catch (const std::exception& rError) {
        const bool bExhausted = IsOutOfMemory(rError);
        keep(bExhausted ? NAS2ZDT_NO_MEMORY : NAS2ZDT_INTERNAL, bExhausted ? "not enough memory" : rError.what());
    } catch (...) {
        keep(NAS2ZDT_INTERNAL, "internal error");
    }
}

std::int32_t MakeResult(const T_SOURCE_D& rSource, const char* sTarget, const T_NAS2ZDT_OPTIONS_D* pOptions,
                        T_NAS2ZDT_RESULT_D** ppResult) noexcept {
    if (!ppResult) return NAS2ZDT_WRONG_USAGE;
    *ppResult = new (std::nothrow) T_NAS2ZDT_RESULT_D;
    if (!*ppResult) return NAS2ZDT_NO_MEMORY;
    try {
        Convert(rSource, sTarget, pOptions, **ppResult);
    } catch (...) {
        KeepFailure((*ppResult)->failure);
    }
    return (*ppResult)->failure.iCODE;
}

const char* TextOrNull(const std::optional<std::string>& rText) {
    return rText ? rText->c_str() : nullptr;
}

/// Fills in as much of a record as the host knows of it. Returns 1, or 0 if it knows nothing.
template <class RECORD>
std::int32_t Give(RECORD* pTo, RECORD from) {
    if (!pTo || pTo->nSize < sizeof pTo->nSize) return 0;
    from.nSize = std::min(pTo->nSize, sizeof from);
    std::memcpy(pTo, &from, from.nSize);
    return 1;
}

std::int32_t GiveColumn(const T_MODELCOLUMN_D& rColumn, T_NAS2ZDT_COLUMN_D* pTo) {
    return std::visit(
        [&](const auto& rValues) {
            const bool bReal = std::holds_alternative<std::vector<double>>(rColumn.values);
            return Give(pTo,
                        {0, rColumn.sNAME, bReal ? NAS2ZDT_DOUBLE : NAS2ZDT_INT32, rColumn.CountRows(), rColumn.nWIDTH,
                         rColumn.nWIDTH * sizeof rValues[0], rValues.empty() ? nullptr : rValues.data()});
        },
        rColumn.values);
}

const T_MODELTABLE_D* FindTable(const T_NAS2ZDT_RESULT_D* pResult, std::size_t iTable) {
    if (iTable >= Nas2zdtCountTables(pResult)) return nullptr;
    return &pResult->pMODEL->GetTables()[iTable];
}

} // namespace

const char* NAS2ZDT_CALL Nas2zdtGetVersion(void) {
    return NAS2ZDT_VERSION;
}

std::int32_t NAS2ZDT_CALL Nas2zdtConvertFile(const char* sDeck, const char* sTarget,
                                             const T_NAS2ZDT_OPTIONS_D* pOptions, T_NAS2ZDT_RESULT_D** ppResult) {
    return MakeResult({sDeck, {}}, sTarget, pOptions, ppResult);
}

std::int32_t NAS2ZDT_CALL Nas2zdtConvertMemory(const void* pDeck, std::size_t nDeck, const char* sName,
                                               const char* sTarget, const T_NAS2ZDT_OPTIONS_D* pOptions,
                                               T_NAS2ZDT_RESULT_D** ppResult) {
    const bool bThere = pDeck || nDeck == 0;
    const char* const sPath = !bThere ? nullptr : sName ? sName : "deck";
    return MakeResult({sPath, std::string_view(static_cast<const char*>(pDeck), bThere ? nDeck : 0)}, sTarget, pOptions,
                      ppResult);
}

void NAS2ZDT_CALL Nas2zdtFreeResult(T_NAS2ZDT_RESULT_D* pResult) {
    delete pResult;
}

std::int32_t NAS2ZDT_CALL Nas2zdtGetCode(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? pResult->failure.iCODE : NAS2ZDT_WRONG_USAGE;
}

const char* NAS2ZDT_CALL Nas2zdtGetText(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? pResult->failure.sTEXT.c_str() : "there is no result";
}

const char* NAS2ZDT_CALL Nas2zdtGetFile(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? pResult->failure.place.sFILE.c_str() : "";
}

std::int32_t NAS2ZDT_CALL Nas2zdtGetLine(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? pResult->failure.place.iLINE : 0;
}

const char* NAS2ZDT_CALL Nas2zdtGetAccount(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? TextOrNull(pResult->sACCOUNT) : nullptr;
}

const char* NAS2ZDT_CALL Nas2zdtGetCheck(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult ? TextOrNull(pResult->sCHECK) : nullptr;
}

const char* NAS2ZDT_CALL Nas2zdtGetLogLine(const T_NAS2ZDT_RESULT_D* pResult, std::size_t iLine) {
    return pResult && iLine < pResult->aLOG.size() ? pResult->aLOG[iLine].c_str() : nullptr;
}

const char* NAS2ZDT_CALL Nas2zdtGetOutput(const T_NAS2ZDT_RESULT_D* pResult, std::size_t* pSize) {
    const bool bThere = pResult && pResult->sOUTPUT;
    if (pSize) *pSize = bThere ? pResult->sOUTPUT->size() : 0;
    return bThere ? pResult->sOUTPUT->c_str() : nullptr;
}

std::size_t NAS2ZDT_CALL Nas2zdtCountTables(const T_NAS2ZDT_RESULT_D* pResult) {
    return pResult && pResult->pMODEL ? pResult->pMODEL->GetTables().size() : 0;
}

std::int32_t NAS2ZDT_CALL Nas2zdtGetTable(const T_NAS2ZDT_RESULT_D* pResult, std::size_t iTable,
                                          T_NAS2ZDT_TABLE_D* pTable) {
    const T_MODELTABLE_D* p = FindTable(pResult, iTable);
    if (!p) return 0;
    return Give(pTable, {0, p->sNAME, p->iCASE.has_value(), p->iCASE.value_or(0), p->CountRows(), p->aCOLUMNS.size()});
}

std::int32_t NAS2ZDT_CALL Nas2zdtGetColumn(const T_NAS2ZDT_RESULT_D* pResult, std::size_t iTable, std::size_t iColumn,
                                           T_NAS2ZDT_COLUMN_D* pColumn) {
    const T_MODELTABLE_D* p = FindTable(pResult, iTable);
    return p && iColumn < p->aCOLUMNS.size() ? GiveColumn(p->aCOLUMNS[iColumn], pColumn) : 0;
}

std::int32_t NAS2ZDT_CALL Nas2zdtFindColumn(const T_NAS2ZDT_RESULT_D* pResult, const char* sTable, std::int32_t iCase,
                                            const char* sColumn, T_NAS2ZDT_COLUMN_D* pColumn) {
    if (!pResult || !pResult->pMODEL || !sTable || !sColumn) return 0;
    const T_MODELCOLUMN_D* p = pResult->pMODEL->Find(sTable, iCase, sColumn);
    return p ? GiveColumn(*p, pColumn) : 0;
}
