#pragma once
// Maps the lines of a joined deck to their origins.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A line of an original deck.
struct T_ORIGIN_D {
    std::string sFILE;
    std::int32_t iLINE = 0; // from 1; 0 for the file as a whole
};

/// Consecutive lines of a file share an entry.
class CLineMap {
  public:
    /// Adds a file; returns its number.
    std::size_t AddFile(const std::string& sFile) {
        m_aFiles.push_back(sFile);
        return m_aFiles.size() - 1;
    }

    /// By their numbers.
    const std::vector<std::string>& GetFiles() const { return m_aFiles; }

    /// Line iJoined of the joined deck is line iLine of file iFile. Calls come in ascending order of iJoined; lines
    /// between two calls follow the first.
    void AddLine(std::int32_t iJoined, std::size_t iFile, std::int32_t iLine) {
        if (!m_aRuns.empty()) {
            const T_STRETCH_D& rLast = m_aRuns.back();
            if (rLast.iFILE == iFile && iLine - rLast.iLINE == iJoined - rLast.iJOINED) return;
        }
        m_aRuns.push_back({iJoined, iLine, iFile});
    }

    /// The origin of a line of the joined deck.
    T_ORIGIN_D Find(std::int32_t iJoined) const {
        auto pRun = std::upper_bound(m_aRuns.begin(), m_aRuns.end(), iJoined,
                                     [](std::int32_t i, const T_STRETCH_D& rRun) { return i < rRun.iJOINED; });
        if (pRun == m_aRuns.begin()) return {m_aFiles.empty() ? std::string() : m_aFiles.front(), 0};
        --pRun;
        return {m_aFiles[pRun->iFILE], pRun->iLINE + (iJoined - pRun->iJOINED)};
    }

  private:
    struct T_STRETCH_D {
        std::int32_t iJOINED;
        std::int32_t iLINE;
        std::size_t iFILE;
    };
    std::vector<std::string> m_aFiles;
    std::vector<T_STRETCH_D> m_aRuns;
};
