// Formats the account as tables and as JSON.

#include "nas2zdt/account/AccountOutput.h"

#include "nas2zdt/text/Json.h"
#include "nas2zdt/text/TextReader.h"
#include "platform/PlainText.h"

#include <algorithm>
#include <numeric>
#include <span>

namespace {

/// The numbers of a word, by their names in JSON.
struct T_COLUMN_D {
    std::string_view sNAME;
    std::uint64_t T_WORD_D::*pVALUE;
};
constexpr T_COLUMN_D COLUMNS[] = {
    {"read", &T_WORD_D::nREAD},         {"stored", &T_WORD_D::nSTORED},   {"replaced", &T_WORD_D::nREPLACED},
    {"reported", &T_WORD_D::nREPORTED}, {"skipped", &T_WORD_D::nSKIPPED}, {"unknown", &T_WORD_D::nUNKNOWN},
    {"lost", &T_WORD_D::nLOST},         {"cut_off", &T_WORD_D::nCUTOFF},
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
    if (rPlace.iFIRST == 0) return origin.sFILE;
    std::string sText = (rAccount.HasOneFile() ? "" : origin.sFILE + ":") + std::to_string(origin.iLINE);
    if (rPlace.iLAST != rPlace.iFIRST) sText += "-" + std::to_string(origin.iLINE + (rPlace.iLAST - rPlace.iFIRST));
    return sText;
}

/// The first places or ids of a loss.
std::string PlacesText(const T_NOTE_D& rNote, const CAccount& rAccount) {
    constexpr std::size_t SHOWN_PLACES = 8;
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

std::string WordObject(const T_WORD_D& rWord) {
    std::string sText = "{\"keyword\":" + JsonText(rWord.sNAME);
    for (const T_COLUMN_D& rColumn : COLUMNS) sText += "," + JsonMember(rColumn.sNAME, rWord.*rColumn.pVALUE);
    return sText + "}";
}

std::string PlaceObject(const T_PLACE_D& rPlace, const CAccount& rAccount) {
    const T_ORIGIN_D origin = rAccount.GetOrigin(rPlace);
    const auto iLast = static_cast<std::int64_t>(origin.iLINE) + (rPlace.iLAST - rPlace.iFIRST);
    return "{\"file\":" + JsonText(origin.sFILE) + ",\"first\":" + std::to_string(origin.iLINE) +
           ",\"last\":" + std::to_string(iLast) + "}";
}

std::string LossObject(const T_WORD_D& rWord, const T_NOTE_D& rNote, const CAccount& rAccount) {
    const std::span aPlaces = std::span(rNote.aPLACES).first(std::min(rNote.aPLACES.size(), T_NOTE_D::MOST_PLACES));
    return "{\"class\":" + JsonText(ClassName(rNote.eCLASS)) + ",\"kind\":" + JsonText(NoteKind(rNote)) +
           ",\"keyword\":" + JsonText(rWord.sNAME) + ",\"code\":" + JsonText(NoteCode(rNote.eNOTE)) +
           ",\"text\":" + JsonText(NoteText(rNote)) + "," + JsonMember("count", rNote.nCOUNT) +
           ",\"places\":" + JsonArray(aPlaces, [&](const T_PLACE_D& rPlace) { return PlaceObject(rPlace, rAccount); }) +
           ",\"ids\":" + JsonArray(rNote.aIDS, [](std::int32_t iID) { return std::to_string(iID); }) + "}";
}

std::string SectionObject(const T_SECTION_D& rSection) {
    return "{\"section\":" + JsonText(rSection.sNAME) + "," + JsonMember("blocks", rSection.nBLOCKS) + "," +
           JsonMember("lines", rSection.nLINES) + "}";
}

/// The losses of a class, each a line.
std::string ClassTable(const CAccount& rAccount, E_LOSS_CLASS eClass) {
    constexpr std::string_view TITLES[] = {
        "Lost or changed in the model, with lines of the deck or ids:",
        "Lost of its mass:",
        "Lost of what controls the analysis:",
        "Changed without consequences for results:",
    };
    static_assert(std::size(TITLES) == CLASS_COUNT);
    std::string sText;
    for (const T_WORD_D* pWord : rAccount.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (rNote.eCLASS != eClass) continue;
            sText += NameColumn(pWord->sNAME) + Right(std::to_string(rNote.nCOUNT), NUMBER_WIDTH) + "  " +
                     NoteText(rNote) + PlainText(PlacesText(rNote, rAccount)) + "\n";
        }
    }
    return sText.empty() ? sText : "\n" + std::string(TITLES[eClass]) + "\n\n" + sText;
}

} // namespace

