// Windows where their plug-in is installed and there is a display, the terminal otherwise.

#include "platform/Library.h"
#include "platform/console/ConsoleDialogs.h"
#include "platform/gtk/Plugin.h"

#include <dlfcn.h>

namespace {

/// A process can hold one version of the toolkit only, and the plug-in's isn't the host's.
bool HostHasOtherVersion() {
    return ::dlsym(RTLD_DEFAULT, "gtk_progress_get_type") != nullptr || // 2
           ::dlsym(RTLD_DEFAULT, "gtk_window_set_child") != nullptr;    // 4
}

/// The plug-in stays loaded for good: the toolkit can't be taken out of a process.
MAKEGTKDIALOGS LoadPlugin() {
    if (HostHasOtherVersion()) return nullptr;
    const T_MODULE pPlugin = LoadNeighbour(GTK_PLUGIN);
    return pPlugin ? reinterpret_cast<MAKEGTKDIALOGS>(FindExport(pPlugin, GTK_PLUGIN_EXPORT)) : nullptr;
}

} // namespace

std::unique_ptr<CDialogs> MakeDialogs() {
    static const MAKEGTKDIALOGS pfnMake = LoadPlugin();
    std::unique_ptr<CDialogs> pDialogs(pfnMake ? pfnMake() : nullptr);
    return pDialogs ? std::move(pDialogs) : std::make_unique<CConsoleDialogs>();
}
