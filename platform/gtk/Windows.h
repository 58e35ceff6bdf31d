#pragma once
// What all windows need: texts in the user's language, and boxes.

#include <gtk/gtk.h>
#include <string>
#include <string_view>

/// The texts of the windows in one language.
struct T_TEXTS_D {
    const char* sLANGUAGE; // ISO 639 code
    const char* sMESSAGES; // title of the message list
    const char* sCLOSE;
    const char* sPROGRESS; // title of the progress window
    const char* sTOTAL;
    const char* sREADING;
    const char* sSTOP;
    const char* sOPENDECK; // title of the file chooser
    const char* sOPEN;
    const char* sCANCEL;
    const char* sOK;
};

/// Those of the user's language; English for a user whose languages aren't among them.
const T_TEXTS_D& Texts();

/// The text as UTF-8: a byte that isn't counts as the Latin letter that it most likely was in the deck.
std::string ShowableText(std::string_view sText);

/// Shows pDialog and returns its response when it was answered; the dialog is gone then.
int RunDialog(GtkWidget* pDialog);

/// A box with sText and a button that closes it, not shown yet.
GtkWidget* MakeBox(GtkMessageType eType, const std::string& sText);
