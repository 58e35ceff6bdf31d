// Words of elements.

#include "store/ElementStore.h"

#include <algorithm>

namespace {

/// Node slots up to the last corner of a shape.
constexpr std::size_t CountSlots(std::int32_t iShape) {
    switch (iShape) {
    case SHAPE_LINE:
        return 2;
    case SHAPE_TRIA3:
    case SHAPE_TRIA6:
        return 3;
    case SHAPE_QUAD4:
    case SHAPE_QUAD8:
        return 4;
    case SHAPE_POINT:
        return 1;
    case SHAPE_TETRA:
        return 5;
    case SHAPE_PENTA:
        return 7;
    default:
        return 8;
    }
}

} // namespace

T_ELEM_D CRecords<T_ELEM_D>::Get(std::size_t i) const {
    return Read(m_aForms[i], m_words.At(m_aPlaces[i]));
}

T_ELEM_D CRecords<T_ELEM_D>::Read(std::uint16_t nForm, const std::uint32_t* pWords) {
    CWordReader words(pWords);
    T_ELEM_D record;
    record.iTYPE = TypeOfTraits(nForm & TRAITS);
    record.iSUBTYPE = ShapeOfTraits(nForm & TRAITS);
    record.iPID = words.Int();
    const std::size_t nNodes = nForm & WITH_NODES ? static_cast<std::size_t>(words.Int()) : CountSlots(record.iSUBTYPE);
    words.Ints(record.iNODE.First(nNodes));
    if (nForm & WITH_G0) {
        record.iG0 = words.Int();
        record.bVECTOR = words.Int();
    }
    if (nForm & (WITH_ANGLE | WITH_VECTOR)) record.dX1 = words.Real();
    if (nForm & WITH_VECTOR) {
        record.dX2 = words.Real();
        record.dX3 = words.Real();
    }
    return record;
}

/// A line gets a vector in any case, since its orientation becomes one.
std::uint16_t CRecords<T_ELEM_D>::FormOf(const T_ELEM_D& record, std::size_t& rNodes) {
    const bool bLine = record.iSUBTYPE == SHAPE_LINE;
    auto nForm = static_cast<unsigned>(record.Traits() & TRAITS);
    const std::size_t nUsual = CountSlots(record.iSUBTYPE);
    rNodes = record.iNODE.Count(nUsual);
    if (rNodes > nUsual) nForm |= WITH_NODES;
    if (bLine || record.iG0 != 0 || record.bVECTOR != 0) nForm |= WITH_G0;
    if (bLine || !IsSameReal(record.dX2, 0.0) || !IsSameReal(record.dX3, 0.0)) {
        nForm |= WITH_VECTOR;
    } else if (!IsSameReal(record.dX1, 0.0)) {
        nForm |= WITH_ANGLE;
    }
    return static_cast<std::uint16_t>(nForm);
}

std::size_t CRecords<T_ELEM_D>::CountWords(std::uint16_t nForm, std::size_t nNodes) {
    std::size_t nWords = 1 + nNodes + (nForm & WITH_NODES ? 1 : 0) + (nForm & WITH_G0 ? 2 : 0);
    if (nForm & WITH_ANGLE) nWords += REAL_WORDS;
    if (nForm & WITH_VECTOR) nWords += 3 * REAL_WORDS;
    return nWords;
}

void CRecords<T_ELEM_D>::Write(const T_ELEM_D& record, std::uint16_t nForm, std::size_t nNodes, std::uint32_t* pWords) {
    CWordWriter words(pWords);
    words.Int(record.iPID);
    if (nForm & WITH_NODES) words.Int(static_cast<std::int32_t>(nNodes));
    words.Ints(record.iNODE.First(nNodes));
    if (nForm & WITH_G0) {
        words.Int(record.iG0);
        words.Int(record.bVECTOR);
    }
    if (nForm & (WITH_ANGLE | WITH_VECTOR)) words.Real(record.dX1);
    if (nForm & WITH_VECTOR) {
        words.Real(record.dX2);
        words.Real(record.dX3);
    }
}

void CRecords<T_ELEM_D>::Make(std::size_t i, const T_ELEM_D& record) {
    std::size_t nNodes = 0;
    const std::uint16_t nForm = FormOf(record, nNodes);
    const std::uint32_t iPlace = m_words.Add(CountWords(nForm, nNodes));
    Write(record, nForm, nNodes, m_words.At(iPlace));
    m_aForms.Set(i, nForm);
    m_aPlaces.Set(i, iPlace);
}

void CRecords<T_ELEM_D>::Make(std::size_t i, const T_WORDS_D& record) {
    const std::uint32_t iPlace = m_words.Add(record.aWORDS.size());
    std::copy(record.aWORDS.begin(), record.aWORDS.end(), m_words.At(iPlace));
    m_aForms.Set(i, record.nFORM);
    m_aPlaces.Set(i, iPlace);
}

void CRecords<T_ELEM_D>::Replace(std::size_t i, const T_ELEM_D& record) {
    const std::uint16_t nBefore = m_aForms[i];
    const std::size_t nSlots = CountSlots(ShapeOfTraits(nBefore & TRAITS));
    const std::size_t nRoom = CountWords(nBefore, nBefore & WITH_NODES ? m_words.At(m_aPlaces[i])[1] : nSlots);
    std::size_t nNodes = 0;
    const std::uint16_t nForm = FormOf(record, nNodes);
    if (CountWords(nForm, nNodes) > nRoom) return Make(i, record);
    Write(record, nForm, nNodes, m_words.At(m_aPlaces[i]));
    m_aForms[i] = nForm;
}
