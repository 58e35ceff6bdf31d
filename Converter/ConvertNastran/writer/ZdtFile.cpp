// The target file: its name, its opening and closing, and the order of its sections.

#include "driver/CConvertNastran.h"
#include "platform/Dialogs.h"
#include "writer/Section.h"

namespace {

/// The file of the host or, without one, rOwn opened beside the main deck sPath.
CFile& OpenTarget(COutput* pOutput, const std::string& sPath, const CDeckList& rDecks, CFile& rOwn) {
    T_INPUTS decks;
    for (const T_DECK_D& rDeck : rDecks.GetDecks()) decks.emplace(rDeck.id, "the deck " + rDeck.sPATH);
    if (pOutput) return pOutput->Open(decks);
    std::vector<T_FILEID_D> aKeep;
    for (const auto& [id, sDeck] : decks) aKeep.push_back(id);
    rOwn.Create(CConvertNastran::TargetPath(sPath), aKeep);
    return rOwn;
}

} // namespace

std::string CConvertNastran::TargetPath(const std::string& sPath) {
    return sPath.substr(0, sPath.rfind('.')) + ".zdt";
}

/// Writes the model beside the deck sPath, or where the host wants it. Returns 1, also when the file fails, which the
/// user is told; 0 if a section writer gave up. Throws CRunError if the limit on output is passed: what was written up
/// to there stays, as of a file that fails.
int CConvertNastran::WriteZdtFile(const std::string& sPath) {
    CFile own;
    CFile* pFile = &own;
    const std::int64_t nMost = m_options.limits.MostOutput(m_aIncludeFiles.GetBytesRead());
    try {
        pFile = &OpenTarget(m_options.pOUTPUT, sPath, m_aIncludeFiles, own);
        pFile->SetLimit(static_cast<std::uint64_t>(nMost));
        const int iResult = WriteModel(*pFile);
        pFile->Close();
        return iResult ? 1 : 0;
    } catch (const CFileTooLong&) {
        throw CRunError(FAILURE_LIMIT_OUTPUT, 0, nMost);
    } catch (const CFileException& rError) {
        m_rDialogs.ShowFileError(rError);
        pFile->Abort();
        return 1;
    }
}

/// The sections in the order of the file. Returns 0 at the first that does.
int CConvertNastran::WriteModel(CFile& rFile) {
    using WRITER = int (CConvertNastran::*)(CFile&);
    // clang-format off
    static constexpr WRITER STEPS[] = {
        &CConvertNastran::WriteNodeSection,
        &CConvertNastran::WriteElementSection,
        &CConvertNastran::WriteConrodSection,
        &CConvertNastran::WriteMaterialSection,
        &CConvertNastran::WriteSectionAndThickness,
        &CConvertNastran::WriteConstraintSection,
        &CConvertNastran::WriteLocalAxisSection,
        &CConvertNastran::WriteCelas1Links,
        &CConvertNastran::WriteCelas2Links,
        &CConvertNastran::WriteRbe2Links,
        &CConvertNastran::WriteBushGapProperties,
        &CConvertNastran::WriteBushGapLinks,
        &CConvertNastran::WriteMpcLinks,
        &CConvertNastran::WriteScalarProperties,
        &CConvertNastran::WriteScalarLinks,
        &CConvertNastran::WriteNodalMassSection,
        &CConvertNastran::WriteStaticLoadCases,
        &CConvertNastran::WriteLoadCombinations,
        &CConvertNastran::WriteEigenControl,
    };
    // clang-format on
    WriteFileVersion(rFile);
    for (const WRITER pfnWrite : STEPS) {
        if (!(this->*pfnWrite)(rFile)) return 0;
    }
    return 1;
}
