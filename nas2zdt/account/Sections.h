#pragma once
// The sections of a finished target file.

#include <cstdint>
#include <string>
#include <vector>

/// All blocks of a keyword. A block is its keyword line and everything up to the next keyword line, so the lines of all
/// sections are those of the file.
struct T_SECTION_D {
    std::string sNAME; // the keyword with its "*"
    std::uint64_t nBLOCKS = 0;
    std::uint64_t nLINES = 0;
};

/// Counts the file's sections, in the order of their first blocks. Throws
/// CFileException if it can't be read.
std::vector<T_SECTION_D> CountSections(const std::string& sPath);
