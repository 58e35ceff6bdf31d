// Between the converter's UTF-8 and the system's UTF-16.

#include "platform/win32/Text.h"

#include <windows.h>

namespace {

/// Empty if the text isn't one of this code page.
std::wstring WidenFrom(UINT nCodePage, DWORD nFlags, std::string_view sText) {
    const int nText = static_cast<int>(sText.size());
    const int nWide = ::MultiByteToWideChar(nCodePage, nFlags, sText.data(), nText, nullptr, 0);
    std::wstring sWide(static_cast<std::size_t>(nWide), L'\0');
    ::MultiByteToWideChar(nCodePage, nFlags, sText.data(), nText, sWide.data(), nWide);
    return sWide;
}

/// That of the system, whatever the host has chosen for itself. 0, which is the host's, where a language has none.
UINT SystemCodePage() {
    DWORD nCodePage = CP_ACP;
    ::GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                     reinterpret_cast<LPWSTR>(&nCodePage), sizeof nCodePage / sizeof(wchar_t));
    return nCodePage;
}

} // namespace

std::wstring Widen(std::string_view sText) {
    if (sText.empty()) return {};
    std::wstring sWide = WidenFrom(CP_UTF8, MB_ERR_INVALID_CHARS, sText);
    return sWide.empty() ? WidenFrom(SystemCodePage(), 0, sText) : sWide;
}

std::string Narrow(std::wstring_view sText) {
    if (sText.empty()) return {};
    const int nWide = static_cast<int>(sText.size());
    const int nText = ::WideCharToMultiByte(CP_UTF8, 0, sText.data(), nWide, nullptr, 0, nullptr, nullptr);
    std::string sNarrow(static_cast<std::size_t>(nText), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, sText.data(), nWide, sNarrow.data(), nText, nullptr, nullptr);
    return sNarrow;
}

std::string CauseText(unsigned long nError) {
    wchar_t aText[1024];
    DWORD nText = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, nError, 0,
                                   aText, sizeof aText / sizeof aText[0], nullptr);
    while (nText > 0 && (aText[nText - 1] == L'\n' || aText[nText - 1] == L'\r' || aText[nText - 1] == L' ')) --nText;
    return nText > 0 ? Narrow({aText, nText}) : "system error " + std::to_string(nError);
}
