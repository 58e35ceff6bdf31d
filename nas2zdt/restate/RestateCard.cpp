// Writes what a rule made of a card.

#include "nas2zdt/restate/RestateCard.h"

#include <algorithm>

void CRestateCard::Clear() {
    m_bDropped = false;
    m_sNewKeyword.clear();
    m_mapChanged.clear();
    m_aWritten.clear();
    m_aTold.clear();
}

void CRestateCard::Finish(CCardWriter& rWriter) const {
    if (!m_bDropped) {
        const std::size_t nChanged = m_mapChanged.empty() ? 0 : m_mapChanged.rbegin()->first + 1;
        std::vector<CFieldValue> aFields(std::max(GetCount(), nChanged));
        for (std::size_t i = 0; i < aFields.size(); ++i) {
            const auto pChanged = m_mapChanged.find(i);
            aFields[i] = pChanged == m_mapChanged.end() ? CFieldValue(Text(i)) : pChanged->second;
        }
        rWriter.Write(m_sNewKeyword.empty() ? GetKeyword() : m_sNewKeyword, aFields);
    }
    for (const T_WRITTEN_D& rWritten : m_aWritten) rWriter.Write(rWritten.sKEYWORD, rWritten.aFIELDS);
}
