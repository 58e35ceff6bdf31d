// The exported functions of the library.

#include "driver/CConvertNastran.h"
#include "driver/ConvertFile.h"
#include "driver/ConvertNastranApp.h"
#include "messages/MsgDll.h"
#include "platform/Dialogs.h"
#include "store/DataPool.h"

#include <cstring>
#include <exception>
#include <string>

namespace {

const CConvertNastranApp g_app; // made when the library is loaded, gone when it is unloaded

/// Failures of opening a deck are not told: the host learns of them by the result alone.
bool IsSilent(E_FAILURE eFailure) {
    return eFailure == FAILURE_DECK_NOT_OPENED || eFailure == FAILURE_INCLUDE_NOT_OPENED;
}

std::int32_t ConvertChosenDeck(CDialogs& rDialogs, char* sOutput, std::int32_t nOutput) {
    rDialogs.ShowNotice(g_pfnLoadStr("IDS_NASTRAN_Input_file_maked_by_FEAMAP_is_required"));
    std::string sDeck;
    if (!rDialogs.ChooseDeck(sDeck)) return CONVERT_CANCELLED;
    const std::string sTarget = CConvertNastran::TargetPath(sDeck);
    CConvertNastran run(rDialogs);
    if (!run.Convert(sDeck)) {
        if (!IsSilent(run.GetFailure().eFAILURE)) rDialogs.ShowRunError(run.GetFailure().GetText());
        return CONVERT_FAILED;
    }
    if (sOutput && nOutput > 0) {
        const bool bFits = sTarget.size() < static_cast<std::size_t>(nOutput);
        std::memcpy(sOutput, bFits ? sTarget.c_str() : "", bFits ? sTarget.size() + 1 : 1);
    }
    return CONVERT_DONE;
}

} // namespace

std::int32_t CONVERTNASTRAN_CALL ConvertFile2(char* sOutput, std::int32_t nOutput) {
    std::unique_ptr<CDialogs> pDialogs;
    const char* sWhy = "Internal error"; // a string holds a text as short as these in itself
    try {
        pDialogs = MakeDialogs();
        return ConvertChosenDeck(*pDialogs, sOutput, nOutput);
    } catch (const std::exception& rError) { // what a run throws was dealt with before
        if (IsOutOfMemory(rError)) sWhy = "Out of memory";
    } catch (...) { // nothing may cross into the host
    }
    try {
        if (pDialogs) pDialogs->ShowRunError(sWhy);
    } catch (...) { // the one message can't be shown either
    }
    return CONVERT_FAILED;
}

std::int32_t CONVERTNASTRAN_CALL ConvertFile(void) {
    return ConvertFile2(nullptr, 0);
}
