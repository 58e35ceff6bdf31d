// Records that are kept in less room than they take: what goes in comes out, to the last bit.

#include "store/DataPool.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <vector>

namespace {

using SHOWN = std::vector<std::uint64_t>;

/// Numbers as they may be in a deck: mostly none, often the one before.
class CNumbers {
  public:
    std::int32_t Int(std::int32_t iMost = std::numeric_limits<std::int32_t>::max()) {
        return Chance(2) ? 0 : std::uniform_int_distribution<std::int32_t>(-3, iMost)(m_engine);
    }
    double Real() {
        constexpr std::array ODD = {0.0, -0.0, 1.0, -1.5, std::numeric_limits<double>::infinity()};
        if (Chance(3)) m_dLast = ODD[Below(ODD.size())];
        if (Chance(9)) m_dLast = std::nan("7");
        if (Chance(3)) m_dLast = static_cast<double>(Int()) / 7.0;
        return m_dLast;
    }
    bool Chance(std::size_t nIn) { return Below(nIn) == 0; }
    std::size_t Below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(m_engine); }

  private:
    std::mt19937 m_engine{20};
    double m_dLast = 0.0;
};

std::uint64_t Bits(double d) {
    return std::bit_cast<std::uint64_t>(d);
}
std::uint64_t Bits(std::int32_t i) {
    return static_cast<std::uint32_t>(i);
}

SHOWN Show(const T_NODS_D& r) {
    SHOWN a = {Bits(r.iCP), Bits(r.iCD), Bits(r.dX1), Bits(r.dX2), Bits(r.dX3),
               Bits(r.dGX), Bits(r.dGY), Bits(r.dGZ), r.Traits()};
    for (const bool b : r.bPS) a.push_back(b);
    return a;
}
SHOWN Show(const T_ELEM_D& r) {
    SHOWN a = {Bits(r.iPID), Bits(r.iTYPE), Bits(r.iSUBTYPE), Bits(r.bVECTOR), Bits(r.iG0),
               Bits(r.dX1),  Bits(r.dX2),   Bits(r.dX3),      r.Traits()};
    for (std::size_t i = 0; i < CNodeSlots::SLOTS; ++i) a.push_back(Bits(r.iNODE[i]));
    return a;
}
SHOWN Show(const T_MBLD_D& r) {
    SHOWN a = {Bits(r.iID),  Bits(r.iKIND), Bits(r.iFORM),   Bits(r.iSCALE),
               Bits(r.iDIR), Bits(r.iCID),  Bits(r.iFACEG1), Bits(r.iFACEG34)};
    for (const std::int32_t i : r.iG) a.push_back(Bits(i));
    for (const double d : r.dV) a.push_back(Bits(d));
    for (const double d : r.dN) a.push_back(Bits(d));
    return a;
}

void Fill(CNumbers& rNumbers, T_NODS_D& r) {
    r = {};
    r.dX1 = rNumbers.Real();
    r.dX2 = rNumbers.Real();
    r.dX3 = rNumbers.Real();
    r.dGX = r.dX1;
    r.dGY = r.dX2;
    r.dGZ = r.dX3;
    if (rNumbers.Chance(3)) (rNumbers.Chance(2) ? r.dGX : r.dGZ) = rNumbers.Real();
    if (rNumbers.Chance(3)) r.iCP = rNumbers.Int();
    if (rNumbers.Chance(3)) r.iCD = rNumbers.Int();
    if (rNumbers.Chance(3)) r.bPS[rNumbers.Below(6)] = true;
}
void Fill(CNumbers& rNumbers, T_ELEM_D& r) {
    constexpr std::array TYPES = {TYPE_ROD, TYPE_BAR, TYPE_PLATE, TYPE_SOLID, TYPE_MASS, TYPE_BUSH};
    constexpr std::array SHAPES = {SHAPE_LINE,  SHAPE_TRIA3, SHAPE_TRIA6, SHAPE_QUAD4, SHAPE_QUAD8,
                                   SHAPE_POINT, SHAPE_TETRA, SHAPE_PENTA, SHAPE_HEXA};
    r = {};
    r.iPID = rNumbers.Int();
    r.iTYPE = TYPES[rNumbers.Below(TYPES.size())];
    r.iSUBTYPE = SHAPES[rNumbers.Below(SHAPES.size())];
    const std::size_t nNodes = rNumbers.Below(CNodeSlots::SLOTS + 1);
    for (std::size_t i = 0; i < nNodes; ++i) r.iNODE.Set(i, rNumbers.Int());
    if (rNumbers.Chance(3)) r.iG0 = rNumbers.Int();
    if (rNumbers.Chance(3)) r.bVECTOR = rNumbers.Int(BASIC_VECTOR);
    if (rNumbers.Chance(2)) r.dX1 = rNumbers.Real();
    if (rNumbers.Chance(3)) r.dX2 = rNumbers.Real();
    if (rNumbers.Chance(3)) r.dX3 = rNumbers.Real();
}
void Fill(CNumbers& rNumbers, T_MBLD_D& r) {
    r = {};
    r.iID = rNumbers.Int();
    r.iKIND = static_cast<std::int8_t>(rNumbers.Below(LOAD_PRESSURE + 1));
    r.iFORM = static_cast<std::int8_t>(rNumbers.Below(FORM_CROSS + 1));
    r.iSCALE = static_cast<std::int8_t>(rNumbers.Below(SCALE_OTHER + 1));
    r.iDIR = static_cast<std::int8_t>(rNumbers.Below(DIR_ZE + 1));
    r.iCID = rNumbers.Int();
    r.iFACEG1 = rNumbers.Int();
    r.iFACEG34 = rNumbers.Int();
    for (std::int32_t& rGrid : r.iG) rGrid = rNumbers.Chance(4) ? rNumbers.Int() : 0;
    for (double& rValue : r.dV) rValue = rNumbers.Real();
    for (double& rValue : r.dN) rValue = rNumbers.Chance(4) ? rNumbers.Real() : 0.0;
}

