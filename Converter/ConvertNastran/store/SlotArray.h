#pragma once
// An array of a fixed number of slots of which most records fill a few: memory follows the highest slot set.

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <vector>

/// Slots that were never set read as zero. Throws std::invalid_argument for a slot at or past SIZE.
template <class VALUE, std::size_t SIZE>
class CSlotArray {
  public:
    VALUE operator[](std::size_t i) const { return Tested(i) < m_aValues.size() ? m_aValues[i] : VALUE(); }

    void Set(std::size_t i, VALUE value) {
        if (Tested(i) >= m_aValues.size()) {
            if (i >= m_aValues.capacity()) m_aValues.reserve(std::max({i + 1, 2 * m_aValues.capacity(), FEW}));
            m_aValues.resize(i + 1);
        }
        m_aValues[i] = value;
    }

  private:
    static constexpr std::size_t FEW = 16; // room taken at once, since slots are set one after another

    static std::size_t Tested(std::size_t i) {
        if (i >= SIZE) throw std::invalid_argument("CSlotArray: slot out of range");
        return i;
    }

    std::vector<VALUE> m_aValues;
};
