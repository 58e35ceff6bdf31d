// The kinds of loss in words.

#include "nas2zdt/account/AccountOutput.h"

namespace {

struct T_TEXT_D {
    E_NOTE eNOTE;
    std::string_view sCODE;
    std::string_view sTEXT;
};

// clang-format off
constexpr T_TEXT_D TEXTS[] = {
    {NOTE_END_OF_DECK,    "end-of-deck",     "lost: abandoned at the end of the deck"},
    {NOTE_BLANK_LINE,     "blank-line",      "lost: dropped before a line of blanks"},
    {NOTE_TOO_MANY_LINES, "too-many-lines",  "lost: too many lines"},
    {NOTE_CUT_OFF,        "cut-off",         "lost: continuation lines, cut off from their card"},
    {NOTE_UNKNOWN_WORD,   "unknown-word",    "unknown"},
    {NOTE_REPORTED,       "reported",        "reported: not converted"},
    {NOTE_SKIPPED,        "skipped",         "skipped"},
    {NOTE_REPLACED,       "replaced",        "replaced by a later one of the same id (lines of the later one)"},
    {NOTE_PAST_READ,      "fields-past-read", "dropped: "},
    {NOTE_FIELDS,         "fields",          "dropped: "},
    {NOTE_THRU,           "thru",            "dropped: what a THRU stands for"},
    {NOTE_PLUS_SIGN,      "plus-sign",       "dropped: fields with a \"+\" in free field"},
    {NOTE_NO_BULK,        "no-bulk",         "no bulk data: a deck without BEGIN BULK, or that leaves it"},
    {NOTE_UNWRITTEN,      "unwritten",       "not written: "},
    {NOTE_ALTERED,        "altered",         "altered: "},
};
// clang-format on

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(TEXTS); ++i) {
        if (TEXTS[i].eNOTE != static_cast<E_NOTE>(i)) return false;
    }
    return std::size(TEXTS) == NOTE_ALTERED + 1;
}
static_assert(IsInOrder());

} // namespace

std::string_view NoteCode(E_NOTE eNote) {
    return TEXTS[eNote].sCODE;
}

std::string NoteText(const T_NOTE_D& rNote) {
    return std::string(TEXTS[rNote.eNOTE].sTEXT) + rNote.sTEXT;
}
