// The dialogs on a terminal.

#include "platform/console/ConsoleDialogs.h"

#include "platform/Console.h"

#include <cstdio>
#include <iostream>
#include <new>

namespace {

constexpr int MOST_TRIES = 100;
constexpr std::size_t LONGEST_PATH = 32767;

/// Reads a line, or the beginning of one that is longer than a path; empty at the end of input.
std::string ReadLine() {
    std::cin.clear(); // an earlier read may have met the end of input, which C streams remember too
    std::clearerr(stdin);
    std::string sLine;
    for (char c = 0; sLine.size() <= LONGEST_PATH && std::cin.get(c) && c != '\n';) sLine += c;
    if (std::cin.bad()) throw std::bad_alloc(); // streams keep exceptions to themselves
    if (sLine.ends_with('\r')) sLine.pop_back();
    return sLine;
}

/// Returns when a person has pressed Enter or ended the input; at once if nobody is there or the prompt can't be seen.
void WaitForEnter() {
    if (!IsTerminal(stdin) || !IsTerminal(stdout)) return;
    if (WritePlain(std::cout, "Press Enter to go on. ")) ReadLine();
}

} // namespace

void CConsoleDialogs::ShowNotice(const std::string& sText) {
    WritePlain(std::cout, sText + "\n");
    WaitForEnter();
}

/// Input may come from a program: too many tries, or too long a line, count as cancelled.
int CConsoleDialogs::ChooseDeck(std::string& rPath) {
    for (int i = 0; i < MOST_TRIES; ++i) {
        WritePlain(std::cout, "NASTRAN deck: ");
        const std::string sLine = ReadLine();
        if (sLine.empty() || sLine.size() > LONGEST_PATH) return 0;
        CDeckFile deck;
        std::string sCause;
        if (deck.Open(sLine, sCause)) {
            rPath = FullPath(sLine);
            return 1;
        }
        WritePlain(std::cout, sLine + ": ");
        WritePlain(std::cout, sCause + "\n");
    }
    return 0;
}

void CConsoleDialogs::ShowFileError(const CFileException& rError) {
    WritePlain(std::cerr, rError.GetText() + "\n");
}

void CConsoleDialogs::ShowRunError(const std::string& sText) {
    WritePlain(std::cerr, sText + "\n");
}

void CConsoleDialogs::ShowMessages(const std::vector<std::string>& aLines) {
    WriteLines(aLines);
    WaitForEnter();
}

void CConsoleDialogs::WriteLines(const std::vector<std::string>& aLines) {
    std::string sText;
    for (const std::string& sLine : aLines) sText += sLine + '\n';
    WritePlain(std::cout, sText);
}
