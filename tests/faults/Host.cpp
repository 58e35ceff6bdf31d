#include "faults/Host.h"

#include "platform/console/ConsoleDialogs.h"

#include <cstdio>
#include <iostream>
#include <memory>

namespace {

T_CALL_D g_call;
void (*g_pfnNotice)() = nullptr;

class CCountingDialogs : public CConsoleDialogs {
  public:
    void ShowFileError(const CFileException&) override { ++g_call.nFILEERRORS; }
    void ShowRunError(const std::string& sText) override {
        ++g_call.nRUNERRORS;
        std::snprintf(g_call.aRUNERROR, sizeof g_call.aRUNERROR, "%s", sText.c_str());
    }
    void ShowNotice(const std::string& sText) override {
        g_pfnNotice ? g_pfnNotice() : CConsoleDialogs::ShowNotice(sText);
    }
    void ShowMessages(const std::vector<std::string>&) override { ++g_call.nLOGS; }
};

} // namespace

std::unique_ptr<CDialogs> MakeDialogs() {
    return std::make_unique<CCountingDialogs>();
}

CInput::CInput(const std::string& sTyped)
    : m_typed(sTyped + "\n"), m_pInput(std::cin.rdbuf(m_typed.rdbuf())), m_pOutput(std::cout.rdbuf(nullptr)) {}

CInput::~CInput() {
    std::cin.rdbuf(m_pInput);
    std::cout.rdbuf(m_pOutput);
}

T_CALL_D MakeCall(CONVERTFILE2 pfnConvert, void (*pfnNotice)()) {
    g_call = {};
    g_pfnNotice = pfnNotice;
    g_call.iRESULT = pfnConvert(g_call.aOUTPUT, sizeof g_call.aOUTPUT);
    return g_call;
}

T_CALL_D CallAsHost(CONVERTFILE2 pfnConvert, const std::string& sDeck) {
    const CInput input(sDeck);
    return MakeCall(pfnConvert);
}
