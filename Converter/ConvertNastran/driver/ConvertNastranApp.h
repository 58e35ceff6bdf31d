#pragma once
// The library's life: the message library is there from before the first call to after the last.

#include "messages/MsgDll.h"

class CConvertNastranApp {
  public:
    /// Settles where this library lies, too: the host may leave its current folder later.
    CConvertNastranApp() { CMsgDll::LoadMsgDll(); }
    virtual ~CConvertNastranApp() { CMsgDll::FreeMsgDll(); }
    CConvertNastranApp(const CConvertNastranApp&) = delete;
    CConvertNastranApp& operator=(const CConvertNastranApp&) = delete;
};
