/*
 * A host: loads the conversion library by its name, lets the user convert a deck, and tells what came of it.
 * The same on every system; only loading differs.
 */

#include "driver/ConvertFile.h"

#include <stdio.h>

#ifdef _WIN32
#include <windows.h>
static void* LoadFunction(const char* sName) {
    /* not from the current folder, which may be anybody's */
    HMODULE hLibrary = LoadLibraryExA("ConvertNastran.dll", NULL, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    return hLibrary ? (void*)GetProcAddress(hLibrary, sName) : NULL;
}
#else
#include <dlfcn.h>
static void* LoadFunction(const char* sName) {
    void* pLibrary = dlopen("libConvertNastran.so", RTLD_NOW);
    return pLibrary ? dlsym(pLibrary, sName) : NULL;
}
#endif

typedef int32_t(CONVERTNASTRAN_CALL* CONVERTFILE2)(char* sOutput, int32_t nOutput);

int main(void) {
    static char sOutput[CONVERT_PATH_SIZE];
    CONVERTFILE2 pfnConvert = NULL;
    int32_t iResult;

    *(void**)&pfnConvert = LoadFunction("ConvertFile2");
    if (!pfnConvert) {
        fputs("the conversion library can't be loaded\n", stderr);
        return 2;
    }
    iResult = pfnConvert(sOutput, sizeof sOutput);
    printf("result: %d\n", (int)iResult);
    if (iResult == CONVERT_DONE) printf("path: %s\n", sOutput);
    return iResult == CONVERT_FAILED ? 1 : 0;
}
