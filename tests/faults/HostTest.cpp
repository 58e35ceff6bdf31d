// Hosts that are unlike a plain program: their locale, their stacks, their threads, loading and unloading.

#include "faults/Host.h"

#include "driver/ConvertFile.h"
#include "faults/Faults.h"
#include "platform/console/ConsoleDialogs.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <locale>
#include <new>
#include <pthread.h>
#include <signal.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

const std::vector<std::string> NAMES = {"all_cards", "frames", "loaded_frame", "loaded_plate", "portal_frame"};

/// Converts a copy of an example and compares the bytes.
void ConvertExample(const std::string& sName) {
    const CTempFolder folder;
    const std::string sDeck = folder.Path(sName + ".dat");
    std::filesystem::copy_file(EXAMPLES "/" + sName + ".dat", sDeck);
    EXPECT_EQ(RunFile(sDeck).sZDT, ReadText(EXAMPLES "/" + sName + ".zdt")) << sName;
}

class CCommaFacet : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(HostTest, AnotherLocale) {
    const CTempFolder folder;
    const std::string sMake = "localedef -i de_DE -f UTF-8 '" + folder.Path("de_DE.UTF-8") + "' >/dev/null 2>&1";
    ::setenv("LOCPATH", folder.Path("").c_str(), 1);
    if (std::system(sMake.c_str()) == 0 && std::setlocale(LC_ALL, "de_DE.UTF-8")) {
        char aText[8];
        std::snprintf(aText, sizeof aText, "%g", 1.5);
        EXPECT_STREQ(aText, "1,5"); // the host's own numbers
        for (const std::string& rName : NAMES) ConvertExample(rName);
        std::setlocale(LC_ALL, "C");
    }
    const std::locale before = std::locale::global(std::locale(std::locale(), new CCommaFacet));
    for (const std::string& rName : NAMES) ConvertExample(rName);
    std::locale::global(before);
}

