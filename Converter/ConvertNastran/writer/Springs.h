#pragma once
// What the writers of springs, bushes and gaps share.

#include "platform/File.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// Whether the positions differ by less than 1e-05 in each coordinate, the length unit of the model.
bool IsCoincident(const double (&a)[3], const double (&b)[3]);

/// dValue for the components iC1 and iC2, zero for the others of 1 to 6.
std::array<double, 6> ComponentValues(std::int32_t iC1, std::int32_t iC2, double dValue);

/// Switches to the format level of general links. Throws CFileException.
void WriteLinkVersion(CFile& rFile);
