#pragma once
// Grids in little room.

#include "store/Blocks.h"
#include "store/GridRecords.h"
#include "store/Records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

/// Nearly all grids are their coordinates alone. What others have beside them lies elsewhere.
template <>
class CRecords<T_NODS_D> {
  public:
    using FOUND = std::optional<T_NODS_D>;
    static constexpr bool ENDS = false;

    T_NODS_D Get(std::size_t i) const {
        const auto& [dX1, dX2, dX3] = m_aCoordinates[i];
        if (m_aMore[i] == 0) return {0, 0, {}, dX1, dX2, dX3, dX1, dX2, dX3};
        const T_MORE_D& r = m_aRest[m_aMore[i] - 1];
        return {r.iCP, r.iCD, r.bPS, dX1, dX2, dX3, r.dG[0], r.dG[1], r.dG[2]};
    }
    FOUND Found(std::size_t i) const { return Get(i); }

    void Make(std::size_t i, const T_NODS_D& record) {
        const std::uint32_t iMore = IsPlain(record) ? 0 : AddMore(record);
        m_aCoordinates.Set(i, {record.dX1, record.dX2, record.dX3});
        m_aMore.Set(i, iMore);
    }
    /// A grid of its coordinates alone.
    void Make(std::size_t i, const std::array<double, 3>& coordinates) {
        m_aCoordinates.Set(i, coordinates);
        m_aMore.Set(i, 0);
    }
    void Unmake(std::size_t) noexcept {}

    void Replace(std::size_t i, const T_NODS_D& record) {
        if (m_aMore[i] != 0) {
            m_aRest[m_aMore[i] - 1] = MoreOf(record);
        } else if (!IsPlain(record)) {
            m_aMore[i] = AddMore(record);
        }
        m_aCoordinates[i] = {record.dX1, record.dX2, record.dX3};
    }

    template <class CHANGE>
    void Change(std::size_t i, CHANGE change) {
        T_NODS_D record = Get(i);
        change(record);
        Replace(i, record);
    }

    std::uint16_t Traits(std::size_t i) const { return m_aMore[i] == 0 ? std::uint16_t(0) : Get(i).Traits(); }

    /// Number of the first nRecords whose traits taken accepts.
    template <class PREDICATE>
    std::size_t Count(std::size_t nRecords, PREDICATE taken) const {
        std::size_t nTaken = 0;
        for (std::size_t i = 0; i < nRecords; ++i) nTaken += taken(Traits(i));
        return nTaken;
    }

    void Fetch(std::size_t i) const { __builtin_prefetch(&m_aCoordinates[i]); }

  private:
    struct T_MORE_D {
        std::int32_t iCP, iCD;
        std::array<bool, 6> bPS;
        std::array<double, 3> dG;
    };

    /// Whether the position is where the coordinates are, and there is nothing else.
    static bool IsPlain(const T_NODS_D& r) {
        return r.Traits() == 0 && IsSameReal(r.dGX, r.dX1) && IsSameReal(r.dGY, r.dX2) && IsSameReal(r.dGZ, r.dX3);
    }
    static T_MORE_D MoreOf(const T_NODS_D& r) { return {r.iCP, r.iCD, r.bPS, {r.dGX, r.dGY, r.dGZ}}; }
    std::uint32_t AddMore(const T_NODS_D& record) {
        m_aRest.Set(m_nMore, MoreOf(record));
        return ++m_nMore;
    }

    CBlocks<std::array<double, 3>> m_aCoordinates;
    CBlocks<std::uint32_t> m_aMore; // from 1, 0 for nothing
    CBlocks<T_MORE_D> m_aRest;
    std::uint32_t m_nMore = 0;
};
