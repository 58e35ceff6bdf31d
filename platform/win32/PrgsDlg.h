#pragma once
// A window with a progress bar and a button that stops, for a host that reads line by line.

#include "platform/Progress.h"
#include "platform/win32/TemplateDialog.h"

/// The window is open from construction until it is stopped or the object is destroyed.
class CPrgsDlg : public CTemplateDialog {
  public:
    CPrgsDlg();

    /// Starts a count to nTotal lines.
    void SetTotal(int nTotal);

    /// Runs pending window messages and shows iLine as the current line. Returns 1, or 0 if the user has stopped, by
    /// the button or by Escape; the window is gone then.
    int Update(int iLine);

    /// Runs all pending window messages.
    void PumpMessages();

  private:
    void OnOpen() override {}
    void OnButton(int iId) override;

    CProgress m_progress;
    int m_nStop = 0;
};
