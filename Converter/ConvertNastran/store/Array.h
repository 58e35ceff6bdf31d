#pragma once
// Growable array of values with a range test on every access.

#include <cstddef>
#include <stdexcept>
#include <vector>

/// Throws std::invalid_argument for an index at or past the end.
template <class VALUE>
class CArray {
  public:
    std::size_t GetSize() const { return m_aValues.size(); }
    bool IsEmpty() const { return m_aValues.empty(); }
    void Add(const VALUE& value) { m_aValues.push_back(value); }
    void RemoveAll() { m_aValues.clear(); }

    VALUE& operator[](std::size_t i) { return m_aValues[Tested(i)]; }
    const VALUE& operator[](std::size_t i) const { return m_aValues[Tested(i)]; }

    auto begin() { return m_aValues.begin(); }
    auto end() { return m_aValues.end(); }
    auto begin() const { return m_aValues.begin(); }
    auto end() const { return m_aValues.end(); }

  private:
    std::size_t Tested(std::size_t i) const {
        if (i >= m_aValues.size()) throw std::invalid_argument("CArray: index out of range");
        return i;
    }

    std::vector<VALUE> m_aValues;
};
