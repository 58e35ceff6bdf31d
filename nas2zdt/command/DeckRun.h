#pragma once
// One deck from the command line to its result.

#include "driver/RunError.h"
#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/flatten/Flatten.h"
#include "platform/WholeFile.h"
#include "writer/Output.h"

#include <memory>
#include <string>

class CDataPool;

/// A run and what is told of it.
class CDeckRun : private COutput {
  public:
    /// rInputs are the files that no output may overwrite; those that the run reads are added. It must outlive this
    /// object, as the options and the job must.
    CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs)
        : m_rOptions(rOptions), m_rJob(rJob), m_rInputs(rInputs) {}

    /// Converts the deck and shows its log as the options want it. Failures go to standard error at once.
    void Run();

    const T_RESULT_D& GetResult() const { return m_result; }

    /// Null if nobody asked for it.
    const CAccount* GetAccount() const { return m_pAccount.get(); }

  private:
    CFile& Open(const T_INPUTS& rDecks) override;
    void Convert(const std::string& sDeck, const CLineMap* pLines);
    void FinishTarget();
    void DrawModel(const CDataPool& rPool);
    void FailRun(T_FAIL_D failure, const CLineMap* pLines);
    void Fail(const std::string& sWhy);

    const T_OPTIONS_D& m_rOptions;
    const T_JOB_D& m_rJob;
    T_INPUTS& m_rInputs;
    std::unique_ptr<CWholeFile> m_pTarget; // null until the model is complete
    bool m_bRefused = false;               // whether an output is a file that the run has read
    T_JOINED_D m_joined;                   // only with its lines can the account tell places
    std::unique_ptr<CAccount> m_pAccount;
    T_RESULT_D m_result;
};
