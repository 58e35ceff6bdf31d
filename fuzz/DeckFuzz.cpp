// One deck, with two small ones for its INCLUDE cards.

#include "Fuzz.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    EnterScratchFolder();
    WriteText("A.DAT", "BEGIN BULK\nGRID,101,,1.,2.,3.\nGRID,102,3,4.,5.,6.\nENDDATA\n");
    WriteText("B.DAT", "BEGIN BULK\r\nCROD           1       2     101     102\r\nENDDATA\r\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    const std::string_view sDeck = CBytes(pData, nSize).Rest();
    if (HasLongRange(sDeck)) return 0;
    WriteText("DECK.DAT", sDeck);
    CheckRun(sDeck);
    return 0;
}
