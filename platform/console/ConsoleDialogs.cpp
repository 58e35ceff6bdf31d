// The dialogs on a terminal.

#include "platform/console/ConsoleDialogs.h"

#include <cstdio>
#include <iostream>
#include <new>

void CConsoleDialogs::ShowNotice(const std::string& sText) {
    std::cout << sText << '\n' << std::flush;
}

int CConsoleDialogs::ChooseDeck(std::string& rPath) {
    std::cin.clear(); // an earlier call may have met the end of input, which C streams remember too
    std::clearerr(stdin);
    std::string sLine;
    for (;;) {
        std::cout << "NASTRAN deck: " << std::flush;
        std::getline(std::cin, sLine);
        if (std::cin.bad()) throw std::bad_alloc(); // streams keep exceptions to themselves
        if (!std::cin) return 0;
        if (sLine.ends_with('\r')) sLine.pop_back();
        if (sLine.empty()) return 0;
        CDeckFile deck;
        std::string sCause;
        if (deck.Open(sLine, sCause)) {
            rPath = FullPath(sLine);
            return 1;
        }
        std::cout << sLine << ": " << sCause << '\n';
    }
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
