#pragma once
// Marks of the picture, which have the same size in every model.

#include "nas2zdt/picture/Symbols.h"
#include "platform/File.h"

void WriteMark(CFile& rFile, const T_SYMB_D& rMark);

/// An arrow of dLength pixels whose point is at the mark. One along the view is a ring, with a dot if it comes towards
/// the eye.
void WriteArrow(CFile& rFile, const T_SYMB_D& rMark, double dLength);
