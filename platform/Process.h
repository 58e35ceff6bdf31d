#pragma once
// This program once more, as a process of its own that is talked to through pipes.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

/// One way of a pipe. Its end in this process is closed with the object.
class CPipe {
  public:
    CPipe() = default;
    explicit CPipe(std::intptr_t iHandle) : m_iHandle(iHandle) {}
    ~CPipe() { Close(); }
    CPipe(const CPipe&) = delete;
    CPipe& operator=(const CPipe&) = delete;
    CPipe(CPipe&& rOther) noexcept : m_iHandle(std::exchange(rOther.m_iHandle, NONE)) {}
    CPipe& operator=(CPipe&& rOther) noexcept {
        std::swap(m_iHandle, rOther.m_iHandle);
        return *this;
    }

    /// Writes all of it, without a signal. Returns 0 if nobody takes it any more.
    int Write(std::string_view sBytes);

    /// Reads nSize bytes, or fewer at the end. Returns their number.
    std::size_t Read(char* pBuffer, std::size_t nSize);

    void Close();

    /// The standard input and output of this process, which nothing else may use from now on: what is read or printed
    /// there meets nothing.
    static CPipe TakeInput();
    static CPipe TakeOutput();

  private:
    static constexpr std::intptr_t NONE = -1;
    std::intptr_t m_iHandle = NONE;
};

/// An entry of the list of processes that an interrupted program ends: plain data, since a signal may come at any time.
struct T_CHILD_D {
    std::intptr_t iPROCESS = 0; // 0 outside of the list
    T_CHILD_D* pNEXT = nullptr;
};

/// A process, which must end once it reads the end of its input: that is waited for when the object goes. Objects on
/// several threads don't meet.
class CChildProcess {
  public:
    CChildProcess() = default;
    ~CChildProcess() { Wait(); }
    CChildProcess(const CChildProcess&) = delete;
    CChildProcess& operator=(const CChildProcess&) = delete;

    /// Starts this program with one argument that needs no quotes. Its standard error is that of this process. Returns
    /// 1, or 0 with the cause in rCause.
    int Start(const std::string& sArgument, std::string& rCause);

    bool IsStarted() const { return m_entry.iPROCESS != 0; }

    CPipe& GetInput() { return m_input; }   // what it reads
    CPipe& GetOutput() { return m_output; } // what it writes

    /// Waits for its end, with its pipes closed. Returns how it ended: "ended by signal 9 (Killed)".
    std::string Wait() {
        m_input.Close();
        m_output.Close();
        return IsStarted() ? Reap() : std::string();
    }

  private:
    std::string Reap();

    T_CHILD_D m_entry;
    CPipe m_input, m_output;
};

/// Ends those of this process and waits for them, though not for ever. Safe in the handler of a signal.
void EndChildProcesses() noexcept;
