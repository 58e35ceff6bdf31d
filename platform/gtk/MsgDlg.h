#pragma once
// The message list on a desktop.

#include <string>
#include <vector>

/// Shows lines in order, one a row, an empty row for an empty line; long rows can be scrolled to their end.
class CMsgDlg {
  public:
    /// The lines to show.
    std::vector<std::string> m_aMessages;

    /// Returns when the user has closed it.
    void DoModal() const;
};
