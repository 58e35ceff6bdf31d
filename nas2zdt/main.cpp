// nas2zdt: converts decks from a terminal or a script.

#include "driver/ConvertNastranApp.h"
#include "nas2zdt/command/Batch.h"
#include "nas2zdt/command/DeckList.h"
#include "nas2zdt/command/DeckWorker.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/command/Terminal.h"
#include "platform/Console.h"
#include "platform/TempPath.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

int Usage(const std::string& sWhy) {
    TellHint(sWhy + "\nTry 'nas2zdt --help'.");
    return EXIT_USAGE;
}

int Fail(const std::string& sWhy) {
    TellFailure(sWhy);
    return EXIT_FAILED;
}

int Print(const std::string& sText) {
    return WritePlain(std::cout, sText) ? EXIT_DONE : EXIT_FAILED;
}

int RunWorker() {
    const CConvertNastranApp app;
    CatchInterruptions();
    return RunDeckWorker();
}

int Run(int nArgs, char** aArgs) {
    IgnoreWriteSignals();
    const CUtf8Console console;
    const std::vector<std::string> aArguments = ReadArguments(nArgs, aArgs);
    if (aArguments.size() == 1 && aArguments[0] == WORKER_ARGUMENT) return RunWorker();
    T_OPTIONS_D options;
    std::string sWhy;
    if (!ReadOptions(aArguments, options, sWhy)) return Usage(sWhy);
    if (options.bHELP) return Print(HelpText());
    if (options.bVERSION) return Print("nas2zdt " NAS2ZDT_VERSION "\n");
    if (!ListDecks(options, sWhy)) return Fail(sWhy);
    const T_JOBS_D jobs = PlanJobs(options);
    if (!jobs.sUSAGE.empty()) return Usage(jobs.sUSAGE);
    if (!jobs.sFAILURE.empty()) return Fail(jobs.sFAILURE);
    const CConvertNastranApp app;
    CatchInterruptions();
    return CBatch(options, jobs).Run();
}

} // namespace

int main(int nArgs, char** aArgs) {
    try {
        return Run(nArgs, aArgs);
    } catch (const std::exception& rError) { // printed without making a string: memory may be exhausted
        const bool bExhausted = IsOutOfMemory(rError);
        std::fprintf(stderr, "nas2zdt: %s%s\n",
                     bExhausted ? "" : "internal error: ", bExhausted ? "not enough memory" : rError.what());
    } catch (...) {
        std::fputs("nas2zdt: internal error\n", stderr);
    }
    return EXIT_FAILED;
}
