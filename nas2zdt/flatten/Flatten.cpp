// Joins a deck with its includes.

#include "nas2zdt/flatten/Flatten.h"

#include "nas2zdt/flatten/DeckError.h"

#include <limits>

namespace {

constexpr std::size_t LONGEST_PIECE = 499; // the converter counts a longer line as several

/// Copies lines to the joined deck.
class CCopy : public CJoinSink {
  public:
    CCopy(const std::string& sDeck, CFile& rJoined, const T_JOINRULES_D& rRules)
        : m_rFile(rJoined), m_join(*this, rRules) {
        m_join.Run(sDeck);
        m_joined.files = m_join.GetInputs();
        m_rFile.Close();
    }
    T_JOINED_D m_joined;

  private:
    void OnFile(const std::string& sPath) override { m_joined.lines.AddFile(sPath); }

    void OnLine(const T_JOINLINE_D& rLine) override {
        m_rFile.Write(rLine.sTEXT);
        const bool bFeed = rLine.sTEXT.ends_with('\n');
        if (!bFeed && rLine.iFILE > 0) m_rFile.Write("\n"); // what follows begins a new line
        AddLine(rLine, (rLine.sTEXT.size() - (bFeed ? 1 : 0)) / LONGEST_PIECE + 1);
    }

    void OnSwitch(const T_JOINLINE_D& rLine) override {
        m_rFile.Write(rLine.bBULK ? "BEGIN BULK\n" : "CEND\n");
        AddLine(rLine, 1);
    }

    void OnMissing(const std::string&, const T_JOINLINE_D&) override {} // never called for an exact copy

    void AddLine(const T_JOINLINE_D& rLine, std::size_t nLines) {
        const auto nLeft = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() - 1 - m_nLines);
        if (nLines > nLeft) {
            throw CDeckError(FAILURE_TOO_MANY_LINES, m_join.Place(), "the joined deck has too many lines");
        }
        m_joined.lines.AddLine(m_nLines + 1, rLine.iFILE, rLine.iLINE);
        m_nLines += static_cast<std::int32_t>(nLines);
    }

    CFile& m_rFile;
    std::int32_t m_nLines = 0; // written
    CDeckJoin m_join;
};

} // namespace

T_JOINED_D FlattenDeck(const std::string& sDeck, CFile& rJoined, const T_JOINRULES_D& rRules) {
    CCopy copy(sDeck, rJoined, rRules);
    return std::move(copy.m_joined);
}
