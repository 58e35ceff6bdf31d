// Collects the arrays of a model from the rows of the target file.

#include "nas2zdt/library/ModelTables.h"

#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/PropertyRows.h"
#include "writer/rows/SpringRows.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string>

namespace {

enum E_VALUES { IDS, REALS };

struct T_COLUMNFORM_D {
    const char* sNAME = nullptr; // none behind the last
    E_VALUES eVALUES = IDS;
    std::size_t nWIDTH = 1;
};

struct T_TABLEFORM_D {
    const char* sNAME;
    std::array<T_COLUMNFORM_D, 7> aCOLUMNS;
};

enum E_TABLE {
    TABLE_NODES,
    TABLE_TRUSSES,
    TABLE_BEAMS,
    TABLE_TUBES,
    TABLE_TRIANGLES,
    TABLE_QUADS,
    TABLE_TETRAHEDRA,
    TABLE_WEDGES,
    TABLE_HEXAHEDRA,
    TABLE_MASSES,
    TABLE_ISOTROPIC,
    TABLE_ORTHOTROPIC,
    TABLE_THERMAL,
    TABLE_VALUE_SECTIONS,
    TABLE_TAPERED_SECTIONS,
    TABLE_SHAPE_SECTIONS,
    TABLE_THICKNESSES,
    TABLE_SUPPORTS,
    TABLE_RIGID_LINKS,
    TABLE_EQUATIONS,
    TABLE_ELASTIC_LINKS,
    TABLE_GROUND_SPRINGS,
    TABLE_GENERAL_LINKS,
    TABLE_BUSHES,
    TABLE_GAPS,
    TABLE_SPRINGS,
    TABLE_LOAD_CASES,
    TABLE_COMBINATIONS,
    TABLES,
};

constexpr T_TABLEFORM_D FORMS[TABLES] = {
    {"nodes", {{{"id"}, {"position", REALS, 3}}}},
    {"trusses", {{{"id"}, {"nodes", IDS, 2}, {"property"}, {"material"}}}},
    {"beams", {{{"id"}, {"nodes", IDS, 2}, {"property"}, {"material"}, {"reference", REALS, 3}}}},
    {"tubes", {{{"id"}, {"nodes", IDS, 2}, {"property"}, {"material"}}}},
    {"triangles", {{{"id"}, {"nodes", IDS, 3}, {"property"}, {"material"}, {"plane_stress"}}}},
    {"quads", {{{"id"}, {"nodes", IDS, 4}, {"property"}, {"material"}, {"plane_stress"}}}},
    {"tetrahedra", {{{"id"}, {"nodes", IDS, 4}, {"property"}, {"material"}}}},
    {"wedges", {{{"id"}, {"nodes", IDS, 6}, {"property"}, {"material"}}}},
    {"hexahedra", {{{"id"}, {"nodes", IDS, 8}, {"property"}, {"material"}}}},
    {"masses", {{{"id"}, {"node"}, {"mass", REALS, 3}, {"inertia", REALS, 3}}}},
    {"isotropic", {{{"id"}, {"e", REALS}, {"nu", REALS}, {"alpha", REALS}}}},
    {"orthotropic",
     {{{"id"}, {"e", REALS, 2}, {"nu", REALS}, {"g12", REALS}, {"g1z", REALS}, {"g2z", REALS}, {"alpha", REALS, 2}}}},
    {"thermal", {{{"id"}, {"capacity", REALS}, {"conductivity", REALS}}}},
    {"value_sections", {{{"id"}, {"values", REALS, 6}}}},
    {"tapered_sections", {{{"id"}, {"values_a", REALS, 6}, {"values_b", REALS, 6}}}},
    {"shape_sections", {{{"id"}, {"shape"}, {"dimensions", REALS, 6}}}},
    {"thicknesses", {{{"id"}, {"bends"}, {"thickness", REALS, 2}}}},
    {"supports", {{{"node"}, {"held", IDS, 6}}}},
    {"rigid_links", {{{"id"}, {"nodes", IDS, 2}, {"tied", IDS, 6}}}},
    {"equations", {{{"nodes", IDS, 2}, {"component"}}}},
    {"elastic_links", {{{"id"}, {"nodes", IDS, 2}, {"property"}, {"stiffness", REALS, 6}}}},
    {"ground_springs", {{{"id"}, {"node"}, {"property"}, {"stiffness", REALS, 6}}}},
    {"general_links", {{{"id"}, {"nodes", IDS, 2}, {"property"}, {"angle", REALS}}}},
    {"bushes", {{{"id"}, {"stiffness", REALS, 6}, {"damping", REALS, 6}}}},
    {"gaps", {{{"id"}, {"stiffness", REALS, 6}, {"opening", REALS, 6}}}},
    {"springs", {{{"id"}, {"stiffness", REALS, 6}, {"damping", REALS, 6}}}},
    {"load_cases", {{{"id"}}}},
    {"combinations", {{{"id"}, {"case"}, {"factor", REALS}}}},
};

enum E_CASETABLE {
    CASE_GRAVITY,
    CASE_FORCES,
    CASE_MOMENTS,
    CASE_BEAM_LOADS,
    CASE_PRESSURES,
    CASE_TEMPERATURES,
    CASE_ELEMENT_TEMPERATURES,
    CASE_GRADIENTS,
    CASE_DISPLACEMENTS,
    CASE_TABLES,
};

constexpr T_TABLEFORM_D CASE_FORMS[CASE_TABLES] = {
    {"gravity", {{{"value", REALS, 3}}}},
    {"forces", {{{"node"}, {"value", REALS, 3}}}},
    {"moments", {{{"node"}, {"value", REALS, 3}}}},
    {"beam_loads", {{{"element"}, {"kind"}, {"direction"}, {"projected"}, {"at", REALS, 2}, {"value", REALS, 2}}}},
    {"pressures", {{{"element"}, {"face"}, {"value", REALS, 4}, {"direction", REALS, 3}}}},
    {"temperatures", {{{"node"}, {"value", REALS}}}},
    {"element_temperatures", {{{"element"}, {"value", REALS}}}},
    {"gradients", {{{"element"}, {"value", REALS}}}},
    {"displacements", {{{"node"}, {"value", REALS, 6}}}},
};

T_MODELTABLE_D MakeTable(const T_TABLEFORM_D& rForm, std::optional<std::int32_t> iCase = {}) {
    T_MODELTABLE_D table{rForm.sNAME, iCase, {}};
    for (const T_COLUMNFORM_D& rColumn : rForm.aCOLUMNS) {
        if (!rColumn.sNAME) break;
        T_MODELCOLUMN_D& rMade = table.aCOLUMNS.emplace_back(T_MODELCOLUMN_D{rColumn.sNAME, rColumn.nWIDTH, {}});
        if (rColumn.eVALUES == REALS) rMade.values.emplace<REALS>();
    }
    return table;
}

void Append(T_MODELCOLUMN_D& rColumn, std::int32_t iValue) {
    std::get<IDS>(rColumn.values).push_back(iValue);
}
void Append(T_MODELCOLUMN_D& rColumn, double dValue) {
    std::get<REALS>(rColumn.values).push_back(dValue);
}
template <class LIST>
void Append(T_MODELCOLUMN_D& rColumn, const LIST& rValues) {
    for (const auto value : rValues) Append(rColumn, value);
}

/// Adds a row, a value or list a column.
template <class... VALUES>
void Add(T_MODELTABLE_D& rTable, const VALUES&... values) {
    auto pColumn = rTable.aCOLUMNS.begin();
    (Append(*pColumn++, values), ...);
}

std::array<std::int32_t, 6> Digits(const std::array<bool, 6>& rComponents) {
    std::array<std::int32_t, 6> aDigits;
    std::copy(rComponents.begin(), rComponents.end(), aDigits.begin());
    return aDigits;
}

std::array<double, 6> Values(const T_STIFFNESS_D& r) {
    return {r.dA, r.dAS1, r.dAS2, r.dJ, r.dI1, r.dI2};
}

std::int32_t DirectionNumber(std::string_view sWord) {
    constexpr std::string_view WORDS[] = {"GX", "GY", "GZ", "LX", "LY", "LZ"};
    const auto pWord = std::find(std::begin(WORDS), std::end(WORDS), sWord);
    return pWord == std::end(WORDS) ? 0 : static_cast<std::int32_t>(pWord - std::begin(WORDS)) + 1;
}

std::int32_t BeamLoadNumber(std::string_view sWord) {
    constexpr std::string_view WORDS[] = {"CONLOAD", "CONMOMENT", "UNILOAD", "UNIMOMENT"};
    return static_cast<std::int32_t>(std::find(std::begin(WORDS), std::end(WORDS), sWord) - std::begin(WORDS));
}

/// Fills the tables that belong to no load case.
class CModelCollector {
  public:
    explicit CModelCollector(std::vector<T_MODELTABLE_D>& rTables) : m_rTables(rTables) {}

