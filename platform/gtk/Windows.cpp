// Small things that all windows need.

#include "platform/gtk/Windows.h"

#include "platform/BoxText.h"
#include "platform/gtk/Texts.h"

std::string ShowableText(const std::string& sText) {
    std::string sShown;
    const char* pText = sText.data();
    const char* const pEnd = pText + sText.size();
    while (pText < pEnd) {
        const char* pBad = nullptr;
        const gboolean bValid = g_utf8_validate(pText, pEnd - pText, &pBad);
        sShown.append(pText, pBad);
        if (bValid) break;
        char aLetter[6];
        const int nLetter = g_unichar_to_utf8(static_cast<unsigned char>(*pBad), aLetter);
        if (*pBad != '\0') sShown.append(aLetter, static_cast<std::size_t>(nLetter));
        pText = pBad + 1;
    }
    return sShown;
}

int RunDialog(GtkWidget* pDialog) {
    gtk_window_set_position(GTK_WINDOW(pDialog), GTK_WIN_POS_CENTER);
    gtk_window_set_modal(GTK_WINDOW(pDialog), TRUE);
    gtk_widget_show_all(pDialog);
    const int iResponse = gtk_dialog_run(GTK_DIALOG(pDialog));
    gtk_widget_destroy(pDialog);
    while (gtk_events_pending()) gtk_main_iteration(); // takes the window off the screen before work goes on
    return iResponse;
}

GtkWidget* MakeBox(GtkMessageType eType, const std::string& sText) {
    GtkWidget* pBox = gtk_message_dialog_new(nullptr, GTK_DIALOG_MODAL, eType, GTK_BUTTONS_NONE, "%s",
                                             ShowableText(BoxText(sText)).c_str());
    gtk_window_set_title(GTK_WINDOW(pBox), "ConvertNastran");
    gtk_dialog_add_button(GTK_DIALOG(pBox), Texts().sOK, GTK_RESPONSE_OK);
    gtk_dialog_set_default_response(GTK_DIALOG(pBox), GTK_RESPONSE_OK);
    return pBox;
}
