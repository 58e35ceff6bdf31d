#pragma once
// Work beside the caller's, on a thread of its own.

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>

/// Number of threads that the system lets this process run at a time; at least 1.
std::size_t CountCores() noexcept;

/// nWanted threads or, if that is 0, as many as the environment variable CONVERTNASTRAN_THREADS says, or else one for
/// each core.
std::size_t ChooseThreads(std::size_t nWanted) noexcept;

/// Runs a function once. Where no thread can be had, the function runs when somebody waits for it.
class CWorker {
  public:
    /// Begins, if bBeside on a thread of its own. What the function uses must outlive this object.
    explicit CWorker(std::function<void()> function, bool bBeside = true);

    /// Waits, and drops what the function may have thrown.
    ~CWorker();
    CWorker(const CWorker&) = delete;
    CWorker& operator=(const CWorker&) = delete;

    /// Whether it has a thread.
    bool IsBeside() const { return m_pThread != nullptr; }

    /// Returns once the function has, or throws what it threw.
    void Wait();

  private:
    struct T_THREAD_D; // of the system
    struct T_THREADENDS_D {
        void operator()(T_THREAD_D* pThread) const; // waits for its end
    };

    static T_THREAD_D* Begin(CWorker& rWorker) noexcept; // null if there can't be one
    void Run() noexcept;

    std::function<void()> m_function; // empty once it has run
    std::exception_ptr m_pError;
    std::unique_ptr<T_THREAD_D, T_THREADENDS_D> m_pThread;
};
