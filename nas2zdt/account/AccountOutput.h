#pragma once
// The account in words, for people and for programs.

#include "nas2zdt/account/Account.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// All blocks of a keyword in the target file. A block is its keyword line and everything up to the next keyword line.
struct T_SECTION_D {
    std::string sNAME; // the keyword with its "*"
    std::uint64_t nBLOCKS = 0;
    std::uint64_t nLINES = 0;
};

/// One deck's run, as far as it is told.
struct T_RESULT_D {
    std::string sDECK;
    std::string sTARGET;
    std::string sERROR;    // empty for a run that did what it should
    bool bACCOUNT = false; // whether the rest is filled: the run ended
    std::vector<std::string> aLOG;
    std::vector<T_SECTION_D> aSECTIONS; // of the target file
};

/// Counts the sections of a target file, in the order of their first blocks. Throws CFileException if it can't be read.
std::vector<T_SECTION_D> CountSections(const std::string& sPath);

/// Code of a kind of loss, for programs, and the words for people.
std::string_view NoteCode(E_NOTE eNote);
std::string NoteText(const T_NOTE_D& rNote);

/// The tables of a deck as plain text, each line with its line feed.
std::string AccountTable(const T_RESULT_D& rResult, const CAccount& rAccount);

/// The object of a deck in JSON, in the shape that docs/account.md tells, without a line feed behind it.
std::string AccountJson(const T_RESULT_D& rResult, const CAccount& rAccount);
