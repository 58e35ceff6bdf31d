#pragma once
// Runs one deck of the command line.

#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/command/Terminal.h"
#include "nas2zdt/library/Conversion.h"
#include "nas2zdt/report/RunNotes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The run of one deck and its result.
class CDeckRun : private CConversionWatch {
  public:
    /// rInputs are the files that no output may overwrite; the run adds those that it reads. All arguments must outlive
    /// this object.
    CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs);

    /// Converts the deck and shows its log as the options say. Failures go to standard error at once.
    void Run();

    const T_RESULT_D& GetResult() const { return m_conversion.GetResult(); }

    /// Null unless the options need an account.
    const CAccount* GetAccount() const { return m_conversion.GetAccount(); }

    /// Null unless the options ask for a check and the deck could be read for it.
    const T_CHECK_D* GetCheck() const { return m_conversion.GetCheck(); }

  private:
    static T_CONVERSION_D Plan(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, CRunNotes& rNotes);

    bool BeginReading() override;
    void OnDeck(const std::string& sName, std::uint64_t nBytes) override;
    void OnBytesRead(std::uint64_t nBytes) override;
    void BeforeWriting() override;
    void OnModel(const CDataPool& rPool) override;
    void OnLog(const std::vector<std::string>& aLines) override;
    void OnHint(const std::string& sText) override;
    void OnFailure(const std::string& sText) override;

    const T_OPTIONS_D& m_rOptions;
    const T_JOB_D& m_rJob;
    const T_INPUTS& m_rInputs;
    CRunNotes m_notes; // for the page
    const T_CONVERSION_D m_wanted;
    CConversion m_conversion;
    std::optional<CProgressLine> m_progress; // none before the deck is read
};
