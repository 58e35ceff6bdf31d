#pragma once
// Numbers and texts of the picture.

#include "nas2zdt/picture/Print.h"
#include "nas2zdt/picture/XmlText.h"

#include <cmath>
#include <cstddef>
#include <string>

constexpr std::size_t LONGEST_TITLE = 120;

/// Rounded to a tenth of a pixel.
inline double Tenth(double d) {
    return std::round(d * 10.0) / 10.0;
}

inline void WriteText(CFile& rFile, double dX, double dY, const char* sClass, const std::string& sText) {
    Print(rFile, "<text class=\"%s\" x=\"%g\" y=\"%g\">%s</text>\n", sClass, dX, dY, XmlText(sText, LONGEST_TITLE));
}