TEST(HostTest, AThreadWithASmallStack) {
    const auto run = [](void*) -> void* {
        ConvertExample("all_cards");
        std::string sCards = "SPC1,1,1,1\n"; // 1001 lines: the longest card
        for (int i = 0; i < 1000; ++i) sCards += ",2\n";
        EXPECT_EQ(RunBulk("GRID,1\nGRID,2\n" + sCards).iRESULT, 1);
        const CTempFolder folder;
        for (int i = 0; i < 500; ++i) { // each includes the next
            const std::string sNext = i < 499 ? "INCLUDE," + folder.Path(std::to_string(i + 1)) + "\n" : "";
            WriteText(folder.Path(std::to_string(i)), "BEGIN BULK\nGRID," + std::to_string(i) + "\n" + sNext + "$\n");
        }
        EXPECT_EQ(RunFile(folder.Path("0")).iRESULT, 1);
        return nullptr;
    };
    pthread_attr_t attributes;
    ASSERT_EQ(::pthread_attr_init(&attributes), 0);
    ASSERT_EQ(::pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    pthread_t thread{};
    ASSERT_EQ(::pthread_create(&thread, &attributes, run, nullptr), 0);
    ::pthread_join(thread, nullptr);
    ::pthread_attr_destroy(&attributes);
}

TEST(HostTest, ThreadsAtOnce) {
    std::vector<std::thread> aThreads;
    for (std::size_t i = 0; i < 8; ++i) {
        aThreads.emplace_back([i] {
            for (std::size_t nRun = 0; nRun < 10; ++nRun) ConvertExample(NAMES[(i + nRun) % NAMES.size()]);
        });
    }
    for (std::thread& rThread : aThreads) rThread.join();
}

class CThrowingDialogs : public CConsoleDialogs {
  public:
    explicit CThrowingDialogs(bool bStandard) : m_bStandard(bStandard) {}
    void ShowMessages(const std::vector<std::string>&) override {
        if (m_bStandard) throw std::runtime_error("no window");
        throw "no window";
    }

  private:
    bool m_bStandard;
};

TEST(HostTest, WhatEndsACallIsToldByItsName) {
    const std::pair<void (*)(), const char*> aExceptions[] = {
        {[] { throw std::bad_alloc(); }, "Out of memory"},
        {[] { throw std::length_error("vector"); }, "Out of memory"},
        {[] { throw std::runtime_error("no window"); }, "Internal error"},
        {[] { throw 1; }, "Internal error"},
    };
    for (const auto& [pfnThrow, sText] : aExceptions) {
        g_pfnBeforeChoice = pfnThrow;
        const T_CALL_D call = CallAsHost(&ConvertFile2, "deck.dat");
        g_pfnBeforeChoice = nullptr;
        EXPECT_EQ(call.iRESULT, CONVERT_FAILED);
        EXPECT_STREQ(call.aRUNERROR, sText);
    }
}

TEST(HostTest, ADeckWithoutExtensionAtThePrompt) {
    const CTempFolder folder;
    std::filesystem::create_directories(folder.Path("real/sub"));
    std::filesystem::create_directory_symlink(folder.Path("real/sub"), folder.Path("link"));
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path("."));
    WriteText("deck", "BEGIN BULK\nGRID,1\nENDDATA\n");
    WriteText("real/deck", "BEGIN BULK\nGRID,1\nENDDATA\n");
    const std::pair<const char*, const char*> aPrompts[] = {
        {"deck", "deck.zdt"},
        {"./deck", "deck.zdt"},
        {"real/../deck", "deck.zdt"},
        {"real/./sub/.././../deck", "deck.zdt"},
        {"link/../deck", "real/deck.zdt"}, // the folder above the one that the link leads to
    };
    for (const auto& [sPrompt, sTarget] : aPrompts) {
        const T_CALL_D call = CallAsHost(&ConvertFile2, sPrompt);
        EXPECT_EQ(call.iRESULT, CONVERT_DONE);
        EXPECT_EQ(call.aOUTPUT, std::filesystem::canonical(folder.Path(".")).string() + "/" + sTarget) << sPrompt;
        EXPECT_TRUE(std::filesystem::remove(sTarget)) << sPrompt;
    }
    std::filesystem::current_path(before);
}

TEST(HostTest, DialogsThatThrow) {
    for (const bool bStandard : {false, true}) {
        const CTempFolder folder;
        WriteText(folder.Path("deck.dat"), "BEGIN BULK\nENDDATA\n");
        CThrowingDialogs dialogs(bStandard);
        CConvertNastran run(dialogs);
        EXPECT_EQ(run.Convert(folder.Path("deck.dat")), 0);
        EXPECT_EQ(run.GetFailure().GetText(), bStandard ? "internal error: no window" : "internal error: ");
    }
}

/// The same text again and again.
class CEndlessText : public std::streambuf {
  public:
    explicit CEndlessText(std::string sText) : m_sText(std::move(sText)) {}

  private:
    int_type underflow() override {
        setg(m_sText.data(), m_sText.data(), m_sText.data() + m_sText.size());
        return traits_type::to_int_type(m_sText[0]);
    }
    std::string m_sText;
};

TEST(HostTest, InputWithoutEnd) {
    for (const char* sText : {"no deck\n", "no line"}) {
        const CInput input("");
        CEndlessText text(sText);
        std::streambuf* const pBefore = std::cin.rdbuf(&text);
        const T_CALL_D call = MakeCall(&ConvertFile2);
        std::cin.rdbuf(pBefore);
        EXPECT_EQ(call.iRESULT, CONVERT_CANCELLED) << sText;
    }
}

