#pragma once
// The lines of the card in hand, and the line looked ahead to.

#include "messages/RunError.h"
#include "reader/Card.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

/// iLine + 1. Throws CRunError if there is no such number.
inline std::int32_t NextLine(std::int32_t iLine) {
    constexpr std::int32_t LAST = std::numeric_limits<std::int32_t>::max();
    if (iLine == LAST) throw CRunError(FAILURE_TOO_MANY_LINES, LAST, LAST);
    return iLine + 1;
}

/// Lines are filled behind the group and join it one by one. They are reused from card to card, so their number never
/// shrinks.
class CLineGroup {
  public:
    std::size_t GetCount() const { return m_nLines; }
    bool IsEmpty() const { return m_nLines == 0; }
    T_LINE_D& operator[](std::size_t i) const { return *m_aLines[i]; }
    const T_LINE_D& First() const { return *m_aLines[0]; }
    const T_LINE_D& Last() const { return *m_aLines[m_nLines - 1]; }

    /// The line behind the group.
    T_LINE_D& Next() {
        if (m_aLines.size() == m_nLines) m_aLines.push_back(std::make_unique<T_LINE_D>());
        return *m_aLines[m_nLines];
    }

    /// Takes the line behind the group into it.
    void AddNext() { ++m_nLines; }

    /// Whether the line behind the group was filled ahead of its turn.
    bool IsPeeked() const { return m_bPeeked; }
    void SetPeeked() { m_bPeeked = true; }

    /// The same, and its turn has come.
    bool TakePeeked() { return std::exchange(m_bPeeked, false); }

    /// Empties the group; a line that was filled ahead stays the next one.
    void StartCard() {
        if (m_bPeeked) m_aLines[0].swap(m_aLines[m_nLines]);
        m_nLines = 0;
    }

    /// Forgets all lines.
    void StartDeck() {
        m_bPeeked = false;
        m_nLines = 0;
    }

  private:
    std::vector<std::unique_ptr<T_LINE_D>> m_aLines;
    std::size_t m_nLines = 0; // of the card in hand
    bool m_bPeeked = false;
};
