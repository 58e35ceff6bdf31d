// The message library.

#include "messages/MsgDll.h"

#include "platform/Library.h"

namespace {

const char* LoadStrFallback(const char*) {
    return "Error : DLL is not loaded. check message dll!";
}

T_MODULE g_pMsgDll = nullptr;
LOADSTR g_pfnExport = nullptr;

/// The key itself if the library has no text for it.
const char* LoadStrFromDll(const char* sKey) {
    const char* sText = g_pfnExport(sKey);
    return sText ? sText : sKey;
}

/// Loading takes memory. Without it the message library counts as missing, since the host can't be told while it loads
/// this library.
T_MODULE LoadWithoutThrowing(const char* sName) noexcept {
    try {
        return LoadModule(sName);
    } catch (...) {
        return nullptr;
    }
}

} // namespace

LOADSTR g_pfnLoadStr = &LoadStrFallback;

int CMsgDll::LoadMsgDll() {
    if (g_pMsgDll) return 1;
    g_pMsgDll = LoadWithoutThrowing("Convertmsg.DLL");
    if (!g_pMsgDll) return 0;
    if (void* pExport = FindExport(g_pMsgDll, "LoadStr")) {
        g_pfnExport = reinterpret_cast<LOADSTR>(pExport);
        g_pfnLoadStr = &LoadStrFromDll;
        return 1;
    }
    g_pfnLoadStr = &LoadStrFallback;
    UnloadModule(g_pMsgDll);
    g_pMsgDll = nullptr;
    return 0;
}

int CMsgDll::FreeMsgDll() {
    if (g_pMsgDll) UnloadModule(g_pMsgDll);
    g_pMsgDll = nullptr;
    return 1;
}
