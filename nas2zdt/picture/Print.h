#pragma once
// Formatted text in the files of the pictures.

#include "writer/Format.h"

#include <type_traits>

/// Sends a text made of a printf format and its arguments, which the compiler checks against it. Throws CFileException.
template <class... ARGS>
void Print(CFile& rFile, T_FORMAT_D<std::type_identity_t<ARGS>...> format, const ARGS&... args) {
    FormatTo(rFile, format, args...);
}
