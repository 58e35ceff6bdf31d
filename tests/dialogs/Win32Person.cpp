// Somebody in front of a Windows screen: a thread that reads the dialogs and answers them by messages.

#include "dialogs/Person.h"

#include "platform/win32/Text.h"
#include "platform/win32/resource.h"

#include <atomic>
#include <chrono>
#include <set>
#include <thread>
#include <windows.h>

#include <commctrl.h>

namespace {

// Controls of the system's file dialog.
constexpr int FILE_NAME = 0x47c;
constexpr int FILE_FILTERS = 0x470;

std::string TextOf(HWND hWindow) {
    std::wstring sText(static_cast<std::size_t>(::SendMessageW(hWindow, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    ::SendMessageW(hWindow, WM_GETTEXT, sText.size() + 1, reinterpret_cast<LPARAM>(sText.data()));
    return Narrow(sText);
}

std::vector<std::string> Rows(HWND hList, UINT nCount, UINT nLength, UINT nText) {
    std::vector<std::string> aRows;
    const LRESULT nRows = ::SendMessageW(hList, nCount, 0, 0);
    for (WPARAM i = 0; static_cast<LRESULT>(i) < nRows; ++i) {
        std::wstring sRow(static_cast<std::size_t>(::SendMessageW(hList, nLength, i, 0)) + 1, L'\0');
        ::SendMessageW(hList, nText, i, reinterpret_cast<LPARAM>(sRow.data()));
        sRow.pop_back();
        aRows.push_back(Narrow(sRow));
    }
    return aRows;
}

BOOL CALLBACK ReadControl(HWND hControl, LPARAM lShown) {
    T_SHOWN_D& rShown = *reinterpret_cast<T_SHOWN_D*>(lShown);
    wchar_t aClass[32] = {};
    ::GetClassNameW(hControl, aClass, 32);
    const std::wstring sClass = aClass;
    if (sClass == L"Button") rShown.aBUTTONS.push_back(TextOf(hControl));
    if (sClass == L"Static" && !TextOf(hControl).empty()) rShown.aTEXTS.push_back(TextOf(hControl));
    if (sClass == PROGRESS_CLASSW) rShown.iBAR = static_cast<int>(::SendMessageW(hControl, PBM_GETPOS, 0, 0));
    return TRUE;
}

T_SHOWN_D ReadDialog(HWND hDialog) {
    T_SHOWN_D shown;
    shown.sTITLE = TextOf(hDialog);
    if (const HWND hFilters = ::GetDlgItem(hDialog, FILE_FILTERS); hFilters && ::GetDlgItem(hDialog, FILE_NAME)) {
        shown.eKIND = SHOWN_CHOOSER;
        shown.aTEXTS = Rows(hFilters, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT);
        return shown;
    }
    ::EnumChildWindows(hDialog, &ReadControl, reinterpret_cast<LPARAM>(&shown));
    if (const HWND hList = ::GetDlgItem(hDialog, IDC_MESSAGES)) {
        shown.eKIND = SHOWN_LIST;
        shown.aTEXTS = Rows(hList, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT);
        const auto nStyle = static_cast<DWORD>(::GetWindowLongPtrW(hList, GWL_STYLE));
        shown.bSelectable = (nStyle & LBS_NOSEL) == 0 || (nStyle & LBS_SORT) != 0;
        // The widest row, measured here once more.
        const HDC hContext = ::GetDC(hList);
        ::SelectObject(hContext, reinterpret_cast<HFONT>(::SendMessageW(hList, WM_GETFONT, 0, 0)));
        LONG nWidest = 0;
        for (const std::string& sRow : shown.aTEXTS) {
            SIZE size{};
            ::GetTextExtentPoint32W(hContext, Widen(sRow).c_str(), static_cast<int>(Widen(sRow).size()), &size);
            nWidest = std::max(nWidest, size.cx);
        }
        ::ReleaseDC(hList, hContext);
        shown.bBothBars = (nStyle & WS_HSCROLL) != 0 && (nStyle & WS_VSCROLL) != 0;
        shown.bScrollsToEnd = ::SendMessageW(hList, LB_GETHORIZONTALEXTENT, 0, 0) >= nWidest;
    } else if (::GetDlgItem(hDialog, IDC_PROGRESS)) {
        shown.eKIND = SHOWN_PROGRESS;
    }
    return shown;
}

} // namespace

class CPerson::CEyes {
  public:
    explicit CEyes(std::string sDeck) : m_sDeck(std::move(sDeck)), m_thread([this] { Watch(); }) {}
    ~CEyes() {
        m_bLeaving = true;
        m_thread.join();
    }
    std::vector<T_SHOWN_D> m_aShown;

  private:
    void Watch() {
        while (!m_bLeaving) {
            std::erase_if(m_aAnswered, [](HWND hDialog) { return !::IsWindow(hDialog); });
            ::EnumWindows(&Look, reinterpret_cast<LPARAM>(this));
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    static BOOL CALLBACK Look(HWND hWindow, LPARAM lThis) {
        CEyes& rEyes = *reinterpret_cast<CEyes*>(lThis);
        DWORD nProcess = 0;
        ::GetWindowThreadProcessId(hWindow, &nProcess);
        wchar_t aClass[32] = {};
        ::GetClassNameW(hWindow, aClass, 32);
        if (nProcess != ::GetCurrentProcessId() || !::IsWindowVisible(hWindow) || std::wstring(aClass) != L"#32770") {
            return TRUE;
        }
        if (rEyes.m_aAnswered.insert(hWindow).second) rEyes.Answer(hWindow);
        return TRUE;
    }

    void Answer(HWND hDialog) {
        m_aShown.push_back(ReadDialog(hDialog));
        int iButton = IDOK;
        if (m_aShown.back().eKIND == SHOWN_PROGRESS) iButton = IDC_STOP;
        if (m_aShown.back().eKIND == SHOWN_CHOOSER) {
            if (m_sDeck.empty()) iButton = IDCANCEL;
            ::SendMessageW(::GetDlgItem(hDialog, FILE_NAME), WM_SETTEXT, 0,
                           reinterpret_cast<LPARAM>(Widen(m_sDeck).c_str()));
        }
        ::PostMessageW(hDialog, WM_COMMAND, static_cast<WPARAM>(iButton), 0);
    }

    const std::string m_sDeck;
    std::set<HWND> m_aAnswered;
    std::atomic<bool> m_bLeaving{false};
    std::thread m_thread; // the last member: it uses the others
};

CPerson::CPerson(std::string sDeck) : m_pEyes(std::make_unique<CEyes>(std::move(sDeck))) {}

CPerson::~CPerson() = default;

const std::vector<T_SHOWN_D>& CPerson::GetShown() const {
    return m_pEyes->m_aShown;
}

bool HasScreen() {
    const HWND hWindow = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    if (hWindow) ::DestroyWindow(hWindow);
    return hWindow != nullptr;
}
