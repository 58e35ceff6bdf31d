// Programs and terminals on POSIX systems: the terminal takes UTF-8 as it is.

#include "platform/Console.h"

#include "platform/PlainText.h"
#include "platform/posix/Calls.h"

#include <ostream>

#include <signal.h>
#include <unistd.h>

std::vector<std::string> ReadArguments(int nArgs, char** aArgs) {
    return {aArgs + (nArgs > 0 ? 1 : 0), aArgs + nArgs};
}

bool ShellExpands() {
    return true;
}

void IgnoreWriteSignals() {
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
}

bool IsTerminal(std::FILE* pStream) {
    return ::isatty(::fileno(pStream)) != 0;
}

int WritePlain(std::ostream& rStream, std::string_view sText) {
    const std::string sPlain = PlainText(sText);
    const CHeldSignals held;
    rStream.write(sPlain.data(), static_cast<std::streamsize>(sPlain.size())).flush();
    return rStream ? 1 : 0;
}

CUtf8Console::CUtf8Console() = default;

CUtf8Console::~CUtf8Console() = default;
