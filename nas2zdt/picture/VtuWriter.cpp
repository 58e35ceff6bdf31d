// The resolved model as a VTK unstructured grid.

#include "nas2zdt/picture/CaseLoads.h"
#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/text/Base64.h"
#include "platform/WholeFile.h"
#include "writer/Format.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/PropertyRows.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <unordered_map>

namespace {

/// Cell types of the file format.
constexpr std::array<std::uint8_t, CELLS> CELL_TYPES = {1, 3, 5, 9, 10, 13, 12};

/// The first triangle of a wedge goes round the other way than in a deck, so that its normal points outward.
constexpr std::array<std::uint8_t, 8> WEDGE_ORDER = {0, 2, 1, 3, 5, 4, 6, 7};
constexpr std::array<std::uint8_t, 8> PLAIN_ORDER = {0, 1, 2, 3, 4, 5, 6, 7};

template <class VALUE>
constexpr const char* TypeName() {
    if constexpr (std::is_same_v<VALUE, double>) return "Float64";
    if constexpr (std::is_same_v<VALUE, float>) return "Float32";
    if constexpr (std::is_same_v<VALUE, std::int64_t>) return "Int64";
    if constexpr (std::is_same_v<VALUE, std::int32_t>) return "Int32";
    if constexpr (std::is_same_v<VALUE, std::uint8_t>) return "UInt8";
}

/// The values of an array and its end. fill(add) adds nValues values one by one.
template <class VALUE, class FILL>
void WriteValues(CFile& rFile, std::size_t nValues, FILL fill) {
    CBase64 text(rFile);
    text.Add(static_cast<std::uint64_t>(nValues * sizeof(VALUE)));
    fill([&](VALUE value) { text.Add(value); });
    text.Finish();
    rFile.Write("\n</DataArray>\n");
}

template <class VALUE, class FILL>
void WriteArray(CFile& rFile, std::string_view sName, std::int32_t nComponents, std::size_t nValues, FILL fill) {
    WriteLine(rFile, "<DataArray type=\"%s\" Name=\"%s\" NumberOfComponents=\"%d\" format=\"binary\">\n",
              TypeName<VALUE>(), sName, nComponents);
    WriteValues<VALUE>(rFile, nValues, fill);
}

/// An array with a vector for each item.
template <class VALUE>
void WriteVectors(CFile& rFile, std::string_view sName, const std::vector<T_VECTOR>& aVectors) {
    WriteArray<VALUE>(rFile, sName, 3, aVectors.size() * 3, [&](auto add) {
        for (const T_VECTOR& rVector : aVectors) {
            for (const double d : rVector) add(static_cast<VALUE>(d));
        }
    });
}

/// An array of a whole grid, which has a length of its own.
template <class VALUE, class LIST>
void WriteFieldArray(CFile& rFile, std::string_view sName, std::int32_t nComponents, const LIST& aValues) {
    WriteLine(rFile,
              "<DataArray type=\"%s\" Name=\"%s\" NumberOfComponents=\"%d\" NumberOfTuples=\"%s\" "
              "format=\"binary\">\n",
              TypeName<VALUE>(), sName, nComponents,
              std::to_string(aValues.size() / static_cast<std::size_t>(nComponents)));
    WriteValues<VALUE>(rFile, aValues.size(), [&](auto add) {
        for (const VALUE value : aValues) add(value);
    });
}

/// Texts are the codes of their characters, each text with a 0 behind it.
void WriteFieldTexts(CFile& rFile, std::string_view sName, const std::vector<std::string>& aTexts) {
    WriteLine(rFile, "<Array type=\"String\" Name=\"%s\" NumberOfTuples=\"%s\" format=\"ascii\">\n", sName,
              std::to_string(aTexts.size()));
    for (const std::string& sText : aTexts) {
        for (const char c : sText) WriteLine(rFile, "%d ", static_cast<std::int32_t>(c));
        rFile.Write("0\n");
    }
    rFile.Write("</Array>\n");
}

/// Ids and names, by keyword and id, of the records of a table that cards made.
template <class TABLE>
void WriteNames(CFile& rFile, const std::string& sWhat, const TABLE& rTable) {
    std::vector<std::int32_t> aIds;
    std::vector<std::string> aNames;
    for (const auto& [iID, rRecord] : rTable.Sorted()) {
        const char* sKeyword = KeywordOf(rRecord);
        if (!sKeyword) continue;
        aIds.push_back(iID);
        aNames.push_back(sKeyword + (" " + std::to_string(iID)));
    }
    if (aIds.empty()) return;
    WriteFieldArray<std::int32_t>(rFile, sWhat + "Ids", 1, aIds);
    WriteFieldTexts(rFile, sWhat + "Names", aNames);
}

/// An array with one value for each part.
template <class VALUE, class GET>
void WritePartArray(CFile& rFile, const T_SCEN_D& rScene, const char* sName, GET get) {
    WriteArray<VALUE>(rFile, sName, 1, rScene.aPARTS.size(), [&](auto add) {
        for (const T_PART_D& rPart : rScene.aPARTS) add(static_cast<VALUE>(get(rPart)));
    });
}

/// The load cases that a file has.
using T_CASES = std::vector<std::pair<std::int32_t, const T_LOAD_D*>>;

/// How many load cases a file may have: each has values for every node, loaded or not.
std::size_t MostCases(std::size_t nNodes) {
    constexpr std::size_t MOST = 16, MOST_POINTS = 4000000;
    return std::clamp<std::size_t>(MOST_POINTS / std::max<std::size_t>(nNodes, 1), 1, MOST);
}

T_CASES ChooseCases(const CDataPool& rDataPool, std::optional<std::int32_t> iCase) {
    T_CASES aCases;
    ForEachLoadCase(rDataPool, [&](const T_LOADCASE_ROW& r) {
        if (!iCase || *iCase == r.iSID) aCases.emplace_back(r.iSID, &r.rSET);
    });
    std::sort(aCases.begin(), aCases.end());
    return aCases;
}

std::string CaseName(const char* sLoad, std::int32_t iCase) {
    return std::string(sLoad) + " case " + std::to_string(iCase);
}

void WriteFields(CFile& rFile, const CDataPool& rDataPool, const T_CASES& aCases) {
    rFile.Write("<FieldData>\n");
    WriteNames(rFile, "Property", rDataPool.PROP);
    WriteNames(rFile, "Material", rDataPool.MATL);
    for (const auto& [iCase, pSet] : aCases) {
        ForEachGravity(*pSet, [&, iID = iCase](const T_GRAVITY_ROW& r) {
            WriteFieldArray<double>(rFile, CaseName("Gravity", iID), 3, T_VECTOR{r.dX, r.dY, r.dZ});
        });
    }
    rFile.Write("</FieldData>\n");
}

/// The mass at each node.
std::vector<double> SumMasses(const T_SCEN_D& rScene) {
    std::vector<double> aMasses(rScene.aIDS.size());
    for (const T_PART_D& rPart : rScene.aPARTS) {
        if (rPart.iKIND == KIND_MASS) aMasses[rPart.aNODES[0]] += rScene.aVALUES[rPart.iVALUES][0];
    }
    return aMasses;
}

void WritePoints(CFile& rFile, const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_CASES& aCases) {
    const std::size_t nNodes = rScene.aIDS.size();
    rFile.Write("<PointData GlobalIds=\"NodeId\">\n");
    WriteArray<std::int32_t>(rFile, "NodeId", 1, nNodes, [&](auto add) {
        for (const std::int32_t iID : rScene.aIDS) add(iID);
    });
    for (unsigned i = 0; i < 6; ++i) {
        WriteArray<std::uint8_t>(rFile, "Held" + std::to_string(i + 1), 1, nNodes, [&](auto add) {
            for (const std::uint8_t nHeld : rScene.aHELD) add(static_cast<std::uint8_t>(nHeld >> i & 1u));
        });
    }
    WriteArray<double>(rFile, "Mass", 1, nNodes, [&](auto add) {
        for (const double d : SumMasses(rScene)) add(d);
    });
    for (const auto& [iCase, pSet] : aCases) {
        const auto WriteLoads = [&, iID = iCase, &rSet = *pSet](const char* sLoad, E_LOAD_KIND eKind) {
            const std::vector<T_VECTOR> aSums = SumNodalLoads(rDataPool, rScene, rSet, eKind);
            if (!aSums.empty()) WriteVectors<float>(rFile, CaseName(sLoad, iID), aSums);
        };
        WriteLoads("Force", LOAD_FORCE);
        WriteLoads("Moment", LOAD_MOMENT);
    }
    rFile.Write("</PointData>\n<Points>\n");
    WriteVectors<double>(rFile, "Points", rScene.aPOINTS);
    rFile.Write("</Points>\n");
}

void WriteCells(CFile& rFile, const T_SCEN_D& rScene) {
    std::size_t nCorners = 0;
    for (const T_PART_D& rPart : rScene.aPARTS) nCorners += CELL_CORNERS[rPart.iCELL];
    rFile.Write("<Cells>\n");
    WriteArray<std::int32_t>(rFile, "connectivity", 1, nCorners, [&](auto add) {
        for (const T_PART_D& rPart : rScene.aPARTS) {
            const auto& rOrder = rPart.iCELL == CELL_WEDGE ? WEDGE_ORDER : PLAIN_ORDER;
            for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) {
                add(static_cast<std::int32_t>(rPart.aNODES[rOrder[i]]));
            }
        }
    });
    std::size_t nEnd = 0;
    WritePartArray<std::int64_t>(rFile, rScene, "offsets",
                                 [&](const T_PART_D& r) { return nEnd += CELL_CORNERS[r.iCELL]; });
    WritePartArray<std::uint8_t>(rFile, rScene, "types", [](const T_PART_D& r) { return CELL_TYPES[r.iCELL]; });
    rFile.Write("</Cells>\n");
}

