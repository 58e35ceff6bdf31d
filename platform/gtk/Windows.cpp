// Texts and boxes.

#include "platform/gtk/Windows.h"

#include "platform/PlainText.h"

#include <algorithm>

namespace {

// clang-format off
constexpr T_TEXTS_D TEXTS[] = {
    {"en", "Message Window", "_Close", "Conversion Progress Window", "Total Line", "Reading Line", "_Stop",
     "Open", "_Open", "_Cancel", "_OK"},
    {"de", "Meldungen", "_Schließen", "Fortschritt der Umwandlung", "Zeilen gesamt", "Gelesene Zeile", "_Anhalten",
     "Öffnen", "_Öffnen", "_Abbrechen", "_OK"},
    {"fr", "Messages", "_Fermer", "Progression de la conversion", "Total des lignes", "Ligne lue", "_Arrêter",
     "Ouvrir", "_Ouvrir", "_Annuler", "_Valider"},
    {"ja", "メッセージ", "閉じる(_C)", "変換の進行状況", "総行数", "読み込み中の行", "中止(_S)",
     "開く", "開く(_O)", "キャンセル(_C)", "OK"},
};
// clang-format on

} // namespace

const T_TEXTS_D& Texts() {
    // Read from the environment, like the user's other programs: the host may not have set a locale.
    for (const char* const* pName = g_get_language_names(); *pName; ++pName) {
        for (const T_TEXTS_D& rTexts : TEXTS) {
            if (std::string_view(*pName) == rTexts.sLANGUAGE) return rTexts;
        }
    }
    return TEXTS[0];
}

std::string ShowableText(std::string_view sText) {
    std::string sShown;
    while (!sText.empty()) {
        char32_t nCode = 0;
        const std::size_t nLength = ReadCharacter(sText, nCode);
        char aLetter[6];
        if (nLength == 0) {
            sShown.append(aLetter, static_cast<std::size_t>(g_unichar_to_utf8(nCode, aLetter)));
        } else if (nCode != 0) { // the toolkit's texts end at a NUL
            sShown += sText.substr(0, nLength);
        }
        sText.remove_prefix(std::max<std::size_t>(nLength, 1));
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
