// A small deck for each keyword.

#include "support/CardDecks.h"

#include <algorithm>

namespace {

/// A block on eight grids, grids of a line, frames, materials and properties: what cards refer to. The frames 2, 3 and
/// 4 lie away from the origin, so that it matters where they are named.
constexpr std::string_view COMMON = "CORD2R,2,0,5.,6.,7.,5.,6.,8.\n,6.,7.,7.\n"
                                    "CORD2C,3,0,5.,6.,7.,5.,6.,8.\n,6.,7.,7.\n"
                                    "GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,1.,1.,0.\nGRID,4,,0.,1.,0.\n"
                                    "GRID,5,,0.,0.,1.\nGRID,6,,1.,0.,1.\nGRID,7,,1.,1.,1.\nGRID,8,,0.,1.,1.\n"
                                    "GRID,9,,2.,3.,5.\nGRID,10,,7.,11.,13.\nGRID,12,,0.,0.,0.\n"
                                    "MAT1,1,2.1E11,,.3\nMAT1,2,7.E10,,.33\n"
                                    "PBAR,3,1,1.,2.,3.,4.\nPBAR,23,2,1.,2.,3.,4.\nPSHELL,1,1,.1,1\nPSHELL,21,2,.2,2\n"
                                    "PSOLID,2,2\nPROD,4,2,1.,2.\nPTUBE,5,2,1.,.1\nPELAS,6,100.\nPBUSH,7,K,100.\n"
                                    "PGAP,8,0.,0.,100.\nPSHEAR,10,2,.1\n"
                                    "CBAR,103,3,1,2,0.,0.,1.\nCQUAD4,101,1,1,2,3,4\nCHEXA,102,2,1,2,3,4,5,6\n,7,8\n"
                                    "SPC1,1,123,1\nFORCE,1,1,0,1.,1.,0.,0.\n";

constexpr T_CARDDECK_D DECKS[] = {
    {"GRID", "50 2 1. 2. 3. 2 12 7", ""},
    {"CORD1R", "51 9 10 2 52 9 2 3", "GRID,61,51,1.,2.,3.\nGRID,62,52,1.,2.,3.\n"},
    {"CORD1C", "51 9 10 2 52 9 2 3", "GRID,61,51,1.,20.,3.\nGRID,62,52,1.,20.,3.\n"},
    {"CORD1S", "51 9 10 2 52 9 2 3", "GRID,61,51,1.,20.,30.\nGRID,62,52,1.,20.,30.\n"},
    {"CORD2R", "51 3 1. 2. 3. 1.5 2. 4. 3. 2.5 3.5", "GRID,61,51,1.,2.,3.\n"},
    {"CORD2C", "51 2 1. 2. 3. 1.5 2. 4. 3. 2.5 3.5", "GRID,61,51,1.,20.,3.\n"},
    {"CORD2S", "51 2 1. 2. 3. 1.5 2. 4. 3. 2.5 3.5", "GRID,61,51,1.,20.,30.\n"},
    {"CBAR", "51 23 9 10 1. 2. 3. GOO 5 6 .1 .2 .3 .4 .5 .6", ""},
    {"CBEAM", "51 23 9 10 1. 2. 3. GOO 5 6 .1 .2 .3 .4 .5 .6 7 8", ""},
    {"CBEND", "51 23 9 10 1. 2. 3. 1", ""},
    {"CROD", "51 4 9 10", ""},
    {"CTUBE", "51 5 9 10", ""},
    {"CONROD", "51 9 10 2 1. 2. 3. 4.", ""},
    {"CTRIA3", "51 21 1 2 3 30. .1 - - 1 .1 .2 .3", ""},
    {"CTRIAR", "51 21 1 2 3 30. .1 - - 1 .1 .2 .3", ""},
    {"CTRIA6", "51 21 1 2 3 4 5 6 30. .1 .1 .2 .3 1", ""},
    {"CQUAD4", "51 21 1 2 3 4 30. .1 - 1 .1 .2 .3 .4", ""},
    {"CQUADR", "51 21 1 2 3 4 30. .1 - 1 .1 .2 .3 .4", ""},
    {"CQUAD8", "51 21 1 2 3 4 5 6 7 8 .1 .2 .3 .4 30. .1 1", ""},
    {"CSHEAR", "51 10 1 2 3 4", ""},
    {"CTETRA", "51 2 1 2 3 5 6 7 8 9 10 4", ""},
    {"CPENTA", "51 2 1 2 3 5 6 7 8 9 10 4 8 9 10 4 8", ""},
    {"CHEXA", "51 2 1 2 3 4 5 6 7 8 9 10 9 10 9 10 9 10 9 10 9 10", ""},
    {"CELAS1", "51 6 9 2 10 2", ""},
    {"CELAS2", "51 100. 9 2 10 2 .05 3.", ""},
    {"CBUSH", "51 7 9 10 1. 2. 3. 2 .3 2 .1 .2 .3", ""},
    {"CGAP", "51 8 9 10 1. 2. 3. 2", ""},
    {"CONM2", "51 9 2 4. .1 .2 .3 - 1. 2. 3. 4. 5. 6.", ""},
    {"RBE2", "51 9 123 1 2 3 4 5", ""},
    {"PBAR", "51 2 1. 2. 3. 4. 5. - 1. 2. 3. 4. 5. 6. 7. 8. .5 .6 .7", "CBAR,71,51,9,10,0.,0.,1.\n"},
    {"PBARL", "51 2 MSCBML0 BOX - - - - 4. 3. .2 .1 5.", "CBAR,71,51,9,10,0.,0.,1.\n"},
    {"PBEAM",
     "51 2 1. 2. 3. .4 4. 5. 1. 2. 3. 4. 5. 6. 7. 8. YESA 1. 2. 4. 6. .8 8. 9. 1. 2. 3. 4. 5. 6. 7. 8. "
     ".5 .6 1. 2. 3. 4. 5. 6. 7. 8. 9. 1. 2. 3. 4. 5.",
     "CBEAM,71,51,9,10,0.,0.,1.\n"},
    {"PBEND", "51 2 1. 2. 3. 4. 5. 6. 1. 2. 3. 4. 5. 6. 7. 8. .5 .6 .7 1. 2. 3.", ""},
    {"PROD", "51 2 1. 2. 3. 4.", "CROD,71,51,9,10\n"},
    {"PTUBE", "51 2 1. .1 3. 2.", "CTUBE,71,51,9,10\n"},
    {"PSHELL", "51 2 .1 1 2. 1 .5 3. .1 .2 1", "CQUAD4,71,51,1,2,3,4\n"},
    {"PCOMP", "51 .1 3. 4. HILL 20. .05 SYM 1 .1 45. YES 2 .2 30. YES", ""},
    {"PSHEAR", "51 2 .1 3. 1. 2.", "CSHEAR,71,51,1,2,3,4\n"},
    {"PSOLID", "51 2 2 TWO GRID FULL PFLUID", "CHEXA,70,51,1,2,3,4,5,6\n,7,8\n"},
    {"PELAS", "51 100. .05 3. 52 200. .06 4.", "CELAS1,71,51,9,1,10,1\nCELAS1,72,52,9,1,10,1\n"},
    {"PBUSH", "51 K 1. 2. 3. 4. 5. 6. B 1. 2. 3. 4. 5. 6. - GE .1 .2 .3 .4 .5 .6", ""},
    {"PGAP", "51 .1 2. 3. 4. 5. .6 .7 8. 9. 10.", ""},
    {"MAT1", "51 2.1E11 7.E10 .3 7850. 1.2E-5 20. .05 1. 2. 3. 2", ""},
    {"MAT4", "51 50. 460. 7850. 1. 2. 3. 4. 5. 6. 7.", ""},
    {"MAT8", "51 1.E11 1.E10 .3 5.E9 4.E9 3.E9 1600. 1.E-5 2.E-5 20. 1. 2. 3. 4. 5. .05 .1 1.", ""},
    {"TEMP", "1 9 30. 10 40. 1 50.", ""},
    {"TEMPD", "1 20. 2 30. 3 40. 4 50.", ""},
    {"TEMPP1", "1 101 30. 2. 20. 10. - - 102 THRU 103 - - - - -", ""},
    {"TEMPRB", "1 103 20. 30. 1. 2. 3. 4. 5. 6. 7. 8. 9. 10. 11. 12. 101", ""},
    {"SPC", "1 9 12 .1 10 34 .2", ""},
    {"SPC1", "1 12 2 3 4 5 6 7 8 9 10 12", ""},
    {"MPC", "1 9 1 -1. 10 1 1. - - 1 2 3.", ""},
    {"FORCE", "1 9 2 10. 1. 2. 3.", ""},
    {"FORCE1", "1 9 10. 9 10", ""},
    {"FORCE2", "1 9 10. 9 10 2 3", ""},
    {"GRAV", "1 2 9.81 1. 2. 3. 1", ""},
    {"MOMENT", "1 9 2 10. 1. 2. 3.", ""},
    {"MOMENT1", "1 9 10. 9 10", ""},
    {"MOMENT2", "1 9 10. 9 10 2 3", ""},
    {"PLOAD1", "1 71 FX FR .2 3. .8 4.", "CBAR,71,3,9,10,0.,0.,1.\n"},
    {"PLOAD2", "1 5. 101 102 101 102 101 101", ""},
    {"PLOAD4", "1 102 1. 2. 3. 4. 1 3 2 1. 2. 3. SURF NORM", ""},
    {"SPCD", "1 9 1 .1 10 2 .2", ""},
    {"LOAD", "51 2. 3. 1 4. 2", "FORCE,2,1,0,1.,1.,0.,0.\n"},
    {"EIGB", "51 SINV .1 .2 5 5 5 - POINT 9 1", ""},
    {"EIGRL", "51 .1 100. 10 1 20 3. MAX", ""},
};

} // namespace

std::span<const T_CARDDECK_D> GetCardDecks() {
    return DECKS;
}

std::vector<std::string> SplitFields(std::string_view sFields) {
    std::vector<std::string> aFields;
    while (!sFields.empty()) {
        const std::size_t nField = std::min(sFields.find(' '), sFields.size());
        const std::string_view sField = sFields.substr(0, nField);
        aFields.emplace_back(sField == "-" ? std::string_view() : sField);
        sFields.remove_prefix(std::min(nField + 1, sFields.size()));
    }
    return aFields;
}

std::string MakeCardDeck(const T_CARDDECK_D& rRow, const std::vector<std::string>& aFields) {
    std::string sCard(rRow.sKEYWORD);
    for (std::size_t i = 0; i < aFields.size(); ++i) sCard += (i > 0 && i % 8 == 0 ? "\n," : ",") + aFields[i];
    return "SOL 101\nCEND\nBEGIN BULK\n" + std::string(COMMON) + std::string(rRow.sCARDS) + sCard + "\nENDDATA\n";
}
