#pragma once
// The message library, which holds the texts of all message keys.

/// From a key to its text, zero-terminated both. The caller doesn't own the result.
using LOADSTR = const char* (*)(const char*);

/// The lookup in use: the message library's, or a fallback that answers every key with one text.
extern LOADSTR g_pfnLoadStr;

class CMsgDll {
  public:
    virtual ~CMsgDll() = default;

    /// Loads the message library if it isn't loaded. Returns 1 if it is loaded then, else 0.
    static int LoadMsgDll();

    /// Frees the message library. g_pfnLoadStr must not be called afterwards. Always 1.
    static int FreeMsgDll();
};
