// The dialogs on a terminal.

#include "platform/console/ConsoleDialogs.h"

#include <cstdio>
#include <iostream>
#include <new>

namespace {
constexpr int MOST_TRIES = 100;
constexpr std::size_t LONGEST_PATH = 32767;
} // namespace

void CConsoleDialogs::ShowNotice(const std::string& sText) {
    std::cout << sText << '\n' << std::flush;
}

/// Input needn't come from a person: lines without end, and a line without one, count as cancelled.
int CConsoleDialogs::ChooseDeck(std::string& rPath) {
    std::cin.clear(); // an earlier call may have met the end of input, which C streams remember too
    std::clearerr(stdin);
    for (int i = 0; i < MOST_TRIES; ++i) {
        std::cout << "NASTRAN deck: " << std::flush;
        std::string sLine;
        for (char c = 0; sLine.size() <= LONGEST_PATH && std::cin.get(c) && c != '\n';) sLine += c;
        if (std::cin.bad()) throw std::bad_alloc(); // streams keep exceptions to themselves
        if (sLine.ends_with('\r')) sLine.pop_back();
        if (sLine.empty() || sLine.size() > LONGEST_PATH) return 0;
        CDeckFile deck;
        std::string sCause;
        if (deck.Open(sLine, sCause)) {
            rPath = FullPath(sLine);
            return 1;
        }
        std::cout << sLine << ": " << sCause << '\n';
    }
    return 0;
}

void CConsoleDialogs::ShowFileError(const CFileException& rError) {
    std::cerr << rError.GetText() << '\n';
}

void CConsoleDialogs::ShowRunError(const std::string& sText) {
    std::cerr << sText << '\n';
}

void CConsoleDialogs::ShowMessages(const std::vector<std::string>& aLines) {
    for (const std::string& sLine : aLines) std::cout << sLine << '\n';
    std::cout << std::flush;
}
