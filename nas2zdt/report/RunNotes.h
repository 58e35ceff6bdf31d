#pragma once
// What a page tells of a run and nobody else keeps.

#include "store/Left.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Takes some of the events of a run.
class CRunNotes {
  public:
    static constexpr std::size_t MOST_CONTROL = 5000; // lines

    /// Ids of what is lost in one way: those of the account's loss of this keyword and kind.
    using IDS = std::map<std::pair<std::string_view, std::string_view>, std::vector<std::int32_t>>;

    void OnDeckBegin(const std::string& sName) { m_aDecks.push_back(sName); }
    void OnControlLine(std::string_view sText) {
        if (m_aControl.size() < MOST_CONTROL) m_aControl.emplace_back(sText);
        ++m_nControl;
    }
    void OnLeft(const T_LEFT_D& rLeft);

    const std::vector<std::string>& GetDecks() const { return m_aDecks; }
    const std::vector<std::string>& GetControl() const { return m_aControl; }
    std::size_t CountControl() const { return m_nControl; }

    /// Each ascending, without repetition.
    IDS GetLeft() const;

  private:
    using T_KEY = std::pair<E_LEFT, const char*>;

    std::vector<std::string> m_aDecks, m_aControl;
    std::size_t m_nControl = 0;
    std::map<T_KEY, std::vector<std::int32_t>> m_mapLeft;
    std::pair<const T_KEY, std::vector<std::int32_t>>* m_pLast = nullptr; // one is often told many times in a row
};
