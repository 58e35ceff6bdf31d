#pragma once
// What the reader makes of a deck: lines, and cards made of lines.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Limits of a line's text in characters: for every line, and for a line of the bulk section or the one looked ahead
/// to.
constexpr std::int32_t LONGEST_LINE = 199;
constexpr std::int32_t LONGEST_BULK_LINE = 159;

/// How a line's fields are cut.
enum E_FORMAT : std::int32_t {
    FORMAT_SMALL = 0,
    FORMAT_LARGE = 1,
    FORMAT_FREE = 2,
    FORMAT_CASE_CONTROL = 3,
    FORMAT_EXECUTIVE = 4,
};

/// One line of a deck, in upper case. The text is changed in place as fields are cut from it.
struct T_LINE_D {
    static constexpr std::size_t SMALL_COLUMNS = 80; // filled with blanks where the text is shorter
    static constexpr std::size_t ROOM = 208;         // the longest text in whole blocks of 16

    std::int32_t iLINE = 0; // from 1
    E_FORMAT iFORMAT = FORMAT_SMALL;
    bool bCONT = false;    // whether it continues a card
    bool bCOMMENT = false; // whether it is a comment; then there is no text
    bool bMARKED = false;  // whether it may have a ",", "*", "=" or "$": without one it is a small field line
    bool bTABBED = false;  // whether it may have a tab
    bool bRETURN = false;  // whether it may have a carriage return; unknown where bWORDS holds
    bool bENDING = false;  // whether it may have "ENDDATA"
    bool bCUT = false;     // whether there was a ":", where the text ends now
    bool bWORDS = false;   // whether each field of eight columns is blank or one word of ASCII, with none of bMARKED,
                           // bTABBED and bCUT
    std::uint32_t nTEXT = 0;
    char aTEXT[ROOM];

    std::string_view Text() const { return {aTEXT, nTEXT}; }

    /// Columns of a small field line before the data field of that place.
    static constexpr std::size_t ColumnsBefore(std::size_t iField) { return 8 * (iField + 1); }
};

/// A line of a group before it is cut into fields, in upper case.
struct T_RAWLINE_D {
    std::string_view sTEXT;
    bool bCUT = false; // whether a ":" and what is behind it were taken off
};

/// Whether a field may be anything but blank or zero.
inline bool HoldsValue(std::string_view sField) {
    for (const char c : sField) {
        if (c != '0' && c != '.') return true;
    }
    return false;
}

/// What became of the fields of a card of an observed run, as far as its handler took them. Places count from 0.
struct T_FIELDUSE_D {
    struct T_SKIP_D {
        std::size_t iFIELD;
        const char* sNAME; // as the handler gives it; null for the one that the format gives to the place
    };
    std::vector<T_SKIP_D> aSKIPPED;    // fields that were passed over and aren't blank, in card order
    std::vector<std::size_t> aMISREAD; // fields taken as numbers that they aren't to their end
    std::size_t nREACHED = 0;          // fields from this one on were never reached
    bool bTELL = false;                // whether there is anything of these two, or the text may be cut otherwise

    void Clear() {
        aSKIPPED.clear();
        aMISREAD.clear();
        nREACHED = 0;
        bTELL = false;
    }
};

/// An assembled card. Fields point into the lines that it was made of.
struct T_DATA_D {
    std::int32_t iKEYWORD = -1;            // place in the keyword table
    std::string_view sWORD;                // the first field of the first line, a keyword or not
    std::vector<std::int32_t> aLINES;      // the line that each field came from
    std::vector<std::string_view> aFIELDS; // data fields in order, without blanks; the keyword isn't among them
    T_FIELDUSE_D* pUSE = nullptr;          // what became of its fields; null unless the run is observed
};
