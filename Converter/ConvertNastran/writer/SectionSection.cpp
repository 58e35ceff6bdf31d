// *SECTION, at a format level of its own, and *THICKNESS: what line elements and plates find under their property id.

#include "driver/CConvertNastran.h"
#include "store/PropertySlots.h"
#include "writer/SectionLines.h"

namespace {

/// Also a shape that is refused counts.
bool HasSection(const T_PROP_D& rProperty) {
    return rProperty.iPROPTYPE == PROP_ROD || rProperty.iPROPTYPE == PROP_BAR || rProperty.iPROPTYPE == PROP_TUBE ||
           rProperty.iPROPTYPE == PROP_BEAM;
}

bool HasThickness(const T_PROP_D& rProperty) {
    return (rProperty.iPROPTYPE == PROP_MEMBRANE || rProperty.iPROPTYPE == PROP_BENDING ||
            rProperty.iPROPTYPE == PROP_SHELL) &&
           rProperty.dVAL[SLOT_T] != 0.0;
}

/// A rod has no shear areas and no moments of inertia.
T_STIF_D RodStiffness(const T_PROP_D& rProperty) {
    return {.dA = rProperty.dVAL[SLOT_A], .dJ = rProperty.dVAL[SLOT_J]};
}

void WriteTubeSection(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    const double dOD = rProperty.dVAL[SLOT_OD];
    CConvertNastran::WriteLine(rFile, PIPE_LINE, iPID, SectionName(iPID), dOD, 0.5 * (dOD - rProperty.dVAL[SLOT_ID]));
}

void WriteThickness(CFile& rFile, std::int32_t iPID, const T_PROP_D& rProperty) {
    constexpr const char* LINE = "%5d, VALUE, %s, %g, %g\n";
    const double dT = rProperty.dVAL[SLOT_T];
    switch (rProperty.iPROPTYPE) {
    case PROP_MEMBRANE:
        CConvertNastran::WriteLine(rFile, LINE, iPID, "NO", dT, 0.0);
        break;
    case PROP_BENDING:
        CConvertNastran::WriteLine(rFile, LINE, iPID, "YES", dT / 1000.0, dT);
        break;
    default:
        CConvertNastran::WriteLine(rFile, LINE, iPID, "YES", dT, dT);
    }
}

} // namespace

/// The version lines and the empty lines come with any property at all.
int CConvertNastran::WriteSectionAndThickness(CFile& rFile) {
    if (m_pDataPool->PROP.IsEmpty()) return 1;
    WriteLine(rFile, "*VERSION\n");
    WriteLine(rFile, "  6.3.1\n\n");
    const auto sections = m_pDataPool->PROP.Walk(HasSection);
    if (sections.GetCount() > 0) WriteLine(rFile, "*SECTION\n");
    for (const auto& [iPID, rProperty] : sections) {
        switch (rProperty.iPROPTYPE) {
        case PROP_ROD:
            WriteValueSection(rFile, iPID, RodStiffness(rProperty));
            break;
        case PROP_BAR:
            WriteBarSection(rFile, iPID, rProperty);
            break;
        case PROP_TUBE:
            WriteTubeSection(rFile, iPID, rProperty);
            break;
        default:
            WriteBeamSection(rFile, iPID, rProperty);
        }
    }
    WriteLine(rFile, "\n");
    WriteLine(rFile, "*VERSION\n");
    WriteLine(rFile, "  5.8.1\n\n");

    const auto thicknesses = m_pDataPool->PROP.Walk(HasThickness);
    if (thicknesses.GetCount() > 0) WriteLine(rFile, "*THICKNESS\n");
    for (const auto& [iPID, rProperty] : thicknesses) WriteThickness(rFile, iPID, rProperty);
    return WriteLine(rFile, "\n");
}
