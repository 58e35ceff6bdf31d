#pragma once
// Dialogs that nobody sees.

#include "platform/Dialogs.h"

class CNoDialogs : public CDialogs {
  public:
    void ShowNotice(const std::string&) override {}
    int ChooseDeck(std::string&) override { return 0; }
    void ShowFileError(const CFileException&) override {}
    void ShowRunError(const std::string&) override {}
    void ShowMessages(const std::vector<std::string>&) override {}
};
