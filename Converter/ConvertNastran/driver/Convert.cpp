// One run from the deck to the target file.

#include "driver/CConvertNastran.h"

#include "messages/MsgDll.h"
#include "platform/Dialogs.h"

#include <exception>
#include <new>
#include <utility>

CConvertNastran::CConvertNastran(CDialogs& rDialogs)
    : m_rDialogs(rDialogs), m_pDataPool(std::make_unique<CDataPool>()),
      m_pMsgMgr(std::make_unique<CZdtMsgMgr>(rDialogs)) {}

CConvertNastran::~CConvertNastran() = default;

int CConvertNastran::Convert(const std::string& sPath) {
    try {
        m_failure = {};
        RunConversion(sPath);
    } catch (...) {
        KeepFailure();
    }
    m_reader.Close();
    return m_failure.eFAILURE == FAILURE_NONE ? 1 : 0;
}

/// Makes the reason of the exception in hand. Memory may be what is missing, so each text stays empty if there is no
/// room for it.
void CConvertNastran::KeepFailure() noexcept {
    const auto keep = [](std::string& rText, const auto& value) {
        try {
            rText = value;
        } catch (const std::bad_alloc&) { // the kind of the failure says enough
            rText.clear();
        }
    };
    const bool bReading = m_iCurDeck < m_aIncludeFiles.size();
    try {
        throw;
    } catch (const CRunError& rError) {
        m_failure.eFAILURE = rError.m_eFailure;
        m_failure.iLINE = rError.m_iLine;
        m_failure.nLIMIT = rError.m_nLimit;
    } catch (const std::exception& rError) {
        const bool bExhausted = IsOutOfMemory(rError);
        m_failure.eFAILURE = bExhausted ? FAILURE_EXHAUSTED : FAILURE_INTERNAL;
        if (bExhausted && bReading) m_failure.iLINE = m_iLineNo;
        if (!bExhausted) keep(m_failure.sCAUSE, rError.what());
    } catch (...) { // what a host's dialogs may throw
        m_failure.eFAILURE = FAILURE_INTERNAL;
    }
    if (bReading) {
        keep(m_failure.sFILE, m_aIncludeFiles[m_iCurDeck].sPATH);
    } else if (m_failure.nLIMIT > 0) {
        keep(m_failure.sFILE, m_aIncludeFiles.front().sPATH);
    }
}

void CConvertNastran::RunConversion(const std::string& sPath) {
    m_nPSHELL = 0;
    m_aIncludeFiles.push_back({sPath, 0, {}});
    // INCLUDE cards add to the list as it is walked.
    for (m_iCurDeck = 0; m_iCurDeck < m_aIncludeFiles.size(); ++m_iCurDeck) ReadDeck();
    m_pDataPool->m_pMsgMgr = m_pMsgMgr.get();
    m_pDataPool->m_pLeftSink = m_pObserver;
    m_pDataPool->m_nMostCarried = m_limits.nFRAMES;
    m_pDataPool->ResolveModel();
    if (!WriteZdtFile(sPath)) throw CRunError(FAILURE_NOT_WRITTEN);
    WriteSummary();
    m_pMsgMgr->ShowMessages();
}

/// Reads the deck at m_iCurDeck. Throws CRunError if it can't be opened or includes itself.
void CConvertNastran::ReadDeck() {
    const bool bMain = m_iCurDeck == 0;
    if (!m_reader.Open(m_aIncludeFiles[m_iCurDeck].sPATH, m_failure.sCAUSE)) {
        throw CRunError(bMain ? FAILURE_DECK_NOT_OPENED : FAILURE_INCLUDE_NOT_OPENED);
    }
    m_aIncludeFiles[m_iCurDeck].id = m_reader.GetId();
    TestIncludeCycle();
    if (bMain) LogBanner(m_sDeckName.empty() ? m_aIncludeFiles[0].sPATH : m_sDeckName);
    if (m_pObserver) m_pObserver->OnDeckBegin(m_aIncludeFiles[m_iCurDeck].sPATH);
    const std::size_t nBefore = m_aIncludeFiles.size();
    ReadDeckFile();
    if (m_aIncludeFiles.size() > nBefore) m_setIncluding.insert(m_aIncludeFiles[m_iCurDeck].id);
    m_nBytesRead += static_cast<std::int64_t>(m_reader.GetBytesRead());
    if (m_pObserver) m_pObserver->OnDeckEnd(m_iSection == 2);
    m_reader.Close();
}

/// A deck may be included again and again by different roads, but a road that leads back to where it came from would
/// never end. The road is walked only for a deck that includes others, and once for all cards that name it in a deck.
void CConvertNastran::TestIncludeCycle() {
    const T_FILEID_D id = m_aIncludeFiles[m_iCurDeck].id;
    if (!m_setIncluding.contains(id)) return;
    const std::size_t iOrigin = m_aIncludeFiles[m_iCurDeck].iORIGIN;
    if (std::exchange(m_iTestedOrigin, iOrigin) != iOrigin) m_setTested.clear();
    if (!m_setTested.insert(id).second) return;
    for (std::size_t iDeck = m_iCurDeck; iDeck != 0;) {
        iDeck = m_aIncludeFiles[iDeck].iORIGIN;
        if (m_aIncludeFiles[iDeck].id == id) throw CRunError(FAILURE_INCLUDE_CYCLE);
    }
}

void CConvertNastran::LogBanner(const std::string& sPath) {
    LogMessage("");
    LogMessage("================================== [ Conversion Information ] =======================================");
    LogMessage("");
    LogMessage("** Original File   : %s", sPath);
    LogMessage("** Conversed By    : ZENTA Nastran 5.5.0 Convertor");
    LogMessage("** Limitation");
    LogMessage("  - %s", g_pfnLoadStr("IDS_NASTRAN_Input_file_maked_by_FEAMAP_is_required"));
    LogMessage("");
    LogMessage(std::string(100, '='));
    LogMessage("");
}
