// The resolved model as a VTK unstructured grid.

#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/text/Base64.h"
#include "platform/WholeFile.h"
#include "writer/Format.h"

#include <bit>

namespace {

/// Cell types of the file format.
constexpr std::array<std::uint8_t, CELLS> CELL_TYPES = {1, 3, 5, 9, 10, 13, 12};

/// The first triangle of a wedge goes round the other way than in a deck, so that its normal points outward.
constexpr std::array<std::uint8_t, 8> WEDGE_ORDER = {0, 2, 1, 3, 5, 4, 6, 7};
constexpr std::array<std::uint8_t, 8> PLAIN_ORDER = {0, 1, 2, 3, 4, 5, 6, 7};

template <class VALUE>
constexpr const char* TypeName() {
    if constexpr (std::is_same_v<VALUE, double>) return "Float64";
    if constexpr (std::is_same_v<VALUE, std::int64_t>) return "Int64";
    if constexpr (std::is_same_v<VALUE, std::int32_t>) return "Int32";
    if constexpr (std::is_same_v<VALUE, std::uint8_t>) return "UInt8";
}

/// An array of nValues values, which fill(add) adds one by one.
template <class VALUE, class FILL>
void WriteArray(CFile& rFile, const char* sName, std::int32_t nComponents, std::size_t nValues, FILL fill) {
    WriteLine(rFile, "<DataArray type=\"%s\" Name=\"%s\" NumberOfComponents=\"%d\" format=\"binary\">\n",
              TypeName<VALUE>(), sName, nComponents);
    CBase64 text(rFile);
    text.Add(static_cast<std::uint64_t>(nValues * sizeof(VALUE)));
    fill([&](VALUE value) { text.Add(value); });
    text.Finish();
    rFile.Write("\n</DataArray>\n");
}

/// An array with one value for each part.
template <class VALUE, class GET>
void WritePartArray(CFile& rFile, const T_SCEN_D& rScene, const char* sName, GET get) {
    WriteArray<VALUE>(rFile, sName, 1, rScene.aPARTS.size(), [&](auto add) {
        for (const T_PART_D& rPart : rScene.aPARTS) add(static_cast<VALUE>(get(rPart)));
    });
}

void WritePoints(CFile& rFile, const T_SCEN_D& rScene) {
    rFile.Write("<PointData GlobalIds=\"NodeId\">\n");
    WriteArray<std::int32_t>(rFile, "NodeId", 1, rScene.aIDS.size(), [&](auto add) {
        for (const std::int32_t iID : rScene.aIDS) add(iID);
    });
    rFile.Write("</PointData>\n<Points>\n");
    WriteArray<double>(rFile, "Points", 3, rScene.aPOINTS.size() * 3, [&](auto add) {
        for (const T_VECTOR& rPoint : rScene.aPOINTS) {
            for (const double d : rPoint) add(d);
        }
    });
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

} // namespace

std::size_t WriteVtu(const CDataPool& rDataPool, const std::string& sPath, const T_INPUTS& rInputs) {
    CWholeFile file(sPath, rInputs);
    CFile& rFile = file.GetFile();
    const T_SCEN_D scene = CollectParts(rDataPool);
    const char* sOrder = std::endian::native == std::endian::little ? "LittleEndian" : "BigEndian";
    rFile.Write("<?xml version=\"1.0\"?>\n");
    WriteLine(rFile, "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"%s\" header_type=\"UInt64\">\n",
              sOrder);
    rFile.Write("<!-- Kind: 0 truss, 1 beam, 2 plane stress, 3 plate, 4 solid, 5 rigid link, 6 elastic link,\n"
                "     7 general link, 8 spring to ground, 9 mass -->\n");
    WriteLine(rFile, "<UnstructuredGrid>\n<Piece NumberOfPoints=\"%s\" NumberOfCells=\"%s\">\n",
              std::to_string(scene.aIDS.size()), std::to_string(scene.aPARTS.size()));
    WritePoints(rFile, scene);
    WriteCells(rFile, scene);
    rFile.Write("<CellData Scalars=\"PropertyId\">\n");
    WritePartArray<std::int32_t>(rFile, scene, "ElementId", [](const T_PART_D& r) { return r.iID; });
    WritePartArray<std::int32_t>(rFile, scene, "PropertyId", [](const T_PART_D& r) { return r.iPID; });
    WritePartArray<std::int32_t>(rFile, scene, "MaterialId", [](const T_PART_D& r) { return r.iMID; });
    WritePartArray<std::uint8_t>(rFile, scene, "Kind", [](const T_PART_D& r) { return r.iKIND; });
    rFile.Write("</CellData>\n</Piece>\n</UnstructuredGrid>\n</VTKFile>\n");
    file.Finish();

    std::size_t nWithoutNodes = 0;
    for (std::size_t i = 0; i < PART_KINDS; ++i) nWithoutNodes += scene.aCOUNTS[i].nWITHOUTNODES;
    return nWithoutNodes;
}
