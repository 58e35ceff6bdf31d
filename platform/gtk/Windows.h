#pragma once
// Small things that all windows need.

#include <gtk/gtk.h>
#include <string>

/// The text as UTF-8: a byte that isn't counts as the Latin letter that it most likely was in the deck.
std::string ShowableText(const std::string& sText);

/// Shows pDialog and returns its response when it was answered; the dialog is gone then.
int RunDialog(GtkWidget* pDialog);

/// A box with sText and a button that closes it, not shown yet.
GtkWidget* MakeBox(GtkMessageType eType, const std::string& sText);
