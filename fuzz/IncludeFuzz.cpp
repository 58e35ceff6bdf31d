// Decks that include each other: the parts of the input between separators are the files DECK.DAT, A.DAT and B.DAT.

#include "Fuzz.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr std::array FILES = {"DECK.DAT", "A.DAT", "B.DAT"};
constexpr char SEPARATOR = '\x1E';
constexpr std::size_t MOST_DECKS = 100;

std::size_t CountIncludes(std::string sText) {
    std::transform(sText.begin(), sText.end(), sText.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    std::erase_if(sText, [](char c) { return c == ' ' || c == '\t'; });
    std::size_t nIncludes = 0;
    for (std::size_t i = sText.find("INCLUDE"); i != std::string::npos; i = sText.find("INCLUDE", i + 1)) ++nIncludes;
    return nIncludes;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    EnterScratchFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    const std::string_view sInput = CBytes(pData, nSize).Rest();
    std::string_view sRest = sInput;
    if (HasLongRange(sRest)) return 0;
    std::size_t nDecks = 1; // each deck on a way from the first is read once for each such way
    for (const char* const sFile : FILES) {
        const std::size_t nText = sFile == FILES.back() ? sRest.size() : std::min(sRest.find(SEPARATOR), sRest.size());
        const std::string sText(sRest.substr(0, nText));
        nDecks *= 1 + CountIncludes(sText);
        WriteText(sFile, sText);
        sRest.remove_prefix(std::min(nText + 1, sRest.size()));
    }
    if (nDecks <= MOST_DECKS) CheckRun(sInput);
    return 0;
}
