// Programs and terminals on Windows.

#include "platform/Console.h"

#include "platform/win32/Text.h"

#include <cstdio>
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
