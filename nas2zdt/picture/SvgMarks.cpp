// Marks of the picture as SVG.

#include "nas2zdt/picture/SvgMarks.h"

#include "nas2zdt/picture/SvgStyle.h"
#include "nas2zdt/picture/SvgText.h"

#include <algorithm>
#include <cmath>

void WriteArrow(CFile& rFile, const T_SYMB_D& rMark, double dLength) {
    constexpr double FLAT = 3.0; // pixels
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    const double dX = rMark.direction[0] * dLength, dY = -rMark.direction[1] * dLength;
    const double dSeen = std::hypot(dX, dY);
    if (dSeen < FLAT) {
        Print(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4\"/>\n", sClass, Tenth(rMark.dX), Tenth(rMark.dY));
        if (rMark.direction[2] > 0.0) {
            Print(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"0.8\"/>\n", sClass, Tenth(rMark.dX),
                  Tenth(rMark.dY));
        }
        return;
    }
    const double dUX = dX / dSeen, dUY = dY / dSeen;
    Print(rFile, "<path class=\"%s\" d=\"M%g %gL%g %g", sClass, Tenth(rMark.dX - dX), Tenth(rMark.dY - dY),
          Tenth(rMark.dX), Tenth(rMark.dY));
    const double dBarb = std::min(6.0, dSeen / 2);
    const int nHeads = rMark.iKIND == KIND_MOMENT ? 2 : 1; // as moments are drawn
    for (int i = 0; i < nHeads; ++i) {
        const double dTipX = rMark.dX - dUX * i * dBarb * 0.9, dTipY = rMark.dY - dUY * i * dBarb * 0.9;
        Print(rFile, "M%g %gL%g %g %g %g", Tenth(dTipX - (dUX + dUY * 0.5) * dBarb),
              Tenth(dTipY - (dUY - dUX * 0.5) * dBarb), Tenth(dTipX), Tenth(dTipY),
              Tenth(dTipX - (dUX - dUY * 0.5) * dBarb), Tenth(dTipY - (dUY + dUX * 0.5) * dBarb));
    }
    rFile.Write("\"/>\n");
}

void WriteMark(CFile& rFile, const T_SYMB_D& rMark) {
    const double dX = Tenth(rMark.dX), dY = Tenth(rMark.dY);
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    switch (rMark.iKIND) {
    case KIND_MASS:
        Print(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4.5\"/>\n", sClass, dX, dY);
        break;
    case KIND_SPRING:
        Print(rFile, "<path class=\"%s\" d=\"M%g %gv2l4 2-8 3 8 3-4 2v2m-5 0h10\"/>\n", sClass, dX, dY);
        break;
    case KIND_FIXED:
    case KIND_SUPPORT:
        Print(rFile, "<path class=\"%s\" d=\"M%g %gl5 9h-10z\"/>\n", sClass, dX, dY);
        break;
    case KIND_FORCE:
    case KIND_MOMENT:
        WriteArrow(rFile, rMark, 22.0 + 33.0 * rMark.dSIZE);
        break;
    case KIND_PRESSURE:
        WriteArrow(rFile, rMark, 14.0 + 20.0 * rMark.dSIZE);
        break;
    case KIND_GRAVITY:
        WriteArrow(rFile, rMark, 48.0);
        break;
    case KIND_REFERENCE: // begins at the beam
        Print(rFile, "<path class=\"%s\" d=\"M%g %gL%g %g\"/>\n", sClass, dX, dY,
              Tenth(rMark.dX + rMark.direction[0] * 10.0), Tenth(rMark.dY - rMark.direction[1] * 10.0));
        break;
    default: // a link of no length
        Print(rFile, "<path class=\"%s0\" d=\"M%g %gm-3.5 0l3.5-3.5 3.5 3.5-3.5 3.5z\"/>\n", sClass, dX, dY);
    }
}
