#pragma once
// What a progress window counts, whatever draws it.

#include <string>

class CProgress {
  public:
    static constexpr int RANGE = 1000; // of the bar

    /// Starts a count to nTotal lines.
    void SetTotal(int nTotal);

    /// Place of the bar, 0 to RANGE, at line iLine, which becomes the current one.
    int MoveTo(int iLine);

    const std::string& GetTotal() const { return m_sTotal; }
    const std::string& GetCurrent() const { return m_sCurrent; }

  private:
    double m_dFactor = 0.0; // from a line to a place of the bar
    std::string m_sTotal;
    std::string m_sCurrent;
};
