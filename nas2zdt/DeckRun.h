#pragma once
// One deck from the command line to its result.

#include "driver/RunError.h"
#include "nas2zdt/AccountOutput.h"
#include "nas2zdt/Flatten.h"
#include "nas2zdt/Jobs.h"
#include "nas2zdt/Options.h"

#include <memory>
#include <string>
#include <vector>

/// A run and what is told of it.
class CDeckRun {
  public:
    CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, const std::vector<T_FILEID_D>& aDecks)
        : m_rOptions(rOptions), m_rJob(rJob), m_aKeep(aDecks) {}

    /// Converts the deck and shows its log as the options want it. Failures go to standard error at once.
    void Run();

    const T_RESULT_D& GetResult() const { return m_result; }

    /// Null if nobody asked for it.
    const CAccount* GetAccount() const { return m_pAccount.get(); }

  private:
    void Convert(const std::string& sDeck, const CLineMap* pLines);
    void TakeAccount(const CDataPool& rPool);
    void DrawModel(const CDataPool& rPool);
    void FailRun(T_FAIL_D failure, const CLineMap* pLines);
    void Fail(const std::string& sWhy);

    const T_OPTIONS_D& m_rOptions;
    const T_JOB_D& m_rJob;
    std::vector<T_FILEID_D> m_aKeep;
    T_JOINED_D m_joined; // only with its lines can the account tell places
    std::unique_ptr<CAccount> m_pAccount;
    T_RESULT_D m_result;
};
