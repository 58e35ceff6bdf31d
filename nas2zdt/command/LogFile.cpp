// The log of all decks in a file.

#include "nas2zdt/command/LogFile.h"

CLogFile::CLogFile(const std::string& sPath, const T_INPUTS& rInputs) : m_sPath(sPath), m_rInputs(rInputs) {}

void CLogFile::Open() {
    if (!m_pFile) m_pFile = std::make_unique<CWholeFile>(m_sPath, m_rInputs);
}

void CLogFile::Write(const std::vector<std::string>& aLines) {
    Open();
    for (const std::string& sLine : aLines) {
        m_pFile->GetFile().Write(sLine);
        m_pFile->GetFile().Write("\n");
    }
}

void CLogFile::Add(const std::vector<std::string>& aLines) {
    if (m_sPath.empty() || m_pFailure) return;
    if (!m_pFile && FindTarget(m_sPath).eTARGET == TARGET_STREAM) {
        m_aWaiting.insert(m_aWaiting.end(), aLines.begin(), aLines.end());
        return;
    }
    try {
        Write(aLines);
    } catch (const CFileException& rError) {
        m_pFailure = std::make_unique<CFileException>(rError);
    }
}

void CLogFile::Save() {
    if (m_sPath.empty()) return;
    if (m_pFailure) throw CFileException(*m_pFailure);
    Write(m_aWaiting);
    m_pFile->Finish();
}
