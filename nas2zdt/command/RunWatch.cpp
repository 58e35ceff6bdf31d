// Handing on what a run tells.

#include "nas2zdt/command/RunWatch.h"

#include "platform/Paths.h"

#include <system_error>
#include <utility>

void CRunWatch::OnDeckBegin(const std::string& sPath) {
    const std::string& sName = std::exchange(m_bMain, false) ? m_sDeck : sPath; // a joined deck has no name of its own
    if (m_pAccount) m_pAccount->BeginDeck(sName);
    if (!m_rProgress.IsShown()) return;
    std::error_code error;
    const std::uintmax_t nBytes = std::filesystem::file_size(ToPath(sPath), error);
    m_rProgress.Begin(sName, error ? 0 : nBytes);
}

std::string CRunWatch::LineText(std::int32_t iLine) const {
    if (!m_pLines) return CDeckObserver::LineText(iLine);
    const T_ORIGIN_D origin = m_pLines->Find(iLine);
    return origin.sFILE + ":" + std::to_string(origin.iLINE);
}