TEST(HostTest, ReasonsOfFailedRuns) {
    const std::pair<T_FAIL_D, const char*> aReasons[] = {
        {{FAILURE_NONE, {}, 0, 0, {}}, ""},
        {{FAILURE_DECK_NOT_READ, "a.dat", 0, 0, {}}, "a.dat: can't be read to its end"},
        {{FAILURE_RANGE_TOO_LONG, "a.dat", 7, 10, {}}, "a.dat:7: THRU range holds more than 10 ids"},
        {{FAILURE_TOO_MANY_LINES, "a.dat", 9, 9, {}}, "a.dat:9: deck has more than 9 lines"},
        {{FAILURE_LIMIT_RANGES, "a.dat", 7, 9, {}},
         "a.dat:7: limit on ranges: THRU ranges make more than 9 entries in all"},
        {{FAILURE_LIMIT_DECKS, "a.dat", 7, 9, {}}, "a.dat:7: limit on decks: more than 9 decks are opened"},
        {{FAILURE_LIMIT_OUTPUT, "a.dat", 0, 1LL << 40, {}},
         "a.dat: limit on output: the target file has more than 1099511627776 bytes"},
        {{FAILURE_LIMIT_FRAMES, "a.dat", 0, 9, {}},
         "a.dat: limit on frames: grids go through more than 9 coordinate systems in all"},
        {{FAILURE_EXHAUSTED, "a.dat", 7, 0, {}}, "a.dat:7: not enough memory"},
        {{FAILURE_EXHAUSTED, {}, 7, 0, {}}, "not enough memory"}, // not even for the name of the file
    };
    for (const auto& [failure, sText] : aReasons) EXPECT_EQ(failure.GetText(), sText);
}

long ResidentPages() {
    long nAll = 0;
    long nResident = 0;
    std::ifstream("/proc/self/statm") >> nAll >> nResident;
    return nResident;
}

bool IsLoaded(const std::string& sPath) {
    void* const pLibrary = ::dlopen(sPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (pLibrary) ::dlclose(pLibrary);
    return pLibrary != nullptr;
}

CONVERTFILE2 FindConvertFile2(void* pLibrary) {
    return pLibrary ? reinterpret_cast<CONVERTFILE2>(::dlsym(pLibrary, "ConvertFile2")) : nullptr;
}

/// A host that loads the library by a relative path and then goes to a folder where others may write.
TEST(HostTest, LibrariesOfTheCurrentFolderStayOutside) {
    const CTempFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::copy_file(LIBRARY, folder.Path("library.so"));
    std::filesystem::current_path(folder.Path("."));
    void* const pLibrary = ::dlopen("./library.so", RTLD_NOW | RTLD_LOCAL);
    std::filesystem::create_directory("elsewhere");
    std::filesystem::current_path("elsewhere");
    std::filesystem::copy_file(MESSAGES, "ConvertNastranGtk.so"); // any library will do
    const CONVERTFILE2 pfnConvert = FindConvertFile2(pLibrary);
    ASSERT_TRUE(pfnConvert);
    EXPECT_EQ(CallAsHost(pfnConvert, "").iRESULT, CONVERT_CANCELLED);
    EXPECT_FALSE(IsLoaded(folder.Path("elsewhere/ConvertNastranGtk.so")));
    std::filesystem::current_path(before);
    ::dlclose(pLibrary);
}

constexpr rlim_t SIZE_LIMIT = 4096; // of files

/// Calls the library in a process of its own, where standard output and error are iConsole. Returns how it ended.
int CallOnConsole(int iConsole, const std::string& sTyped) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit limit{SIZE_LIMIT, SIZE_LIMIT};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGPIPE, SIG_DFL);
        ::dup2(::open(sTyped.c_str(), O_RDONLY), STDIN_FILENO);
        ::dup2(iConsole, STDOUT_FILENO);
        ::dup2(iConsole, STDERR_FILENO);
        const CONVERTFILE2 pfnConvert = FindConvertFile2(::dlopen(LIBRARY, RTLD_NOW | RTLD_LOCAL));
        const int iResult = pfnConvert ? pfnConvert(nullptr, 0) : CONVERT_CANCELLED;
        std::cout.flush(); // nothing is left that would fail later, in the host's own time
        std::fflush(stdout);
        ::_exit(iResult & 0xFF);
    }
    int iStatus = 0;
    ::waitpid(child, &iStatus, 0);
    return iStatus;
}

