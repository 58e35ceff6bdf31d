#pragma once
// The text of a run's decks, as far as a page holds it.

#include "platform/File.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

/// Lines of a file, from 1.
struct T_LINES_D {
    std::size_t iFILE = 0; // among the names
    std::int64_t iFIRST = 0, iLAST = 0;
    auto operator<=>(const T_LINES_D&) const = default;
};

/// Reads the files sNames, hashes them and writes what of their text the page holds: all of it, one file behind the
/// other in the block "decks", if that is at most nMostBytes; else the lines of rWanted, MOST_LINES of them at most.
/// Returns two members of JSON:
/// - "files": for each its name, bytes, lines, sha256 (empty if it can't be told) and from, its place in the block, or
///   null; bytes is null for a file that can't be read;
/// - "lines": objects with file, first and text, an array.
class CDeckText {
  public:
    static constexpr std::size_t MOST_LINES = 20000;
    static constexpr std::uint64_t MOST_BYTES = 8u << 20;

    CDeckText(const std::vector<std::string>& rNames, std::set<T_LINES_D> wanted, std::uint64_t nMostBytes = MOST_BYTES)
        : m_rNames(rNames), m_wanted(std::move(wanted)), m_nMostBytes(nMostBytes) {}

    std::string Write(CFile& rFile);

  private:
    const std::vector<std::string>& m_rNames;
    std::set<T_LINES_D> m_wanted;
    std::uint64_t m_nMostBytes;
};

/// A file as JSON, with the first four of these members.
std::string FileJson(const std::string& sName);
