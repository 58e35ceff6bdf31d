#pragma once
// The note beside a result that --resume goes by.

#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "platform/File.h"

#include <cstdint>
#include <map>
#include <string>

/// A note has the version, the options and the folder of a run that converted a deck, and the sizes and times of all
/// that was read and written: as long as these are the same, the run would do the same. It is made after the deck was
/// read and begins to exist with it, so that what changes while the deck is converted isn't taken for what was read.
class CResumeNote {
  public:
    /// What the deck has read, at once when it has.
    void KeepRead(const T_INPUTS& rDecks);

    /// The note, once all is written. Empty if a file was changed too lately, or has a name that no line holds.
    std::string Make(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob) const;

  private:
    const std::int64_t m_nBegun = FileTimeNow();
    std::map<std::string, T_FILESTAMP_D> m_mapRead;
};

/// The path of a job's note.
std::string NotePath(const T_JOB_D& rJob);

/// Whether the note of a job says that it is done, and everything is as the note says. rRead gets what was read for it.
bool IsDone(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rRead);
