// The target file: its name, its opening and closing, and the order of its sections.

#include "driver/CConvertNastran.h"

#include "platform/Dialogs.h"

std::string CConvertNastran::TargetPath(const std::string& sPath) {
    return sPath.substr(0, sPath.rfind('.')) + ".zdt";
}

/// Writes the model beside the deck sPath, or where the host wants it. Returns 1, also when the file fails, which the
/// user is told; 0 if a section writer gave up. Throws CRunError if the limit on output is passed: what was written up
/// to there stays, as of a file that fails.
int CConvertNastran::WriteZdtFile(const std::string& sPath) {
    CFile file;
    const std::int64_t nMost = m_limits.MostOutput(m_nBytesRead);
    file.SetLimit(static_cast<std::uint64_t>(nMost));
    try {
        std::vector<T_FILEID_D> aKeep = m_aKeep;
        for (const T_DECK_D& rDeck : m_aIncludeFiles) aKeep.push_back(rDeck.id);
        file.Create(m_sTarget.empty() ? TargetPath(sPath) : m_sTarget, aKeep);
        const int iResult = WriteModel(file);
        file.Close();
        return iResult ? 1 : 0;
    } catch (const CFileTooLong&) {
        throw CRunError(FAILURE_LIMIT_OUTPUT, 0, nMost);
    } catch (const CFileException& rError) {
        m_rDialogs.ShowFileError(rError);
        file.Abort();
        return 1;
    }
}

/// The sections in the order of the file. Returns 0 at the first that does.
int CConvertNastran::WriteModel(CFile& rFile) {
    using WRITER = int (CConvertNastran::*)(CFile&);
    // clang-format off
    static constexpr WRITER STEPS[] = {
        &CConvertNastran::WriteFileVersion,
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
    for (const WRITER pfnWrite : STEPS) {
        if (!(this->*pfnWrite)(rFile)) return 0;
    }
    return 1;
}

int CConvertNastran::WriteFileVersion(CFile& rFile) {
    WriteLine(rFile, "*VERSION\n");
    return WriteLine(rFile, "  5.8.1\n\n");
}