/// The thickness of each plate, 0 of other parts.
void WriteThickness(CFile& rFile, const CDataPool& rDataPool, const T_SCEN_D& rScene) {
    std::unordered_map<std::int32_t, double> mapThickness;
    const auto keep = [&](const T_THICKNESS_ROW& r) { mapThickness[r.iPID] = r.bOUT ? r.dOUT : r.dIN; };
    ForEachThickness(rDataPool, CRowVisitor{keep, IGNORE_LEFT});
    WritePartArray<double>(rFile, rScene, "Thickness", [&](const T_PART_D& r) {
        if (r.iKIND != KIND_PLATE && r.iKIND != KIND_PLANE_STRESS) return 0.0;
        const auto pFound = mapThickness.find(r.iPID);
        return pFound == mapThickness.end() ? 0.0 : pFound->second;
    });
}

void WriteCellData(CFile& rFile, const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_CASES& aCases) {
    rFile.Write("<CellData Scalars=\"PropertyId\">\n");
    WritePartArray<std::int32_t>(rFile, rScene, "ElementId", [](const T_PART_D& r) { return r.iID; });
    WritePartArray<std::int32_t>(rFile, rScene, "PropertyId", [](const T_PART_D& r) { return r.iPID; });
    WritePartArray<std::int32_t>(rFile, rScene, "MaterialId", [](const T_PART_D& r) { return r.iMID; });
    WritePartArray<std::uint8_t>(rFile, rScene, "Kind", [](const T_PART_D& r) { return r.iKIND; });
    WriteThickness(rFile, rDataPool, rScene);
    const CKeyIndex surfaces = FindSurfaces(rScene);
    for (const auto& [iCase, pSet] : aCases) {
        const std::vector<double> aSums = SumPressures(rDataPool, rScene, surfaces, *pSet);
        if (aSums.empty()) continue;
        WriteArray<float>(rFile, CaseName("Pressure", iCase), 1, aSums.size(), [&](auto add) {
            for (const double d : aSums) add(static_cast<float>(d));
        });
    }
    rFile.Write("</CellData>\n");
}

} // namespace

