#pragma once
// The library with the desktop windows, loaded on demand: the conversion library itself needs no toolkit.

class CDialogs;

constexpr const char* GTK_PLUGIN = "ConvertNastranGtk.so";
constexpr const char* GTK_PLUGIN_EXPORT = "MakeGtkDialogs";

/// Makes the dialogs for a call, which deletes them. Null if no display can be reached.
using MAKEGTKDIALOGS = CDialogs* (*)();
