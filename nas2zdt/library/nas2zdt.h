#ifndef NAS2ZDT_H
#define NAS2ZDT_H
/// @file
/// The interface for programs, for C and everything that can call C: converts a NASTRAN bulk data deck into a ZDT text
/// file, without dialogs and without a word on the terminal.
///
/// Texts and paths are UTF-8 and end with a zero. Numbers of a model are in the units of its deck. Functions may be
/// called on any thread, several conversions at once among them; only the calls for one result must come one after the
/// other, unless all of them only read. No exception leaves the library, and the host's signals stay as they are.
///
/// Whatever a result gives belongs to the library and is valid until Nas2zdtFreeResult; nothing is freed by the host.

#include <stddef.h>
#include <stdint.h>

#ifdef _WIN32
#define NAS2ZDT_CALL __cdecl
#ifdef NAS2ZDT_BUILD
#define NAS2ZDT_API __declspec(dllexport)
#else
#define NAS2ZDT_API __declspec(dllimport)
#endif
#else
#define NAS2ZDT_CALL
#define NAS2ZDT_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// How a conversion ended. Later versions may add numbers.
enum {
    NAS2ZDT_DONE = 0,
    NAS2ZDT_LOSS = 1,               ///< more than eStrict takes; the target file was written
    NAS2ZDT_CANCELLED = 2,          ///< by pfnCancelled
    NAS2ZDT_WRONG_USAGE = 3,        ///< a wrong argument; nothing was done
    NAS2ZDT_DECK_NOT_OPENED = 4,    ///< the main deck
    NAS2ZDT_INCLUDE_NOT_OPENED = 5, ///< an INCLUDE that leads nowhere
    NAS2ZDT_INCLUDE_CYCLE = 6,      ///< a deck that includes itself
    NAS2ZDT_DECK_NOT_READ = 7,      ///< a deck stopped giving bytes
    NAS2ZDT_TOO_LARGE = 8,          ///< a line, a range or a number of lines that can't be held
    NAS2ZDT_LIMIT = 9,              ///< one of the limits of the options
    NAS2ZDT_NO_SUBCASE = 10,        ///< the deck hasn't the subcase asked for
    NAS2ZDT_NOT_WRITTEN = 11,       ///< an output can't be written, or would overwrite a deck
    NAS2ZDT_NO_MEMORY = 12,
    NAS2ZDT_INTERNAL = 13 ///< a fault of the library
};

/// Which losses end a conversion with NAS2ZDT_LOSS.
enum {
    NAS2ZDT_STRICT_NONE = 0,
    NAS2ZDT_STRICT_RESULTS = 1, ///< those of the model and its mass
    NAS2ZDT_STRICT_ANY = 2
};

/// Kinds of lines that pfnLine is given.
enum {
    NAS2ZDT_LINE_LOG = 0,     ///< the log, all lines in order once the target file is written
    NAS2ZDT_LINE_WARNING = 1, ///< a class of losses in words, with bAccount, behind the log
    NAS2ZDT_LINE_HINT = 2,    ///< what couldn't be done besides, as a check of a deck that can't be joined
    NAS2ZDT_LINE_FAILURE = 3  ///< why the conversion failed; may come more than once
};

/// A number to lift a limit with.
#define NAS2ZDT_NO_LIMIT INT64_MAX

