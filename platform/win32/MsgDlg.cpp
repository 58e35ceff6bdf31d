// The message list on Windows.

#include "platform/win32/MsgDlg.h"

#include "platform/win32/Text.h"
#include "platform/win32/resource.h"

#include <algorithm>

namespace {

/// Measures texts in the font of a window.
class CTextMeasure {
  public:
    explicit CTextMeasure(HWND hWindow) : m_hWindow(hWindow), m_hContext(::GetDC(hWindow)) {
        m_hOldFont = ::SelectObject(m_hContext, reinterpret_cast<HFONT>(::SendMessageW(hWindow, WM_GETFONT, 0, 0)));
    }
    ~CTextMeasure() {
        ::SelectObject(m_hContext, m_hOldFont);
        ::ReleaseDC(m_hWindow, m_hContext);
    }
    CTextMeasure(const CTextMeasure&) = delete;
    CTextMeasure& operator=(const CTextMeasure&) = delete;

    LONG GetWidth(const std::wstring& sText) const {
        SIZE size{};
        ::GetTextExtentPoint32W(m_hContext, sText.c_str(), static_cast<int>(sText.size()), &size);
        return size.cx;
    }

  private:
    HWND m_hWindow;
    HDC m_hContext;
    HGDIOBJ m_hOldFont;
};

constexpr LONG ROW_MARGIN = 4; // a row's text doesn't begin at the very edge

} // namespace

CMsgDlg::CMsgDlg() : CTemplateDialog(IDD_MESSAGES) {}

void CMsgDlg::OnOpen() {
    m_hList = GetControl(IDC_MESSAGES);
    const CTextMeasure measure(m_hList);
    LONG nWidest = 0;
    for (const std::string& sLine : m_aMessages) {
        const std::wstring sRow = Widen(sLine);
        ::SendMessageW(m_hList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(sRow.c_str()));
        nWidest = std::max(nWidest, measure.GetWidth(sRow));
    }
    ::SendMessageW(m_hList, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(nWidest + ROW_MARGIN), 0);
}

void CMsgDlg::OnButton(int iId) {
    if (iId == IDOK || iId == IDCANCEL) ::EndDialog(GetWindow(), IDOK);
}
