// *ELASTICLINK, *SPRING, *NL-PROP and *NL-LINK. The last two need another format level.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"
#include "writer/Section.h"
#include "writer/rows/SpringRows.h"

#include <cmath>
#include <string>

namespace {

// clang-format off
constexpr std::string_view PROPERTY_HEAD =
    "*VERSION\n"
    "  6.4.1\n\n"
    "*NL-PROP    ; General Link Property\n"
    "; NAME, APPTYPE, TYPE, TW, bUSEMASS, TM, bSSL, DY, DZ, DESC\n"
    "; bLDX, DX, EFFDAMP, bNDX, [NL_PROP]\n"
    "; bLDY, DY, EFFDAMP, bNDY, [NL_PROP]\n"
    "; bLDZ, DZ, EFFDAMP, bNDZ, [NL_PROP]\n"
    "; bLRX, RX, EFFDAMP, bNRX, [NL_PROP]\n"
    "; bLRY, RY, EFFDAMP, bNRY, [NL_PROP]\n"
    "; bLRZ, RZ, EFFDAMP, bNRZ, [NL_PROP]\n"
    "; [NL_PROP] : DSTIFF, DAMP, DEXP, bRIGDBR, BSTIFF, REFV ; Visco-elastic Damper Type\n"
    "; [NL_PROP] : STIFF, OPEN                               ; Gap Type or Hook Type\n"
    "; [NL_PROP] : STIFF, YSTR, PYS_RATIO, YEXP, PA, PB      ; Hysteretic System Type\n"
    "; [NL_PROP] : STIFF, YSTR, PYS_RATIO, PA, PB            ; Lead Rubber Bearing Type\n"
    "; [NL_PROP] : STIFF, FCS, FCF, RP, RADIUS, PA, PB       ; Friction Pendulum System Type\n";
constexpr std::string_view LINK_HEAD =
    "*VERSION\n"
    "  6.4.1\n\n"
    "*NL-LINK  ; General Link\n"
    "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, ANGLE, GROUP\n"
    "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, ANGLE-x, ANGLE-y, ANGLE-z, GROUP\n"
    "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, P0X, P0Y, P0Z, P1X, P1Y, P1Z, P2X, P2Y, P2Z, GROUP\n"
    "; iNO, iNODE1, iNODE2, GPROP, IEPROP, iRCS, iMETHOD, V1X, V1Y, V1Z, V2X, V2Y, V2Z, GROUP\n";
// clang-format on

const char* YesNo(bool bYes) {
    return bYes ? "YES" : "NO";
}

/// The lines of the six components of a linear property.
void WriteComponents(CFile& rFile, const T_SIXVALUES& rStiffness, const T_SIXVALUES& rDamping) {
    for (std::size_t i = 0; i < rStiffness.size(); ++i) {
        const char* const sActive = YesNo(rStiffness[i] != 0.0 || rDamping[i] != 0.0);
        WriteLine(rFile, " %s, %g, %g, NO\n", sActive, rStiffness[i], rDamping[i]);
    }
}

void WriteBush(CFile& rFile, const T_BUSHPROPERTY_ROW& r) {
    WriteLine(rFile, " GPROP%d, ELEMENT, SLD, 0., NO, 0., NO, 0.5, 0.5,  \n", r.iGPROP);
    WriteComponents(rFile, r.dK, r.dB);
}

void WriteGap(CFile& rFile, const T_GAPPROPERTY_ROW& r) {
    WriteLine(rFile, " GPROP%d, FORCE, GAP, 0., NO, 0., NO, 0.5, 0.5,  \n", r.iGPROP);
    for (std::size_t i = 0; i < r.dK.size(); ++i) {
        const char* const sActive = YesNo(r.dK[i] != 0.0);
        WriteLine(rFile, " %s, %g, 0., %s, %g, %g\n", sActive, r.dK[i], sActive, r.dK[i], r.dOPEN[i]);
    }
}

void WritePointLink(CFile& rFile, const T_POINTLINK_ROW& r) {
    WriteLine(rFile, "%d, %d, %d, GPROP%d, , 1, 0, 0, 0, 0, \n", r.iEID, r.iNODE1, r.iNODE2, r.iGPROP);
}

/// %g of an angle, the only value of the file that can be a positive not-a-number.
std::string AngleText(double dAngle) {
    if (std::isnan(dAngle) && !std::signbit(dAngle)) return "nan";
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dAngle)};
}

