#pragma once
// The texts of the windows in the user's language.

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

/// English for a user whose languages aren't among them.
const T_TEXTS_D& Texts();
