// The progress window on a desktop.

#include "platform/gtk/PrgsDlg.h"

#include "platform/gtk/Windows.h"

namespace {

constexpr int WIDTH = 360;

/// Adds a row of a label, a colon and a number. Returns the number's label.
GtkWidget* AddNumber(GtkGrid* pGrid, int iRow, const char* sText) {
    GtkWidget* pNumber = gtk_label_new("");
    GtkWidget* aLabels[] = {gtk_label_new(sText), gtk_label_new(":"), pNumber};
    int iColumn = 0;
    for (GtkWidget* pLabel : aLabels) {
        gtk_widget_set_halign(pLabel, GTK_ALIGN_START);
        gtk_grid_attach(pGrid, pLabel, iColumn++, iRow, 1, 1);
    }
    gtk_widget_set_hexpand(pNumber, TRUE); // the room to spare is behind the number, not around the colon
    return pNumber;
}

} // namespace

CPrgsDlg::CPrgsDlg() : m_pDialog(gtk_dialog_new()), m_pBar(gtk_progress_bar_new()) {
    gtk_window_set_title(GTK_WINDOW(m_pDialog), Texts().sPROGRESS);
    gtk_window_set_default_size(GTK_WINDOW(m_pDialog), WIDTH, -1);
    gtk_window_set_position(GTK_WINDOW(m_pDialog), GTK_WIN_POS_CENTER);
    GtkWidget* pGrid = gtk_grid_new();
    gtk_grid_set_row_spacing(GTK_GRID(pGrid), 6);
    gtk_grid_set_column_spacing(GTK_GRID(pGrid), 6);
    gtk_container_set_border_width(GTK_CONTAINER(pGrid), 6);
    m_pTotal = AddNumber(GTK_GRID(pGrid), 0, Texts().sTOTAL);
    m_pCurrent = AddNumber(GTK_GRID(pGrid), 1, Texts().sREADING);
    gtk_grid_attach(GTK_GRID(pGrid), m_pBar, 0, 2, 3, 1);
    GtkWidget* pContent = gtk_dialog_get_content_area(GTK_DIALOG(m_pDialog));
    gtk_container_set_border_width(GTK_CONTAINER(pContent), 6);
    gtk_container_add(GTK_CONTAINER(pContent), pGrid);
    gtk_dialog_add_button(GTK_DIALOG(m_pDialog), Texts().sSTOP, GTK_RESPONSE_CANCEL);
    gtk_dialog_set_default_response(GTK_DIALOG(m_pDialog), GTK_RESPONSE_CANCEL);
    g_signal_connect(m_pDialog, "response", G_CALLBACK(&OnResponse), this);
    g_signal_connect(m_pDialog, "delete-event", G_CALLBACK(&gtk_true), nullptr); // Update takes the window away
    gtk_widget_show_all(m_pDialog);
}

CPrgsDlg::~CPrgsDlg() {
    if (m_pDialog) gtk_widget_destroy(m_pDialog);
}

void CPrgsDlg::SetTotal(int nTotal) {
    m_progress.SetTotal(nTotal);
    if (m_pDialog) gtk_label_set_text(GTK_LABEL(m_pTotal), m_progress.GetTotal().c_str());
}

int CPrgsDlg::Update(int iLine) {
    PumpMessages();
    if (m_nStop) {
        if (m_pDialog) gtk_widget_destroy(m_pDialog);
        m_pDialog = nullptr;
        return 0;
    }
    const double dPlace = m_progress.MoveTo(iLine);
    gtk_label_set_text(GTK_LABEL(m_pCurrent), m_progress.GetCurrent().c_str());
    gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(m_pBar), dPlace / CProgress::RANGE);
    return 1;
}

void CPrgsDlg::PumpMessages() {
    while (gtk_events_pending()) gtk_main_iteration();
}

void CPrgsDlg::OnResponse(GtkDialog*, int, gpointer pThis) {
    static_cast<CPrgsDlg*>(pThis)->m_nStop = 1;
}
