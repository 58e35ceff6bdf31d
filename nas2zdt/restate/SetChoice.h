#pragma once
// The set of supports or equations that is taken, and the sets that it sums up.

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// Collects sets of one kind and their sums, and takes one.
class CSetChoice {
  public:
    /// A set that has a card.
    void AddSet(std::int32_t iSet) {
        if (iSet != m_iLast || m_sets.empty()) m_sets.insert(m_iLast = iSet);
    }
    void AddSum(std::int32_t iSum, std::vector<std::int32_t> aSets);

    /// Takes the set that is asked for, 0 for none. If nobody could ask, takes the only one that isn't in a sum, else
    /// the lowest sum, else the lowest set.
    void Choose(std::optional<std::int32_t> iAsked);

    /// The set that is taken, 0 for none.
    std::int32_t GetChosen() const { return m_iChosen; }

    /// Whether a set is taken, itself or by a sum.
    bool IsTaken(std::int32_t iSet) const { return m_taken.contains(iSet); }

    /// Sets with cards that aren't taken, ascending.
    std::vector<std::int32_t> GetLeft() const;

  private:
    std::int32_t FindRoot() const;

    std::set<std::int32_t> m_sets;
    std::map<std::int32_t, std::vector<std::int32_t>> m_mapSums;
    std::set<std::int32_t> m_taken;
    std::int32_t m_iChosen = 0;
    std::int32_t m_iLast = 0;
};

/// "1, 2, 3": the first ones, and how many more there are.
std::string ListIds(const std::vector<std::int32_t>& rIDs);
