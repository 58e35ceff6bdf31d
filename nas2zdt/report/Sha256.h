#pragma once
// The SHA-256 of what a page is about, by a library where there is one.

#include <memory>
#include <string>
#include <string_view>

/// The hash of bytes that come piece by piece.
class CSha256 {
  public:
    CSha256();
    ~CSha256();
    CSha256(const CSha256&) = delete;
    CSha256& operator=(const CSha256&) = delete;

    void Add(std::string_view sBytes);

    /// 64 hexadecimal digits, empty if there is no library for it. To be called once.
    std::string Finish();

  private:
    struct T_STATE_D;
    std::unique_ptr<T_STATE_D> m_pState;
};

/// Bytes as hexadecimal digits in lower case.
inline std::string HexText(std::string_view sBytes) {
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string sText;
    for (const char c : sBytes) {
        const auto nByte = static_cast<unsigned char>(c);
        sText += DIGITS[nByte >> 4];
        sText += DIGITS[nByte & 15];
    }
    return sText;
}
