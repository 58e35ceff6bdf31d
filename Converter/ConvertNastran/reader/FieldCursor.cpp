// What a card of an observed run remembers.

#include "reader/FieldCursor.h"

void CFieldCursor::NoteMisread(std::string_view sField) {
    if (sField.find_first_not_of('\r') == std::string_view::npos) return;
    m_rCard.pUSE->aMISREAD.push_back(m_iNext - 1);
    m_rCard.pUSE->bTELL = true;
}

void CFieldCursor::NoteSkipped(std::size_t iFirst, std::initializer_list<const char*> aNames) {
    for (std::size_t i = iFirst; i < m_iNext; ++i) {
        if (!m_rCard.aFIELDS[i].empty()) m_rCard.pUSE->aSKIPPED.push_back({i, aNames.begin()[i - iFirst]});
    }
    m_rCard.pUSE->bTELL = true;
}
