// Showing windows from any thread of any host.

#include "platform/gtk/Session.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <gtk/gtk.h>
#include <locale.h>
#include <mutex>

#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

namespace {

std::mutex g_setup;                     // held while the toolkit is set up
std::atomic<bool> g_bOwnToolkit{false}; // it was us who set it up, not the host
std::atomic<bool> g_bLost{false};       // the connection to the display broke

/// Ends all dialogs. Those are ours: this runs only if the host doesn't use the toolkit.
gboolean EndDialogs(gpointer) {
    GList* pWindows = gtk_window_list_toplevels();
    for (GList* pWindow = pWindows; pWindow; pWindow = pWindow->next) {
        if (GTK_IS_DIALOG(pWindow->data)) gtk_dialog_response(GTK_DIALOG(pWindow->data), GTK_RESPONSE_NONE);
    }
    g_list_free(pWindows);
    return G_SOURCE_REMOVE;
}

#ifdef GDK_WINDOWING_X11
Display* g_pOwnConnection = nullptr;
XIOErrorHandler g_pfnHostHandler = nullptr;

int OnConnectionLost(Display* pConnection) {
    if (pConnection != g_pOwnConnection) return g_pfnHostHandler(pConnection);
    if (!g_bLost.exchange(true)) g_idle_add(&EndDialogs, nullptr);
    return 0;
}

void StayAlive(Display*, void*) {}

/// The toolkit ends the process when its X server goes away. A host that doesn't use the toolkit shall survive that.
void GuardConnection(XIOErrorHandler pfnHostHandler) {
    GdkDisplay* pDisplay = gdk_display_get_default();
    g_pOwnConnection = nullptr;
    if (!GDK_IS_X11_DISPLAY(pDisplay)) return;
    if (!g_pfnHostHandler) g_pfnHostHandler = pfnHostHandler;
    g_pOwnConnection = gdk_x11_display_get_xdisplay(pDisplay);
    XSetIOErrorHandler(&OnConnectionLost);
    XSetIOErrorExitHandler(g_pOwnConnection, &StayAlive, nullptr);
}

/// Asks the server for a sign of life: on a broken connection the toolkit would work with answers that never came.
void TestConnection() {
    if (g_bOwnToolkit && !g_bLost && g_pOwnConnection) XSync(g_pOwnConnection, False);
}

XIOErrorHandler CurrentHandler() {
    const XIOErrorHandler pfnHandler = XSetIOErrorHandler(nullptr);
    XSetIOErrorHandler(pfnHandler);
    return pfnHandler;
}
#endif

/// Sets the toolkit up. Returns whether there is a display.
bool OpenDisplay() {
    static bool bFirst = true;
    if (bFirst) gtk_disable_setlocale(); // numbers of the host keep their point
    bFirst = false;
#ifdef GDK_WINDOWING_X11
    const XIOErrorHandler pfnHostHandler = CurrentHandler();
#endif
    if (!gtk_init_check(nullptr, nullptr)) return false;
#ifdef GDK_WINDOWING_X11
    GuardConnection(pfnHostHandler);
#endif
    g_bOwnToolkit = true;
    g_bLost = false;
    return true;
}

/// The user's language for this thread alone, for the toolkit's own texts.
class CUserLanguage {
  public:
    CUserLanguage() {
        const locale_t base = ::duplocale(::uselocale(locale_t{}));
        m_locale = ::newlocale(LC_MESSAGES_MASK | LC_CTYPE_MASK | LC_TIME_MASK, "", base);
        if (!m_locale) m_locale = base; // the language isn't installed
        m_host = ::uselocale(m_locale);
    }
    ~CUserLanguage() {
        ::uselocale(m_host);
        if (m_locale) ::freelocale(m_locale);
    }
    CUserLanguage(const CUserLanguage&) = delete;
    CUserLanguage& operator=(const CUserLanguage&) = delete;

  private:
    locale_t m_locale{};
    locale_t m_host{};
};

/// The toolkit would read a broken connection for ever.
void CloseLostDisplay() {
    const std::lock_guard lock(g_setup);
    if (GdkDisplay* pDisplay = gdk_display_get_default()) gdk_display_close(pDisplay);
#ifdef GDK_WINDOWING_X11
    g_pOwnConnection = nullptr;
#endif
}

/// Work for the thread of the main loop, and what became of it.
struct T_WORK_D {
    const std::function<void()>& function;
    std::mutex mutex;
    std::condition_variable changed;
    bool bDONE = false;
    std::exception_ptr pERROR;
};

gboolean DoWork(gpointer pData) {
    static std::atomic<int> nOpen{0}; // work in hand: a dialog's loop may take up another thread's
    T_WORK_D& rWork = *static_cast<T_WORK_D*>(pData);
    ++nOpen;
    std::exception_ptr pError; // mustn't pass through the main loop
    try {
        const CUserLanguage language;
#ifdef GDK_WINDOWING_X11
        TestConnection();
#endif
        if (!g_bLost) rWork.function();
    } catch (...) {
        pError = std::current_exception();
    }
    if (--nOpen == 0 && g_bLost) CloseLostDisplay();
    const std::lock_guard lock(rWork.mutex);
    rWork.pERROR = pError;
    rWork.bDONE = true;
    rWork.changed.notify_all();
    return G_SOURCE_REMOVE;
}

/// Leaves the work to the thread of the main loop. If that thread stops the loop before, this one runs it.
void HandOver(T_WORK_D& rWork) {
    g_idle_add_full(G_PRIORITY_DEFAULT, &DoWork, &rWork, nullptr);
    std::unique_lock lock(rWork.mutex);
    while (!rWork.bDONE) {
        lock.unlock();
        if (g_main_context_acquire(nullptr)) {
            g_main_context_iteration(nullptr, TRUE);
            g_main_context_release(nullptr);
        }
        lock.lock();
        rWork.changed.wait_for(lock, std::chrono::milliseconds(20), [&] { return rWork.bDONE; });
    }
}

} // namespace

bool HasDisplay() {
    const std::lock_guard lock(g_setup);
    return gdk_display_get_default() != nullptr || OpenDisplay();
}

int RunWithToolkit(const std::function<void()>& function) {
    if (g_bLost) return 0;
    T_WORK_D work{function, {}, {}, false, nullptr};
    if (g_main_context_acquire(nullptr)) {
        DoWork(&work);
        g_main_context_release(nullptr);
    } else {
        HandOver(work);
    }
    if (work.pERROR) std::rethrow_exception(work.pERROR);
    return g_bLost ? 0 : 1;
}
