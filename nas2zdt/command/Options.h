#pragma once
// The command line.

#include "messages/RunError.h"
#include "nas2zdt/account/Warnings.h"
#include "nas2zdt/picture/ColourBy.h"
#include "nas2zdt/restate/Restate.h"
#include "platform/Worker.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The form of the account or the check.
enum E_FORMAT_WANTED { WANTED_NONE, WANTED_TABLE, WANTED_JSON, WANTED_JSONL };

/// Which losses fail a run.
enum E_STRICT { STRICT_NONE, STRICT_RESULTS, STRICT_ANY };

/// What the command line says.
struct T_OPTIONS_D {
    bool bHELP = false;
    bool bVERSION = false;
    bool bQUIET = false;
    bool bNOWARNINGS = false;
    bool bFLATTEN = false;
    bool bFAITHFUL = false;
    T_CHOICE_D choice;     // of a deck that is restated
    std::string sRESTATED; // the restated deck; empty for none
    E_STRICT eSTRICT = STRICT_NONE;
    T_ALLOWED allowed; // kinds of loss that neither fail a run nor are warned of
    E_FORMAT_WANTED eACCOUNT = WANTED_NONE;
    E_FORMAT_WANTED eCHECK = WANTED_NONE;
    double dTOLERANCE = -1.0;          // within which nodes coincide; negative for one that fits the model
    std::string sLOG;                  // empty for none
    std::string sOUTPUT;               // file or folder; empty for the deck's folder
    std::string sVIEW;                 // picture of the model, or the folder of pictures; empty for none
    std::string sVTU;                  // likewise, grid of the model
    std::string sVIEWCASES;            // folder for a picture of each load case; empty for none
    std::string sREPORT;               // page to review the conversion; empty for none
    std::optional<std::int32_t> iCASE; // the load case of picture and grid; all of them without it
    E_COLOUR_BY eCOLOUR = BY_KIND;     // of pictures
    T_LIMITS_D limits;
    std::size_t nTHREADS = 0; // that may work on a deck at a time; 0 for one a core, or one for several decks
    std::size_t nJOBS = 0;    // decks at a time; 0 for one a core
    bool bRECURSIVE = false;  // whether folders stand for the decks beneath them
    bool bRESUME = false;     // whether decks that are done are passed over
    std::vector<std::string> aEXTENSIONS = {".dat", ".bdf", ".nas", ".blk"}; // of decks in folders
    std::vector<std::string> aDECKS;
    std::size_t iPLAIN = std::numeric_limits<std::size_t>::max(); // the first of them behind "--", which is no list
    bool bLISTED = false;                // whether they came from a list or folder, however many there are
    std::string sMATTERS;                // options that what a run writes, tells or returns depends on, as given
    std::vector<std::string> aARGUMENTS; // all of them, as given

    /// Whether the deck is joined or restated before it is converted.
    bool IsPrepared() const { return bFLATTEN || bFAITHFUL; }

    std::size_t CountThreads() const { return ChooseThreads(nTHREADS); }

    /// Whether losses are counted, and whether those that change no result are, too.
    bool NeedsAccount() const {
        return NeedsNotes() || eSTRICT != STRICT_NONE || !bNOWARNINGS || NeedsCheck() || eCOLOUR == BY_LOSS;
    }
    bool NeedsNotes() const { return NeedsSections() || eSTRICT == STRICT_ANY; }

    /// Whether the sections of the file are counted.
    bool NeedsSections() const { return eACCOUNT != WANTED_NONE || !sREPORT.empty(); }

    bool NeedsCheck() const { return eCHECK != WANTED_NONE || !sREPORT.empty(); }

    /// Whether there are SVG pictures.
    bool Draws() const { return !sVIEW.empty() || !sVIEWCASES.empty(); }

    /// Whether standard output is JSON, and whether that is a line a deck in place of one object.
    bool IsJson() const { return IsJsonLines() || eACCOUNT == WANTED_JSON || eCHECK == WANTED_JSON; }
    bool IsJsonLines() const { return eACCOUNT == WANTED_JSONL || eCHECK == WANTED_JSONL; }

    bool HasSeveralDecks() const { return bLISTED || aDECKS.size() != 1; }
};

/// Reads the arguments without the program's name. Returns 1, or 0 with the error in rWhy.
int ReadOptions(const std::vector<std::string>& aArgs, T_OPTIONS_D& rOptions, std::string& rWhy);

/// The text of --help.
std::string HelpText();

/// The --limit name of the limit that a run exceeded; empty for other failures.
std::string_view NameOfLimit(E_FAILURE eFailure);
