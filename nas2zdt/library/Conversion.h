#pragma once
// The conversion of one deck, which talks to nobody but its watch.

#include "driver/CConvertNastran.h"
#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/check/Check.h"
#include "nas2zdt/check/FileTotals.h"
#include "nas2zdt/library/ModelTables.h"
#include "nas2zdt/library/nas2zdt.h"
#include "nas2zdt/picture/ColourBy.h"
#include "nas2zdt/restate/Restate.h"
#include "platform/WholeFile.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class CRunNotes;
class CSvgPicture;

/// What is converted, and how.
struct T_CONVERSION_D {
    std::string sDECK;
    std::string sNAME; // as which the deck is told of, and where it would lie; empty for its path
    std::string sTARGET;
    std::string sRESTATED, sVIEW, sVTU; // the restated deck, the picture, the grid; empty for none
    std::string sVIEWCASES;             // folder for a picture of each load case; empty for none
    std::optional<std::int32_t> iCASE;  // the load case of picture and grid; all of them without it
    E_COLOUR_BY eCOLOUR = BY_KIND;      // of pictures
    std::string sREPORT, sLOG;          // written by somebody else; empty for none
    CRunNotes* pNOTES = nullptr;        // is told of the run beside the account; null for nobody
    std::size_t nPLACES = 0;            // that the account keeps of each kind of loss; 0 for a few
    bool bFLATTEN = false;
    bool bFAITHFUL = false;
    bool bACCOUNT = false;    // counts losses, which colours by loss need
    bool bNOTES = false;      // with it, those that change no result, too
    bool bSECTIONS = false;   // counts the sections of the target file
    bool bCHECK = false;      // counts losses, too
    bool bMODEL = false;      // keeps the model
    double dTOLERANCE = -1.0; // within which nodes coincide; negative for one that fits the model
    T_CHOICE_D choice;        // limits and threads are those below
    T_LIMITS_D limits;
    std::size_t nTHREADS = 1; // that may work at a time

    bool IsPrepared() const { return bFLATTEN || bFAITHFUL; }
    const std::string& GetName() const { return sNAME.empty() ? sDECK : sNAME; }
};

/// Is told of a conversion while it goes on, on its thread.
class CConversionWatch {
  public:
    virtual ~CConversionWatch() = default;

    /// The exact conversion begins. Returns whether OnDeck and OnBytesRead are wanted.
    virtual bool BeginReading() { return false; }
    virtual void OnDeck(const std::string& sName, std::uint64_t nBytes) = 0; // 0 if the size isn't known
    virtual void OnBytesRead(std::uint64_t nBytes) = 0;

    /// All is read, and files of these paths will be written: may add to rInputs, which has what this conversion has
    /// read, more that they may not replace. bLate for files whose names weren't known before.
    virtual void BeforeReplacing(const std::vector<std::string>& /*aPaths*/, bool /*bLate*/, T_INPUTS& /*rInputs*/) {}

    /// The target file is opened next.
    virtual void BeforeWriting() {}

    /// The target file is there, and the pictures are. Throws CFileException if something else can't be made of rPool.
    virtual void OnModel(const CDataPool& rPool) { static_cast<void>(rPool); }

    /// The log of a run that came to its end.
    virtual void OnLog(const std::vector<std::string>& aLines) = 0;

    virtual void OnHint(const std::string& sText) = 0;

    /// Comes more than once if one failure follows another.
    virtual void OnFailure(const std::string& sText) = 0;

    /// Asked once in a while. Once true, the conversion fails and leaves no target file.
    virtual bool IsCancelled() { return false; }
};

/// Why a conversion failed.
struct T_CONVERSIONFAILURE_D {
    std::int32_t iCODE = NAS2ZDT_DONE;
    T_ORIGIN_D place; // in a deck, or the file that failed; no file if it is none's
    std::string sTEXT;
};

/// One conversion and its result.
class CConversion : private COutput {
  public:
    /// rInputs are the files that no output may overwrite; the run adds those that it reads. All arguments must outlive
    /// this object.
    CConversion(const T_CONVERSION_D& rWanted, T_INPUTS& rInputs, CConversionWatch& rWatch);

    /// Converts the deck; whatever fails is told. Throws only if there is no memory to tell it, or what the watch
    /// throws and is no std::exception. May be called once.
    void Run();

    /// The deck can't be converted for this reason.
    void Fail(std::int32_t iCode, const T_ORIGIN_D& rPlace, const std::string& sText);

    const T_RESULT_D& GetResult() const { return m_result; }

    /// The last one.
    const T_CONVERSIONFAILURE_D& GetFailure() const { return m_failure; }

    /// Null unless losses are counted.
    const CAccount* GetAccount() const { return m_pAccount.get(); }

    /// Null unless a check is wanted and the deck could be read for it.
    const T_CHECK_D* GetCheck() const { return m_pCheck.get(); }

    /// What was done to a deck that was joined or restated.
    const T_RESTATED_D& GetRestated() const { return m_restated; }

    /// Null unless the model is wanted and there is one.
    std::unique_ptr<CModelTables> TakeModel() { return std::move(m_pModel); }

    /// Of the exact conversion; none if something else failed.
    E_FAILURE GetRunFailure() const { return m_eRunFailure; }

  private:
    class CRunWatch;

    CFile& Open(const T_INPUTS& rDecks) override;
    void Prepare();
    void Check();
    void Convert(const std::string& sDeck, const CLineMap* pLines);
    void FinishTarget();
    void KeepRestated(const std::string& sDeck);
    T_CHOICE_D Choice();
    void DrawModel(const CDataPool& rPool);
    void DrawPictures(const CDataPool& rPool, const std::vector<std::int32_t>& aCases);
    void DrawCases(CSvgPicture& rPicture, const std::vector<std::int32_t>& aCases);
    void WriteGrid(const CDataPool& rPool);
    void Protect(const std::string& sPath);
    void FailRun(T_FAIL_D failure, const CLineMap* pLines);
    void FailFile(std::int32_t iCode, const CFileException& rError);
    void Poll();

    const T_CONVERSION_D& m_rWanted;
    T_INPUTS& m_rInputs;
    CConversionWatch& m_rWatch;
    std::unique_ptr<CWholeFile> m_pTarget; // null until the model is written
    bool m_bRefused = false;               // whether an output is a file that the run has read
    bool m_bCancelled = false;
    T_RESTATED_D m_restated; // of a joined deck, too; the account refers to it
    std::unique_ptr<CAccount> m_pAccount;
    std::unique_ptr<T_CHECK_D> m_pCheck;
    std::unique_ptr<CModelTables> m_pModel;
    CFileSums* m_pSums = nullptr; // of the run in hand, null unless there is a check
    T_RESULT_D m_result;
    T_CONVERSIONFAILURE_D m_failure;
    E_FAILURE m_eRunFailure = FAILURE_NONE;
};
