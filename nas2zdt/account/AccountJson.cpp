// The account as JSON.

#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/text/Escape.h"

namespace {

std::string Member(std::string_view sName, std::uint64_t nValue) {
    return JsonText(sName) + ":" + std::to_string(nValue);
}

/// The elements between brackets, with commas.
template <class LIST, class WRITE>
std::string Array(const LIST& aList, WRITE write) {
    std::string sText = "[";
    for (const auto& rItem : aList) {
        if (sText.size() > 1) sText += ",";
        sText += write(rItem);
    }
    return sText + "]";
}

std::string Keyword(const T_WORD_D& rWord) {
    return "{\"keyword\":" + JsonText(rWord.sNAME) + "," + Member("read", rWord.nREAD) + "," +
           Member("stored", rWord.nSTORED) + "," + Member("replaced", rWord.nREPLACED) + "," +
           Member("reported", rWord.nREPORTED) + "," + Member("skipped", rWord.nSKIPPED) + "," +
           Member("unknown", rWord.nUNKNOWN) + "," + Member("lost", rWord.nLOST) + "," +
           Member("cut_off", rWord.nCUTOFF) + "}";
}

std::string Place(const T_PLACE_D& rPlace, const CAccount& rAccount) {
    const T_ORIGIN_D origin = rAccount.GetOrigin(rPlace);
    const auto iLast = static_cast<std::int64_t>(origin.iLINE) + (rPlace.iLAST - rPlace.iFIRST);
    return "{\"file\":" + JsonText(origin.sFILE) + ",\"first\":" + std::to_string(origin.iLINE) +
           ",\"last\":" + std::to_string(iLast) + "}";
}

std::string Loss(const T_WORD_D& rWord, const T_NOTE_D& rNote, const CAccount& rAccount) {
    return "{\"keyword\":" + JsonText(rWord.sNAME) + ",\"code\":" + JsonText(NoteCode(rNote.eNOTE)) +
           ",\"text\":" + JsonText(NoteText(rNote)) + "," + Member("count", rNote.nCOUNT) +
           ",\"places\":" + Array(rNote.aPLACES, [&](const T_PLACE_D& rPlace) { return Place(rPlace, rAccount); }) +
           ",\"ids\":" + Array(rNote.aIDS, [](std::int32_t iID) { return std::to_string(iID); }) + "}";
}

std::string Section(const T_SECTION_D& rSection) {
    return "{\"section\":" + JsonText(rSection.sNAME) + "," + Member("blocks", rSection.nBLOCKS) + "," +
           Member("lines", rSection.nLINES) + "}";
}

} // namespace

std::string AccountJson(const T_RESULT_D& rResult, const CAccount& rAccount) {
    std::string sText = "{\"deck\":" + JsonText(rResult.sDECK) + ",\"target\":" + JsonText(rResult.sTARGET) +
                        ",\"error\":" + (rResult.sERROR.empty() ? "null" : JsonText(rResult.sERROR)) +
                        ",\"log\":" + Array(rResult.aLOG, [](const std::string& sLine) { return JsonText(sLine); });
    if (!rResult.bACCOUNT) return sText + ",\"account\":null}";
    const std::vector<const T_WORD_D*> aWords = rAccount.GetWords();
    std::vector<const T_WORD_D*> aCounted = aWords;
    std::erase_if(aCounted, [](const T_WORD_D* pWord) { return !pWord->HasCounts(); });
    sText += ",\"account\":{" + Member("losses", rAccount.GetLossCount()) +
             ",\"keywords\":" + Array(aCounted, [](const T_WORD_D* pWord) { return Keyword(*pWord); }) + ",\"lost\":[";
    const char* pBetween = "";
    for (const T_WORD_D* pWord : aWords) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            sText += pBetween + Loss(*pWord, rNote, rAccount);
            pBetween = ",";
        }
    }
    return sText + "],\"sections\":" + Array(rResult.aSECTIONS, &Section) + "}}";
}