/// Springs to ground wait until the links are written.
template <class SPRING, class TELL>
int WriteElasticLinks(CFile& rFile, const CDataPool& rPool, const CMap<SPRING>& rSprings, const TELL& rTell) {
    if (rSprings.IsEmpty()) return 1;
    CSection section(rFile, "*ELASTICLINK\n");
    std::vector<T_GROUNDSPRING_ROW> aGrounded;
    const CRowVisitor visitor{
        [&](const T_ELASTICLINK_ROW& r) {
            const auto& k = r.dK;
            section.Line("%d, %d, GEN  , 0, %g, %g, %g, %g, %g, %g, NO, 0.5, 0.5, \n", r.iNODE1, r.iNODE2, k[0], k[1],
                         k[2], k[3], k[4], k[5]);
        },
        [&](const T_GROUNDSPRING_ROW& r) { aGrounded.push_back(r); },
        rTell,
    };
    ForEachElasticLink(rPool, rSprings, visitor);
    if (!aGrounded.empty()) WriteLine(rFile, "*SPRING\n");
    for (const T_GROUNDSPRING_ROW& r : aGrounded) {
        const auto& k = r.dK;
        WriteLine(rFile, "%d, %g, %g, %g, %g, %g, %g, \n", r.iNODE, k[0], k[1], k[2], k[3], k[4], k[5]);
    }
    return WriteLine(rFile, "\n");
}

} // namespace

int CConvertNastran::WriteCelas1Links(CFile& rFile) {
    return WriteElasticLinks(rFile, GetDataPool(), GetDataPool().CEL1, [this](const T_LEFT_D& r) { TellLeft(r); });
}

int CConvertNastran::WriteCelas2Links(CFile& rFile) {
    return WriteElasticLinks(rFile, GetDataPool(), GetDataPool().CEL2, [this](const T_LEFT_D& r) { TellLeft(r); });
}

/// Any property brings the empty line, which precedes the switch back.
int CConvertNastran::WriteBushGapProperties(CFile& rFile) {
    if (GetDataPool().PROP.IsEmpty()) return 1;
    CSection section(rFile, PROPERTY_HEAD);
    const CRowVisitor visitor{
        [&](const T_BUSHPROPERTY_ROW& r) {
            section.Begin();
            WriteBush(rFile, r);
        },
        [&](const T_GAPPROPERTY_ROW& r) {
            section.Begin();
            WriteGap(rFile, r);
        },
    };
    ForEachLinkProperty(GetDataPool(), visitor);
    WriteLine(rFile, "\n");
    return section.IsBegun() ? WriteFileVersion(rFile) : 1;
}

/// Any element brings the empty line, which precedes the switch back.
int CConvertNastran::WriteBushGapLinks(CFile& rFile) {
    if (GetDataPool().ELEM.IsEmpty()) return 1;
    CSection section(rFile, LINK_HEAD);
    const CRowVisitor visitor{
        [&](const T_POINTLINK_ROW& r) {
            section.Begin();
            WritePointLink(rFile, r);
        },
        [&](const T_TURNEDLINK_ROW& r) {
            section.Line(" %d, %d, %d, GPROP%d, , 0, %s, \n", r.iEID, r.iNODE1, r.iNODE2, r.iGPROP,
                         AngleText(r.dANGLE));
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachGeneralLink(GetDataPool(), visitor);
    WriteLine(rFile, "\n");
    return section.IsBegun() ? WriteFileVersion(rFile) : 1;
}

int CConvertNastran::WriteScalarProperties(CFile& rFile) {
    CSection section(rFile, "*VERSION\n"
                            "  6.4.1\n\n"
                            "*NL-PROP    ; General Link Property\n");
    const CRowVisitor visitor{
        [&](const T_SCALARLINK_ROW& r) {
            section.Line(" GPROP%d, ELEMENT, SPG,  0, NO, 0,  NO, 0.5, 0.5, \n", r.iGPROP);
            WriteComponents(rFile, r.dK, r.dDAMP);
        },
        [&](const T_LEFT_D& rLeft) { TellLeft(rLeft); },
    };
    ForEachScalarLink(GetDataPool(), visitor);
    if (!section.IsBegun()) return 1;
    WriteFileVersion(rFile);
    return WriteLine(rFile, "\n");
}

/// What the properties logged is logged again, but told once.
int CConvertNastran::WriteScalarLinks(CFile& rFile) {
    CSection section(rFile, "*VERSION\n"
                            "  6.4.1\n\n"
                            "*NL-LINK  ; General Link\n");
    const CRowVisitor visitor{
        [&](const T_SCALARLINK_ROW& r) {
            section.Begin();
            WritePointLink(rFile, r);
        },
        [&](const T_LEFT_D& rLeft) { LogLeft(*m_pMsgMgr, GetDataPool(), rLeft); }, // its property has told it
    };
    ForEachScalarLink(GetDataPool(), visitor);
    if (!section.IsBegun()) return 1;
    WriteFileVersion(rFile);
    return WriteLine(rFile, "\n");
}
