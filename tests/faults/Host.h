#pragma once
// A host that calls an export, with the dialogs of a terminal and a person who types the path of a deck.

#include <cstdint>
#include <sstream>
#include <string>

using CONVERTFILE2 = std::int32_t (*)(char*, std::int32_t);

/// While it lives, a path stands at the prompt and nothing is printed.
class CInput {
  public:
    explicit CInput(const std::string& sTyped);
    ~CInput();
    CInput(const CInput&) = delete;
    CInput& operator=(const CInput&) = delete;

  private:
    std::istringstream m_typed;
    std::streambuf* m_pInput;
    std::streambuf* m_pOutput;
};

/// What a call did; holds no memory of its own, so that it can be filled when there is none.
struct T_CALL_D {
    std::int32_t iRESULT = 0;
    char aOUTPUT[512] = "untouched";
    int nLOGS = 0; // boxes shown
    int nFILEERRORS = 0;
    int nRUNERRORS = 0;
    char aRUNERROR[64] = ""; // the beginning of the last one
};

/// Calls pfnConvert, this program's or a library's. Boxes are counted for this program's alone, and pfnNotice, if there
/// is one, is called in place of its notice.
T_CALL_D MakeCall(CONVERTFILE2 pfnConvert, void (*pfnNotice)() = nullptr);

/// The same with sDeck at the prompt.
T_CALL_D CallAsHost(CONVERTFILE2 pfnConvert, const std::string& sDeck);