    void operator()(const T_NODE_ROW& r) const { Put(TABLE_NODES, r.iNODE, std::array{r.dX, r.dY, r.dZ}); }
    void operator()(const T_TRUSS_ROW& r) const { PutLine(TABLE_TRUSSES, r); }
    void operator()(const T_BEAM_ROW& r) const { PutLine(TABLE_BEAMS, r, std::array{r.dX, r.dY, r.dZ}); }
    void operator()(const T_TUBE_ROW& r) const { PutLine(TABLE_TUBES, r); }
    void operator()(const T_PLATE_ROW& r) const {
        const E_TABLE eTable = r.nCORNERS == 3 ? TABLE_TRIANGLES : TABLE_QUADS;
        Put(eTable, r.iEID, Corners(r), r.iPID, r.iMID, std::int32_t{r.bPLANESTRESS});
    }
    void operator()(const T_SOLID_ROW& r) const {
        const E_TABLE eTable = r.nCORNERS == 4 ? TABLE_TETRAHEDRA : r.nCORNERS == 6 ? TABLE_WEDGES : TABLE_HEXAHEDRA;
        Put(eTable, r.iEID, Corners(r), r.iPID, r.iMID);
    }
    void operator()(const T_MASS_ROW& r) const {
        Put(TABLE_MASSES, r.iEID, r.iNODE, std::array{r.dMX, r.dMY, r.dMZ}, std::array{r.dRMX, r.dRMY, r.dRMZ});
    }
    void operator()(const T_ISOTROPIC_ROW& r) const { Put(TABLE_ISOTROPIC, r.iMID, r.dE, r.dNU, r.dALPHA); }
    void operator()(const T_ORTHOTROPIC_ROW& r) const {
        Put(TABLE_ORTHOTROPIC, r.iMID, std::array{r.dE1, r.dE2}, r.dNU, r.dG12, r.dG1Z, r.dG2Z,
            std::array{r.dALPHA1, r.dALPHA2});
    }
    void operator()(const T_THERMAL_ROW& r) const { Put(TABLE_THERMAL, r.iMID, r.dCP, r.dK); }
    void operator()(const T_VALUESECTION_ROW& r) const { Put(TABLE_VALUE_SECTIONS, r.iPID, Values(r.stiffness)); }
    void operator()(const T_TAPEREDSECTION_ROW& r) const {
        Put(TABLE_TAPERED_SECTIONS, r.iPID, Values(r.endA), Values(r.endB));
    }
    void operator()(const T_SHAPESECTION_ROW& r) const {
        Put(TABLE_SHAPE_SECTIONS, r.iPID, static_cast<std::int32_t>(r.eSHAPE), r.dDIM);
    }
    void operator()(const T_THICKNESS_ROW& r) const {
        Put(TABLE_THICKNESSES, r.iPID, std::int32_t{r.bOUT}, std::array{r.dIN, r.dOUT});
    }
    void operator()(const T_CONSTRAINT_ROW& r) const { Put(TABLE_SUPPORTS, r.iNODE, Digits(r.bDOF)); }
    void operator()(const T_RIGIDLINK_ROW& r) const {
        for (const std::int32_t iSlave : r.aSLAVES) {
            Put(TABLE_RIGID_LINKS, r.iEID, std::array{r.iMASTER, iSlave}, Digits(r.bDOF));
        }
    }
    void operator()(const T_EQUATION_ROW& r) const { Put(TABLE_EQUATIONS, std::array{r.iMASTER, r.iSLAVE}, r.iCOMP); }
    void operator()(const T_ELASTICLINK_ROW& r) const {
        Put(TABLE_ELASTIC_LINKS, r.iEID, std::array{r.iNODE1, r.iNODE2}, r.iPID, r.dK);
    }
    void operator()(const T_GROUNDSPRING_ROW& r) const { Put(TABLE_GROUND_SPRINGS, r.iEID, r.iNODE, r.iPID, r.dK); }
    void operator()(const T_POINTLINK_ROW& r) const {
        Put(TABLE_GENERAL_LINKS, r.iEID, std::array{r.iNODE1, r.iNODE2}, r.iGPROP, 0.0);
    }
    void operator()(const T_SCALARLINK_ROW& r) const {
        (*this)(static_cast<const T_POINTLINK_ROW&>(r));
        Put(TABLE_SPRINGS, r.iGPROP, r.dK, r.dDAMP);
    }
    void operator()(const T_TURNEDLINK_ROW& r) const {
        Put(TABLE_GENERAL_LINKS, r.iEID, std::array{r.iNODE1, r.iNODE2}, r.iGPROP, r.dANGLE);
    }
    void operator()(const T_BUSHPROPERTY_ROW& r) const { Put(TABLE_BUSHES, r.iGPROP, r.dK, r.dB); }
    void operator()(const T_GAPPROPERTY_ROW& r) const { Put(TABLE_GAPS, r.iGPROP, r.dK, r.dOPEN); }
    void operator()(const T_LOADCASE_ROW& r) const { Put(TABLE_LOAD_CASES, r.iSID); }
    void operator()(const T_COMBINATION_ROW& r) const {
        for (const T_SHARE_D& rShare : r.aSHARES) Put(TABLE_COMBINATIONS, r.iSID, rShare.iSET, rShare.dFACTOR);
    }
    void operator()(const T_LEFT_D&) const {}

