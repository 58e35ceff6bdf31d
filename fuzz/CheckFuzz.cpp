// One deck, checked, and its sums held to those of its file.

#include "Fuzz.h"
#include "driver/CConvertNastran.h"
#include "nas2zdt/account/Account.h"
#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/check/FileTotals.h"
#include "support/NoDialogs.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    EnterScratchFolder();
    WriteText("A.DAT", "GRID,101,,1.,2.,3.\nGRID,102,3,4.,5.,6.\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize) {
    const std::string sDeck(CBytes(pData, nSize).Rest());
    if (HasLongRange(sDeck)) return 0;
    WriteText("DECK.DAT", sDeck);
    T_CHOICE_D choice;
    choice.join.bFORGIVING = true;
    choice.join.nDECKS = 50;
    choice.nRANGES = 100000;
    T_CHECK_D check;
    try {
        check = CheckDeck("DECK.DAT", choice, -1.0);
    } catch (const CFileException&) { // a limit, or a deck that includes itself
        return 0;
    }
    CNoDialogs dialogs;
    CConvertNastran run(dialogs);
    CAccount account;
    if (run.Convert("DECK.DAT", {.pOBSERVER = &account})) {
        account.EndRun(run.GetDataPool());
        check.aREVIEW = ReviewTotals(check.totals, TotalFile(run.GetDataPool()), &account, check.findings);
    }
    CheckTable("DECK.DAT", check, [](const std::string& s) { return s; });
    CheckJson(check);
    return 0;
}
