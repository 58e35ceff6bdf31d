// Words of records on their way.

#include "store/Taken.h"

#include <algorithm>
#include <array>

namespace {

/// Components as bits, from the lowest on, and the other way round.
std::uint32_t BitsOf(const std::array<bool, 6>& bDOF) {
    std::uint32_t nBits = 0;
    for (std::size_t i = 0; i < bDOF.size(); ++i) nBits |= std::uint32_t(bDOF[i]) << i;
    return nBits;
}
std::array<bool, 6> ComponentsOf(std::uint32_t nBits) {
    std::array<bool, 6> bDOF;
    for (std::size_t i = 0; i < bDOF.size(); ++i) bDOF[i] = (nBits >> i & 1) != 0;
    return bDOF;
}

constexpr std::uint32_t ZERO_BIT = 1u << 6, SPC1_BIT = 1u << 7; // of a constrained grid, behind its components
constexpr std::size_t GRID_WORDS = 3 * REAL_WORDS;

} // namespace

/// Room for a record of nWords words behind its id.
std::uint32_t* CTakenRecords::MakeRoom(E_TAKEN eTaken, std::int32_t iID, std::size_t nWords) {
    m_eLast = eTaken;
    m_aWords.resize(m_aWords.size() + 1 + nWords);
    std::uint32_t* const pWords = m_aWords.data() + m_aWords.size() - nWords;
    pWords[-1] = static_cast<std::uint32_t>(iID);
    return pWords;
}

/// Nearly all grids are their coordinates alone: 0 stands before those.
void CTakenRecords::Add(std::int32_t iID, const T_NODS_D& record) {
    const bool bMore = record.Traits() != 0;
    CWordWriter words(MakeRoom(TAKEN_GRID, iID, 1 + (bMore ? 2 : 0) + GRID_WORDS));
    words.Int(bMore ? static_cast<std::int32_t>(BitsOf(record.bPS) << 1 | 1) : 0);
    if (bMore) {
        words.Int(record.iCP);
        words.Int(record.iCD);
    }
    for (const double d : {record.dX1, record.dX2, record.dX3}) words.Real(d);
}

bool CTakenRecords::Put(std::size_t& rPlace, CMap<T_NODS_D>& rTable) const {
    const std::int32_t iID = IdAt(rPlace);
    const std::uint32_t nMore = m_aWords[rPlace + 1];
    CWordReader words(&m_aWords[rPlace + 2]);
    rPlace += 2 + (nMore != 0 ? 2 : 0) + GRID_WORDS;
    if (nMore == 0) {
        const double dX1 = words.Real(), dX2 = words.Real(), dX3 = words.Real();
        return rTable.Add(iID, std::array<double, 3>{dX1, dX2, dX3});
    }
    T_NODS_D record;
    record.bPS = ComponentsOf(nMore >> 1);
    record.iCP = words.Int();
    record.iCD = words.Int();
    record.dX1 = record.dGX = words.Real();
    record.dX2 = record.dGY = words.Real();
    record.dX3 = record.dGZ = words.Real();
    return rTable.Add(iID, record);
}

void CTakenRecords::Add(std::int32_t iID, const T_ELEM_D& record) {
    using RECORDS = CRecords<T_ELEM_D>;
    std::size_t nNodes = 0;
    const std::uint16_t nForm = RECORDS::FormOf(record, nNodes);
    const std::size_t nWords = RECORDS::CountWords(nForm, nNodes);
    std::uint32_t* const pWords = MakeRoom(TAKEN_ELEMENT, iID, 1 + nWords);
    pWords[0] = static_cast<std::uint32_t>(nWords << 16 | nForm);
    RECORDS::Write(record, nForm, nNodes, pWords + 1);
}

bool CTakenRecords::Put(std::size_t& rPlace, CMap<T_ELEM_D>& rTable) const {
    const std::int32_t iID = IdAt(rPlace);
    const std::uint32_t nHead = m_aWords[rPlace + 1];
    const std::span aWords(&m_aWords[rPlace + 2], nHead >> 16);
    rPlace += 2 + aWords.size();
    return rTable.Add(iID, CRecords<T_ELEM_D>::T_WORDS_D{static_cast<std::uint16_t>(nHead), aWords});
}

void CTakenRecords::Add(std::int32_t iSID, const T_MBLD_D& entry) {
    CLoadEntries::ROOM aRoom;
    const std::span aWords = CLoadEntries::Pack(entry, aRoom);
    std::uint32_t* const pWords = MakeRoom(TAKEN_LOAD, iSID, 1 + aWords.size());
    pWords[0] = static_cast<std::uint32_t>(aWords.size());
    std::copy(aWords.begin(), aWords.end(), pWords + 1);
}

void CTakenRecords::Put(std::size_t& rPlace, CLoadEntries& rEntries) const {
    const std::span aWords(&m_aWords[rPlace + 2], m_aWords[rPlace + 1]);
    rEntries.AddWords(aWords);
    rPlace += 2 + aWords.size();
}

void CTakenRecords::Add(std::int32_t iSID, const T_NTLD_D& entry) {
    CWordWriter words(MakeRoom(TAKEN_TEMPERATURE, iSID, 1 + REAL_WORDS));
    words.Int(entry.iNODE);
    words.Real(entry.dTEMP);
}

void CTakenRecords::Put(std::size_t& rPlace, CArray<T_NTLD_D>& rEntries) const {
    CWordReader words(&m_aWords[rPlace + 1]);
    const std::int32_t iNode = words.Int();
    rEntries.Add({iNode, words.Real()});
    rPlace += 2 + REAL_WORDS;
}

void CTakenRecords::Add(std::int32_t iSID, std::span<const T_CNND_D> aGrids, bool bLast) {
    std::uint32_t* pWords = MakeRoom(TAKEN_SUPPORT, iSID, 1 + 2 * aGrids.size());
    *pWords++ = static_cast<std::uint32_t>(aGrids.size() << 1 | (bLast ? 1 : 0));
    for (const T_CNND_D& rGrid : aGrids) {
        *pWords++ = static_cast<std::uint32_t>(rGrid.iNODE);
        *pWords++ = BitsOf(rGrid.bDOF) | (rGrid.bZERO ? ZERO_BIT : 0) | (rGrid.bSPC1 ? SPC1_BIT : 0);
    }
}

bool CTakenRecords::Put(std::size_t& rPlace, CArray<T_CNND_D>& rEntries) const {
    const std::uint32_t nHead = m_aWords[rPlace + 1];
    rPlace += 2;
    for (const std::size_t iEnd = rPlace + 2 * std::size_t(nHead >> 1); rPlace < iEnd; rPlace += 2) {
        const std::uint32_t nBits = m_aWords[rPlace + 1];
        rEntries.Add({IdAt(rPlace), ComponentsOf(nBits), (nBits & ZERO_BIT) != 0, (nBits & SPC1_BIT) != 0});
    }
    return (nHead & 1) != 0;
}