  private:
    template <class... VALUES>
    void Put(E_TABLE eTable, const VALUES&... values) const {
        Add(m_rTables[eTable], values...);
    }
    template <class ROW, class... MORE>
    void PutLine(E_TABLE eTable, const ROW& r, const MORE&... more) const {
        Put(eTable, r.iEID, std::array{r.iNODE1, r.iNODE2}, r.iPID, r.iMID, more...);
    }
    template <class ROW>
    static std::span<const std::int32_t> Corners(const ROW& r) {
        return std::span(r.aNODES).first(r.nCORNERS);
    }

    std::vector<T_MODELTABLE_D>& m_rTables;
};

/// Adds the tables of a load case that have rows.
void CollectCase(const CDataPool& rPool, const T_LOADCASE_ROW& rCase, std::vector<T_MODELTABLE_D>& rTables) {
    std::vector<T_MODELTABLE_D> aTables;
    for (const T_TABLEFORM_D& rForm : CASE_FORMS) aTables.push_back(MakeTable(rForm, rCase.iSID));
    const T_LOAD_D& rSet = rCase.rSET;
    ForEachGravity(rSet, [&](const T_GRAVITY_ROW& r) { Add(aTables[CASE_GRAVITY], std::array{r.dX, r.dY, r.dZ}); });
    for (const auto& [eKind, eTable] : {std::pair(LOAD_FORCE, CASE_FORCES), std::pair(LOAD_MOMENT, CASE_MOMENTS)}) {
        T_MODELTABLE_D& rTable = aTables[eTable];
        const auto add = [&](const T_NODALLOAD_ROW& r) { Add(rTable, r.iNODE, std::array{r.dX, r.dY, r.dZ}); };
        ForEachNodalLoad(rPool, rSet, eKind, CRowVisitor{add, IGNORE_LEFT});
    }
    const CRowVisitor others{
        [&](const T_BEAMLOAD_ROW& r) {
            Add(aTables[CASE_BEAM_LOADS], r.iEID, BeamLoadNumber(r.sLOAD), DirectionNumber(r.sDIRECTION),
                std::int32_t{r.sPROJECTED == "YES"}, std::array{r.dX1, r.dX2}, std::array{r.dP1, r.dP2});
        },
        [&](const T_UNIFORMPRESSURE_ROW& r) {
            Add(aTables[CASE_PRESSURES], r.iEID, 0, std::array{r.dP, r.dP, r.dP, r.dP}, std::array{0.0, 0.0, 0.0});
        },
        [&](const T_CORNERPRESSURE_ROW& r) { Add(aTables[CASE_PRESSURES], r.iEID, r.iFACE, r.dP, r.dN); },
        [&](const T_NODETEMPERATURE_ROW& r) { Add(aTables[CASE_TEMPERATURES], r.iNODE, r.dT); },
        [&](const T_ELEMENTTEMPERATURE_ROW& r) { Add(aTables[CASE_ELEMENT_TEMPERATURES], r.iEID, r.dT); },
        [&](const T_GRADIENT_ROW& r) { Add(aTables[CASE_GRADIENTS], r.iEID, r.dTZ); },
        [&](const T_DISPLACEMENT_ROW& r) { Add(aTables[CASE_DISPLACEMENTS], r.iNODE, r.dD); },
        IGNORE_LEFT,
    };
    ForEachBeamLoad(rPool, rSet, others);
    ForEachPressure(rPool, rSet, others);
    ForEachNodeTemperature(rPool, rCase, others);
    ForEachElementTemperature(rPool, rSet, others);
    ForEachGradient(rPool, rSet, others);
    ForEachDisplacement(rPool, rSet, others);
    for (T_MODELTABLE_D& rTable : aTables) {
        if (rTable.CountRows() > 0) rTables.push_back(std::move(rTable));
    }
}

} // namespace

