// The dialogs on a terminal.

#include "platform/console/ConsoleDialogs.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <new>
#include <system_error>

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
        std::error_code error;
        const std::filesystem::path path(std::u8string(sLine.begin(), sLine.end()));
        if (std::filesystem::is_regular_file(path, error)) {
            const std::u8string sFull = std::filesystem::absolute(path, error).u8string();
            rPath.assign(sFull.begin(), sFull.end());
            return 1;
        }
        std::cout << sLine << ": no such file\n";
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
