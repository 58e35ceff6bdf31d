#pragma once
// The dialogs as windows of Windows. What can't be shown in a window, for want of a desktop, goes to the terminal.

#include "platform/console/ConsoleDialogs.h"

class CWin32Dialogs : public CConsoleDialogs {
  public:
    void ShowNotice(const std::string& sText) override;
    int ChooseDeck(std::string& rPath) override;
    void ShowFileError(const CFileException& rError) override;
    void ShowRunError(const std::string& sText) override;
    void ShowMessages(const std::vector<std::string>& aLines) override;
};
