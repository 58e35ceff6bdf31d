// The library's life.

#include "driver/ConvertNastranApp.h"

#include "messages/MsgDll.h"

CConvertNastranApp::CConvertNastranApp() {
    CMsgDll::LoadMsgDll(); // settles where this library lies, too: the host may leave its current folder later
}

CConvertNastranApp::~CConvertNastranApp() {
    CMsgDll::FreeMsgDll();
}
