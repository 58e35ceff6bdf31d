// The library's life.

#include "driver/ConvertNastranApp.h"

#include "messages/MsgDll.h"

CConvertNastranApp::CConvertNastranApp() {
    CMsgDll::LoadMsgDll();
}

CConvertNastranApp::~CConvertNastranApp() {
    CMsgDll::FreeMsgDll();
}
