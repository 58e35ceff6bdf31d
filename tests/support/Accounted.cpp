// An observed run.

#include "support/Accounted.h"

#include "driver/CConvertNastran.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"

T_ACCOUNTED_D RunAccounted(std::string_view sDeck) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), sDeck);
    CNoDialogs dialogs;
    CConvertNastran run(dialogs);
    T_ACCOUNTED_D result;
    result.iRESULT = run.Convert(folder.Path("deck.dat"), {.pOBSERVER = &result.account});
    result.account.EndRun(run.GetDataPool());
    result.sZDT = ReadText(folder.Path("deck.zdt"));
    return result;
}
