#pragma once
// What a first look at a line of the bulk section tells.

#include <string_view>

struct T_LINELOOK_D {
    bool bPLAIN = false;   // the converter cuts its fixed fields as NASTRAN does and reads its numbers so, too
    bool bCOLUMNS = false; // and all of them have eight columns
    bool bCARD = false;    // it is plain and begins a card; one that isn't plain may do so, too
};

/// The line is without its line feed; 16 bytes behind it must be readable.
T_LINELOOK_D LookAtLine(std::string_view sText);

/// Whether eight columns hold the word at which the converter ends a deck, wherever it stands.
bool HoldsEnd(std::string_view sColumns);
