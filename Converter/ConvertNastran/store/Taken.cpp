// Words of records on their way.

#include "store/Taken.h"

void CTakenRecords::Add(std::int32_t iID, const T_NODS_D& record) {
    const bool bMore = record.Traits() != 0;
    CWordWriter words(MakeRoom(2 + (bMore ? 2 : 0) + 3 * REAL_WORDS));
    words.Int(iID);
    std::int32_t iHeld = 0;
    for (std::size_t i = 0; i < record.bPS.size(); ++i) iHeld |= record.bPS[i] << i;
    words.Int(bMore ? iHeld << 1 | 1 : 0);
    if (bMore) {
        words.Int(record.iCP);
        words.Int(record.iCD);
    }
    for (const double d : {record.dX1, record.dX2, record.dX3}) words.Real(d);
}

std::int32_t CTakenRecords::Take(std::size_t& rPlace, T_NODS_D& rRecord) const {
    CWordReader words(&m_aWords[rPlace]);
    const std::int32_t iID = words.Int();
    const std::int32_t iMore = words.Int();
    rRecord.iCP = rRecord.iCD = 0;
    if (iMore != 0) {
        rRecord.iCP = words.Int();
        rRecord.iCD = words.Int();
    }
    for (std::size_t i = 0; i < rRecord.bPS.size(); ++i) rRecord.bPS[i] = (iMore >> (i + 1) & 1) != 0;
    rRecord.dX1 = rRecord.dGX = words.Real();
    rRecord.dX2 = rRecord.dGY = words.Real();
    rRecord.dX3 = rRecord.dGZ = words.Real();
    rPlace += 2 + (iMore != 0 ? 2 : 0) + 3 * REAL_WORDS;
    return iID;
}

void CTakenRecords::Add(std::int32_t iID, const T_ELEM_D& record) {
    using RECORDS = CRecords<T_ELEM_D>;
    std::size_t nNodes = 0;
    const std::uint16_t nForm = RECORDS::FormOf(record, nNodes);
    const std::size_t nWords = RECORDS::CountWords(nForm, nNodes);
    std::uint32_t* const pWords = MakeRoom(2 + nWords);
    pWords[0] = static_cast<std::uint32_t>(iID);
    pWords[1] = static_cast<std::uint32_t>(nWords << 16 | nForm);
    RECORDS::Write(record, nForm, nNodes, pWords + 2);
}

std::int32_t CTakenRecords::Take(std::size_t& rPlace, T_ELEM_D& rRecord) const {
    const std::uint32_t* const pWords = &m_aWords[rPlace];
    rRecord = CRecords<T_ELEM_D>::Read(static_cast<std::uint16_t>(pWords[1]), pWords + 2);
    rPlace += 2 + (pWords[1] >> 16);
    return static_cast<std::int32_t>(pWords[0]);
}