/// Stores, replaces and changes records, so many that they take several blocks.
template <class RECORD>
void TestTable() {
    CNumbers numbers;
    CMap<RECORD> table(101);
    std::map<std::int32_t, RECORD> records;
    for (int i = 0; i < 200000; ++i) {
        const std::int32_t iID = static_cast<std::int32_t>(numbers.Below(100000));
        RECORD record;
        Fill(numbers, record);
        if (!numbers.Chance(4)) {
            table.SetAt(iID, record,
                        [&](const RECORD& rOld, const RECORD&) { ASSERT_EQ(Show(rOld), Show(records.at(iID))); });
        } else if (!table.Update(iID, [&](RECORD& r) { r = record; })) {
            continue;
        }
        records[iID] = record;
    }
    ASSERT_EQ(table.GetCount(), records.size());
    std::size_t nTaken = 0;
    const auto isOdd = [](std::uint16_t nTraits) { return nTraits % 2 != 0; };
    for (const auto& [iID, rRecord] : records) {
        ASSERT_EQ(Show(*table.Find(iID)), Show(rRecord)) << iID;
        ASSERT_EQ(table.TraitsOf(iID), rRecord.Traits()) << iID;
        nTaken += isOdd(rRecord.Traits());
    }
    EXPECT_EQ(table.Count(isOdd), nTaken);
    EXPECT_FALSE(table.Find(100000));
    EXPECT_FALSE(table.Has(100000));
}

TEST(Packed, GridsKeepAllTheyHave) {
    TestTable<T_NODS_D>();
}

TEST(Packed, ElementsKeepAllTheyHave) {
    TestTable<T_ELEM_D>();
}

TEST(Packed, LoadEntriesKeepAllTheyHave) {
    CNumbers numbers;
    CLoadEntries entries;
    std::vector<T_MBLD_D> aEntries(100000);
    for (T_MBLD_D& r : aEntries) {
        Fill(numbers, r);
        entries.Add(r);
    }
    const auto isPressure = [](std::int8_t iKind) { return iKind == LOAD_PRESSURE; };
    auto pEntry = aEntries.begin();
    entries.UpdateEach(isPressure, [&](T_MBLD_D& r) { // those that need more room lie elsewhere then
        pEntry = std::find_if(pEntry, aEntries.end(), [&](const T_MBLD_D& r1) { return isPressure(r1.iKIND); });
        Fill(numbers, r);
        *pEntry++ = r;
    });
    ASSERT_EQ(entries.GetSize(), aEntries.size());
    for (std::size_t i = 0; i < aEntries.size(); ++i) {
        ASSERT_EQ(Show(entries[i]), Show(aEntries[i])) << i;
        ASSERT_EQ(entries.GetKinds()[i], aEntries[i].iKIND) << i;
        ASSERT_EQ(entries.IdOf(i), aEntries[i].iID) << i;
    }
    EXPECT_THROW(static_cast<void>(entries[aEntries.size()]), std::invalid_argument);
}

} // namespace
