#pragma once
// What the sections share.

#include "writer/Format.h"

#include <array>

/// The lines before the data lines of a section that stands only if something asks for it.
class CSectionHead {
  public:
    CSectionHead(CFile& rFile, std::string_view sLines) : m_rFile(rFile), m_sLines(sLines) {}

    /// Writes the lines, the first time. Throws CFileException.
    void Write() {
        if (m_bWritten) return;
        WriteLine(m_rFile, "%s", m_sLines);
        m_bWritten = true;
    }
    bool IsWritten() const { return m_bWritten; }

  private:
    CFile& m_rFile;
    std::string_view m_sLines;
    bool m_bWritten = false;
};

/// Six digits, 1 for each component that is set.
inline std::array<char, 6> DofText(const std::array<bool, 6>& bDOF) {
    std::array<char, 6> aText;
    for (std::size_t i = 0; i < aText.size(); ++i) aText[i] = bDOF[i] ? '1' : '0';
    return aText;
}
inline std::string_view TextOf(const std::array<char, 6>& aText) {
    return {aText.data(), aText.size()};
}
