// The buffer of the output file: the part that all platforms share.

#include "platform/File.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t BUFFER_SIZE = std::size_t(256) * 1024;
}

void CFile::MakeRoom(std::size_t nSize) {
    if (m_nUsed > 0) Flush();
    if (nSize <= m_nBuffer) return;
    const std::size_t nBuffer = std::max(nSize, BUFFER_SIZE);
    m_pBuffer = std::make_unique_for_overwrite<char[]>(nBuffer);
    m_nBuffer = nBuffer;
}

/// Counts what is about to be written. Throws CFileTooLong, with the buffer empty, if it would pass the limit.
void CFile::CountFlush() {
    if (m_nUsed > m_nMost - m_nFlushed) {
        m_nUsed = 0;
        throw CFileTooLong(m_sPath);
    }
    m_nFlushed += m_nUsed;
}

void CFile::Append(CTextPiece& rPiece) {
    if (rPiece.m_nUsed <= m_nBuffer - m_nUsed) {
        Write({rPiece.m_pBuffer.get(), rPiece.m_nUsed});
    } else {
        Flush();
        std::swap(m_pBuffer, rPiece.m_pBuffer);
        std::swap(m_nBuffer, rPiece.m_nBuffer);
        m_nUsed = rPiece.m_nUsed;
    }
    rPiece.m_nUsed = 0;
}
