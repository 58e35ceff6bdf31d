#pragma once
// Lines of a deck at which somebody looks before their turn comes.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Lines one behind the other of which something was made.
struct T_LINERUN_D {
    std::size_t iBEGIN = 0, iEND = 0; // bytes of the text
    std::size_t iLAST = 0;            // where the last of its cards begins
    std::int32_t nLINES = 0;
    std::uint32_t iSLOT = 0, iROW = 0; // for the use of who made it
};

class CLinesAhead {
  public:
    /// Texts are looked at by up to nThreads threads.
    explicit CLinesAhead(std::size_t nThreads) : m_nThreads(nThreads) {}
    virtual ~CLinesAhead() = default;

    std::size_t GetThreads() const { return m_nThreads; }

    /// Comes first: there are as many slots as that, each for a text at a time.
    virtual void Begin(std::size_t nSlots) = 0;

    /// Looks at a text of whole lines, but for the last of a deck, on any thread. What was made of the last text of the
    /// slot isn't wanted any more. Adds runs to rRuns, ascending and apart; none of them holds the last line. Bytes
    /// behind the text may be read as of CTextReader.
    virtual void Look(std::size_t iSlot, std::string_view sText, std::vector<T_LINERUN_D>& rRuns) = 0;

  private:
    std::size_t m_nThreads;
};
