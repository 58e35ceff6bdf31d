#pragma once
// Runs one deck of the command line.

#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/command/ResumeNote.h"
#include "nas2zdt/command/Terminal.h"
#include "nas2zdt/library/Conversion.h"
#include "nas2zdt/report/RunNotes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Knows what other decks of the command line have read or written.
class CReplaceGuard {
  public:
    virtual ~CReplaceGuard() = default;

    /// The deck has read or written what is in rInputs, and will write files of these paths. Adds to rInputs what they
    /// may not replace. bLate for files whose names weren't known before.
    virtual void BeforeReplacing(const std::vector<std::string>& aPaths, bool bLate, T_INPUTS& rInputs) = 0;
};

/// The run of one deck and its result.
class CDeckRun : private CConversionWatch {
  public:
    /// rInputs are the files that no output may overwrite; the run adds those that it reads. pGuard may be null. All
    /// arguments must outlive this object.
    CDeckRun(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs, CReplaceGuard* pGuard);

    /// Converts the deck and shows its log as the options say. Failures go to standard error at once.
    void Run();

    const T_RESULT_D& GetResult() const { return m_conversion.GetResult(); }

    /// Null unless the options need an account.
    const CAccount* GetAccount() const { return m_conversion.GetAccount(); }

    /// Null unless the options ask for a check and the deck could be read for it.
    const T_CHECK_D* GetCheck() const { return m_conversion.GetCheck(); }

    /// The note for --resume on a deck that was converted; empty if there can't be one.
    std::string MakeNote() const;

  private:
    static T_CONVERSION_D Plan(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, CRunNotes& rNotes);

    bool BeginReading() override;
    void OnDeck(const std::string& sName, std::uint64_t nBytes) override;
    void OnBytesRead(std::uint64_t nBytes) override;
    void BeforeReplacing(const std::vector<std::string>& aPaths, bool bLate, T_INPUTS& rInputs) override;
    void BeforeWriting() override;
    void OnModel(const CDataPool& rPool) override;
    void OnLog(const std::vector<std::string>& aLines) override;
    void OnHint(const std::string& sText) override;
    void OnFailure(const std::string& sText) override;

    const T_OPTIONS_D& m_rOptions;
    const T_JOB_D& m_rJob;
    const T_INPUTS& m_rInputs;
    CReplaceGuard* m_pGuard;
    CResumeNote m_resume;
    CRunNotes m_notes; // for the page
    const T_CONVERSION_D m_wanted;
    CConversion m_conversion;
    std::optional<CProgressLine> m_progress; // none before the deck is read
};
