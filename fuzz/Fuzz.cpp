#include "Fuzz.h"

#include <filesystem>
#include <functional>

void EnterScratchFolder() {
    static const CTempFolder folder;
    static const bool bEntered = [] {
        std::filesystem::current_path(folder.Path(""));
        return true;
    }();
    CHECK(bEntered);
}

bool HasLongRange(std::string_view sDeck) {
    constexpr int MOST_DIGITS = 4;
    bool bThru = false;
    bool bLong = false;
    std::string sWord; // the last letters; blanks inside of a field go when it is read
    int nDigits = 0;
    for (const char c : sDeck) {
        if (c == ' ' || c == '\t' || c == '\0') continue;
        nDigits = c >= '0' && c <= '9' ? nDigits + 1 : 0;
        bLong |= nDigits > MOST_DIGITS;
        sWord += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
        if (sWord.size() > 4) sWord.erase(0, 1);
        bThru |= sWord == "THRU";
    }
    return bThru && bLong;
}

void CheckRun(std::string_view sInput) {
    constexpr std::size_t MOST_MESSAGES = 200;
    const auto run = [] {
        std::filesystem::remove("DECK.zdt");
        return RunFile("DECK.DAT");
    };
    const T_RUN_D first = run();
    const E_FAILURE eFailure = first.failure.eFAILURE;
    CHECK(eFailure != FAILURE_INTERNAL && eFailure != FAILURE_EXHAUSTED && eFailure != FAILURE_NOT_WRITTEN);
    CHECK(eFailure != FAILURE_DECK_NOT_OPENED && eFailure != FAILURE_DECK_NOT_READ);
    CHECK((first.iRESULT == 1) == (eFailure == FAILURE_NONE));
    CHECK(first.sFILEERROR.empty());
    CHECK(first.aSHOWN.size() <= MOST_MESSAGES);
    CHECK(first.aSHOWN.empty() == (first.iRESULT == 0));
    CHECK((first.sZDT == "<no file>") == (first.iRESULT == 0));
    constexpr std::size_t ONCE_IN = 4; // decided by the input, so that a fault shows again
    if (std::hash<std::string_view>()(sInput) % ONCE_IN != 0) return;
    const T_RUN_D second = run();
    CHECK(second.sZDT == first.sZDT);
    CHECK(second.aSHOWN == first.aSHOWN);
    CHECK(second.failure.GetText() == first.failure.GetText());
}
