// One run from the deck to the target file.

#include "driver/CConvertNastran.h"
#include "messages/MsgDll.h"
#include "messages/ZdtMsgMgr.h"
#include "platform/Worker.h"
#include "reader/DeckObserver.h"
#include "store/DataPool.h"

namespace {

void LogBanner(CZdtMsgMgr& rLog, const std::string& sDeck) {
    rLog.AddMessage("");
    rLog.AddMessage(
        "================================== [ Conversion Information ] =======================================");
    rLog.AddMessage("");
    rLog.AddMessage("** Original File   : " + sDeck);
    rLog.AddMessage("** Conversed By    : ZENTA Nastran 5.5.0 Convertor");
    rLog.AddMessage("** Limitation");
    rLog.AddMessageF("  - %s", {g_pfnLoadStr("IDS_NASTRAN_Input_file_maked_by_FEAMAP_is_required")});
    rLog.AddMessage("");
    rLog.AddMessage(std::string(100, '='));
    rLog.AddMessage("");
}

} // namespace

CConvertNastran::CConvertNastran(CDialogs& rDialogs)
    : m_rDialogs(rDialogs), m_pDataPool(std::make_unique<CDataPool>()),
      m_pMsgMgr(std::make_unique<CZdtMsgMgr>(rDialogs)) {}

CConvertNastran::~CConvertNastran() = default;

int CConvertNastran::Convert(const std::string& sPath, const T_CONVERT_D& rOptions) {
    try {
        m_options = rOptions;
        m_nThreads = ChooseThreads(rOptions.nTHREADS);
        m_failure = {};
        m_nPSHELL = 0;
        m_card.pUSE = m_options.pOBSERVER ? &m_fieldUse : nullptr;
        m_fieldUse.Clear();
        m_pQuiet = m_options.pOBSERVER ? &m_options.pOBSERVER->GetQuiet() : nullptr;
        m_pDataPool->m_pLeftSink = m_options.pOBSERVER;
        ReadDecks(sPath);
        m_pDataPool->m_pMsgMgr = m_pMsgMgr.get();
        m_pDataPool->m_nMostCarried = m_options.limits.nFRAMES;
        m_pDataPool->m_nThreads = m_nThreads;
        m_pDataPool->ResolveModel();
        if (!WriteZdtFile(sPath)) throw CRunError(FAILURE_NOT_WRITTEN);
        WriteSummary();
        m_pMsgMgr->ShowMessages();
    } catch (...) {
        const bool bReading = !m_aIncludeFiles.IsAtEnd();
        m_failure.TakeException(bReading ? m_aIncludeFiles.GetCurrent().sPATH : std::string_view(), m_iLineNo);
        if (!bReading && m_failure.nLIMIT > 0) m_failure.SetFile(sPath);
    }
    m_fp.Close();
    return m_failure.eFAILURE == FAILURE_NONE ? 1 : 0;
}

/// Reads the main deck and those that it includes, which INCLUDE cards add to the list while it is walked.
void CConvertNastran::ReadDecks(const std::string& sPath) {
    for (m_aIncludeFiles.AddMain(sPath); !m_aIncludeFiles.IsAtEnd(); m_aIncludeFiles.Next(m_fp.GetBytesRead())) {
        const bool bMain = m_aIncludeFiles.IsMain();
        const std::string sDeck = m_aIncludeFiles.GetCurrent().sPATH;
        if (!m_fp.Open(sDeck, m_failure.sCAUSE)) {
            throw CRunError(bMain ? FAILURE_DECK_NOT_OPENED : FAILURE_INCLUDE_NOT_OPENED);
        }
        m_aIncludeFiles.Open(m_fp.GetId());
        if (bMain) LogBanner(*m_pMsgMgr, m_options.sDECKNAME.empty() ? sDeck : m_options.sDECKNAME);
        if (m_options.pOBSERVER) m_options.pOBSERVER->OnDeckBegin(sDeck);
        ShareDeck();
        ReadDeckFile();
        if (m_options.pOBSERVER) m_options.pOBSERVER->OnDeckEnd(m_iSection == 2);
        m_fp.Close();
    }
}

int CConvertNastran::LogMessage(std::string_view sFormat, TEXT_ARGS aArgs) {
    m_pMsgMgr->AddMessageF(sFormat, aArgs);
    return 0;
}
