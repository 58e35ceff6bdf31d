// The ways of losing in words, and what each thing weighs.

#include "nas2zdt/account/Losses.h"

#include <algorithm>
#include <iterator>

namespace {

struct T_TEXT_D {
    E_NOTE eNOTE;
    std::string_view sCODE;
    std::string_view sLEAD;
};

// clang-format off
constexpr T_TEXT_D TEXTS[] = {
    {NOTE_END_OF_DECK,    "end-of-deck",      "lost: abandoned at the end of the deck"},
    {NOTE_BLANK_LINE,     "blank-line",       "lost: dropped before a line of blanks"},
    {NOTE_TOO_MANY_LINES, "too-many-lines",   "lost: too many lines"},
    {NOTE_CUT_OFF,        "cut-off",          "lost: continuation lines, cut off from their card"},
    {NOTE_UNKNOWN_WORD,   "unknown-word",     "unknown"},
    {NOTE_REPORTED,       "reported",         "reported: not converted"},
    {NOTE_SKIPPED,        "skipped",          "skipped"},
    {NOTE_REPLACED,       "replaced",         "replaced by a later one of the same id (lines of the later one)"},
    {NOTE_DUPLICATE,      "duplicate",        "given again with the same values (lines of the later one)"},
    {NOTE_PAST_READ,      "fields-past-read", "dropped: "},
    {NOTE_FIELDS,         "fields",           "dropped: "},
    {NOTE_MEANING,        "meaning",          "changed: "},
    {NOTE_NOT_A_NUMBER,   "not-a-number",     "read as far as it is the number that it should be: "},
    {NOTE_THRU_GRIDS,     "thru",             "dropped: grids of the deck that a THRU names"},
    {NOTE_THRU_ELEMENTS,  "thru",             "dropped: elements of the deck that a THRU names"},
    {NOTE_PLUS_SIGN,      "plus-sign",        "dropped: fields with a \"+\" in free field"},
    {NOTE_NO_BULK,        "no-bulk",          "no bulk data: a deck without BEGIN BULK, or that leaves it"},
    {NOTE_TEXT_TAB,       "text-tab",        "changed: tabs taken for other blanks than they are: "},
    {NOTE_TEXT_SHORT,     "text-short",      "changed: fields moved up behind a short line: "},
    {NOTE_TEXT_COMMENT,   "text-comment",    "changed: a comment read as fields: "},
    {NOTE_TEXT_MARK,      "text-mark",       "changed: field 10 and what is behind it read as fields: "},
    {NOTE_TEXT_BLANK,     "text-blank",      "changed: blanks inside or in front passed over: "},
    {NOTE_TEXT_COLON,     "text-colon",      "lost: what is behind a \":\""},
    {NOTE_TEXT_LARGE_FREE, "text-large-free", "changed: large field with commas, which isn't understood: "},
    {NOTE_TEXT_OTHER,     "text-other",      "changed: fields read otherwise than they are written: "},
    {NOTE_STRAY_LINE,     "stray-line",      "changed: took a continuation line that by its mark is another card's"},
    {NOTE_REPLICATION,    "replication",     "lost: the cards that a line of replication stands for"},
    {NOTE_SAID_IGNORED,   "said-ignored",    "read, though the log says that the line is ignored"},
    {NOTE_PART,           "part",            "added: cards of a part apart, read as the main model's"},
    {NOTE_ENDED_EARLY,    "ended-early",     "lost: a line that isn't ENDDATA but holds it, and all lines behind"},
    {NOTE_CONTROL_INCLUDE, "control-include", "lost: the deck that an INCLUDE before BEGIN BULK names"},
    {NOTE_CASE_MISSING,   "case-missing",    "not written: what subcases ask for, since the file has one set (ids: sets)"},
    {NOTE_CASE_LACKING,   "case-lacking",    "subcases ask for sets of which the model has nothing (ids: sets)"},
    {NOTE_CASE_EXTRA,     "case-extra",      "added: the one set of the file, where subcases don't ask for it (ids: subcases)"},
    {NOTE_CASE_UNASKED,   "case-unasked",    "added: load cases of sets that no subcase asks for (ids: sets)"},
    {NOTE_ROUNDED,        "rounded",          "rounded: coordinates to six digits, "},
    {NOTE_UNWRITTEN,      "unwritten",        "not written: "},
    {NOTE_ALTERED,        "altered",          "altered: "},
    {NOTE_RULE,           "faithful",         ""},
};
// clang-format on

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(TEXTS); ++i) {
        if (TEXTS[i].eNOTE != static_cast<E_NOTE>(i)) return false;
    }
    return std::size(TEXTS) == NOTE_COUNT;
}
static_assert(IsInOrder());