T_LEFTOUT_D WriteVtu(const CDataPool& rDataPool, const std::string& sPath, const T_INPUTS& rInputs,
                     std::optional<std::int32_t> iCase) {
    CWholeFile file(sPath, rInputs);
    CFile& rFile = file.GetFile();
    T_SCEN_D scene = CollectParts(rDataPool);
    CollectSupports(rDataPool, scene);
    T_LEFTOUT_D leftOut;
    T_CASES aCases = ChooseCases(rDataPool, iCase);
    if (const std::size_t nMost = MostCases(scene.aIDS.size()); aCases.size() > nMost) {
        leftOut.nCASES = aCases.size() - nMost;
        aCases.resize(nMost);
    }
    const char* sOrder = std::endian::native == std::endian::little ? "LittleEndian" : "BigEndian";
    rFile.Write("<?xml version=\"1.0\"?>\n");
    WriteLine(rFile, "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"%s\" header_type=\"UInt64\">\n",
              sOrder);
    rFile.Write("<!-- Kind: 0 truss, 1 beam, 2 plane stress, 3 plate, 4 solid, 5 rigid link, 6 elastic link,\n"
                "     7 general link, 8 spring to ground, 9 mass -->\n<UnstructuredGrid>\n");
    WriteFields(rFile, rDataPool, aCases);
    WriteLine(rFile, "<Piece NumberOfPoints=\"%s\" NumberOfCells=\"%s\">\n", std::to_string(scene.aIDS.size()),
              std::to_string(scene.aPARTS.size()));
    WritePoints(rFile, rDataPool, scene, aCases);
    WriteCells(rFile, scene);
    WriteCellData(rFile, rDataPool, scene, aCases);
    rFile.Write("</Piece>\n</UnstructuredGrid>\n</VTKFile>\n");
    file.Finish();
    for (std::size_t i = 0; i < PART_KINDS; ++i) leftOut.nPARTS += scene.aCOUNTS[i].nWITHOUTNODES;
    return leftOut;
}