/// What a conversion is to do. With nSize set and zero in all else, which `T options = {sizeof options};` gives, it is
/// the one that ConvertNastran and the command do by default, on one thread a core. Texts and functions must be valid
/// during the call. The struct may grow: a library takes the struct of an older version, and that of a newer one if
/// what it doesn't know of it is zero.
typedef struct T_NAS2ZDT_OPTIONS_D {
    size_t nSize;      ///< of this struct in bytes
    int32_t bFlatten;  ///< 1: joins the deck with its includes as NASTRAN does first
    int32_t bFaithful; ///< 1: restates the deck first, so that the file says what NASTRAN means; joins it, too
    int32_t bAccount;  ///< 1: tells what became of every keyword, see Nas2zdtGetAccount
    int32_t bCheck;    ///< 1: tells whether the deck is sound, with sums of deck and file, see Nas2zdtGetCheck
    int32_t bModel;    ///< 1: keeps the model as arrays, see Nas2zdtGetTable
    int32_t eStrict;   ///< NAS2ZDT_STRICT_NONE, _RESULTS or _ANY
    int32_t bSubcase;  ///< with bFaithful or bCheck. 1: supports are those of subcase iSubcase; 0: of the first
    int32_t iSubcase;
    int32_t iSuper;       ///< with bFaithful or bCheck: the superelement, 0 for the main model
    int32_t nThreads;     ///< that may work at a time; 0 for one a core
    int32_t bTolerance;   ///< with bCheck. 1: nodes within dTolerance coincide; 0: within what fits the model
    double dTolerance;    ///< in the deck's unit of length; 0 looks for none
    int64_t nMostRanges;  ///< entries made by THRU ranges; 0 in this and the next for the default limit
    int64_t nMostDecks;   ///< decks opened
    int64_t nMostOutput;  ///< bytes of the target file, besides 64 for each byte of the decks
    int64_t nMostFrames;  ///< coordinate systems that points are carried through
    const char* sAllowed; ///< kinds of loss or keywords, parted by blanks, that eStrict and warnings pass over; or null
    const char* sRestated; ///< with bFaithful: where the restated deck goes, no other output's file; or null
    const char* sView;     ///< likewise a picture of the model, .svg, once the target file is there; or null
    const char* sVtu;      ///< likewise the model as a VTK unstructured grid, .vtu; or null
    void* pUser;           ///< handed on to the functions below
    /// Is given a line without line feed. These functions are called on the thread of the conversion, must not throw,
    /// and get texts that are valid during the call. Each may be null.
    void(NAS2ZDT_CALL* pfnLine)(void* pUser, int32_t eLine, const char* sText);
    /// Is told once in a while how far a deck is read: nRead of nBytes bytes, 0 if their number isn't known. Included
    /// decks follow with counts of their own; with bFlatten or bFaithful it is the joined deck alone.
    void(NAS2ZDT_CALL* pfnProgress)(void* pUser, const char* sDeck, uint64_t nRead, uint64_t nBytes);
    /// Asked once in a while as decks are read, and between the steps of a conversion, last before the target file gets
    /// its name. Not 0: the conversion ends with NAS2ZDT_CANCELLED and leaves no target file; an older one stays.
    int32_t(NAS2ZDT_CALL* pfnCancelled)(void* pUser);
} T_NAS2ZDT_OPTIONS_D;

/// The result of a conversion.
typedef struct T_NAS2ZDT_RESULT_D T_NAS2ZDT_RESULT_D;

/// Version of the library, as "1.0.0"; never freed.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetVersion(void);

/// Converts the deck at the path sDeck. An INCLUDE is looked for from the current folder or, with bFlatten or
/// bFaithful, from the folder of the deck that has it first.
///
/// @param sTarget path of the target file, which is there whole or not at all; null to keep it in memory, see
///        Nas2zdtGetOutput
/// @param pOptions null for none
/// @param ppResult takes the result, to be freed by Nas2zdtFreeResult whatever the conversion came to; null only if
///        there is no memory for it
/// @return how the conversion ended, NAS2ZDT_DONE or another of these numbers
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtConvertFile(const char* sDeck, const char* sTarget,
                                                    const T_NAS2ZDT_OPTIONS_D* pOptions, T_NAS2ZDT_RESULT_D** ppResult);

/// The same for a deck of nDeck bytes at pDeck.
///
/// @param sName path that the deck would have, which needn't exist: messages name it, and its folder is that of the
///        deck; null for "deck". The deck is put into a file of its own among the system's temporary ones meanwhile.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtConvertMemory(const void* pDeck, size_t nDeck, const char* sName,
                                                      const char* sTarget, const T_NAS2ZDT_OPTIONS_D* pOptions,
                                                      T_NAS2ZDT_RESULT_D** ppResult);

