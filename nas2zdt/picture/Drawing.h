#pragma once
// A scene laid out on the sheet: what is drawn of it, at which places, from far to near.

#include "nas2zdt/picture/Colours.h"
#include "nas2zdt/picture/IsometricView.h"
#include "nas2zdt/picture/Scene.h"

#include <cstddef>
#include <vector>

// The sheet is 1280 by 860 pixels: title on top, the model in its box, the legend beside it.
constexpr double BOX_LEFT = 20, BOX_TOP = 50, BOX_RIGHT = 950, BOX_BOTTOM = 840;

constexpr std::size_t MOST_MARKS = 200; // of a kind

/// A mark at a place of the picture, of the same size in every model.
struct T_SYMB_D {
    E_KIND iKIND = KIND_MASS;
    double dX = 0.0, dY = 0.0;
    T_VECTOR direction = {}; // turned: right, up, towards the eye; of length 1, zero for a mark without direction
    double dSIZE = 0.0;      // a load's share of the largest of its kind
    std::uint32_t iOF = 0;   // place of its arrow, part or node in the scene
};

struct T_DRAW_D {
    std::vector<T_VECTOR> aVISIBLE; // points that the picture is scaled for
    std::vector<T_VECTOR> aPLACES;  // of the nodes
    std::vector<T_SHAP_D> aSHAPES;  // from far to near
    std::vector<T_SYMB_D> aMARKS;   // on top of them
    double dJOINED = 0.0;           // pixels below which nodes are drawn as one
    bool bTHINNED = false;          // whether marks were left out
    std::size_t nNOWHERE = 0;       // parts without a place
    std::size_t nOUTSIDE = 0;       // free nodes that aren't in the picture

    bool HasMark(E_KIND iKind) const;
};

/// Lays the parts and free nodes of rScene out, with at most some 30,000 shapes.
T_DRAW_D LayOut(const T_SCEN_D& rScene, const T_COLOURS_D& rColours);

/// Sets the marks of a drawing that LayOut made of rScene, at most MOST_MARKS of a kind.
void SetMarks(const T_SCEN_D& rScene, const T_COLOURS_D& rColours, T_DRAW_D& rDrawing);

/// Shapes of all lines, plates and solids whose corners have a place in aPlaces, which holds that of each node in the
/// picture. Of solids only outer faces that are turned to the eye. Adds the parts without a place to rNowhere.
std::vector<T_SHAP_D> MakeShapes(const T_SCEN_D& rScene, const T_COLOURS_D& rColours,
                                 const std::vector<T_VECTOR>& aPlaces, std::size_t& rNowhere);

/// Joins near corners until there are at most some 30,000 shapes; the only shape of a kind keeps a dot, and so does the
/// only one with a loss. Returns the distance in pixels below which corners were joined, 0 for none.
double Simplify(std::vector<T_SHAP_D>& rShapes, const std::vector<T_VECTOR>& aPlaces);

/// Marks of all masses, grounded springs, links without length, supports, loads, beam references and nodes with a loss.
/// aPlaces holds the place of each node.
std::vector<T_SYMB_D> MakeSymbols(const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const CIsometricView& rView,
                                  const std::vector<T_VECTOR>& aPlaces);

/// Keeps the largest of near marks of one kind and direction, until no kind has more than MOST_MARKS. Returns whether
/// any were removed.
bool ThinOut(std::vector<T_SYMB_D>& rSymbols);

/// The normal of a face in the picture by its corners' order, of any length.
inline T_VECTOR FaceNormal(const T_SHAP_D& rFace, const std::vector<T_VECTOR>& aPlaces) {
    const auto Place = [&](std::size_t i) -> const T_VECTOR& { return aPlaces[rFace.aCORNERS[i]]; };
    return Cross(Subtract(Place(2), Place(0)), Subtract(Place(rFace.nCORNERS - 1u), Place(1)));
}
