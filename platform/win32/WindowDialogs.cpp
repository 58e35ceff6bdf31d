// The dialogs as windows of Windows.

#include "platform/WindowDialogs.h"

#include "platform/PlainText.h"
#include "platform/win32/MsgDlg.h"
#include "platform/win32/Text.h"

#include <windows.h>

#include <commdlg.h> // needs windows.h before it

namespace {

constexpr DWORD LONGEST_PATH = 32768;
constexpr const wchar_t* TITLE = L"ConvertNastran";

// Pairs of a text and its patterns, each closed by a zero, one more behind the last.
constexpr wchar_t FILTER[] = L"MSC.NASTRAN Files(*.nas,*.dat,*.blk)\0*.nas;*.dat;*.blk\0All Files(*.*)\0*.*\0";

/// While it lives, the host's windows take no input: dialogs without a parent are modal all the same, and the host
/// can't be made to call the library from within its own call.
class CModalScope {
  public:
    CModalScope() : m_hActive(::GetActiveWindow()) {
        ::EnumThreadWindows(::GetCurrentThreadId(), &Disable, reinterpret_cast<LPARAM>(this));
    }
    ~CModalScope() {
        for (const HWND hWindow : m_aDisabled) ::EnableWindow(hWindow, TRUE);
        if (m_hActive) ::SetForegroundWindow(m_hActive);
    }
    CModalScope(const CModalScope&) = delete;
    CModalScope& operator=(const CModalScope&) = delete;

  private:
    static BOOL CALLBACK Disable(HWND hWindow, LPARAM lScope) {
        if (!::IsWindowVisible(hWindow) || !::IsWindowEnabled(hWindow)) return TRUE;
        reinterpret_cast<CModalScope*>(lScope)->m_aDisabled.push_back(hWindow);
        ::EnableWindow(hWindow, FALSE);
        return TRUE;
    }

    HWND m_hActive;
    std::vector<HWND> m_aDisabled;
};

/// Returns 1 when the box was answered, 0 if there can be no window.
int ShowBox(const std::string& sText, UINT nStyle) {
    const CModalScope modal;
    return ::MessageBoxW(nullptr, Widen(BoxText(sText)).c_str(), TITLE, MB_OK | nStyle) > 0;
}

} // namespace

void CWindowDialogs::ShowNotice(const std::string& sText) {
    if (!ShowBox(sText, 0)) CConsoleDialogs::ShowNotice(sText);
}

int CWindowDialogs::ChooseDeck(std::string& rPath) {
    const CModalScope modal;
    std::vector<wchar_t> aPath(LONGEST_PATH);
    OPENFILENAMEW choice{};
    choice.lStructSize = sizeof choice;
    choice.lpstrFilter = FILTER;
    choice.nFilterIndex = 1;
    choice.lpstrFile = aPath.data();
    choice.nMaxFile = LONGEST_PATH;
    choice.lpstrDefExt = L"dat";
    // The folder of the chosen deck becomes the current one: relative names of included decks start there.
    choice.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_LONGNAMES;
    if (!::GetOpenFileNameW(&choice)) {
        return ::CommDlgExtendedError() == CDERR_DIALOGFAILURE ? CConsoleDialogs::ChooseDeck(rPath) : 0;
    }
    rPath = Narrow(aPath.data());
    return 1;
}

void CWindowDialogs::ShowFileError(const CFileException& rError) {
    if (!ShowBox(rError.GetText(), MB_ICONEXCLAMATION)) CConsoleDialogs::ShowFileError(rError);
}

void CWindowDialogs::ShowRunError(const std::string& sText) {
    if (!ShowBox(sText, MB_ICONERROR)) CConsoleDialogs::ShowRunError(sText);
}

void CWindowDialogs::ShowMessages(const std::vector<std::string>& aLines) {
    const CModalScope modal;
    CMsgDlg dialog;
    dialog.m_aMessages = aLines;
    if (!dialog.DoModal()) CConsoleDialogs::ShowMessages(aLines);
}
