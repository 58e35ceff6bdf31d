#pragma once
// A small model with a part of each kind.

#include "support/Deck.h"

/// The cards of 24 grids, 1 to 24, two cubes side by side along X with a wedge and a tetrahedron on the first, beside
/// them plates, lines and links, and loads. Element 110 has no line in the target file; plate 113, a leg of the RBE2
/// and a force name grids that don't exist.
inline constexpr const char* MODEL_CARDS =
    "GRID,1\nGRID,2,,1.\nGRID,3,,1.,1.,,,1\nGRID,4,,,1.\nGRID,5,,,,1.\nGRID,6,,1.,,1.\nGRID,7,,1.,1.,1.\n"
    "GRID,8,,,1.,1.\nGRID,9,,2.\nGRID,10,,2.,1.\nGRID,11,,2.,,1.\nGRID,12,,2.,1.,1.\n"
    "GRID,13,,,,2.\nGRID,14,,1.,,2.\nGRID,15,,1.,1.,2.\nGRID,16,,,1.,2.\n"
    "GRID,17,,4.\nGRID,18,,5.\nGRID,19,,5.,1.\nGRID,20,,4.,1.\nGRID,21,,4.,,1.\nGRID,22,,6.\nGRID,23,,6.,1.\n"
    "GRID,24,,3.,,2.\n" // of nothing
    "CHEXA,101,1,1,2,3,4,5,6\n,7,8\nCHEXA,102,1,2,9,10,3,6,11\n,12,7\nCPENTA,103,1,5,6,7,13,14,15\n"
    "CTETRA,104,1,5,7,8,16\nCQUAD4,105,2,17,18,19,20\nCTRIA3,106,2,17,18,21\nCSHEAR,107,1,18,22,23,19\n"
    "CBAR,108,1,9,17,0.,0.,1.\nCROD,109,1,10,20\nCBEND,110,1,1,2\nCBUSH,111,6,20,21\nCONM2,112,22,,1.\n"
    "CQUAD4,113,2,17,18,19,999\nCONROD,101,11,21,7\nRBE2,5,19,123456,22,23,998\nCELAS1,1,3,20,1,23,1\n"
    "CELAS2,2,50.,21,3\nPSOLID,1,4\nPSHELL,2,1,2.5,1\nPELAS,3,100.\nPBUSH,6,K,,7.\nMAT1,4,210000.\n"
    "SPC1,1,123456,1\nSPC1,1,123,2\nGRAV,1,,9.81,0.,0.,-1.\nFORCE,1,15,,10.,0.,0.,1.\nFORCE,1,997,,10.,0.,0.,1.\n"
    "MOMENT,1,15,,0.,1.\nPLOAD4,1,102,,,2.,,9,12\nPLOAD4,1,105,,,-2.\nPLOAD4,1,108,2.\n";
