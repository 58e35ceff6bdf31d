// A platform without windows: the terminal.

#include "platform/console/ConsoleDialogs.h"

std::unique_ptr<CDialogs> MakeDialogs() {
    return std::make_unique<CConsoleDialogs>();
}