/// Frees a result with all that it gave; null is none.
NAS2ZDT_API void NAS2ZDT_CALL Nas2zdtFreeResult(T_NAS2ZDT_RESULT_D* pResult);

/// How the conversion ended, as it returned.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtGetCode(const T_NAS2ZDT_RESULT_D* pResult);

/// Why it failed, one line for a person with the place; empty if it didn't.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetText(const T_NAS2ZDT_RESULT_D* pResult);

/// The deck or output that it failed at; empty if that is none's fault.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetFile(const T_NAS2ZDT_RESULT_D* pResult);

/// The line of that deck, from 1; 0 for none.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtGetLine(const T_NAS2ZDT_RESULT_D* pResult);

/// The account as a JSON object, the member `account` of docs/account.md; null unless bAccount asked for it and the
/// model was reached.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetAccount(const T_NAS2ZDT_RESULT_D* pResult);

/// The check as a JSON object as in docs/check.md; null unless bCheck asked for it and the deck could be joined.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetCheck(const T_NAS2ZDT_RESULT_D* pResult);

/// Line iLine of the log, from 0, without line feed; null behind the last.
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetLogLine(const T_NAS2ZDT_RESULT_D* pResult, size_t iLine);

/// The target file of a conversion without sTarget, with a zero behind it; null if there is none.
///
/// @param pSize takes the number of bytes without that zero; null if it isn't wanted
NAS2ZDT_API const char* NAS2ZDT_CALL Nas2zdtGetOutput(const T_NAS2ZDT_RESULT_D* pResult, size_t* pSize);

/// A table of a model, as kept by bModel: the lines of a section of the target file, with all digits. docs/library.md
/// lists them with their columns.
typedef struct T_NAS2ZDT_TABLE_D {
    size_t nSize;      ///< of this struct in bytes, set by the host; as much of it is filled in
    const char* sName; ///< "nodes", "quads", "forces", ...
    int32_t bCase;     ///< whether it belongs to a load case
    int32_t iCase;     ///< which one, else 0
    size_t nRows;
    size_t nColumns;
} T_NAS2ZDT_TABLE_D;

/// Types of a column's values.
enum { NAS2ZDT_INT32 = 0, NAS2ZDT_DOUBLE = 1 };

/// A column of a table: nRows rows of nWidth values, which lie one behind the other.
typedef struct T_NAS2ZDT_COLUMN_D {
    size_t nSize;      ///< of this struct in bytes, set by the host; as much of it is filled in
    const char* sName; ///< "id", "position", ...
    int32_t eType;     ///< NAS2ZDT_INT32 or NAS2ZDT_DOUBLE
    size_t nRows;
    size_t nWidth;     ///< values in a row
    size_t nStride;    ///< bytes from a row to the next
    const void* pData; ///< null without rows
} T_NAS2ZDT_COLUMN_D;

/// Number of tables; 0 without a model.
NAS2ZDT_API size_t NAS2ZDT_CALL Nas2zdtCountTables(const T_NAS2ZDT_RESULT_D* pResult);

/// Table iTable, from 0. Returns 1, or 0 if there is none.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtGetTable(const T_NAS2ZDT_RESULT_D* pResult, size_t iTable,
                                                 T_NAS2ZDT_TABLE_D* pTable);

/// Column iColumn, from 0, of table iTable. Returns 1, or 0 if there is none.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtGetColumn(const T_NAS2ZDT_RESULT_D* pResult, size_t iTable, size_t iColumn,
                                                  T_NAS2ZDT_COLUMN_D* pColumn);

/// Column sColumn of table sTable, of load case iCase or of 0 for a table that belongs to none. Returns 1, or 0 if
/// there is none.
NAS2ZDT_API int32_t NAS2ZDT_CALL Nas2zdtFindColumn(const T_NAS2ZDT_RESULT_D* pResult, const char* sTable, int32_t iCase,
                                                   const char* sColumn, T_NAS2ZDT_COLUMN_D* pColumn);

#ifdef __cplusplus
}
#endif

#endif
