#pragma once
// Arrays of values with a range test on every access.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <vector>

/// Values lie in blocks: a long array grows without copying what it holds, a short one takes what it needs. Throws
/// std::invalid_argument for an index at or past the end.
template <class VALUE>
class CArray {
  public:
    std::size_t GetSize() const {
        return m_aBlocks.empty() ? 0 : (m_aBlocks.size() - 1) * BLOCK + m_aBlocks.back().size();
    }
    bool IsEmpty() const { return GetSize() == 0; }
    void Add(const VALUE& value) {
        if (m_aBlocks.empty() || m_aBlocks.back().size() == BLOCK) AddBlock();
        m_aBlocks.back().push_back(value);
    }
    void RemoveAll() { m_aBlocks.clear(); }
    bool operator==(const CArray&) const = default;

    VALUE& operator[](std::size_t i) { return At(Tested(i)); }
    const VALUE& operator[](std::size_t i) const { return At(Tested(i)); }

    template <class ARRAY, class ITEM>
    class CPosition {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = VALUE;
        using difference_type = std::ptrdiff_t;
        using pointer = ITEM*;
        using reference = ITEM&;

        CPosition() = default;
        CPosition(ARRAY* pArray, std::size_t iPlace) : m_pArray(pArray), m_iPlace(iPlace) {}
        ITEM& operator*() const { return m_pArray->At(m_iPlace); }
        ITEM* operator->() const { return &**this; }
        CPosition& operator++() {
            ++m_iPlace;
            return *this;
        }
        CPosition operator++(int) {
            const CPosition before = *this;
            ++m_iPlace;
            return before;
        }
        bool operator==(const CPosition& rOther) const { return m_iPlace == rOther.m_iPlace; }

      private:
        ARRAY* m_pArray = nullptr;
        std::size_t m_iPlace = 0;
    };
    using POSITION = CPosition<CArray, VALUE>;
    using CONST_POSITION = CPosition<const CArray, const VALUE>;

    POSITION begin() { return {this, 0}; }
    POSITION end() { return {this, GetSize()}; }
    CONST_POSITION begin() const { return {this, 0}; }
    CONST_POSITION end() const { return {this, GetSize()}; }

  private:
    static constexpr std::size_t BLOCK = 1024; // values; a power of two makes finding one a shift and a mask

    void AddBlock() {
        const bool bFirst = m_aBlocks.empty();
        m_aBlocks.emplace_back();
        if (!bFirst) m_aBlocks.back().reserve(BLOCK);
    }

    VALUE& At(std::size_t i) { return m_aBlocks[i / BLOCK][i % BLOCK]; }
    const VALUE& At(std::size_t i) const { return m_aBlocks[i / BLOCK][i % BLOCK]; }

    std::size_t Tested(std::size_t i) const {
        if (i >= GetSize()) throw std::invalid_argument("CArray: index out of range");
        return i;
    }

    std::vector<std::vector<VALUE>> m_aBlocks; // all but the last hold BLOCK values
};

/// Slots that were never set read as zero. Throws std::invalid_argument for a slot at or past SIZE.
template <class VALUE, std::size_t SIZE>
class CSlotArray {
  public:
    /// Slots that were never set are the same as zeros.
    bool operator==(const CSlotArray& rOther) const {
        for (std::size_t i = 0; i < std::max(m_aValues.size(), rOther.m_aValues.size()); ++i) {
            if ((*this)[i] != rOther[i]) return false;
        }
        return true;
    }

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
