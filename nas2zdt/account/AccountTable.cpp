// The account as tables.

#include "nas2zdt/account/AccountOutput.h"
#include "platform/PlainText.h"

#include <algorithm>

namespace {

constexpr std::size_t SHOWN_PLACES = 8;

/// The columns of numbers.
struct T_COLUMN_D {
    std::string_view sTITLE;
    std::uint64_t T_WORD_D::*pVALUE;
};
constexpr T_COLUMN_D COLUMNS[] = {
    {"read", &T_WORD_D::nREAD},         {"stored", &T_WORD_D::nSTORED},   {"replaced", &T_WORD_D::nREPLACED},
    {"reported", &T_WORD_D::nREPORTED}, {"skipped", &T_WORD_D::nSKIPPED}, {"unknown", &T_WORD_D::nUNKNOWN},
    {"lost", &T_WORD_D::nLOST},         {"cut off", &T_WORD_D::nCUTOFF},
};
constexpr std::size_t NAME_WIDTH = 8;
constexpr std::size_t NUMBER_WIDTH = 9;

std::string Left(std::string sText, std::size_t nWidth) {
    if (sText.size() < nWidth) sText.resize(nWidth, ' ');
    return sText;
}
std::string Right(const std::string& sText, std::size_t nWidth) {
    return std::string(nWidth - std::min(sText.size(), nWidth), ' ') + sText;
}

/// The first column of a row.
std::string NameColumn(const std::string& sName) {
    return "  " + Left(sName.empty() ? "(none)" : PlainText(sName), NAME_WIDTH);
}

std::string PlaceText(const T_PLACE_D& rPlace, const CAccount& rAccount) {
    const T_ORIGIN_D origin = rAccount.GetOrigin(rPlace);
    std::string sText = rAccount.HasOneFile() ? std::string() : origin.sFILE;
    if (rPlace.iFIRST == 0) return origin.sFILE;
    if (!sText.empty()) sText += ":";
    sText += std::to_string(origin.iLINE);
    if (rPlace.iLAST != rPlace.iFIRST) sText += "-" + std::to_string(origin.iLINE + (rPlace.iLAST - rPlace.iFIRST));
    return sText;
}

/// Where a loss is, as far as it was kept and fits.
std::string PlacesText(const T_NOTE_D& rNote, const CAccount& rAccount) {
    std::string sText;
    std::size_t nShown = 0;
    for (; nShown < std::min(rNote.aPLACES.size(), SHOWN_PLACES); ++nShown) {
        sText += (nShown == 0 ? ": " : ", ") + PlaceText(rNote.aPLACES[nShown], rAccount);
    }
    for (; nShown < std::min(rNote.aIDS.size(), SHOWN_PLACES); ++nShown) {
        sText += (nShown == 0 ? ": " : ", ") + std::to_string(rNote.aIDS[nShown]);
    }
    const bool bMore = std::max(rNote.aPLACES.size(), rNote.aIDS.size()) > nShown;
    return sText + (bMore ? ", ..." : "");
}

std::string Row(const std::string& sName, const T_WORD_D& rWord) {
    std::string sRow = NameColumn(sName);
    for (const T_COLUMN_D& rColumn : COLUMNS) {
        const std::uint64_t nValue = rWord.*rColumn.pVALUE;
        sRow += Right(nValue == 0 ? "-" : std::to_string(nValue), NUMBER_WIDTH);
    }
    return sRow + "\n";
}

} // namespace

std::string AccountTable(const T_RESULT_D& rResult, const CAccount& rAccount) {
    const std::vector<const T_WORD_D*> aWords = rAccount.GetWords();
    std::string sText = "\nAccount of " + PlainText(rResult.sDECK) + "\n\n  " + Left("keyword", NAME_WIDTH);
    for (const T_COLUMN_D& rColumn : COLUMNS) sText += Right(std::string(rColumn.sTITLE), NUMBER_WIDTH);
    sText += "\n";
    T_WORD_D total;
    for (const T_WORD_D* pWord : aWords) {
        if (pWord->HasCounts()) sText += Row(pWord->sNAME, *pWord);
        for (const T_COLUMN_D& rColumn : COLUMNS) total.*rColumn.pVALUE += pWord->*rColumn.pVALUE;
    }
    sText += Row("total", total);

    const std::uint64_t nLosses = rAccount.GetLossCount();
    sText += nLosses == 0 ? "\nNothing was lost.\n" : "\nWhat was lost, with lines of the deck or ids:\n\n";
    for (const T_WORD_D* pWord : aWords) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            sText += NameColumn(pWord->sNAME) + Right(std::to_string(rNote.nCOUNT), NUMBER_WIDTH) + "  " +
                     NoteText(rNote) + PlainText(PlacesText(rNote, rAccount)) + "\n";
        }
    }

    if (rResult.aSECTIONS.empty()) return sText;
    constexpr std::size_t SECTION_WIDTH = 16;
    sText += "\nSections of " + PlainText(rResult.sTARGET) + "\n\n  " + Left("section", SECTION_WIDTH) +
             Right("blocks", NUMBER_WIDTH) + Right("lines", NUMBER_WIDTH) + "\n";
    for (const T_SECTION_D& rSection : rResult.aSECTIONS) {
        sText += "  " + Left(rSection.sNAME, SECTION_WIDTH) + Right(std::to_string(rSection.nBLOCKS), NUMBER_WIDTH) +
                 Right(std::to_string(rSection.nLINES), NUMBER_WIDTH) + "\n";
    }
    return sText;
}
