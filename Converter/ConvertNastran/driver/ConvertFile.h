#ifndef CONVERTNASTRAN_CONVERTFILE_H
#define CONVERTNASTRAN_CONVERTFILE_H
/**
 * @file
 * The interface of the conversion library, for C and everything that can call C.
 *
 * A call shows a notice, asks for a NASTRAN bulk data deck, converts it, writes the ZDT text file beside the deck and
 * shows the log; it returns when the log was closed. Nothing that the library makes outlives the call, nothing is
 * handed over to be freed, and no exception leaves it. Calls may be made on several threads at once.
 *
 * The model is unit-free: values pass from the deck to the ZDT file as typed, with six significant digits.
 * Paths are UTF-8.
 */

#include <stdint.h>

#ifdef _WIN32
#define CONVERTNASTRAN_CALL __cdecl
#ifdef CONVERTNASTRAN_BUILD
#define CONVERTNASTRAN_API __declspec(dllexport)
#else
#define CONVERTNASTRAN_API __declspec(dllimport)
#endif
#else
#define CONVERTNASTRAN_CALL
#define CONVERTNASTRAN_API __attribute__((visibility("default")))
#endif

/* Results. */
#define CONVERT_DONE 0      /**< the run ended; the ZDT file was written unless the user was told otherwise */
#define CONVERT_CANCELLED 1 /**< no deck was chosen; nothing was done */
#define CONVERT_FAILED (-1) /**< the run failed; if memory or a limit ran out, a part of the ZDT file may be there */

/** A buffer of this size, in bytes, holds every path that a system can open. */
#define CONVERT_PATH_SIZE 131072

#ifdef __cplusplus
extern "C" {
#endif

/** Converts a deck of the user's choice. Gives a result of the list above. */
CONVERTNASTRAN_API int32_t CONVERTNASTRAN_CALL ConvertFile(void);

/**
 * The same, and tells the path of the ZDT file.
 *
 * @param sOutput a buffer of the caller's; null with 0 if the path isn't wanted. Written only with result 0: the path,
 *                zero-terminated. A path that doesn't fit gives an empty text instead.
 * @param nOutput its length in bytes
 */
CONVERTNASTRAN_API int32_t CONVERTNASTRAN_CALL ConvertFile2(char* sOutput, int32_t nOutput);

#ifdef __cplusplus
}
#endif

#endif