TEST(HostTest, AConsoleThatTakesNothingDoesNotEndTheHost) {
    ::unsetenv("DISPLAY");
    ::unsetenv("WAYLAND_DISPLAY");
    const CTempFolder folder;
    int aPipe[2];
    ASSERT_EQ(::pipe(aPipe), 0);
    ::close(aPipe[0]);
    WriteText(folder.Path("console"), std::string(SIZE_LIMIT, '-'));
    const int iFile = ::open(folder.Path("console").c_str(), O_WRONLY | O_APPEND);
    WriteText(folder.Path("good.dat"), "BEGIN BULK\nGRID,1\nENDDATA\n");
    WriteText(folder.Path("long.dat"), std::string(300, 'A')); // of this run the reason is told on standard error
    for (const auto& [sDeck, iResult] : {std::pair("good", CONVERT_DONE), std::pair("long", CONVERT_FAILED)}) {
        WriteText(folder.Path("typed"), folder.Path("no.dat\n") + folder.Path(sDeck) + ".dat\n");
        for (const int iConsole : {aPipe[1], iFile}) {
            std::filesystem::remove(folder.Path("good.zdt"));
            const int iStatus = CallOnConsole(iConsole, folder.Path("typed"));
            EXPECT_TRUE(WIFEXITED(iStatus)) << sDeck << ": signal " << WTERMSIG(iStatus);
            EXPECT_EQ(WEXITSTATUS(iStatus), iResult & 0xFF) << sDeck;
            EXPECT_EQ(std::filesystem::exists(folder.Path("good.zdt")), iResult == CONVERT_DONE);
        }
    }
    ::close(aPipe[1]);
    ::close(iFile);
}

TEST(HostTest, LoadingAndUnloadingAThousandTimes) {
    ::unsetenv("DISPLAY"); // a desktop's windows stay loaded for good
    ::unsetenv("WAYLAND_DISPLAY");
    const CTempFolder folder;
    const std::string sLibrary = folder.Path("library.so");
    const std::string sMessages = folder.Path("Convertmsg.DLL");
    std::filesystem::copy_file(LIBRARY, sLibrary);
    std::filesystem::copy_file(MESSAGES, sMessages);
    const std::string sDeck = folder.Path("grids.dat");
    std::filesystem::copy_file(EXAMPLES "/grids.dat", sDeck);

    long nLive = 0;
    long nPages = 0;
    for (int i = 0; i < 1000; ++i) {
        void* const pLibrary = ::dlopen(sLibrary.c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_TRUE(pLibrary) << ::dlerror();
        ASSERT_TRUE(IsLoaded(sMessages));
        const CONVERTFILE2 pfnConvert = FindConvertFile2(pLibrary);
        ASSERT_TRUE(pfnConvert && pfnConvert != &ConvertFile2);
        ASSERT_EQ(CallAsHost(pfnConvert, sDeck).iRESULT, CONVERT_DONE);
        ASSERT_EQ(::dlclose(pLibrary), 0);
        ASSERT_FALSE(IsLoaded(sLibrary) || IsLoaded(sMessages));
        if (i == 99) { // what a process makes once is made
            nLive = LivePieces();
            nPages = ResidentPages();
        }
    }
    EXPECT_EQ(LivePieces(), nLive);
    EXPECT_TRUE(SANITIZED || ResidentPages() - nPages < 64); // a sanitizer holds back what was freed
    EXPECT_EQ(ReadText(folder.Path("grids.zdt")), ReadText(EXAMPLES "/grids.zdt"));
}

} // namespace
