#pragma once
// Numbers and texts of the picture.

#include "nas2zdt/WholeFile.h"
#include "picture/XmlText.h"

#include <cmath>
#include <cstddef>
#include <string>

constexpr std::size_t LONGEST_TITLE = 120;

/// Rounded to a tenth of a pixel.
inline double Tenth(double d) {
    return std::round(d * 10.0) / 10.0;
}

inline void WriteText(CWholeFile& rFile, double dX, double dY, const char* sClass, const std::string& sText) {
    rFile.Print("<text class=\"%s\" x=\"%g\" y=\"%g\">%s</text>\n", sClass, dX, dY, XmlText(sText, LONGEST_TITLE));
}
