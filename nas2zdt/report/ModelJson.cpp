// Properties, materials and combinations of the file as JSON.

#include "nas2zdt/report/ModelJson.h"

#include "nas2zdt/text/Json.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/PropertyRows.h"

#include <initializer_list>
#include <span>
#include <utility>

namespace {

/// Shapes by E_SECTION_SHAPE, with their number of dimensions.
constexpr std::pair<const char*, std::size_t> SHAPES[] = {{"rectangle", 2}, {"box", 4}, {"round", 1},   {"pipe", 2},
                                                          {"i", 6},         {"h", 4},   {"channel", 4}, {"t", 4}};
static_assert(std::size(SHAPES) == SECTION_T + 1);

/// Objects of an array as they come.
class CObjects {
  public:
    void Add(std::int32_t iID, std::string_view sName, std::string_view sValue,
             std::initializer_list<std::pair<const char*, double>> aNumbers) {
        Begin(iID, sName, sValue);
        for (const auto& [sMember, dValue] : aNumbers) m_sText += "," + JsonMember(sMember, JsonNumber(dValue));
        m_sText += "}";
    }
    void AddShape(const T_SHAPESECTION_ROW& r) {
        const auto& [sShape, nDimensions] = SHAPES[r.eSHAPE];
        Begin(r.iPID, "form", "shape");
        m_sText += "," + JsonMember("shape", JsonText(sShape)) + "," +
                   JsonMember("dimensions", JsonArray(std::span(r.dDIM).first(nDimensions), &JsonNumber)) + "}";
    }
    std::string Text() const { return "[" + m_sText + "]"; }

  private:
    void Begin(std::int32_t iID, std::string_view sName, std::string_view sValue) {
        m_sText += m_sText.empty() ? "{" : ",{";
        m_sText += JsonMember("id", std::to_string(iID)) + "," + JsonMember(sName, JsonText(sValue));
    }

    std::string m_sText;
};

} // namespace

std::string PropertiesJson(const CDataPool& rPool) {
    CObjects objects;
    const CRowVisitor sections{
        [&](const T_VALUESECTION_ROW& r) {
            objects.Add(r.iPID, "form", "value", {{"area", r.stiffness.dA}, {"side", r.stiffness.dSIDE}});
        },
        [&](const T_TAPEREDSECTION_ROW& r) {
            objects.Add(r.iPID, "form", "tapered",
                        {{"area", r.endA.dA}, {"side", r.endA.dSIDE}, {"areaB", r.endB.dA}, {"sideB", r.endB.dSIDE}});
        },
        [&](const T_SHAPESECTION_ROW& r) { objects.AddShape(r); },
        IGNORE_LEFT,
    };
    ForEachSection(rPool, sections);
    const CRowVisitor plates{
        [&](const T_THICKNESS_ROW& r) {
            objects.Add(r.iPID, "form", r.bOUT ? "plate" : "membrane", {{"thickness", r.bOUT ? r.dOUT : r.dIN}});
        },
        IGNORE_LEFT,
    };
    ForEachThickness(rPool, plates);
    return objects.Text();
}

std::string MaterialsJson(const CDataPool& rPool) {
    CObjects objects;
    const CRowVisitor visitor{
        [&](const T_ISOTROPIC_ROW& r) {
            objects.Add(r.iMID, "kind", "isotropic", {{"E", r.dE}, {"nu", r.dNU}, {"alpha", r.dALPHA}});
        },
        [&](const T_ORTHOTROPIC_ROW& r) {
            objects.Add(
                r.iMID, "kind", "orthotropic",
                {{"E1", r.dE1}, {"E2", r.dE2}, {"nu", r.dNU}, {"G12", r.dG12}, {"G1z", r.dG1Z}, {"G2z", r.dG2Z}});
        },
        [&](const T_THERMAL_ROW& r) {
            objects.Add(r.iMID, "kind", "thermal", {{"k", r.dK}, {"cp", r.dCP}});
        },
        IGNORE_LEFT,
    };
    ForEachMaterial(rPool, visitor);
    return objects.Text();
}

std::string CombinationsJson(const CDataPool& rPool) {
    std::string sText;
    const CRowVisitor visitor{
        [&](const T_COMBINATION_ROW& r) {
            const auto share = [](const T_SHARE_D& rShare) {
                return "[" + std::to_string(rShare.iSET) + "," + JsonNumber(rShare.dFACTOR) + "]";
            };
            sText += (sText.empty() ? "{" : ",{") + JsonMember("id", std::to_string(r.iSID)) + "," +
                     JsonMember("shares", JsonArray(r.aSHARES, share)) + "}";
        },
        IGNORE_LEFT,
    };
    ForEachCombination(rPool, visitor);
    return "[" + sText + "]";
}
