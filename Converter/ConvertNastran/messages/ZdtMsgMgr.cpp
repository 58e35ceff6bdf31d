// The log of a run.

#include "messages/ZdtMsgMgr.h"

#include "platform/Dialogs.h"
#include "platform/File.h"

void CZdtMsgMgr::InsertMessageF(std::string_view sFormat, TEXT_ARGS aArgs) {
    m_aMessages.insert(m_aMessages.begin(), FormatText(sFormat, aArgs));
}

void CZdtMsgMgr::AppendMessageF(std::string_view sFormat, TEXT_ARGS aArgs) {
    m_aMessages.push_back(FormatText(sFormat, aArgs));
}

void CZdtMsgMgr::AddMessageF(std::string_view sFormat, TEXT_ARGS aArgs) {
    if (!IsFull()) AddMessage(FormatText(sFormat, aArgs)); // a deck can log millions: don't format what is dropped
}

void CZdtMsgMgr::AddMessage(std::string sText) {
    if (!IsFull()) m_aMessages.push_back(std::move(sText));
}

void CZdtMsgMgr::ShowMessages() {
    if (!m_aMessages.empty()) m_rDialogs.ShowMessages(m_aMessages);
}

void CZdtMsgMgr::WriteMessages(CFile& rFile) const {
    for (const std::string& sLine : m_aMessages) {
        rFile.Write(sLine);
        rFile.Write("\n");
    }
}
