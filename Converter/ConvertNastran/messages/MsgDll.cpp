// The message library.

#include "messages/MsgDll.h"

#include "platform/Library.h"

namespace {

const char* LoadStrFallback(const char*) {
    return "Error : DLL is not loaded. check message dll!";
}

T_MODULE g_pMsgDll = nullptr;

} // namespace

LOADSTR g_pfnLoadStr = &LoadStrFallback;

int CMsgDll::LoadMsgDll() {
    if (g_pMsgDll) return 1;
    g_pMsgDll = LoadModule("Convertmsg.DLL");
    if (!g_pMsgDll) return 0;
    if (void* pExport = FindExport(g_pMsgDll, "LoadStr")) {
        g_pfnLoadStr = reinterpret_cast<LOADSTR>(pExport);
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
