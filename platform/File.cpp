// The buffer of the output file, the same on every platform.

#include "platform/File.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr std::size_t BUFFER_SIZE = std::size_t(256) * 1024;
}

void CFile::MakeRoom(std::size_t nSize) {
    if (m_nUsed > 0) Flush();
    if (nSize > m_aBuffer.size()) m_aBuffer.resize(std::max(nSize, BUFFER_SIZE));
}

void CFile::Write(std::string_view sText) {
    if (sText.empty()) return;
    std::memcpy(Reserve(sText.size()), sText.data(), sText.size());
    Commit(sText.size());
}
