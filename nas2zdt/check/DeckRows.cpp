#include "nas2zdt/check/DeckRows.h"

void T_DECKROWS_D::Clear() {
    grids.Clear();
    aELEMENTS.clear();
    aNODES.clear();
    aBARS.clear();
    aUSES.clear();
}

void T_DECKROWS_D::Append(const T_DECKROWS_D& rOther, const T_ROWCOUNTS_D& rBegin, const T_ROWCOUNTS_D& rEnd,
                          const T_ORIGINLINE_D& rOrigin) {
    const auto iRow = static_cast<std::uint32_t>(aELEMENTS.size() - rBegin.nELEMENTS); // what is added to a place there
    const auto iNode = static_cast<std::uint32_t>(aNODES.size() - rBegin.nNODES);
    grids.Append(rOther.grids, rBegin.nGRIDS, rEnd.nGRIDS, rOrigin);
    for (std::size_t i = rBegin.nELEMENTS; i < rEnd.nELEMENTS; ++i) {
        T_DECKELEMENT_D& rElement = aELEMENTS.emplace_back(rOther.aELEMENTS[i]);
        rElement.iFIRST += iNode;
        rElement.origin = {rOrigin.iFILE, rOrigin.iLINE + rElement.origin.iLINE};
    }
    const auto pNodes = rOther.aNODES.begin();
    aNODES.insert(aNODES.end(), pNodes + static_cast<std::ptrdiff_t>(rBegin.nNODES),
                  pNodes + static_cast<std::ptrdiff_t>(rEnd.nNODES));
    for (std::size_t i = rBegin.nBARS; i < rEnd.nBARS; ++i) aBARS.emplace_back(rOther.aBARS[i]).iROW += iRow;
    for (std::size_t i = rBegin.nUSES; i < rEnd.nUSES; ++i) {
        const T_ELEMENTUSE_D& rUse = rOther.aUSES[i];
        AddUse(rUse.eTARGET, rUse.iID, rUse.iROW + iRow);
    }
}
