// The texts of the windows in the user's language.

#include "platform/gtk/Texts.h"

#include <glib.h>
#include <string_view>

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
