// GRID.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

/// PS is a list of digits; each of 1 to 6 holds its component down, anything else is passed over.
void SetPermanentConstraints(T_NODS_D& rNode, std::string_view sPS) {
    for (const char c : sPS) {
        if (c >= '1' && c <= '6') rNode.bPS[static_cast<std::size_t>(c - '1')] = true;
    }
}

} // namespace

int CConvertNastran::ParseGRID(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iID = fields.Int();
    T_NODS_D node;
    node.iCP = fields.Int();
    node.dX1 = node.dGX = fields.Real(); // two copies: the passes move dG*, and frames still need the card's values
    node.dX2 = node.dGY = fields.Real();
    node.dX3 = node.dGZ = fields.Real();
    node.iCD = fields.Int();
    SetPermanentConstraints(node, fields.Text());
    fields.Skip("SEID");
    return m_pDataPool->SetNODS(iID, node);
}
