#pragma once
// The program or library that holds this code.

#include <windows.h>

/// Its module, whichever module the host has current: templates and neighbours are looked for there.
HINSTANCE OwnModule();
