#pragma once
// What the sections share.

#include "store/Left.h"
#include "writer/Format.h"

#include <array>

class CDataPool;
class CZdtMsgMgr;

/// A section whose head, its keyword and comment lines, is written when the first line needs it. Every operation but
/// IsBegun throws CFileException.
class CSection {
  public:
    CSection(CFile& rFile, std::string_view sHead) : m_rFile(rFile), m_sHead(sHead) {}

    /// Writes the head, the first time.
    void Begin() {
        if (m_bBegun) return;
        m_rFile.Write(m_sHead);
        m_bBegun = true;
    }

    /// A line of the section.
    template <class... ARGS>
    void Line(T_FORMAT_D<std::type_identity_t<ARGS>...> format, const ARGS&... args) {
        Begin();
        WriteLine(m_rFile, format, args...);
    }

    /// Writes the empty line behind the section if its head was written. Always 1.
    int End() { return m_bBegun ? WriteLine(m_rFile, "\n") : 1; }

    bool IsBegun() const { return m_bBegun; }

  private:
    CFile& m_rFile;
    std::string_view m_sHead;
    bool m_bBegun = false;
};

/// Logs what rows leave out, as far as the log tells it.
void LogLeft(CZdtMsgMgr& rLog, const CDataPool& rPool, const T_LEFT_D& rLeft);

/// Writes the format level of the file.
inline int WriteFileVersion(CFile& rFile) {
    return WriteLine(rFile, "*VERSION\n  5.8.1\n\n");
}

/// Six digits, 1 for each component that is set.
inline std::array<char, 6> DofText(const std::array<bool, 6>& bDOF) {
    std::array<char, 6> aText;
    for (std::size_t i = 0; i < aText.size(); ++i) aText[i] = bDOF[i] ? '1' : '0';
    return aText;
}
inline std::string_view TextOf(const std::array<char, 6>& aText) {
    return {aText.data(), aText.size()};
}
