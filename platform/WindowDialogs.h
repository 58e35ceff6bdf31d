#pragma once
// The dialogs as windows of a desktop. What can't be shown, since there is no desktop or no longer one, goes to
// the terminal.

#include "platform/console/ConsoleDialogs.h"

class CWindowDialogs : public CConsoleDialogs {
  public:
    void ShowNotice(const std::string& sText) override;
    int ChooseDeck(std::string& rPath) override;
    void ShowFileError(const CFileException& rError) override;
    void ShowRunError(const std::string& sText) override;
    void ShowMessages(const std::vector<std::string>& aLines) override;
};
