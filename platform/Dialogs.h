#pragma once
// What a run shows to a person and asks of one. A host without windows gives its own implementation.

#include "platform/File.h"

#include <memory>
#include <string>
#include <vector>

class CDialogs {
  public:
    virtual ~CDialogs() = default;

    /// Shows a notice that can't be declined and waits until it is acknowledged.
    virtual void ShowNotice(const std::string& sText) = 0;

    /// Asks for an existing deck. Returns 1 with its full path in rPath, 0 if the choice was cancelled.
    virtual int ChooseDeck(std::string& rPath) = 0;

    /// Tells that the output file failed.
    virtual void ShowFileError(const CFileException& rError) = 0;

    /// Tells why a run ended before its time.
    virtual void ShowRunError(const std::string& sText) = 0;

    /// Shows the lines of the log in order and returns when the person has closed them.
    virtual void ShowMessages(const std::vector<std::string>& aLines) = 0;
};

/// The dialogs of this platform: windows where there is a desktop, the terminal otherwise.
std::unique_ptr<CDialogs> MakeDialogs();
