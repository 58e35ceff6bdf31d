#pragma once
// The load cases of the file as blocks of a page.

#include "platform/File.h"
#include "store/DataPool.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What a row of loads is. Its values, up to four, are told here.
enum E_LOAD_ROW : std::uint8_t {
    LOADROW_GRAVITY,             // x, y, z
    LOADROW_FORCE,               // on a node: x, y, z
    LOADROW_MOMENT,              // likewise
    LOADROW_PRESSURE,            // on an element: of each corner; the code is the face of a solid, from 1, 0 for none
    LOADROW_DIRECTION,           // of the pressure before it, if that isn't normal: x, y, z
    LOADROW_BEAM,                // position and value, twice; the code is the place of its words
    LOADROW_DISPLACEMENT,        // of a node: x, y, z
    LOADROW_ROTATION,            // likewise
    LOADROW_TEMPERATURE,         // of a node
    LOADROW_ELEMENT_TEMPERATURE, // of an element
    LOADROW_GRADIENT,            // of an element
    LOADROWS
};

/// Their names in the page.
constexpr std::array<const char*, LOADROWS> LOADROW_NAMES = {
    "gravity",   "force",        "moment",   "pressure",    "direction",
    "beam load", "displacement", "rotation", "temperature", "element temperature",
    "gradient"};

/// A load case, and its rows among those of all.
struct T_CASEROWS_D {
    std::int32_t iSID = 0;
    std::size_t iFIRST = 0, nROWS = 0;
};

struct T_LOADROW_D {
    E_LOAD_ROW eTYPE = LOADROW_GRAVITY;
    std::uint8_t iCODE = 0;
    std::int32_t iID = 0; // of the node or element, 0 of gravity
    std::array<float, 4> dVALUES = {};
};

struct T_LOADTABLE_D {
    std::vector<T_CASEROWS_D> aCASES;
    std::vector<T_LOADROW_D> aROWS;
    std::vector<std::string> aWORDS; // of loads along beams: "CONLOAD GX NO"
    std::uint64_t nLEFTOUT = 0;      // rows past nMost
};

constexpr std::size_t MOST_LOAD_ROWS = 2000000;

/// All loads of the file, in its order; nMost rows at most.
T_LOADTABLE_D CollectLoadRows(const CDataPool& rPool, std::size_t nMost = MOST_LOAD_ROWS);

/// Writes the blocks load-type, load-code, load-id and load-0 to load-3: a value of each row.
void WriteLoadBlocks(CFile& rFile, const T_LOADTABLE_D& rTable);
