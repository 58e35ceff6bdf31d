// Words of load entries.

#include "store/LoadEntries.h"

#include <algorithm>
#include <stdexcept>

namespace {

/// What an entry begins with: its codes, and which of its parts follow.
struct T_HEAD_D {
    /// A value is zero, the same as the one before, or stands among the words.
    enum E_VALUE : std::uint8_t { VALUE_ZERO, VALUE_SAME, VALUE_OWN };

    std::int8_t iKIND = 0, iFORM = 0, iSCALE = 0, iDIR = 0; // the kind in the lowest byte
    bool bCID = false, bFACE = false, bGRIDS = false, bDIRECTION = false;
    std::array<std::uint8_t, 6> aVALUES = {}; // E_VALUE

    explicit T_HEAD_D(const T_MBLD_D& r)
        : iKIND(r.iKIND), iFORM(r.iFORM), iSCALE(r.iSCALE), iDIR(r.iDIR), bCID(r.iCID != 0),
          bFACE(r.iFACEG1 != 0 || r.iFACEG34 != 0) {
        for (const std::int32_t iGrid : r.iG) bGRIDS |= iGrid != 0;
        for (const double d : r.dN) bDIRECTION |= !IsSameReal(d, 0.0);
        for (std::size_t i = 0; i < aVALUES.size(); ++i) {
            if (IsSameReal(r.dV[i], 0.0)) continue;
            aVALUES[i] = i > 0 && IsSameReal(r.dV[i], r.dV[i - 1]) ? VALUE_SAME : VALUE_OWN;
        }
    }

    explicit T_HEAD_D(std::uint32_t nWord)
        : iKIND(static_cast<std::int8_t>(nWord)), iFORM(nWord >> 8 & 3), iSCALE(nWord >> 10 & 7), iDIR(nWord >> 13 & 7),
          bCID(nWord >> 16 & 1), bFACE(nWord >> 17 & 1), bGRIDS(nWord >> 18 & 1), bDIRECTION(nWord >> 19 & 1) {
        for (std::size_t i = 0; i < aVALUES.size(); ++i) aVALUES[i] = nWord >> (20 + 2 * i) & 3;
    }

    std::uint32_t Word() const {
        std::uint32_t nWord = static_cast<std::uint8_t>(iKIND) | Bits(iFORM, 8) | Bits(iSCALE, 10) | Bits(iDIR, 13) |
                              Bits(bCID, 16) | Bits(bFACE, 17) | Bits(bGRIDS, 18) | Bits(bDIRECTION, 19);
        for (std::size_t i = 0; i < aVALUES.size(); ++i) nWord |= Bits(aVALUES[i], 20 + 2 * i);
        return nWord;
    }

    /// Of the whole entry.
    std::size_t CountWords() const {
        std::size_t nWords = 2 + (bCID ? 1u : 0u) + (bFACE ? 2u : 0u) + (bGRIDS ? 4u : 0u);
        for (const std::uint8_t nValue : aVALUES) nWords += nValue == VALUE_OWN ? REAL_WORDS : 0;
        return nWords + (bDIRECTION ? 3 * REAL_WORDS : 0);
    }

  private:
    static std::uint32_t Bits(int iValue, std::size_t nShift) { return static_cast<std::uint32_t>(iValue) << nShift; }
};

void Write(const T_MBLD_D& r, const T_HEAD_D& rHead, std::uint32_t* pWords) {
    CWordWriter words(pWords);
    words.Int(static_cast<std::int32_t>(rHead.Word()));
    words.Int(r.iID);
    if (rHead.bCID) words.Int(r.iCID);
    if (rHead.bFACE) words.Int(r.iFACEG1);
    if (rHead.bFACE) words.Int(r.iFACEG34);
    if (rHead.bGRIDS) {
        for (const std::int32_t iGrid : r.iG) words.Int(iGrid);
    }
    for (std::size_t i = 0; i < r.dV.size(); ++i) {
        if (rHead.aVALUES[i] == T_HEAD_D::VALUE_OWN) words.Real(r.dV[i]);
    }
    if (rHead.bDIRECTION) {
        for (const double d : r.dN) words.Real(d);
    }
}

} // namespace

T_MBLD_D CLoadEntries::operator[](std::size_t i) const {
    CWordReader words(m_words.At(m_aPlaces[i]));
    const T_HEAD_D head(static_cast<std::uint32_t>(words.Int()));
    T_MBLD_D r;
    r.iKIND = head.iKIND;
    r.iFORM = head.iFORM;
    r.iSCALE = head.iSCALE;
    r.iDIR = head.iDIR;
    r.iID = words.Int();
    if (head.bCID) r.iCID = words.Int();
    if (head.bFACE) r.iFACEG1 = words.Int();
    if (head.bFACE) r.iFACEG34 = words.Int();
    if (head.bGRIDS) {
        for (std::int32_t& rGrid : r.iG) rGrid = words.Int();
    }
    for (std::size_t k = 0; k < r.dV.size(); ++k) {
        if (head.aVALUES[k] == T_HEAD_D::VALUE_OWN) r.dV[k] = words.Real();
        if (head.aVALUES[k] == T_HEAD_D::VALUE_SAME) r.dV[k] = r.dV[k - 1];
    }
    if (head.bDIRECTION) {
        for (double& rValue : r.dN) rValue = words.Real();
    }
    return r;
}

void CLoadEntries::Add(const T_MBLD_D& rEntry) {
    ROOM aRoom;
    AddWords(Pack(rEntry, aRoom));
}

std::span<const std::uint32_t> CLoadEntries::Pack(const T_MBLD_D& rEntry, ROOM& rRoom) {
    const T_HEAD_D head(rEntry);
    Write(rEntry, head, rRoom.data());
    return std::span(rRoom).first(head.CountWords());
}

void CLoadEntries::AddWords(std::span<const std::uint32_t> aWords) {
    const std::uint32_t iPlace = m_words.Add(aWords.size());
    std::copy(aWords.begin(), aWords.end(), m_words.At(iPlace));
    m_aPlaces.Add(iPlace);
    m_aKinds.push_back(static_cast<std::int8_t>(aWords.front()));
}

/// An entry that needs more words than the one before goes elsewhere.
void CLoadEntries::Replace(std::size_t i, const T_MBLD_D& rEntry) {
    const T_HEAD_D head(rEntry), before(*m_words.At(m_aPlaces[i]));
    if (head.CountWords() > before.CountWords()) m_aPlaces[i] = m_words.Add(head.CountWords());
    Write(rEntry, head, m_words.At(m_aPlaces[i]));
    m_aKinds[i] = rEntry.iKIND;
}
