#pragma once
// The visitors of this folder's functions. Each function walks what one section is made of and calls its visitor with a
// row for each line of the file, and with a T_LEFT_D for what is left out or isn't what the deck means. Writers format
// the rows and tell the rest, pictures draw the rows.

#include "store/Left.h"

/// A visitor made of functions: one for each type of row, and one for T_LEFT_D.
template <class... FUNCTIONS>
struct CRowVisitor : FUNCTIONS... {
    using FUNCTIONS::operator()...;
};
template <class... FUNCTIONS>
CRowVisitor(FUNCTIONS...) -> CRowVisitor<FUNCTIONS...>;

/// The function of a visitor that doesn't ask for what is left out.
constexpr auto IGNORE_LEFT = [](const T_LEFT_D&) {};
