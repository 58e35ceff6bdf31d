#pragma once
// What the fields of cards hold and what they refer to, as a table.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

/// How a field is written.
enum E_FIELDFORM : std::uint8_t {
    AS_ANY, // isn't looked at
    AS_WORD,
    AS_INTEGER,
    AS_REAL,
    AS_NUMBER, // an integer that is a reference, or a real number
    AS_MIXED,  // a word or a real number
    AS_COMPONENTS,
    AS_COMPONENT
};

/// What a field refers to.
enum E_REFERRED : std::uint8_t {
    TARGET_NOTHING,
    TARGET_GRID,
    TARGET_POINT, // a grid or a scalar point
    TARGET_FRAME,
    TARGET_MATERIAL,
    TARGET_PROPERTY, // one for the element of the card
    TARGET_BAR,      // a CBAR, CBEAM or CBEND
    TARGET_LINE,     // these and rods
    TARGET_SURFACE,
    TARGET_FACE, // a surface or a solid
    TARGET_SUPPORTS,
    TARGET_EQUATIONS,
    TARGET_LOADS,
    TARGET_COUNT
};

enum E_VALUE : std::uint8_t { VALUE_ANY, VALUE_NOTNEGATIVE, VALUE_POSITIVE };

constexpr std::int32_t LARGEST_ID = 99999999; // of eight digits

/// A type of fields. An integer of 0 refers to nothing, where 0 may be.
struct T_FIELDTYPE_D {
    std::string_view sWORD; // in the table of cards
    E_FIELDFORM eFORM;
    E_REFERRED eTARGET = TARGET_NOTHING;
    std::int32_t iLOWEST = std::numeric_limits<std::int32_t>::min(); // of integers
    std::int32_t iHIGHEST = std::numeric_limits<std::int32_t>::max();
    E_VALUE eVALUE = VALUE_ANY; // of reals
};

struct T_FIELD_D {
    std::string_view sNAME;
    const T_FIELDTYPE_D* pTYPE;
    bool bNEEDED; // mustn't be blank
};

/// The card of a keyword. Fields that come over and over stand behind the others; what is behind them isn't looked at.
struct T_CARDFORMAT_D {
    std::string_view sKEYWORD;
    std::vector<T_FIELD_D> aFIELDS; // in their places
    std::vector<T_FIELD_D> aLIST;   // over and over
    bool bIDS = false;              // the list is one of ids, with THRU, BY and EXCEPT
    bool bENDSATREAL = false;       // such a list ends at a real number

    /// The type of the field in a place, null behind the last.
    const T_FIELD_D* Find(std::size_t i) const {
        if (i < aFIELDS.size()) return &aFIELDS[i];
        return aLIST.empty() ? nullptr : &aLIST[(i - aFIELDS.size()) % aLIST.size()];
    }
};

/// A type by its word; there must be one.
const T_FIELDTYPE_D* FindFieldType(std::string_view sWord);

/// Null for a keyword that isn't in the table. sKeyword is in upper case.
const T_CARDFORMAT_D* FindCardFormat(std::string_view sKeyword);
