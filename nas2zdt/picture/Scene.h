#pragma once
// What a picture of a converted model shows: the parts that the target file holds, at the places that it gives them.

#include "nas2zdt/geometry/Vector.h"
#include "writer/rows/ElementRows.h"

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Kinds of things in a picture. The numbers of the first ten are part of our .vtu files.
enum E_KIND : std::uint8_t {
    KIND_TRUSS,
    KIND_BEAM,
    KIND_PLANE_STRESS,
    KIND_PLATE,
    KIND_SOLID,
    KIND_RIGID,   // one for each pair of nodes
    KIND_ELASTIC, // springs between nodes that are apart
    KIND_GENERAL, // bushes, gaps, and springs between coincident nodes
    KIND_SPRING,  // to ground
    KIND_MASS,
    KIND_NODE, // free: none of the above uses it
    KIND_FIXED,
    KIND_SUPPORT, // some components held
    KIND_FORCE,
    KIND_MOMENT,
    KIND_PRESSURE,
    KIND_GRAVITY,
    KIND_REFERENCE, // from a beam towards its reference point
    KINDS,
};
constexpr std::size_t PART_KINDS = KIND_MASS + 1; // parts come first

/// Shapes of parts.
enum E_CELL : std::uint8_t { CELL_POINT, CELL_LINE, CELL_TRIA, CELL_QUAD, CELL_TETRA, CELL_WEDGE, CELL_HEXA, CELLS };
constexpr std::array<std::size_t, CELLS> CELL_CORNERS = {1, 2, 3, 4, 4, 6, 8};

constexpr std::uint8_t NO_CORNER = 0xFF; // behind the corners of a line or triangle

/// What is drawn of a cell, as places among its corners: a line or plate itself, or a solid's faces in the order of
/// the target file.
struct T_FACES_D {
    std::size_t nFACES = 0;
    std::array<std::array<std::uint8_t, 4>, 6> aCORNERS = {};
};
constexpr std::array<T_FACES_D, CELLS> FACES = {{
    {},
    {1, {{{0, 1, NO_CORNER, NO_CORNER}}}},
    {1, {{{0, 1, 2, NO_CORNER}}}},
    {1, {{{0, 1, 2, 3}}}},
    {4, {{{0, 1, 2, NO_CORNER}, {0, 1, 3, NO_CORNER}, {1, 2, 3, NO_CORNER}, {2, 0, 3, NO_CORNER}}}},
    {5, {{{0, 1, 2, NO_CORNER}, {3, 4, 5, NO_CORNER}, {0, 1, 4, 3}, {1, 2, 5, 4}, {2, 0, 3, 5}}}},
    {6, {{{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}}},
}};

/// An element, or one leg of a link. Its corners are places among the nodes of the scene, in the order of the target
/// file, which has no midside nodes.
struct T_PART_D {
    std::int32_t iID = 0;  // 0 for a multipoint equation
    std::int32_t iPID = 0; // 0 for a part without property, 1 for a CONROD
    std::int32_t iMID = 0; // as in the element's line; 0 for links and masses
    E_KIND iKIND = KIND_NODE;
    E_CELL iCELL = CELL_POINT;
    std::array<std::uint32_t, 8> aNODES = {};
};

/// A face of three or four corners, a line, or a dot.
struct T_SHAP_D {
    E_KIND iKIND = KIND_NODE;
    std::uint8_t nCORNERS = 0;
    std::array<std::uint32_t, 4> aCORNERS = {}; // places among the nodes
    auto operator<=>(const T_SHAP_D&) const = default;
};

/// Face iFace, from 0, of a part that isn't a point.
T_SHAP_D FaceOfPart(const T_PART_D& rPart, std::size_t iFace);

/// A load or a direction at a point.
struct T_ARRW_D {
    E_KIND iKIND = KIND_FORCE;
    T_VECTOR at = {};
    T_VECTOR direction = {}; // of length 1
    double dSIZE = 0.0;      // the load's magnitude
};

/// How many things of a kind the model has.
struct T_CONT_D {
    std::size_t nPRESENT = 0;      // with all their nodes
    std::size_t nWITHOUTNODES = 0; // referring to a node that doesn't exist
};

struct T_SCEN_D {
    std::vector<std::int32_t> aIDS; // of the nodes, as written
    std::vector<T_VECTOR> aPOINTS;  // global positions, in step
    CKeyIndex index;                // from the id of a node, as written, to its place

    std::vector<T_PART_D> aPARTS;
    std::size_t nFORMLESS = 0; // elements that no section takes

    std::vector<std::uint8_t> aHELD; // held components of each node, bit 0 for the first
    std::vector<T_ARRW_D> aARROWS;   // without gravity and loads on nodes without position
    std::vector<T_VECTOR> aGRAVITY;  // its directions
    std::size_t nCASES = 0;          // load cases
    std::size_t nFACELESS = 0;       // pressures on solids that name no face

    std::array<T_CONT_D, KINDS> aCOUNTS = {};

    /// For each node whether a part uses it.
    std::vector<bool> FindUsed() const;
};

/// The nodes, elements, links and masses of a resolved model.
T_SCEN_D CollectParts(const CDataPool& rDataPool);

/// Adds supports to what CollectParts gave for the same model.
void CollectSupports(const CDataPool& rDataPool, T_SCEN_D& rScene);

/// Adds supports, loads and beam references to what CollectParts gave for the same model.
void CollectLoads(const CDataPool& rDataPool, T_SCEN_D& rScene);