std::vector<T_SECTION_D> CountSections(const std::string& sPath) {
    CTextReader file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) throw CFileException(sPath, sCause);
    std::vector<T_SECTION_D> aSections;
    auto pSection = aSections.end();
    for (std::string_view sLine; file.Read(sLine);) {
        if (sLine.starts_with('*')) {
            const std::string_view sName = sLine.substr(0, sLine.find_first_of(" ,;\n"));
            pSection = std::find_if(aSections.begin(), aSections.end(),
                                    [&](const T_SECTION_D& rSection) { return rSection.sNAME == sName; });
            if (pSection == aSections.end()) pSection = aSections.insert(pSection, {std::string(sName), 0, 0});
            ++pSection->nBLOCKS;
        }
        if (pSection != aSections.end() && sLine.ends_with('\n')) ++pSection->nLINES;
    }
    if (file.HasFailed()) throw CFileException(sPath, "can't be read to its end");
    return aSections;
}

std::string_view NoteKind(const T_NOTE_D& rNote) {
    return rNote.sREASON.empty() ? NoteCode(rNote.eNOTE) : rNote.sREASON;
}

std::string NoteText(const T_NOTE_D& rNote) {
    return std::string(NoteLead(rNote.eNOTE)) + rNote.sTEXT;
}

std::string AccountTable(const T_RESULT_D& rResult, const CAccount& rAccount) {
    const std::vector<const T_WORD_D*> aWords = rAccount.GetWords();
    std::string sText = "\nAccount of " + PlainText(rResult.sDECK) + "\n\n  " + Left("keyword", NAME_WIDTH);
    for (const T_COLUMN_D& rColumn : COLUMNS) {
        std::string sTitle(rColumn.sNAME);
        std::replace(sTitle.begin(), sTitle.end(), '_', ' ');
        sText += Right(sTitle, NUMBER_WIDTH);
    }
    sText += "\n";
    T_WORD_D total;
    for (const T_WORD_D* pWord : aWords) {
        if (pWord->HasCounts()) sText += Row(pWord->sNAME, *pWord);
        for (const T_COLUMN_D& rColumn : COLUMNS) total.*rColumn.pVALUE += pWord->*rColumn.pVALUE;
    }
    sText += Row("total", total);

    std::string sLosses;
    for (std::size_t i = 0; i < CLASS_COUNT; ++i) sLosses += ClassTable(rAccount, static_cast<E_LOSS_CLASS>(i));
    sText += sLosses.empty() ? "\nNothing was lost.\n" : sLosses;

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

std::string AccountJson(const T_RESULT_D& rResult, const CAccount& rAccount) {
    const std::vector<const T_WORD_D*> aWords = rAccount.GetWords();
    std::vector<const T_WORD_D*> aCounted = aWords;
    std::erase_if(aCounted, [](const T_WORD_D* pWord) { return !pWord->HasCounts(); });
    const CAccount::CLASS_COUNTS aCounts = rAccount.GetLossCounts();
    std::string sClasses;
    std::string sLost;
    for (std::size_t i = 0; i < CLASS_COUNT; ++i) {
        const auto eClass = static_cast<E_LOSS_CLASS>(i);
        sClasses += (i > 0 ? "," : "") + JsonMember(ClassName(eClass), aCounts[i]);
        for (const T_WORD_D* pWord : aWords) {
            for (const T_NOTE_D& rNote : pWord->aNOTES) {
                if (rNote.eCLASS == eClass) sLost += (sLost.empty() ? "" : ",") + LossObject(*pWord, rNote, rAccount);
            }
        }
    }
    return "{" + JsonMember("losses", std::accumulate(aCounts.begin(), aCounts.end(), std::uint64_t(0))) +
           ",\"classes\":{" + sClasses +
           "},\"keywords\":" + JsonArray(aCounted, [](const T_WORD_D* pWord) { return WordObject(*pWord); }) +
           ",\"lost\":[" + sLost + "],\"sections\":" + JsonArray(rResult.aSECTIONS, &SectionObject) + "}";
}

std::string ResultJson(const T_RESULT_D& rResult, const CAccount* pAccount, const std::string& sCheck) {
    return "{\"deck\":" + JsonText(rResult.sDECK) + ",\"target\":" + JsonText(rResult.sTARGET) +
           ",\"error\":" + (rResult.sERROR.empty() ? "null" : JsonText(rResult.sERROR)) +
           ",\"log\":" + JsonArray(rResult.aLOG, [](const std::string& sLine) { return JsonText(sLine); }) +
           ",\"account\":" + (pAccount && rResult.bACCOUNT ? AccountJson(rResult, *pAccount) : "null") +
           (sCheck.empty() ? "" : ",\"check\":" + sCheck) + "}";
}
