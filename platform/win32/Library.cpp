// Loading libraries on Windows.

#include "platform/Library.h"

#include "platform/win32/Module.h"
#include "platform/win32/Text.h"

#include <string>

namespace {

/// Folder of our module with its closing separator.
std::wstring OwnFolder() {
    std::wstring sPath(MAX_PATH, L'\0');
    DWORD nPath = ::GetModuleFileNameW(OwnModule(), sPath.data(), static_cast<DWORD>(sPath.size()));
    while (nPath == sPath.size()) { // cut: the path is longer
        sPath.resize(sPath.size() * 2);
        nPath = ::GetModuleFileNameW(OwnModule(), sPath.data(), static_cast<DWORD>(sPath.size()));
    }
    sPath.resize(nPath);
    return sPath.substr(0, sPath.rfind(L'\\') + 1);
}

} // namespace

HINSTANCE OwnModule() {
    HMODULE hModule = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&OwnModule), &hModule);
    return hModule;
}

T_MODULE LoadModule(const char* sName) {
    const std::wstring sWide = Widen(sName);
    DWORD nMode = 0;
    ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &nMode); // a broken library is told by the result, not by a box
    HMODULE hModule = ::LoadLibraryW(sWide.c_str());
    // The ordinary search starts at the host's folder, not at ours.
    if (!hModule) hModule = ::LoadLibraryW((OwnFolder() + sWide).c_str());
    ::SetThreadErrorMode(nMode, nullptr);
    return hModule;
}

void* FindExport(T_MODULE pModule, const char* sName) {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(pModule), sName));
}

void UnloadModule(T_MODULE pModule) {
    ::FreeLibrary(static_cast<HMODULE>(pModule));
}
