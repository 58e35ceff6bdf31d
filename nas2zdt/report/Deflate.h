#pragma once
// Compression of what a page holds, by a library where there is one.

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

/// Takes what comes out of a compressor, piece by piece.
class CByteSink {
  public:
    virtual ~CByteSink() = default;
    virtual void Take(std::span<const std::uint8_t> aBytes) = 0;
};

/// What is compressed.
enum E_CONTENT {
    CONTENT_TEXT,
    CONTENT_PLANES, // bytes of differences, which come in runs
};

/// A stream in the zlib format (RFC 1950). Without the library, bytes go through unchanged.
class CDeflate {
  public:
    /// rSink must outlive this object. Throws std::bad_alloc.
    CDeflate(CByteSink& rSink, E_CONTENT eContent);
    ~CDeflate();
    CDeflate(const CDeflate&) = delete;
    CDeflate& operator=(const CDeflate&) = delete;

    void Write(std::span<const std::uint8_t> aBytes);
    void Finish();

    /// "deflate" or "none".
    static std::string_view Name();

  private:
    struct T_STATE_D;
    CByteSink& m_rSink;
    std::unique_ptr<T_STATE_D> m_pState;
};
