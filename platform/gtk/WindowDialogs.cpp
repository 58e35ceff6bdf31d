// The dialogs as windows of a desktop.

#include "platform/WindowDialogs.h"

#include "platform/gtk/MsgDlg.h"
#include "platform/gtk/Session.h"
#include "platform/gtk/Windows.h"

namespace {

struct T_FILTER_D {
    const char* sNAME;
    std::vector<const char*> aPATTERNS;
};

void AddFilter(GtkFileChooser* pChooser, const T_FILTER_D& rFilter) {
    GtkFileFilter* pFilter = gtk_file_filter_new();
    gtk_file_filter_set_name(pFilter, rFilter.sNAME);
    for (const char* sPattern : rFilter.aPATTERNS) gtk_file_filter_add_pattern(pFilter, sPattern);
    gtk_file_chooser_add_filter(pChooser, pFilter);
}

GtkWidget* MakeChooser() {
    GtkWidget* pDialog =
        gtk_file_chooser_dialog_new(Texts().sOPENDECK, nullptr, GTK_FILE_CHOOSER_ACTION_OPEN, Texts().sCANCEL,
                                    GTK_RESPONSE_CANCEL, Texts().sOPEN, GTK_RESPONSE_ACCEPT, nullptr);
    gtk_dialog_set_default_response(GTK_DIALOG(pDialog), GTK_RESPONSE_ACCEPT);
    // Patterns tell case apart here, and decks come with names of either case.
    AddFilter(GTK_FILE_CHOOSER(pDialog),
              {"MSC.NASTRAN Files(*.nas,*.dat,*.blk)", {"*.[nN][aA][sS]", "*.[dD][aA][tT]", "*.[bB][lL][kK]"}});
    AddFilter(GTK_FILE_CHOOSER(pDialog), {"All Files(*.*)", {"*"}});
    return pDialog;
}

/// The file as it was typed or, if it isn't there and has no extension, with the default one. Returns 1 if it is a
/// deck that can be opened, 0 with the cause in rCause otherwise.
int FindDeck(std::string& rPath, std::string& rCause) {
    CDeckFile deck;
    if (deck.Open(rPath, rCause)) return 1;
    std::string sIgnored;
    const std::size_t iName = rPath.rfind('/') + 1;
    if (rPath.find('.', iName) != std::string::npos || !deck.Open(rPath + ".dat", sIgnored)) return 0;
    rPath += ".dat";
    return 1;
}

/// Asks until a deck that exists was chosen. Returns 1, or 0 for Cancel.
int AskForDeck(std::string& rPath) {
    GtkWidget* pDialog = MakeChooser();
    int iChosen = 0;
    while (!iChosen && gtk_dialog_run(GTK_DIALOG(pDialog)) == GTK_RESPONSE_ACCEPT) {
        char* sName = gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(pDialog));
        std::string sPath = sName ? sName : "";
        g_free(sName);
        std::string sCause;
        iChosen = FindDeck(sPath, sCause);
        if (iChosen) {
            rPath = sPath;
        } else {
            GtkWidget* pBox = MakeBox(GTK_MESSAGE_WARNING, CFileException(sPath, sCause).GetText());
            gtk_window_set_transient_for(GTK_WINDOW(pBox), GTK_WINDOW(pDialog));
            RunDialog(pBox);
        }
    }
    gtk_widget_destroy(pDialog);
    return iChosen;
}

int ShowBox(GtkMessageType eType, const std::string& sText) {
    return RunWithToolkit([&] { RunDialog(MakeBox(eType, sText)); });
}

} // namespace

void CWindowDialogs::ShowNotice(const std::string& sText) {
    if (!ShowBox(GTK_MESSAGE_OTHER, sText)) CConsoleDialogs::ShowNotice(sText);
}

int CWindowDialogs::ChooseDeck(std::string& rPath) {
    int iChosen = 0;
    return RunWithToolkit([&] { iChosen = AskForDeck(rPath); }) && iChosen;
}

void CWindowDialogs::ShowFileError(const CFileException& rError) {
    if (!ShowBox(GTK_MESSAGE_WARNING, rError.GetText())) CConsoleDialogs::ShowFileError(rError);
}

void CWindowDialogs::ShowRunError(const std::string& sText) {
    if (!ShowBox(GTK_MESSAGE_ERROR, sText)) CConsoleDialogs::ShowRunError(sText);
}

void CWindowDialogs::ShowMessages(const std::vector<std::string>& aLines) {
    CMsgDlg dialog;
    dialog.m_aMessages = aLines;
    if (!RunWithToolkit([&] { dialog.DoModal(); })) CConsoleDialogs::ShowMessages(aLines);
}
