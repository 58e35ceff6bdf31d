#pragma once
// Section lines that properties of several kinds share.

#include "platform/File.h"
#include "store/PropertyRecord.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Stiffness values of a section.
struct T_STIF_D {
    double dA = 0.0;
    double dAS1 = 0.0, dAS2 = 0.0; // shear areas
    double dJ = 0.0;
    double dI1 = 0.0, dI2 = 0.0;
};

/// A pipe: id, name, outer diameter, wall thickness.
constexpr const char* PIPE_LINE = "  %d, DBUSER, %s, CC, P, 2, %g, %g, 0, 0, 0, 0, 0, 0\n";

/// Name of the section of a property.
inline std::string SectionName(std::int32_t iPID) {
    return "SECT" + std::to_string(iPID);
}

/// Stiffness of a PBAR or of the end of a PBEAM whose slots begin at iEnd.
T_STIF_D EndStiffness(const T_PROP_D& rProperty, std::size_t iEnd);

/// A section given by its stiffness, drawn as a square of the same area. Throws CFileException.
void WriteValueSection(CFile& rFile, std::int32_t iPID, const T_STIF_D& rStiffness);

/// A section whose ends differ. Throws CFileException.
void WriteTaperedSection(CFile& rFile, std::int32_t iPID, const T_STIF_D& rEndA, const T_STIF_D& rEndB);
