// The table of options, which reads the arguments and makes the help.

#include "nas2zdt/command/Options.h"

#include "nas2zdt/text/Json.h"
#include "nas2zdt/text/Similar.h"
#include "nas2zdt/text/Words.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <system_error>

namespace {

/// Whether an option is followed by a value.
enum E_VALUE { VALUE_NONE, VALUE_NEEDED, VALUE_ALLOWED };

/// A row of the table. A needed value is the next argument or follows "="; an allowed one only follows "=".
struct T_OPTION_D {
    std::string_view sNAME; // a short form comes first: "-q, --quiet"
    E_VALUE eVALUE;
    std::string_view sVALUE; // its name in the help
    std::string_view sHELP;
    bool (*pfnSet)(T_OPTIONS_D& rOptions, const std::string& sValue); // false for a wrong value
};

/// Sets a flag.
template <bool T_OPTIONS_D::*FLAG>
bool Set(T_OPTIONS_D& rOptions, const std::string&) {
    rOptions.*FLAG = true;
    return true;
}

/// Keeps a path, which mustn't be empty.
template <std::string T_OPTIONS_D::*PATH>
bool Keep(T_OPTIONS_D& rOptions, const std::string& sValue) {
    rOptions.*PATH = sValue;
    return !sValue.empty();
}

template <E_FORMAT_WANTED T_OPTIONS_D::*FORMAT>
bool SetFormat(T_OPTIONS_D& rOptions, const std::string& sValue) {
    rOptions.*FORMAT = sValue.empty() ? WANTED_TABLE : sValue == "json" ? WANTED_JSON : WANTED_JSONL;
    return sValue.empty() || sValue == "json" || sValue == "jsonl";
}

/// A length from 0 on.
bool SetTolerance(T_OPTIONS_D& rOptions, const std::string& sValue) {
    const char* const pEnd = sValue.data() + sValue.size();
    const auto [pRead, error] = std::from_chars(sValue.data(), pEnd, rOptions.dTOLERANCE);
    return error == std::errc() && pRead == pEnd && std::isfinite(rOptions.dTOLERANCE) && rOptions.dTOLERANCE >= 0.0;
}

bool SetStrict(T_OPTIONS_D& rOptions, const std::string& sValue) {
    rOptions.eSTRICT = sValue.empty() ? STRICT_RESULTS : STRICT_ANY;
    return sValue.empty() || sValue == "any";
}

bool TakeAllowed(T_OPTIONS_D& rOptions, const std::string& sValue) {
    rOptions.allowed.insert(sValue);
    return !sValue.empty();
}

/// Reads a whole number from 0 on to the end of the text.
bool ReadId(const std::string& sText, std::int32_t& rID) {
    const char* const pEnd = sText.data() + sText.size();
    const auto [pRead, error] = std::from_chars(sText.data(), pEnd, rID);
    return error == std::errc() && pRead == pEnd && rID >= 0;
}

bool SetSubcase(T_OPTIONS_D& rOptions, const std::string& sValue) {
    return ReadId(sValue, rOptions.choice.iSUBCASE.emplace());
}

bool SetCase(T_OPTIONS_D& rOptions, const std::string& sValue) {
    return ReadId(sValue, rOptions.iCASE.emplace());
}

/// A colouring by its name on the command line.
struct T_COLOURNAME_D {
    std::string_view sNAME;
    E_COLOUR_BY eBY;
};
constexpr T_COLOURNAME_D COLOURINGS[] = {
    {"property", BY_PROPERTY}, {"material", BY_MATERIAL}, {"kind", BY_KIND}, {"loss", BY_LOSS}};

bool SetColour(T_OPTIONS_D& rOptions, const std::string& sValue) {
    const auto pFound = std::find_if(std::begin(COLOURINGS), std::end(COLOURINGS),
                                     [&](const T_COLOURNAME_D& r) { return r.sNAME == sValue; });
    if (pFound == std::end(COLOURINGS)) return false;
    rOptions.eCOLOUR = pFound->eBY;
    return true;
}

bool SetPart(T_OPTIONS_D& rOptions, const std::string& sValue) {
    return ReadId(sValue, rOptions.choice.iPART);
}

/// "NAME=FOLDER". Names are told apart without regard to case.
bool SetLogical(T_OPTIONS_D& rOptions, const std::string& sValue) {
    const std::size_t iEquals = sValue.find('=');
    if (iEquals == std::string::npos || iEquals == 0 || iEquals + 1 == sValue.size()) return false;
    std::string sName = sValue.substr(0, iEquals);
    std::transform(sName.begin(), sName.end(), sName.begin(), &ToUpper);
    rOptions.choice.join.mapFOLDERS[sName] = sValue.substr(iEquals + 1);
    return true;
}

/// A limit of a run by its name on the command line.
struct T_LIMITNAME_D {
    std::string_view sNAME;
    std::int64_t T_LIMITS_D::*pLIMIT;
    E_FAILURE eFAILURE; // when a run exceeds it
};

constexpr T_LIMITNAME_D LIMITS[] = {
    {"ranges", &T_LIMITS_D::nRANGES, FAILURE_LIMIT_RANGES},
    {"decks", &T_LIMITS_D::nDECKS, FAILURE_LIMIT_DECKS},
    {"output", &T_LIMITS_D::nOUTPUT, FAILURE_LIMIT_OUTPUT},
    {"frames", &T_LIMITS_D::nFRAMES, FAILURE_LIMIT_FRAMES},
};

constexpr std::string_view LIFTED = "none";
constexpr std::int64_t MOST_AT_A_TIME = 1024;

bool ReadNumber(std::string_view sText, std::int64_t& rNumber) {
    const char* const pEnd = sText.data() + sText.size();
    const auto [pRead, error] = std::from_chars(sText.data(), pEnd, rNumber);
    return error == std::errc() && pRead == pEnd && rNumber > 0;
}

/// Keeps a number of threads or processes.
template <std::size_t T_OPTIONS_D::*COUNT>
bool SetCount(T_OPTIONS_D& rOptions, const std::string& sText) {
    std::int64_t nCount = 0;
    const bool bRead = ReadNumber(sText, nCount);
    rOptions.*COUNT = static_cast<std::size_t>(std::min(nCount, MOST_AT_A_TIME));
    return bRead;
}

/// "dat,.BDF". Results are no decks.
bool SetExtensions(T_OPTIONS_D& rOptions, const std::string& sValue) {
    rOptions.aEXTENSIONS.clear();
    for (std::size_t iStart = 0; iStart <= sValue.size();) {
        const std::size_t iEnd = std::min(sValue.find(',', iStart), sValue.size());
        const std::string sName = sValue.substr(iStart, iEnd - iStart);
        const std::string sExtension = (sName.starts_with('.') ? "" : ".") + sName;
        if (sExtension.size() < 2 || (sExtension.size() == 4 && StartsWithoutCase(sExtension, ".ZDT"))) return false;
        rOptions.aEXTENSIONS.push_back(sExtension);
        iStart = iEnd + 1;
    }
    return true;
}

/// "NAME=N" or "NAME=none" sets one limit, "none" all. N is a whole number above 0.
bool SetLimit(T_OPTIONS_D& rOptions, const std::string& sText) {
    const bool bAll = sText == LIFTED;
    const std::size_t iEquals = sText.find('=');
    if (!bAll && iEquals == std::string::npos) return false;
    const std::string sName = sText.substr(0, iEquals);
    const std::string sValue = bAll ? sText : sText.substr(iEquals + 1);
    std::int64_t nLimit = T_LIMITS_D::NONE;
    if (sValue != LIFTED && !ReadNumber(sValue, nLimit)) return false;
    bool bKnown = false;
    for (const T_LIMITNAME_D& rLimit : LIMITS) {
        if (!bAll && rLimit.sNAME != sName) continue;
        rOptions.limits.*rLimit.pLIMIT = nLimit;
        bKnown = true;
    }
    return bKnown;
}

// clang-format off
constexpr T_OPTION_D OPTIONS[] = {
    {"-o",             VALUE_NEEDED,  "PATH", "the result goes to the file PATH, or into the folder PATH", &Keep<&T_OPTIONS_D::sOUTPUT>},
    {"--account",      VALUE_ALLOWED, "json|jsonl", "tells what became of every keyword, as a table or as JSON", &SetFormat<&T_OPTIONS_D::eACCOUNT>},
    {"--check",        VALUE_ALLOWED, "json|jsonl", "tells whether the deck is sound, and sums of deck and result", &SetFormat<&T_OPTIONS_D::eCHECK>},
    {"--tolerance",    VALUE_NEEDED,  "D",    "with --check, the distance within which nodes coincide; 0 for none", &SetTolerance},
    {"--strict",       VALUE_ALLOWED, "any",  "exit status 3 for a loss of model or mass, or for any",     &SetStrict},
    {"--allow",        VALUE_NEEDED,  "KIND", "--strict and the warnings pass over this kind, keyword or KEYWORD:KIND", &TakeAllowed},
    {"--no-warnings",  VALUE_NONE,    "",     "says nothing of losses on standard error",                  &Set<&T_OPTIONS_D::bNOWARNINGS>},
    {"--flatten",      VALUE_NONE,    "",     "joins the deck with its includes first, as NASTRAN means",  &Set<&T_OPTIONS_D::bFLATTEN>},
    {"--faithful",     VALUE_NONE,    "",     "restates the deck first, so that the file says what NASTRAN means", &Set<&T_OPTIONS_D::bFAITHFUL>},
    {"--restated",     VALUE_NEEDED,  "FILE", "keeps the restated deck",                                   &Keep<&T_OPTIONS_D::sRESTATED>},
    {"--subcase",      VALUE_NEEDED,  "N",    "with --faithful or --check, the subcase whose supports count",  &SetSubcase},
    {"--super",        VALUE_NEEDED,  "N",    "with --faithful or --check, the superelement; 0 is the main model", &SetPart},
    {"--logical",      VALUE_NEEDED,  "NAME=FOLDER", "the folder that INCLUDE 'NAME:...' stands for",      &SetLogical},
    {"--view",         VALUE_NEEDED,  "PATH", "draws the resolved model as an SVG picture, a file or into a folder", &Keep<&T_OPTIONS_D::sVIEW>},
    {"--view-cases",   VALUE_NEEDED,  "FOLDER", "draws a picture of each load case into the folder",       &Keep<&T_OPTIONS_D::sVIEWCASES>},
    {"--colour",       VALUE_NEEDED,  "BY",   "colours pictures by property, material, kind or loss",      &SetColour},
    {"--vtu",          VALUE_NEEDED,  "PATH", "writes the model as a VTK unstructured grid, a file or into a folder", &Keep<&T_OPTIONS_D::sVTU>},
    {"--case",         VALUE_NEEDED,  "ID",   "with --view or --vtu, the load case whose loads they have", &SetCase},
    {"--report",       VALUE_NEEDED,  "FILE", "writes a page to review the conversion in any browser",     &Keep<&T_OPTIONS_D::sREPORT>},
    {"--limit",        VALUE_NEEDED,  "NAME=N", "sets the limit on ranges, decks, output or frames; none lifts it", &SetLimit},
    {"--threads",      VALUE_NEEDED,  "N",    "works on a deck with at most N threads, where that pays", &SetCount<&T_OPTIONS_D::nTHREADS>},
    {"-r, --recursive", VALUE_NONE,   "",     "a folder stands for all decks beneath it",                  &Set<&T_OPTIONS_D::bRECURSIVE>},
    {"--extensions",   VALUE_NEEDED,  "LIST", "with it, the extensions of decks; else dat,bdf,nas,blk",    &SetExtensions},
    {"--jobs",         VALUE_NEEDED,  "N",    "converts at most N decks at a time; else one a core",       &SetCount<&T_OPTIONS_D::nJOBS>},
    {"--resume",       VALUE_NONE,    "",     "passes over decks that an earlier run has converted", &Set<&T_OPTIONS_D::bRESUME>},
    {"--log",          VALUE_NEEDED,  "FILE", "saves the log of all decks",                                &Keep<&T_OPTIONS_D::sLOG>},
    {"-q, --quiet",    VALUE_NONE,    "",     "prints errors and warnings, and the account if asked for, but no log",   &Set<&T_OPTIONS_D::bQUIET>},
    {"-h, --help",     VALUE_NONE,    "",     "this text",                                                 &Set<&T_OPTIONS_D::bHELP>},
    {"-V, --version",  VALUE_NONE,    "",     "the version",                                               &Set<&T_OPTIONS_D::bVERSION>},
};
// clang-format on

/// The long form of an option, or its only one.
constexpr std::string_view LastForm(std::string_view sName) {
    const std::size_t iSpace = sName.rfind(' ');
    return iSpace == std::string_view::npos ? sName : sName.substr(iSpace + 1);
}

const T_OPTION_D* FindOption(std::string_view sForm) {
    for (const T_OPTION_D& rOption : OPTIONS) {
        const std::string_view sFirst = rOption.sNAME.substr(0, rOption.sNAME.find(','));
        if (sForm == sFirst || sForm == LastForm(rOption.sNAME)) return &rOption;
    }
    return nullptr;
}

/// Those that no result, exit status or account depends on.
bool Matters(const T_OPTION_D& rOption) {
    constexpr std::string_view OTHERS[] = {"-o",     "--no-warnings", "--threads", "--recursive", "--extensions",
                                           "--jobs", "--resume",      "--log",     "--quiet"};
    return std::find(std::begin(OTHERS), std::end(OTHERS), LastForm(rOption.sNAME)) == std::end(OTHERS);
}

/// The words that a value of an option is or begins with; none if it is free.
std::vector<std::string_view> WordsOf(const T_OPTION_D& rOption) {
    std::vector<std::string_view> aWords;
    if (rOption.eVALUE == VALUE_ALLOWED) {
        const std::size_t iBar = rOption.sVALUE.find('|');
        aWords.push_back(rOption.sVALUE.substr(0, iBar));
        if (iBar != std::string_view::npos) aWords.push_back(rOption.sVALUE.substr(iBar + 1));
    }
    if (rOption.pfnSet == &SetColour) {
        for (const T_COLOURNAME_D& rColour : COLOURINGS) aWords.push_back(rColour.sNAME);
    }
    if (rOption.pfnSet == &SetLimit) {
        for (const T_LIMITNAME_D& rLimit : LIMITS) aWords.push_back(rLimit.sNAME);
        aWords.push_back(LIFTED);
    }
    return aWords;
}

/// "; did you mean json?", nothing without a word that is near.
std::string Suggestion(std::string_view sText, const std::vector<std::string_view>& aWords) {
    const std::string_view sWord = FindSimilar(sText, aWords);
    return sWord.empty() || sWord == sText ? "" : "; did you mean " + std::string(sWord) + "?";
}

std::string UnknownOption(const std::string& sArg) {
    std::vector<std::string_view> aNames;
    for (const T_OPTION_D& rOption : OPTIONS) aNames.push_back(LastForm(rOption.sNAME));
    return "unknown option " + sArg + Suggestion(std::string_view(sArg).substr(0, sArg.find('=')), aNames);
}

std::string WrongValue(const T_OPTION_D& rOption, const std::string& sValue) {
    return std::string(LastForm(rOption.sNAME)) + ": \"" + sValue + "\" isn't a value of this option" +
           Suggestion(std::string_view(sValue).substr(0, sValue.find('=')), WordsOf(rOption));
}

/// An option for a picture and the extension of its format.
struct T_PICTURE_D {
    std::string_view sOPTION;
    std::string T_OPTIONS_D::*pFILE;
    std::string_view sEXTENSION;
};
constexpr T_PICTURE_D PICTURES[] = {{"--view", &T_OPTIONS_D::sVIEW, ".svg"},
                                    {"--vtu", &T_OPTIONS_D::sVTU, ".vtu"},
                                    {"--report", &T_OPTIONS_D::sREPORT, ".html"}};

/// Extensions of decks, results, accounts, pictures and pages.
constexpr std::string_view EXTENSIONS[] = {".dat", ".bdf", ".nas", ".blk", ".zdt", ".json", ".svg", ".vtu", ".html"};

/// Whether sFile has one of these extensions other than sOwn, which suggests a mixed up command line.
bool HasForeignExtension(std::string sFile, std::string_view sOwn) {
    for (char& c : sFile) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return std::any_of(std::begin(EXTENSIONS), std::end(EXTENSIONS),
                       [&](std::string_view sExtension) { return sExtension != sOwn && sFile.ends_with(sExtension); });
}

} // namespace