CModelTables::CModelTables(const CDataPool& rPool) {
    for (const T_TABLEFORM_D& rForm : FORMS) m_aTables.push_back(MakeTable(rForm));
    const CModelCollector collector(m_aTables);
    ForEachNode(rPool, collector);
    ForEachElement(rPool, collector);
    ForEachConrod(rPool, collector);
    ForEachMass(rPool, collector);
    ForEachMaterial(rPool, collector);
    ForEachSection(rPool, collector);
    ForEachThickness(rPool, collector);
    ForEachConstraint(rPool, collector);
    ForEachRigidLink(rPool, collector);
    ForEachEquation(rPool, collector);
    ForEachElasticLink(rPool, rPool.CEL1, collector);
    ForEachElasticLink(rPool, rPool.CEL2, collector);
    ForEachLinkProperty(rPool, collector);
    ForEachGeneralLink(rPool, collector);
    ForEachScalarLink(rPool, collector);
    ForEachLoadCase(rPool, collector);
    ForEachCombination(rPool, collector);
    ForEachLoadCase(rPool, [&](const T_LOADCASE_ROW& r) { CollectCase(rPool, r, m_aTables); });
    for (std::size_t i = 0; i < m_aTables.size(); ++i) {
        m_mapTables.emplace(std::pair(m_aTables[i].sNAME, m_aTables[i].iCASE.value_or(0)), i);
    }
}

const T_MODELCOLUMN_D* CModelTables::Find(std::string_view sTable, std::int32_t iCase, std::string_view sColumn) const {
    const auto pPlace = m_mapTables.find(std::pair(sTable, iCase));
    if (pPlace == m_mapTables.end()) return nullptr;
    const auto& rColumns = m_aTables[pPlace->second].aCOLUMNS;
    const auto pColumn = std::find_if(rColumns.begin(), rColumns.end(),
                                      [&](const T_MODELCOLUMN_D& rColumn) { return rColumn.sNAME == sColumn; });
    return pColumn == rColumns.end() ? nullptr : &*pColumn;
}
