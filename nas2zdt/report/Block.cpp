// Blocks of data in a page.

#include "nas2zdt/report/Block.h"

#include "writer/Format.h"

CBlock::CBlock(CFile& rFile, std::string_view sId, std::string_view sType, E_CONTENT eContent)
    : m_rFile(rFile), m_text(rFile), m_deflate(*this, eContent) {
    WriteLine(rFile,
              "<script type=\"application/octet-stream;base64\" id=\"%s\" data-type=\"%s\" data-compression=\"%s\">",
              sId, sType, CDeflate::Name());
}

void CBlock::Finish() {
    m_deflate.Finish();
    m_text.Finish();
    m_rFile.Write("</script>\n");
}

void CWordBlock::Send() {
    const std::size_t nValues = m_aDifferences.size();
    m_aBytes.resize(nValues * sizeof(std::uint32_t));
    for (std::size_t iByte = 0; iByte < sizeof(std::uint32_t); ++iByte) {
        std::uint8_t* const pPlane = m_aBytes.data() + iByte * nValues;
        for (std::size_t i = 0; i < nValues; ++i) {
            pPlane[i] = static_cast<std::uint8_t>(m_aDifferences[i] >> (8 * iByte));
        }
    }
    m_block.Write(m_aBytes);
    m_aDifferences.clear();
}
