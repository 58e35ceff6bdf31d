// Programs and terminals on POSIX systems: bytes pass as they are.

#include "platform/Console.h"

std::vector<std::string> ReadArguments(int nArgs, char** aArgs) {
    return {aArgs + (nArgs > 0 ? 1 : 0), aArgs + nArgs};
}

CUtf8Console::CUtf8Console() = default;

CUtf8Console::~CUtf8Console() = default;