int ReadOptions(const std::vector<std::string>& aArgs, T_OPTIONS_D& rOptions, std::string& rWhy) {
    rOptions.aARGUMENTS = aArgs;
    bool bOptions = true; // until "--"
    for (std::size_t i = 0; i < aArgs.size(); ++i) {
        const std::string& sArg = aArgs[i];
        if (bOptions && sArg == "--") {
            bOptions = false;
            rOptions.iPLAIN = rOptions.aDECKS.size();
            continue;
        }
        if (!bOptions || sArg.size() < 2 || sArg[0] != '-') {
            rOptions.aDECKS.push_back(sArg);
            continue;
        }
        const std::size_t iEquals = sArg.find('=');
        const bool bGiven = iEquals != std::string::npos;
        const T_OPTION_D* pOption = FindOption(std::string_view(sArg).substr(0, iEquals));
        if (!pOption) {
            rWhy = UnknownOption(sArg);
            return 0;
        }
        std::string sValue = bGiven ? sArg.substr(iEquals + 1) : std::string();
        if (pOption->eVALUE == VALUE_NEEDED && !bGiven) {
            if (i + 1 == aArgs.size()) {
                rWhy = sArg + " needs a value";
                return 0;
            }
            sValue = aArgs[++i];
        }
        const bool bTaken = bGiven ? pOption->eVALUE != VALUE_NONE && !sValue.empty() : true;
        if (!bTaken || !pOption->pfnSet(rOptions, sValue)) {
            rWhy = WrongValue(*pOption, sValue);
            return 0;
        }
        if (Matters(*pOption))
            rOptions.sMATTERS += " " + std::string(LastForm(pOption->sNAME)) + "=" + JsonText(sValue);
    }
    for (const T_PICTURE_D& rPicture : PICTURES) {
        if (HasForeignExtension(rOptions.*rPicture.pFILE, rPicture.sEXTENSION)) {
            rWhy = std::string(rPicture.sOPTION) + ": " + rOptions.*rPicture.pFILE + " is called like another format";
            return 0;
        }
    }
    if (rOptions.bHELP || rOptions.bVERSION || !rOptions.aDECKS.empty()) return 1;
    rWhy = "no deck given";
    return 0;
}

