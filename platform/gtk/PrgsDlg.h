#pragma once
// A window with a progress bar and a button that stops, for a host that reads line by line.

#include "platform/Progress.h"

#include <gtk/gtk.h>

/// The window is open from construction until it is stopped or the object is destroyed.
class CPrgsDlg {
  public:
    CPrgsDlg();
    ~CPrgsDlg();
    CPrgsDlg(const CPrgsDlg&) = delete;
    CPrgsDlg& operator=(const CPrgsDlg&) = delete;

    /// Starts a count to nTotal lines.
    void SetTotal(int nTotal);

    /// Runs pending events and shows iLine as the current line. Returns 1, or 0 if the user has stopped, by the button
    /// or by Escape; the window is gone then.
    int Update(int iLine);

    /// Runs all pending events.
    void PumpMessages();

  private:
    static void OnResponse(GtkDialog* pDialog, int iResponse, gpointer pThis);

    CProgress m_progress;
    int m_nStop = 0;
    GtkWidget* m_pDialog = nullptr;
    GtkWidget* m_pBar = nullptr;
    GtkWidget* m_pTotal = nullptr;
    GtkWidget* m_pCurrent = nullptr;
};
