#pragma once
// A scene laid out on the sheet: what is drawn of it, at which places, from far to near.

#include "nas2zdt/picture/IsometricView.h"
#include "nas2zdt/picture/Scene.h"
#include "nas2zdt/picture/Shapes.h"
#include "nas2zdt/picture/Symbols.h"

#include <cstddef>
#include <vector>

// The sheet is 1280 by 860 pixels: title on top, the model in its box, the legend beside it.
constexpr double BOX_LEFT = 20, BOX_TOP = 50, BOX_RIGHT = 950, BOX_BOTTOM = 840;

constexpr std::size_t MOST_SHAPES = 30000;
constexpr std::size_t MOST_MARKS = 200; // of a kind

struct T_DRAW_D {
    std::vector<T_VECT_D> aVISIBLE; // points that the picture is made for
    std::vector<T_VECT_D> aPLACES;  // of the nodes
    std::vector<T_SHAP_D> aSHAPES;  // from far to near
    std::vector<T_SYMB_D> aMARKS;   // on top of them
    double dJOINED = 0.0;           // pixels below which nodes are drawn as one
    bool bTHINNED = false;          // whether marks were left out
    std::size_t nNOWHERE = 0;       // parts without a place
    std::size_t nOUTSIDE = 0;       // free nodes that aren't in the picture

    bool HasMark(E_KIND iKind) const;
};

/// Lays rScene out with at most MOST_SHAPES shapes and MOST_MARKS marks of a kind.
T_DRAW_D LayOut(const T_SCEN_D& rScene);
