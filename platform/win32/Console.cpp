// Programs and terminals on Windows.

#include "platform/Console.h"

#include "platform/PlainText.h"
#include "platform/win32/Text.h"

#include <ostream>
#include <windows.h>

#include <shellapi.h> // needs windows.h before it

std::vector<std::string> ReadArguments(int, char**) {
    // main's own are in the code page of the system, which doesn't hold every file name.
    std::vector<std::string> aArguments;
    int nArgs = 0;
    LPWSTR* pArgs = ::CommandLineToArgvW(::GetCommandLineW(), &nArgs);
    for (int i = 1; pArgs && i < nArgs; ++i) aArguments.push_back(Narrow(pArgs[i]));
    ::LocalFree(pArgs);
    return aArguments;
}

bool ShellExpands() {
    return false;
}

void IgnoreWriteSignals() {} // there are none

bool IsTerminal(std::FILE* pStream) {
    const DWORD nStandard = pStream == stdin    ? STD_INPUT_HANDLE
                            : pStream == stdout ? STD_OUTPUT_HANDLE
                                                : STD_ERROR_HANDLE;
    DWORD nMode = 0;
    return ::GetConsoleMode(::GetStdHandle(nStandard), &nMode) != 0; // _isatty takes other devices for terminals
}

int WritePlain(std::ostream& rStream, std::string_view sText) {
    const std::string sPlain = PlainText(sText);
    rStream.write(sPlain.data(), static_cast<std::streamsize>(sPlain.size())).flush();
    return rStream ? 1 : 0;
}

CUtf8Console::CUtf8Console() {
    // Buffered, so that the bytes of a character reach the terminal together.
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    m_nCodePage = ::GetConsoleOutputCP(); // 0 without a terminal
    if (m_nCodePage != 0) ::SetConsoleOutputCP(CP_UTF8);
}

CUtf8Console::~CUtf8Console() {
    std::fflush(stdout);
    if (m_nCodePage != 0) ::SetConsoleOutputCP(m_nCodePage); // it belongs to the terminal and would outlive the program
}
