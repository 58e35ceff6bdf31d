// Loading libraries on Windows.

#include "platform/Library.h"

#include "platform/win32/Module.h"
#include "platform/win32/Text.h"

#include <string>

namespace {

/// Folder of our module with its closing separator; empty if the system doesn't tell.
std::wstring OwnFolder() {
    std::wstring sPath(MAX_PATH, L'\0');
    DWORD nPath = ::GetModuleFileNameW(OwnModule(), sPath.data(), static_cast<DWORD>(sPath.size()));
    while (nPath == sPath.size()) { // cut: the path is longer
        sPath.resize(sPath.size() * 2);
        nPath = ::GetModuleFileNameW(OwnModule(), sPath.data(), static_cast<DWORD>(sPath.size()));
    }
    sPath.resize(nPath);
    return sPath.substr(0, sPath.find_last_of(L"\\/") + 1);
}

/// Searches in the folders of nSearch alone, which are without the current one and those of PATH.
T_MODULE Load(const std::wstring& sPath, DWORD nSearch) {
    DWORD nMode = 0;
    ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &nMode); // a broken library is told by the result, not by a box
    const HMODULE hModule = ::LoadLibraryExW(sPath.c_str(), nullptr, nSearch);
    ::SetThreadErrorMode(nMode, nullptr);
    return hModule;
}

} // namespace

HINSTANCE OwnModule() {
    HMODULE hModule = nullptr;
    ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         reinterpret_cast<LPCWSTR>(&OwnModule), &hModule);
    return hModule;
}

T_MODULE LoadNeighbour(const char* sName) {
    const std::wstring sFolder = OwnFolder();
    if (sFolder.empty()) return nullptr;
    // What it needs itself may lie beside it.
    return Load(sFolder + Widen(sName), LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

T_MODULE LoadModule(const char* sName) {
    const T_MODULE pModule = LoadNeighbour(sName);
    return pModule ? pModule : Load(Widen(sName), LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

void* FindExport(T_MODULE pModule, const char* sName) {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(pModule), sName));
}

void UnloadModule(T_MODULE pModule) {
    ::FreeLibrary(static_cast<HMODULE>(pModule));
}
