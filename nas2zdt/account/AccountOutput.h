#pragma once
// The account as text, for people and for programs.

#include "nas2zdt/account/Account.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// All blocks of a keyword in the target file. A block is a keyword line and everything up to the next one.
struct T_SECTION_D {
    std::string sNAME; // the keyword with its "*"
    std::uint64_t nBLOCKS = 0;
    std::uint64_t nLINES = 0;
};

/// The result of one deck's run.
struct T_RESULT_D {
    std::string sDECK;
    std::string sTARGET;
    std::string sERROR;    // empty for success
    bool bACCOUNT = false; // whether the run got far enough for an account
    std::vector<std::string> aLOG;
    std::vector<T_SECTION_D> aSECTIONS; // of the target file, for the account
};

/// Counts the sections of a target file, in the order of their first blocks. Throws CFileException if it can't be read.
std::vector<T_SECTION_D> CountSections(const std::string& sPath);

/// The kind of a loss, for programs, and the words for people.
std::string_view NoteKind(const T_NOTE_D& rNote);
std::string NoteText(const T_NOTE_D& rNote);

/// A deck's account as plain text tables.
std::string AccountTable(const T_RESULT_D& rResult, const CAccount& rAccount);

/// A deck's account as a JSON object as in docs/account.md, without a line feed.
std::string AccountJson(const T_RESULT_D& rResult, const CAccount& rAccount);

/// A deck's result as a JSON object as in docs/account.md, without a line feed. pAccount may be null; sCheck is the
/// JSON of its check, empty if there is no such member.
std::string ResultJson(const T_RESULT_D& rResult, const CAccount* pAccount, const std::string& sCheck);