/// Words that begin so.
struct T_CARDS_D {
    E_LOSS_CLASS eCLASS;
    std::string_view sWORDS; // between blanks
};
constexpr T_CARDS_D CARDS[] = {
    {CLASS_MASS, "CONM CMASS PMASS NSM"},
    {CLASS_CONTROL, "PARAM EIG FREQ TSTEP NLPARM NLPCI NLSTEP ITER SET1 SET2 SET3 DESVAR DRESP DCONSTR DCONADD DOPTPRM "
                    "DVPREL DVCREL DVMREL DVGRID DVBSHAP DLINK DEQATN DSCREEN TOPVAR OUTPUT POST FLUTTER FLFACT AERO "
                    "AEROS TRIM DYNRED"},
    {CLASS_NOTE, "PLOTEL ECHO SEQGP"},
};

/// Fields that aren't of the model.
struct T_FIELDS_D {
    E_LOSS_CLASS eCLASS;
    std::string_view sKEYWORDS; // between blanks, as the names
    std::string_view sNAMES;
};
constexpr T_FIELDS_D FIELDS[] = {
    {CLASS_MASS, "MAT1 MAT4 MAT8", "RHO"},
    {CLASS_MASS, "CONROD PBAR PBEAM PBEND PROD PTUBE PSHELL PCOMP PSHEAR", "NSM NSM(A) NSI(A) NSI(B)"},
    {CLASS_MASS, "PBEAM", "M1(A) M2(A) M1(B) M2(B)"},
    {CLASS_MASS, "CONM2", "CID X1 X2 X3 I21 I31 I32"},
    {CLASS_CONTROL, "EIGB", "METHOD L1 L2 NEP NDP NDN NORM G C"},
    {CLASS_CONTROL, "EIGRL", "V1 V2 MSGLVL MAXSET SHFSCL NORM"},
    {CLASS_CONTROL, "GRID", "SEID"},
    {CLASS_NOTE, "PBAR PBEAM PBEND", "C1 C2 D1 D2 E1 E2 F1 F2 SO"},
    {CLASS_NOTE, "PBEAM", "C1(A) C2(A) D1(A) D2(A) E1(A) E2(A) F1(A) F2(A)"},
    {CLASS_NOTE, "MAT1 MAT8", "ST SC SS Xt Xc Yt Yc S F12 STRN"},
    {CLASS_NOTE, "CONROD PROD", "C"},
    {CLASS_NOTE, "CELAS2", "S"},
    {CLASS_NOTE, "PELAS", "S1 S2"},
    {CLASS_NOTE, "PBUSH", "SA ST EA ET"},
    {CLASS_NOTE, "PSHELL", "Z1 Z2"},
    {CLASS_NOTE, "PCOMP", "SB FT SOUT"},
    {CLASS_NOTE, "PBARL", "GROUP"},
    {CLASS_NOTE, "PSOLID", "STRESS"},
};

/// Calls take with each word of a list, until it returns true.
template <class TAKE>
bool AnyWord(std::string_view sWords, TAKE take) {
    while (!sWords.empty()) {
        const std::size_t nWord = std::min(sWords.find(' '), sWords.size());
        if (take(sWords.substr(0, nWord))) return true;
        sWords.remove_prefix(std::min(nWord + 1, sWords.size()));
    }
    return false;
}

bool HasWord(std::string_view sWords, std::string_view sWord) {
    return AnyWord(sWords, [&](std::string_view s) { return s == sWord; });
}

} // namespace

std::string_view ClassName(E_LOSS_CLASS eClass) {
    constexpr std::string_view NAMES[] = {"model", "mass", "control", "note"};
    static_assert(std::size(NAMES) == CLASS_COUNT);
    return NAMES[eClass];
}

E_LOSS_CLASS ClassOfCard(std::string_view sWord) {
    for (const T_CARDS_D& rRow : CARDS) {
        if (AnyWord(rRow.sWORDS, [&](std::string_view sStart) { return sWord.starts_with(sStart); })) {
            return rRow.eCLASS;
        }
    }
    return CLASS_MODEL;
}

E_LOSS_CLASS ClassOfField(std::string_view sKeyword, std::string_view sField) {
    for (const T_FIELDS_D& rRow : FIELDS) {
        if (HasWord(rRow.sKEYWORDS, sKeyword) && HasWord(rRow.sNAMES, sField)) return rRow.eCLASS;
    }
    return CLASS_MODEL;
}

std::string_view NoteCode(E_NOTE eNote) {
    return TEXTS[eNote].sCODE;
}

std::string_view NoteLead(E_NOTE eNote) {
    return TEXTS[eNote].sLEAD;
}