std::string HelpText() {
    std::string sText = "usage: nas2zdt [OPTION]... DECK...\n"
                        "\n"
                        "Converts NASTRAN bulk data decks, each with all that it includes, into ZDT text files,\n"
                        "which are written beside the decks under their names with the extension .zdt.\n"
                        "@FILE stands for the decks that the file lists, one a line.\n"
                        "The log of a run goes to standard output, failures to standard error.\n"
                        "\n";
    for (const T_OPTION_D& rOption : OPTIONS) {
        std::string sLeft = "  " + std::string(rOption.sNAME);
        if (rOption.eVALUE == VALUE_NEEDED) sLeft += " " + std::string(rOption.sVALUE);
        if (rOption.eVALUE == VALUE_ALLOWED) sLeft += "[=" + std::string(rOption.sVALUE) + "]";
        constexpr std::size_t COLUMN = 20;
        sLeft.resize(std::max(sLeft.size() + 1, COLUMN), ' ');
        sText += sLeft + std::string(rOption.sHELP) + "\n";
    }
    return sText + "\n"
                   "For several decks -o names a folder.\n"
                   "exit status: 0 success, 1 a run failed, 2 wrong usage, 3 a loss (--strict),\n"
                   "4 an error of a deck (--check)\n";
}

std::string_view NameOfLimit(E_FAILURE eFailure) {
    for (const T_LIMITNAME_D& rName : LIMITS) {
        if (rName.eFAILURE == eFailure) return rName.sNAME;
    }
    return {};
}
