// Windows, or the terminal for a service, which has no desktop that a person sees.

#include "platform/WindowDialogs.h"

#include <windows.h>

std::unique_ptr<CDialogs> MakeDialogs() {
    USEROBJECTFLAGS flags{};
    const HWINSTA hStation = ::GetProcessWindowStation();
    const bool bKnown = ::GetUserObjectInformationW(hStation, UOI_FLAGS, &flags, sizeof flags, nullptr) != 0;
    if (bKnown && (flags.dwFlags & WSF_VISIBLE) == 0) return std::make_unique<CConsoleDialogs>();
    return std::make_unique<CWindowDialogs>();
}
