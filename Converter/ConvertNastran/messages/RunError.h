#pragma once
// The limits of a run, and why it failed.

#include <algorithm>
#include <cstdint>
#include <exception>
#include <limits>
#include <string>
#include <string_view>

/// A run that passes one of these limits fails, as small decks can ask for much. Models need far less.
struct T_LIMITS_D {
    static constexpr std::int64_t NONE = std::numeric_limits<std::int64_t>::max();

    std::int64_t nRANGES = 50'000'000;            // entries made by THRU ranges
    std::int64_t nDECKS = 1'000'000;              // decks opened, the main deck among them
    std::int64_t nOUTPUT = std::int64_t(1) << 30; // bytes of the target file, besides some for each byte of the decks
    std::int64_t nFRAMES = 10'000'000'000;        // frames that points are carried through, each for each point

    /// Most bytes of the target file of decks with nRead bytes.
    std::int64_t MostOutput(std::int64_t nRead) const {
        constexpr std::int64_t FOR_EACH_BYTE = 64;
        return nOUTPUT + std::min(NONE - nOUTPUT, std::min(nRead, NONE / FOR_EACH_BYTE) * FOR_EACH_BYTE);
    }
};

/// Causes of a failed run.
enum E_FAILURE {
    FAILURE_NONE,
    FAILURE_DECK_NOT_OPENED,    // the main deck
    FAILURE_INCLUDE_NOT_OPENED, // an included deck
    FAILURE_DECK_NOT_READ,      // a deck stopped giving bytes before its end
    FAILURE_LINE_TOO_LONG,
    FAILURE_INCLUDE_CYCLE,  // a chain of includes that leads back to a deck that it came from
    FAILURE_TOO_MANY_LINES, // a deck with more lines than 32 bits can count
    FAILURE_RANGE_TOO_LONG, // a THRU range that can't be held
    FAILURE_LIMIT_RANGES,   // the limits of T_LIMITS_D
    FAILURE_LIMIT_DECKS,
    FAILURE_LIMIT_OUTPUT,
    FAILURE_LIMIT_FRAMES,
    FAILURE_NOT_WRITTEN, // a section writer gave up
    FAILURE_EXHAUSTED,   // no memory left
    FAILURE_INTERNAL,
};

/// The reason that a run keeps for its host.
struct T_FAIL_D {
    E_FAILURE eFAILURE = FAILURE_NONE;
    std::string sFILE;       // the deck concerned
    std::int32_t iLINE = 0;  // its line, 0 if none
    std::int64_t nLIMIT = 0; // the limit that was passed, 0 if none
    std::string sCAUSE;      // the system's words

    /// One line for a person.
    std::string GetText() const;

    /// Makes the reason of the exception in hand, which came while line iLine of the deck sFile was read; no text for
    /// none. Memory may be what is missing, so each text stays empty if there is no room for it.
    void TakeException(std::string_view sFile, std::int32_t iLine) noexcept;
    void SetFile(std::string_view sFile) noexcept;
};

/// Whether an exception says that memory ran out, or that more was asked for than any memory holds.
bool IsOutOfMemory(const std::exception& rError) noexcept;

/// Ends the run from wherever it is thrown. CConvertNastran::Convert turns it into the reason and a result.
class CRunError : public std::exception {
  public:
    /// The run adds the file that it is reading.
    explicit CRunError(E_FAILURE eFailure, std::int32_t iLine = 0, std::int64_t nLimit = 0)
        : m_eFailure(eFailure), m_iLine(iLine), m_nLimit(nLimit) {}
    const char* what() const noexcept override { return "the run can't go on"; }

    const E_FAILURE m_eFailure;
    const std::int32_t m_iLine;
    const std::int64_t m_nLimit;
};
