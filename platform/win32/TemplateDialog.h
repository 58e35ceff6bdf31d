#pragma once
// A dialog made from a template of this library.

#include <windows.h>

/// Its messages arrive at this object while the window exists; no exception may leave an override.
class CTemplateDialog {
  public:
    CTemplateDialog(const CTemplateDialog&) = delete;
    CTemplateDialog& operator=(const CTemplateDialog&) = delete;

  protected:
    explicit CTemplateDialog(int iTemplate) : m_iTemplate(iTemplate) {}
    virtual ~CTemplateDialog() { Destroy(); }

    /// Shows the dialog without a parent and returns when it was closed: 1, or 0 if there can be no window.
    int RunModal();

    /// Makes the window and leaves it open. Returns 1, or 0 if there can be no window.
    int Create();

    /// Closes the window of Create, if it is open.
    void Destroy();

    HWND GetWindow() const { return m_hWindow; }
    HWND GetControl(int iId) const { return ::GetDlgItem(m_hWindow, iId); }

    /// The window and its controls were made and aren't shown yet.
    virtual void OnOpen() = 0;

    /// A button was pressed; Escape and the box that closes the window are IDCANCEL.
    virtual void OnButton(int iId) = 0;

  private:
    static INT_PTR CALLBACK Dispatch(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam);

    const int m_iTemplate;
    HWND m_hWindow = nullptr;
};
