// The export of the plug-in.

#include "platform/gtk/Plugin.h"

#include "platform/WindowDialogs.h"
#include "platform/gtk/Session.h"

extern "C" __attribute__((visibility("default"))) CDialogs* MakeGtkDialogs() {
    return HasDisplay() ? new CWindowDialogs : nullptr;
}
