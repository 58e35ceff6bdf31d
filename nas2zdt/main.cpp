// nas2zdt: converts a deck from a terminal or a script.

#include "driver/CConvertNastran.h"
#include "driver/ConvertNastranApp.h"
#include "platform/console/ConsoleDialogs.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr int EXIT_DONE = 0;
constexpr int EXIT_FAILED = 1;
constexpr int EXIT_USAGE = 2;

constexpr const char* HELP = "usage: nas2zdt DECK\n"
                             "\n"
                             "Converts a NASTRAN bulk data deck and all that it includes into a ZDT text file,\n"
                             "which is written beside the deck under its name with the extension .zdt.\n"
                             "The log of the run goes to standard output, failures to standard error.\n"
                             "\n"
                             "  --help     this text\n"
                             "  --version  the version\n"
                             "\n"
                             "exit status: 0 success, 1 the run failed, 2 wrong usage\n";

/// Nothing is asked; the log goes to standard output. Remembers whether the output file failed.
class CCommandDialogs : public CConsoleDialogs {
  public:
    void ShowFileError(const CFileException& rError) override {
        m_bFileError = true;
        ShowRunError("nas2zdt: " + rError.GetText());
    }
    bool m_bFileError = false;
};

int Usage(const std::string& sWhy) {
    std::fprintf(stderr, "nas2zdt: %s\nTry 'nas2zdt --help'.\n", sWhy.c_str());
    return EXIT_USAGE;
}

int ConvertDeck(const std::string& sDeck) {
    const CConvertNastranApp app;
    CCommandDialogs dialogs;
    CConvertNastran run(dialogs);
    if (!run.Convert(sDeck)) {
        dialogs.ShowRunError("nas2zdt: " + run.GetFailure().GetText());
        return EXIT_FAILED;
    }
    return dialogs.m_bFileError ? EXIT_FAILED : EXIT_DONE;
}

int Run(int nArgs, char** aArgs) {
    std::string sDeck;
    bool bOptions = true; // until "--"
    int nDecks = 0;
    for (int i = 1; i < nArgs; ++i) {
        const std::string sArg = aArgs[i];
        if (bOptions && sArg == "--help") return std::fputs(HELP, stdout) < 0 ? EXIT_FAILED : EXIT_DONE;
        if (bOptions && sArg == "--version") return std::puts("nas2zdt " NAS2ZDT_VERSION) < 0 ? EXIT_FAILED : EXIT_DONE;
        if (bOptions && sArg == "--") {
            bOptions = false;
        } else if (bOptions && sArg.size() > 1 && sArg[0] == '-') {
            return Usage("unknown option " + sArg);
        } else {
            sDeck = sArg;
            ++nDecks;
        }
    }
    if (nDecks != 1) return Usage(nDecks == 0 ? "no deck given" : "more than one deck given");
    return ConvertDeck(sDeck);
}

} // namespace

int main(int nArgs, char** aArgs) {
    try {
        return Run(nArgs, aArgs);
    } catch (...) { // what a run throws was dealt with before, so memory ran out here
        std::fputs("nas2zdt: not enough memory\n", stderr);
        return EXIT_FAILED;
    }
}
