#pragma once
// What a progress window counts, on every platform.

#include <string>

class CProgress {
  public:
    static constexpr int RANGE = 1000; // of the bar

    /// Starts a count to nTotal lines.
    void SetTotal(int nTotal) {
        m_sTotal = std::to_string(nTotal);
        m_dFactor = nTotal != 0 ? static_cast<double>(RANGE) / nTotal : 0.0; // 0: the bar stays where it is
    }

    /// Place of the bar, 0 to RANGE, at line iLine, which becomes the current one.
    int MoveTo(int iLine) {
        m_sCurrent = std::to_string(iLine);
        const double dPlace = iLine * m_dFactor;
        if (dPlace <= 0.0) return 0;
        return dPlace >= RANGE ? RANGE : static_cast<int>(dPlace);
    }

    const std::string& GetTotal() const { return m_sTotal; }
    const std::string& GetCurrent() const { return m_sCurrent; }

  private:
    double m_dFactor = 0.0; // from a line to a place of the bar
    std::string m_sTotal;
    std::string m_sCurrent;
};
