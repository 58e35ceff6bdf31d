#include "faults/Host.h"

#include "platform/console/ConsoleDialogs.h"

#include <iostream>
#include <memory>

namespace {

T_CALL_D g_call;

class CCountingDialogs : public CConsoleDialogs {
  public:
    void ShowFileError(const CFileException&) override { ++g_call.nFILEERRORS; }
    int ChooseDeck(std::string& rPath) override {
        if (g_pfnBeforeChoice) g_pfnBeforeChoice();
        return CConsoleDialogs::ChooseDeck(rPath);
    }
    void ShowRunError(const std::string& sText) override {
        ++g_call.nRUNERRORS;
        g_call.aRUNERROR[sText.copy(g_call.aRUNERROR, sizeof g_call.aRUNERROR - 1)] = '\0';
    }
    void ShowMessages(const std::vector<std::string>&) override { ++g_call.nLOGS; }
};

} // namespace

void (*g_pfnBeforeChoice)() = nullptr;

std::unique_ptr<CDialogs> MakeDialogs() {
    return std::make_unique<CCountingDialogs>();
}

CInput::CInput(const std::string& sTyped)
    : m_typed(sTyped + "\n"), m_pInput(std::cin.rdbuf(m_typed.rdbuf())), m_pOutput(std::cout.rdbuf(nullptr)) {}

CInput::~CInput() {
    std::cin.rdbuf(m_pInput);
    std::cout.rdbuf(m_pOutput);
}

T_CALL_D MakeCall(CONVERTFILE2 pfnConvert) {
    g_call = {};
    g_call.iRESULT = pfnConvert(g_call.aOUTPUT, sizeof g_call.aOUTPUT);
    return g_call;
}

T_CALL_D CallAsHost(CONVERTFILE2 pfnConvert, const std::string& sDeck) {
    const CInput input(sDeck);
    return MakeCall(pfnConvert);
}
