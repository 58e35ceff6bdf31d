/*
 * A host that converts without dialogs: a deck into a file, with its warnings and what it can learn of the model.
 *
 * Usage: library DECK TARGET
 */

#include "nas2zdt.h"

#include <stdio.h>

static void NAS2ZDT_CALL ShowLine(void* pUser, int32_t eLine, const char* sText) {
    if (eLine == NAS2ZDT_LINE_WARNING) fprintf((FILE*)pUser, "warning: %s\n", sText);
}

static void ShowHighest(const T_NAS2ZDT_RESULT_D* pResult) {
    T_NAS2ZDT_COLUMN_D column = {0};
    const double* pZ;
    double dHighest;
    size_t i;

    column.nSize = sizeof column;
    if (!Nas2zdtFindColumn(pResult, "nodes", 0, "position", &column) || column.nRows == 0) return;
    pZ = (const double*)column.pData + 2;
    dHighest = *pZ;
    for (i = 1; i < column.nRows; ++i) {
        if (pZ[3 * i] > dHighest) dHighest = pZ[3 * i];
    }
    printf("nodes: %lu, highest z: %g\n", (unsigned long)column.nRows, dHighest);
}

int main(int nArgs, char** aArgs) {
    T_NAS2ZDT_OPTIONS_D options = {0};
    T_NAS2ZDT_RESULT_D* pResult = NULL;
    int32_t iCode;

    if (nArgs != 3) {
        fputs("usage: library DECK TARGET\n", stderr);
        return 2;
    }
    options.nSize = sizeof options;
    options.bAccount = 1;
    options.bModel = 1;
    options.pUser = stderr;
    options.pfnLine = &ShowLine;
    iCode = Nas2zdtConvertFile(aArgs[1], aArgs[2], &options, &pResult);
    printf("result: %d\n", (int)iCode);
    if (iCode == NAS2ZDT_DONE) {
        ShowHighest(pResult);
    } else {
        fprintf(stderr, "%s\n", Nas2zdtGetText(pResult));
    }
    Nas2zdtFreeResult(pResult);
    return iCode == NAS2ZDT_DONE ? 0 : 1;
}
