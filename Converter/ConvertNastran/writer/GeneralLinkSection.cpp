// *NL-PROP and *NL-LINK of bushes and gaps.

#include "driver/CConvertNastran.h"
#include "writer/Springs.h"

#include <cmath>
#include <string>

namespace {

void WritePropertyHeader(CFile& rFile) {
    using RUN = CConvertNastran;
    WriteLinkVersion(rFile);
    RUN::WriteLine(rFile, "*NL-PROP    ; General Link Property\n");
    RUN::WriteLine(rFile, "; NAME, APPTYPE, TYPE, TW, bUSEMASS, TM, bSSL, DY, DZ, DESC\n");
    RUN::WriteLine(rFile, "; bLDX, DX, EFFDAMP, bNDX, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; bLDY, DY, EFFDAMP, bNDY, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; bLDZ, DZ, EFFDAMP, bNDZ, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; bLRX, RX, EFFDAMP, bNRX, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; bLRY, RY, EFFDAMP, bNRY, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; bLRZ, RZ, EFFDAMP, bNRZ, [NL_PROP]\n");
    RUN::WriteLine(rFile, "; [NL_PROP] : DSTIFF, DAMP, DEXP, bRIGDBR, BSTIFF, REFV ; Visco-elastic Damper Type\n");
    RUN::WriteLine(rFile, "; [NL_PROP] : STIFF, OPEN                               ; Gap Type or Hook Type\n");
    RUN::WriteLine(rFile, "; [NL_PROP] : STIFF, YSTR, PYS_RATIO, YEXP, PA, PB      ; Hysteretic System Type\n");
    RUN::WriteLine(rFile, "; [NL_PROP] : STIFF, YSTR, PYS_RATIO, PA, PB            ; Lead Rubber Bearing Type\n");
    RUN::WriteLine(rFile, "; [NL_PROP] : STIFF, FCS, FCF, RP, RADIUS, PA, PB       ; Friction Pendulum System Type\n");
}

void WriteBush(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    CConvertNastran::WriteLine(rFile, " GPROP%d, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n", iPID);
    for (std::size_t i = 0; i < 6; ++i) {
        const double dK = rProperty.dVAL[i];
        const double dB = rProperty.dVAL[6 + i];
        const char* const sActive = dK != 0.0 || dB != 0.0 ? "YES" : "NO";
        CConvertNastran::WriteLine(rFile, " %s, %g, %g, %s\n", sActive, dK, dB, "NO");
    }
}

void WriteGap(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    const double dU0 = rProperty.dVAL[0];
    const double dKA = rProperty.dVAL[2];
    const double dKT = rProperty.dVAL[3];
    CConvertNastran::WriteLine(rFile, " GPROP%d, FORCE, GAP, 0., NO, 0., NO, 0.5, 0.5,  \n", iPID);
    for (const double dStiffness : {dKA, dKT, dKT, 0.0, 0.0, 0.0}) {
        const bool bActive = dStiffness != 0.0;
        const char* const sActive = bActive ? "YES" : "NO";
        const double dS = bActive ? dStiffness : 0.0; // a zero of the card may carry a sign
        const double dOpen = bActive ? dU0 : 0.0;
        CConvertNastran::WriteLine(rFile, " %s, %g, 0., %s, %g, %g\n", sActive, dS, sActive, dS, dOpen);
    }
}

/// %g of an angle, which can be the one positive not-a-number of the file.
std::string AngleText(double dAngle) {
    if (std::isnan(dAngle) && !std::signbit(dAngle)) return "nan";
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dAngle)};
}

} // namespace

int CConvertNastran::WriteBushGapProperties(CFile& rFile) {
    if (m_pDataPool->PROP.IsEmpty()) return 1;
    const auto isLink = [](const T_PROP_D& r) { return r.iPROPTYPE == PROP_BUSH || r.iPROPTYPE == PROP_GAP; };
    const auto properties = m_pDataPool->PROP.Walk(isLink);
    const bool bAny = properties.GetCount() > 0;
    if (bAny) WritePropertyHeader(rFile);
    for (const auto& [iPID, rProperty] : properties) {
        if (rProperty.iPROPTYPE == PROP_BUSH) {
            WriteBush(rFile, iPID, rProperty);
        } else {
            WriteGap(rFile, iPID, rProperty);
        }
    }
    WriteLine(rFile, "\n"); // any property makes this line, and only then comes the switch back
    return bAny ? WriteFileVersion(rFile) : 1;
}

int CConvertNastran::WriteBushGapLinks(CFile& rFile) {
    if (m_pDataPool->ELEM.IsEmpty()) return 1;
    const auto isLink = [](std::uint16_t nTraits) {
        return nTraits == ElementTraits(TYPE_BUSH, SHAPE_LINE) || nTraits == ElementTraits(TYPE_GAP, SHAPE_LINE);
    };
    const auto elements = m_pDataPool->ELEM.Sorted(isLink);
    const bool bAny = elements.GetCount() > 0;
    if (bAny) {
        WriteLinkVersion(rFile);
        // clang-format off
        WriteLine(rFile, "*NL-LINK  ; General Link\n");
        WriteLine(rFile, "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, ANGLE, GROUP\n");
        WriteLine(rFile, "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, ANGLE-x, ANGLE-y, ANGLE-z, GROUP\n");
        WriteLine(rFile, "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, P0X, P0Y, P0Z, P1X, P1Y, P1Z, P2X, P2Y, P2Z, GROUP\n");
        WriteLine(rFile, "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, V1X, V1Y, V1Z, V2X, V2Y, V2Z, GROUP\n");
        // clang-format on
    }
    for (const auto& [iID, rElement] : elements) {
        const std::int32_t iNode1 = rElement.iNODE[0];
        const std::int32_t iNode2 = rElement.iNODE[1];
        double dFrom[3], dTo[3]; // a missing grid counts as the origin
        m_pDataPool->GetNodePosition(iNode1, dFrom);
        m_pDataPool->GetNodePosition(iNode2, dTo);
        if (rElement.iTYPE == TYPE_GAP && IsCoincident(dFrom, dTo)) {
            WriteLine(rFile, "%d, %d, %d, GPROP%d, , 1, 0, 0, 0, 0, \n", iID, iNode1, iNode2, rElement.iPID);
            continue;
        }
        double dVector[3] = {rElement.dX1, rElement.dX2, rElement.dX3};
        if (rElement.iTYPE == TYPE_BUSH && rElement.iG0 != 0) {
            m_pDataPool->GetNodePosition(rElement.iG0, dVector);
            for (std::size_t i = 0; i < 3; ++i) dVector[i] -= dFrom[i];
        }
        double dAngle = 0.0;
        m_pDataPool->ComputeBetaAngle(iNode1, iNode2, dVector[0], dVector[1], dVector[2], dAngle);
        WriteLine(rFile, " %d, %d, %d, GPROP%d, , 0, %s, \n", iID, iNode1, iNode2, rElement.iPID, AngleText(dAngle));
    }
    WriteLine(rFile, "\n"); // any element makes this line, and only then comes the switch back
    return bAny ? WriteFileVersion(rFile) : 1;
}
