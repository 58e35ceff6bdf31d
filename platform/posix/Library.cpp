// Loading libraries on POSIX systems.

#include "platform/Library.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

using T_TEXT = std::unique_ptr<char, void (*)(void*)>;

/// The loader's name of the program or library that this code is linked into, empty for the program; null if unknown.
const char* OwnName() noexcept {
    Dl_info info{};
    void* pMap = nullptr;
    const int iFound = ::dladdr1(reinterpret_cast<void*>(&LoadModule), &info, &pMap, RTLD_DL_LINKMAP);
    return iFound != 0 && pMap ? static_cast<link_map*>(pMap)->l_name : nullptr;
}

/// Folder of the program or library that this code is linked into, with its closing separator; null if unknown. Must
/// not throw: it would be called again then, and meanwhile the current folder may be another.
T_TEXT FindOwnFolder() noexcept {
    const char* sName = OwnName();
    // A library's name may start from the current folder. For the program dladdr gives argv[0], which can be anything.
    T_TEXT sPath(sName ? ::realpath(*sName ? sName : "/proc/self/exe", nullptr) : nullptr, &std::free);
    if (sPath) std::strrchr(sPath.get(), '/')[1] = '\0';
    return sPath;
}

T_MODULE Load(const std::string& sPath) {
    return ::dlopen(sPath.c_str(), RTLD_NOW | RTLD_LOCAL);
}

/// Loads sName from the folders where the loader looks for a name without one, in its order. Left to itself, the loader
/// would take those that start from the current folder too, and each empty piece of LD_LIBRARY_PATH is one. Beyond
/// these folders it has a list of files alone, whose names begin with "lib".
T_MODULE LoadBySearch(const char* sName) {
    const char* sOwn = OwnName();
    const std::unique_ptr<void, int (*)(void*)> pOwn(sOwn ? ::dlopen(sOwn, RTLD_LAZY | RTLD_NOLOAD) : nullptr,
                                                     &::dlclose);
    Dl_serinfo size{};
    if (!pOwn || ::dlinfo(pOwn.get(), RTLD_DI_SERINFOSIZE, &size) != 0) return nullptr;
    std::vector<char> aBuffer(std::max(size.dls_size, sizeof size));
    auto* const pInfo = new (aBuffer.data()) Dl_serinfo(size);
    if (::dlinfo(pOwn.get(), RTLD_DI_SERINFO, pInfo) != 0) return nullptr;
    const Dl_serpath* const pFolders = pInfo->dls_serpath;
    for (unsigned int i = 0; i < pInfo->dls_cnt; ++i) {
        const std::string sFolder = pFolders[i].dls_name;
        if (!sFolder.starts_with('/')) continue;
        if (const T_MODULE pModule = Load(sFolder + "/" + sName)) return pModule;
    }
    return nullptr;
}

} // namespace

T_MODULE LoadNeighbour(const char* sName) {
    static const T_TEXT sFolder = FindOwnFolder();
    return sFolder ? Load(std::string(sFolder.get()) + sName) : nullptr;
}

T_MODULE LoadModule(const char* sName) {
    const T_MODULE pModule = LoadNeighbour(sName);
    return pModule ? pModule : LoadBySearch(sName);
}

void* FindExport(T_MODULE pModule, const char* sName) {
    return ::dlsym(pModule, sName);
}

void UnloadModule(T_MODULE pModule) {
    ::dlclose(pModule);
}
