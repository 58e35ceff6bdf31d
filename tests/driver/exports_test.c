/* The exports from C: the header is plain C, and a cancelled call does nothing. Standard input is empty. */

#include "driver/ConvertFile.h"

#include <stdio.h>
#include <string.h>

int main(void) {
    static char sOutput[CONVERT_PATH_SIZE] = "untouched";
    if (ConvertFile() != CONVERT_CANCELLED) return 1;
    if (ConvertFile2(sOutput, (int32_t)sizeof sOutput) != CONVERT_CANCELLED) return 2;
    if (ConvertFile2(NULL, 0) != CONVERT_CANCELLED) return 3;
    if (strcmp(sOutput, "untouched") != 0) return 4;
    puts("1 passed, 0 failed");
    return 0;
}
