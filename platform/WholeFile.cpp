// The output file has a temporary name until it is finished.

#include "platform/WholeFile.h"

namespace {

void Refuse(const T_TARGET_D& rTarget, const std::string& sShown, const T_INPUTS& rInputs) {
    if (rTarget.eTARGET != TARGET_FILE) return;
    const auto pInput = rInputs.find(rTarget.id);
    if (pInput != rInputs.end()) throw CFileException(sShown, "would overwrite " + pInput->second);
}

} // namespace

void RefuseInput(const std::string& sPath, const T_INPUTS& rInputs) {
    Refuse(FindTarget(sPath), sPath, rInputs);
}

CWholeFile::CWholeFile(const std::string& sPath, const T_INPUTS& rInputs) : m_rInputs(rInputs), m_sShown(sPath) {
    const T_TARGET_D target = FindTarget(sPath);
    if (target.eTARGET == TARGET_STREAM) {
        if (!m_file.JoinStandardStream(target, sPath)) m_file.Create(sPath);
        return;
    }
    Refuse(target, sPath, rInputs);
    m_sPath = target.sPATH;
    m_temporary.MakeFile(m_file, target, sPath);
}

void CWholeFile::Finish() {
    m_file.Close();
    if (m_temporary.GetPath().empty()) return;
    RefuseInput(m_sPath, m_rInputs);
    m_temporary.Rename(m_sPath, m_sShown);
}
