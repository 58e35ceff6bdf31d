// The progress window on Windows.

#include "platform/win32/PrgsDlg.h"

#include "platform/win32/Text.h"
#include "platform/win32/resource.h"

#include <commctrl.h>

CPrgsDlg::CPrgsDlg() : CTemplateDialog(IDD_PROGRESS) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    ::InitCommonControlsEx(&classes);
    Create();
}

void CPrgsDlg::SetTotal(int nTotal) {
    m_progress.SetTotal(nTotal);
    ::SetWindowTextW(GetControl(IDC_TOTAL), Widen(m_progress.GetTotal()).c_str());
    ::SendMessageW(GetControl(IDC_PROGRESS), PBM_SETRANGE32, 0, CProgress::RANGE);
    ::UpdateWindow(GetWindow());
}

int CPrgsDlg::Update(int iLine) {
    PumpMessages();
    if (m_nStop) {
        Destroy();
        return 0;
    }
    const int iPlace = m_progress.MoveTo(iLine);
    ::SetWindowTextW(GetControl(IDC_CURRENT), Widen(m_progress.GetCurrent()).c_str());
    ::SendMessageW(GetControl(IDC_PROGRESS), PBM_SETPOS, static_cast<WPARAM>(iPlace), 0);
    ::UpdateWindow(GetWindow());
    return 1;
}

void CPrgsDlg::PumpMessages() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) { // the host's loop is to end, not this one
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (GetWindow() && ::IsDialogMessageW(GetWindow(), &message)) continue; // makes Escape the button IDCANCEL
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void CPrgsDlg::OnButton(int iId) {
    if (iId == IDC_STOP || iId == IDCANCEL) m_nStop = 1;
}
