#pragma once
// The dialogs on a terminal: texts on standard output, errors on standard error, the deck asked for at a prompt. A
// failed write doesn't fail the run.

#include "platform/Dialogs.h"

class CConsoleDialogs : public CDialogs {
  public:
    /// Waits for Enter if there is a person to press it, as ShowMessages does: standard input and output are terminals.
    void ShowNotice(const std::string& sText) override;
    /// Asks until a file that exists is named; an empty line or the end of input is Cancel.
    int ChooseDeck(std::string& rPath) override;
    /// Neither this nor ShowRunError waits: unlike a box, what a terminal shows stays there when the call returns.
    void ShowFileError(const CFileException& rError) override;
    void ShowRunError(const std::string& sText) override;
    void ShowMessages(const std::vector<std::string>& aLines) override;

    /// Writes the lines to standard output, without waiting for anybody to close them.
    static void WriteLines(const std::vector<std::string>& aLines);
};
