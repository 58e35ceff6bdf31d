#pragma once
// Runs one deck of the command line.

#include "driver/CConvertNastran.h"
#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/check/Check.h"
#include "nas2zdt/check/FileTotals.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/flatten/Flatten.h"
#include "nas2zdt/report/RunNotes.h"
#include "nas2zdt/restate/Restate.h"
#include "platform/WholeFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CDataPool;
class CSvgPicture;

/// The run of one deck and its result.
class CDeckRun : private COutput {
  public:
    /// rInputs are the files that no output may overwrite; the run adds those that it reads. All arguments must outlive
    /// this object.
    CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs)
        : m_rOptions(rOptions), m_rJob(rJob), m_rInputs(rInputs) {}

    /// Converts the deck and shows its log as the options say. Failures go to standard error at once.
    void Run();

    const T_RESULT_D& GetResult() const { return m_result; }

    /// Null unless the options need an account.
    const CAccount* GetAccount() const { return m_pAccount.get(); }

    /// Null unless the options need a check and the deck could be read for it.
    const T_CHECK_D* GetCheck() const { return m_pCheck.get(); }

  private:
    CFile& Open(const T_INPUTS& rDecks) override;
    void Convert(const std::string& sDeck, const CLineMap* pLines);
    void FinishTarget();
    void KeepRestated(const std::string& sDeck);
    T_CHOICE_D Choice() const;
    void Check();
    void DrawModel(const CDataPool& rPool);
    void DrawPictures(const CDataPool& rPool, const std::vector<std::int32_t>& aCases);
    void DrawCases(CSvgPicture& rPicture, const std::vector<std::int32_t>& aCases);
    void WriteGrid(const CDataPool& rPool);
    void Protect(const std::string& sPath);
    void WritePage(const CDataPool& rPool);
    void FailRun(T_FAIL_D failure, const CLineMap* pLines);
    void Fail(const std::string& sWhy);

    const T_OPTIONS_D& m_rOptions;
    const T_JOB_D& m_rJob;
    T_INPUTS& m_rInputs;
    std::unique_ptr<CWholeFile> m_pTarget; // null until the model is written
    bool m_bRefused = false;               // whether an output is a file that the run has read
    T_RESTATED_D m_restated;               // of a joined deck, too; the account refers to it
    std::unique_ptr<CAccount> m_pAccount;
    std::unique_ptr<T_CHECK_D> m_pCheck;
    CFileSums* m_pSums = nullptr;        // of the run in hand, null unless there is a check
    std::unique_ptr<CRunNotes> m_pNotes; // null unless there will be a page
    T_RESULT_D m_result;
};
