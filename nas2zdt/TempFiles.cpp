// Files that exist for a while or not at all.

#include "nas2zdt/TempFiles.h"

#include "nas2zdt/Paths.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <random>
#include <system_error>

namespace {

constexpr int TRIES = 100;

// What an interrupted program removes: one file and the folder that it may stand in.
std::array<std::string, 2> g_aPaths;
volatile std::sig_atomic_t g_bPaths = 0; // whether they are filled

extern "C" void RemoveOnSignal(int iSignal) {
    if (g_bPaths) {
        for (const std::string& sPath : g_aPaths) std::remove(sPath.c_str());
    }
    std::signal(iSignal, SIG_DFL);
    std::raise(iSignal);
}

#ifdef _WIN32
constexpr int SIGNALS[] = {SIGINT, SIGTERM};
#else
constexpr int SIGNALS[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE}; // the last when the log goes to "head" and the like
#endif

void RemoveOnSignals(const std::string& sFile, const std::string& sFolder) {
    g_aPaths = {sFile, sFolder};
    g_bPaths = 1;
    for (const int iSignal : SIGNALS) {
        if (std::signal(iSignal, &RemoveOnSignal) == SIG_IGN) std::signal(iSignal, SIG_IGN);
    }
}

void ForgetSignals() {
    g_bPaths = 0;
    for (const int iSignal : SIGNALS) {
        if (std::signal(iSignal, SIG_DFL) == SIG_IGN) std::signal(iSignal, SIG_IGN);
    }
}

std::string RandomSuffix() {
    std::random_device random;
    std::array<char, 20> aText{};
    std::snprintf(aText.data(), aText.size(), "%08x%08x", random(), random());
    return aText.data();
}

} // namespace

CJoinFolder::CJoinFolder() {
    std::error_code error;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
    for (int i = 0; i < TRIES && !error; ++i) {
        const std::filesystem::path folder = parent / ("nas2zdt-" + RandomSuffix());
        if (!std::filesystem::create_directory(folder, error)) continue; // a name that is taken is no error
        m_sFolder = ToText(folder);
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
        RemoveOnSignals(GetFile(), m_sFolder);
        return;
    }
    throw CFileException(parent.empty() ? "folder for temporary files" : ToText(parent),
                         error ? error.message() : "no name is free");
}

CJoinFolder::~CJoinFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(ToPath(m_sFolder), ignored);
    ForgetSignals();
}

std::string CJoinFolder::GetFile() const {
    return m_sFolder + "/deck";
}
