#pragma once
// Where a run's model goes, for a host that doesn't want it beside the deck.

#include "platform/File.h"

class COutput {
  public:
    virtual ~COutput() = default;

    /// The model is complete. Gives the file that it is written to, which is closed at the end. rDecks are those that
    /// the run read. A CFileException counts as a target file that can't be created.
    virtual CFile& Open(const T_INPUTS& rDecks) = 0;
};
