#pragma once
// The message list on Windows.

#include "platform/win32/TemplateDialog.h"

#include <string>
#include <vector>

/// Shows lines in order, one a row, an empty row for an empty line; long rows can be scrolled to their end.
class CMsgDlg : public CTemplateDialog {
  public:
    CMsgDlg();

    /// The lines to show, UTF-8.
    std::vector<std::string> m_aMessages;

    /// Returns when the user has closed it: 1, or 0 if there can be no window.
    int DoModal() { return RunModal(); }

  private:
    void OnOpen() override;
    void OnButton(int iId) override;

    HWND m_hList = nullptr;
};
