// Counting the sections of a finished target file.

#include "nas2zdt/account/Sections.h"

#include "platform/File.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t BLOCK_SIZE = std::size_t{256} * 1024;

class CSectionCounter {
  public:
    /// Takes the next bytes of the file. Asterisks are rare, and the lines between two are counted in one go.
    void Add(const char* p, const char* pEnd) {
        while (p < pEnd) {
            if (m_bName) {
                p = TakeName(p, pEnd);
                continue;
            }
            const auto* pStar = static_cast<const char*>(std::memchr(p, '*', static_cast<std::size_t>(pEnd - p)));
            const char* pStop = pStar ? pStar : pEnd;
            m_nLines += static_cast<std::uint64_t>(std::count(p, pStop, '\n'));
            if (pStop > p) m_cBefore = pStop[-1];
            if (pStar) {
                m_bName = m_cBefore == '\n';
                if (m_bName) EndBlock();
                m_cBefore = '*';
                ++pStop;
            }
            p = pStop;
        }
    }

    std::vector<T_SECTION_D> End() {
        EndBlock();
        return std::move(m_aSections);
    }

  private:
    const char* TakeName(const char* p, const char* pEnd) {
        const char* pStop = std::find_if(p, pEnd, [](char c) { return c == '\n' || c == ' ' || c == ',' || c == ';'; });
        m_sName.append(p, pStop);
        m_bName = pStop == pEnd;
        return pStop;
    }

    /// Adds the block in hand to its section.
    void EndBlock() {
        if (!m_sName.empty()) {
            auto pSection = std::find_if(m_aSections.begin(), m_aSections.end(),
                                         [&](const T_SECTION_D& rSection) { return rSection.sNAME == m_sName; });
            if (pSection == m_aSections.end()) pSection = m_aSections.insert(pSection, {m_sName, 0, 0});
            ++pSection->nBLOCKS;
            pSection->nLINES += m_nLines;
        }
        m_sName = "*";
        m_nLines = 0;
    }

    std::vector<T_SECTION_D> m_aSections;
    std::string m_sName;
    std::uint64_t m_nLines = 0; // of the block in hand
    char m_cBefore = '\n';
    bool m_bName = false; // whether the name goes on
};

} // namespace

std::vector<T_SECTION_D> CountSections(const std::string& sPath) {
    CDeckFile file;
    std::string sCause;
    if (!file.Open(sPath, sCause)) throw CFileException(sPath, sCause);
    std::vector<char> aBuffer(BLOCK_SIZE);
    CSectionCounter counter;
    for (;;) {
        const std::ptrdiff_t nRead = file.Read(aBuffer.data(), aBuffer.size());
        if (nRead < 0) throw CFileException(sPath, "can't be read to its end");
        if (nRead == 0) return counter.End();
        counter.Add(aBuffer.data(), aBuffer.data() + nRead);
    }
}
