#pragma once
// What calls of POSIX systems need: words for errors, and writing without the signals that failed writes raise.

#include <initializer_list>
#include <string>
#include <system_error>

#include <signal.h>

/// The system's words for an errno.
inline std::string CauseText(int iError) {
    return std::generic_category().message(iError);
}

/// While it lives, a write past the limit of a file's size or to a pipe without a reader fails by its result alone: the
/// signals that would end the host are held and dropped.
class CHeldSignals {
  public:
    CHeldSignals() {
        ::sigpending(&m_pending);
        ::sigemptyset(&m_held);
        for (const int iSignal : {SIGPIPE, SIGXFSZ}) {
            if (::sigismember(&m_pending, iSignal) == 0)
                ::sigaddset(&m_held, iSignal); // one that is pending is the host's
        }
        ::pthread_sigmask(SIG_BLOCK, &m_held, &m_before);
    }
    ~CHeldSignals() {
        const timespec none{};
        while (::sigtimedwait(&m_held, nullptr, &none) > 0) {
        }
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    CHeldSignals(const CHeldSignals&) = delete;
    CHeldSignals& operator=(const CHeldSignals&) = delete;

  private:
    sigset_t m_pending{};
    sigset_t m_held{};
    sigset_t m_before{};
};
