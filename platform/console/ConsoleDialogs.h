#pragma once
// The dialogs on a terminal: texts on standard output, errors on standard error, the deck asked for at a prompt.

#include "platform/Dialogs.h"

class CConsoleDialogs : public CDialogs {
  public:
    void ShowNotice(const std::string& sText) override;
    /// Asks until a file that exists is named; an empty line or the end of input is Cancel.
    int ChooseDeck(std::string& rPath) override;
    void ShowFileError(const CFileException& rError) override;
    void ShowRunError(const std::string& sText) override;
    void ShowMessages(const std::vector<std::string>& aLines) override;
};
