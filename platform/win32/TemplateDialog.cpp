// A dialog made from a template of this library.

#include "platform/win32/TemplateDialog.h"

#include "platform/win32/Module.h"

int CTemplateDialog::RunModal() {
    return ::DialogBoxParamW(OwnModule(), MAKEINTRESOURCEW(m_iTemplate), nullptr, &Dispatch,
                             reinterpret_cast<LPARAM>(this)) > 0;
}

int CTemplateDialog::Create() {
    return ::CreateDialogParamW(OwnModule(), MAKEINTRESOURCEW(m_iTemplate), nullptr, &Dispatch,
                                reinterpret_cast<LPARAM>(this)) != nullptr;
}

void CTemplateDialog::Destroy() {
    if (m_hWindow) ::DestroyWindow(m_hWindow);
}

INT_PTR CALLBACK CTemplateDialog::Dispatch(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_INITDIALOG) {
        ::SetWindowLongPtrW(hWindow, DWLP_USER, lParam);
        auto* const pDialog = reinterpret_cast<CTemplateDialog*>(lParam);
        pDialog->m_hWindow = hWindow;
        pDialog->OnOpen();
        return TRUE;
    }
    auto* const pDialog = reinterpret_cast<CTemplateDialog*>(::GetWindowLongPtrW(hWindow, DWLP_USER));
    if (!pDialog) return FALSE; // before WM_INITDIALOG
    switch (nMessage) {
    case WM_COMMAND:
        if (HIWORD(wParam) != BN_CLICKED) return FALSE;
        pDialog->OnButton(LOWORD(wParam));
        return TRUE;
    case WM_NCDESTROY:
        pDialog->m_hWindow = nullptr;
        return FALSE;
    default:
        return FALSE;
    }
}
