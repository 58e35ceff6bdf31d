// The target file: its name, its opening and closing, and the order of its sections.

#include "driver/CConvertNastran.h"

#include "platform/Dialogs.h"
#include "writer/Output.h"

std::string CConvertNastran::TargetPath(const std::string& sPath) {
    return sPath.substr(0, sPath.rfind('.')) + ".zdt";
}

/// Writes the model beside the deck sPath, or where the host wants it. Returns 1, also when the file fails, which the
/// user is told; 0 if a section writer gave up. Throws CRunError if the limit on output is passed: what was written up
/// to there stays, as of a file that fails.
int CConvertNastran::WriteZdtFile(const std::string& sPath) {
    CFile own;
    CFile* pFile = &own;
    const std::int64_t nMost = m_limits.MostOutput(m_nBytesRead);
    try {
        pFile = &OpenTarget(own, sPath);
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

/// The file of the host, or rFile opened on the target file of the deck sPath.
CFile& CConvertNastran::OpenTarget(CFile& rFile, const std::string& sPath) {
    if (m_pOutput) {
        T_INPUTS decks;
        for (const T_DECK_D& rDeck : m_aIncludeFiles) decks.emplace(rDeck.id, "the deck " + rDeck.sPATH);
        return m_pOutput->Open(decks);
    }
    std::vector<T_FILEID_D> aKeep;
    for (const T_DECK_D& rDeck : m_aIncludeFiles) aKeep.push_back(rDeck.id);
    rFile.Create(TargetPath(sPath), aKeep);
    return rFile;
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
