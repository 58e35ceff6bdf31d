// Loading libraries on POSIX systems.

#include "platform/Library.h"

#include <dlfcn.h>
#include <string>
#include <unistd.h>

namespace {

/// Folder of the program or library that this code is linked into, with its closing separator; empty if unknown.
std::string OwnFolder() {
    std::string sPath;
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&LoadModule), &info) != 0 && info.dli_fname) sPath = info.dli_fname;
    if (sPath.find('/') == std::string::npos) { // a program started by its bare name
        char aLink[4096];
        const ssize_t nLink = ::readlink("/proc/self/exe", aLink, sizeof aLink);
        sPath.assign(aLink, nLink > 0 ? static_cast<std::size_t>(nLink) : 0);
    }
    const std::size_t iSlash = sPath.rfind('/');
    return iSlash == std::string::npos ? std::string() : sPath.substr(0, iSlash + 1);
}

} // namespace

T_MODULE LoadModule(const char* sName) {
    if (const std::string sFolder = OwnFolder(); !sFolder.empty()) {
        if (void* pModule = ::dlopen((sFolder + sName).c_str(), RTLD_NOW | RTLD_LOCAL)) return pModule;
    }
    return ::dlopen(sName, RTLD_NOW | RTLD_LOCAL);
}

void* FindExport(T_MODULE pModule, const char* sName) {
    return ::dlsym(pModule, sName);
}

void UnloadModule(T_MODULE pModule) {
    ::dlclose(pModule);
}
