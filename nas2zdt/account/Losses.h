#pragma once
// The ways in which something of a deck is lost, and how much they weigh.

#include "store/Left.h"

#include <string_view>

/// Ways to be lost. Their codes and texts are in the table of Losses.cpp.
enum E_NOTE {
    NOTE_END_OF_DECK, // the first ones are those of E_LOSS
    NOTE_BLANK_LINE,
    NOTE_TOO_MANY_LINES,
    NOTE_CUT_OFF,
    NOTE_UNKNOWN_WORD,
    NOTE_REPORTED,
    NOTE_SKIPPED,
    NOTE_REPLACED,
    NOTE_DUPLICATE,
    NOTE_PAST_READ, // these six are told by Drops.h
    NOTE_FIELDS,
    NOTE_MEANING,
    NOTE_NOT_A_NUMBER,
    NOTE_THRU_GRIDS,
    NOTE_THRU_ELEMENTS,
    NOTE_PLUS_SIGN,
    NOTE_NO_BULK,  // a deck without bulk section
    NOTE_TEXT_TAB, // these ten by TextLosses.h: a card that is cut otherwise than NASTRAN does, and why
    NOTE_TEXT_SHORT,
    NOTE_TEXT_COMMENT,
    NOTE_TEXT_MARK,
    NOTE_TEXT_BLANK,
    NOTE_TEXT_COLON,
    NOTE_TEXT_LARGE_FREE,
    NOTE_TEXT_OTHER,
    NOTE_STRAY_LINE,
    NOTE_REPLICATION,
    NOTE_SAID_IGNORED,
    NOTE_PART,            // cards of a superelement or another part apart
    NOTE_ENDED_EARLY,     // an ENDDATA that isn't a card
    NOTE_CONTROL_INCLUDE, // an INCLUDE outside of the bulk section
    NOTE_CASE_MISSING,    // these four by CaseControl.h
    NOTE_CASE_LACKING,
    NOTE_CASE_EXTRA,
    NOTE_CASE_UNASKED,
    NOTE_ROUNDED,   // digits of coordinates
    NOTE_UNWRITTEN, // stored, but not in the file; the text is the reason's own, as of the next
    NOTE_ALTERED,   // in the file, but otherwise than the deck means
    NOTE_RULE,      // told by a rule of restating
    NOTE_COUNT
};

/// The name of a class, for people and programs.
std::string_view ClassName(E_LOSS_CLASS eClass);

/// The class of a card of this first word that is lost whole.
E_LOSS_CLASS ClassOfCard(std::string_view sWord);

/// The class of a field by the name that the format gives it.
E_LOSS_CLASS ClassOfField(std::string_view sKeyword, std::string_view sField);

/// Code of a way to be lost, which stays, and the beginning of its text.
std::string_view NoteCode(E_NOTE eNote);
std::string_view NoteLead(E_NOTE eNote);
