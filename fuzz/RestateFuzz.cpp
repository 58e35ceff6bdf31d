// One deck, restated and then converted.

#include "Fuzz.h"
#include "nas2zdt/restate/Restate.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    EnterScratchFolder();
    WriteText("A.DAT", "GRID,101,,1.,2.,3.\nGRID,102,3,4.,5.,6.\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    WriteText("DECK.DAT", CBytes(pData, nSize).Rest());
    T_CHOICE_D choice;
    choice.join.bFORGIVING = true;
    choice.join.nDECKS = 50;
    choice.nRANGES = 100000;
    try {
        CFile file;
        file.Create("RESTATED.DAT");
        RestateDeck("DECK.DAT", file, choice);
    } catch (const CFileException&) { // a limit, or a deck that includes itself
        return 0;
    }
    const std::string sRestated = ReadText("RESTATED.DAT");
    WriteText("DECK.DAT", sRestated);
    CheckRun(sRestated);
    return 0;
}
