// Chooses the colours of the parts of a picture.

#include "nas2zdt/picture/Colours.h"

#include "nas2zdt/account/AccountOutput.h"

#include <algorithm>

namespace {

/// "1, 10, 19 and 3 more".
std::string JoinIds(const std::vector<std::int32_t>& aIds, std::size_t iFirst) {
    constexpr std::size_t LONGEST = 28;
    std::string sText;
    for (std::size_t i = iFirst; i < aIds.size(); i += PALETTE_SIZE) {
        if (sText.size() >= LONGEST) {
            const std::size_t nMore = (aIds.size() - i + PALETTE_SIZE - 1) / PALETTE_SIZE;
            return sText + " and " + std::to_string(nMore) + " more";
        }
        sText += (sText.empty() ? "" : ", ") + std::to_string(aIds[i]);
    }
    return sText;
}

/// One colour for each id in turn. Parts have ids that the model hasn't, such as the property of a CONROD.
template <class TABLE>
void ColourByIds(const T_SCEN_D& rScene, std::int32_t T_PART_D::*pID, const TABLE& rTable, const std::string& sName,
                 T_COLOURS_D& rColours) {
    std::vector<std::int32_t> aIds;
    for (const T_PART_D& rPart : rScene.aPARTS) {
        if (aIds.empty() || aIds.back() != rPart.*pID) aIds.push_back(rPart.*pID);
    }
    std::sort(aIds.begin(), aIds.end());
    aIds.erase(std::unique(aIds.begin(), aIds.end()), aIds.end());
    std::erase_if(aIds, [&](std::int32_t iID) { return !rTable.Find(iID); });
    rColours.bREPEATED = aIds.size() > PALETTE_SIZE;
    for (std::size_t i = 0; i < std::min(aIds.size(), PALETTE_SIZE); ++i) {
        rColours.aROWS.push_back({static_cast<std::uint8_t>(PAINT_PALETTE + i), sName + " " + JoinIds(aIds, i)});
    }
    T_COLOURROW_D without{PAINT_NEUTRAL, "without " + sName};
    for (const T_PART_D& rPart : rScene.aPARTS) {
        const auto pFound = std::lower_bound(aIds.begin(), aIds.end(), rPart.*pID);
        const auto iRank = static_cast<std::size_t>(pFound - aIds.begin()) % PALETTE_SIZE;
        const bool bKnown = pFound != aIds.end() && *pFound == rPart.*pID;
        rColours.aPAINTS.push_back(bKnown ? static_cast<std::uint8_t>(PAINT_PALETTE + iRank) : PAINT_NEUTRAL);
        ++(bKnown ? rColours.aROWS[iRank] : without).nCOUNT;
    }
    if (without.nCOUNT > 0) rColours.aROWS.push_back(without);
}

/// Ids with the losses that name them.
using T_NAMED = std::vector<std::pair<std::int32_t, std::uint32_t>>;

void SortOut(T_NAMED& rNamed) {
    std::sort(rNamed.begin(), rNamed.end());
    rNamed.erase(std::unique(rNamed.begin(), rNamed.end()), rNamed.end());
}

/// Keyword and words of a loss, without those that tell what its ids are.
std::string ShortText(const T_WORD_D& rWord, const T_NOTE_D& rNote) {
    std::string sText = rWord.sNAME + " " + NoteText(rNote);
    const std::size_t iIds = sText.rfind(" (ids: ");
    return iIds == std::string::npos ? sText : sText.substr(0, iIds);
}

/// Takes the losses of model and mass with all that they name.
class CLosses {
  public:
    CLosses(const CAccount& rAccount, T_COLOURS_D& rColours) : m_rColours(rColours) {
        for (const T_WORD_D* pWord : rAccount.GetWords()) {
            for (const T_NOTE_D& rNote : pWord->aNOTES) {
                if (rNote.eCLASS != CLASS_MODEL && rNote.eCLASS != CLASS_MASS) continue;
                const auto iLoss = static_cast<std::uint32_t>(rColours.aLOSSES.size());
                const bool bProperty = rNote.eMARKED == MARKED_PROPERTIES;
                const std::uint8_t iPaint = bProperty ? PAINT_OF_PROPERTY : std::uint8_t{PAINT_LOST};
                rColours.aLOSSES.push_back({iPaint, ShortText(*pWord, rNote)});
                T_NAMED* const pNamed = NamedBy(rNote.eMARKED);
                if (!pNamed) continue;
                for (const std::int32_t iID : rNote.aMARKED) pNamed->emplace_back(iID, iLoss);
            }
        }
        for (T_NAMED* pNamed : {&m_nodes, &m_elements, &m_properties}) SortOut(*pNamed);
    }

    void Mark(const T_SCEN_D& rScene) {
        for (std::uint32_t i = 0; i < rScene.aPARTS.size(); ++i) {
            const T_PART_D& rPart = rScene.aPARTS[i];
            std::uint8_t iPaint = PAINT_NEUTRAL;
            if (rPart.iPID != 0 && Find(m_properties, rPart.iPID, i, m_rColours.aPARTLOSSES))
                iPaint = PAINT_OF_PROPERTY;
            if (rPart.iID != 0 && Find(m_elements, rPart.iID, i, m_rColours.aPARTLOSSES)) iPaint = PAINT_LOST;
            m_rColours.aPAINTS.push_back(iPaint);
        }
        for (std::uint32_t i = 0; i < rScene.aIDS.size(); ++i) {
            Find(m_nodes, rScene.aIDS[i], i, m_rColours.aNODELOSSES);
        }
    }

  private:
    T_NAMED* NamedBy(E_MARKED eMarked) {
        switch (eMarked) {
        case MARKED_NODES:
            return &m_nodes;
        case MARKED_ELEMENTS:
            return &m_elements;
        case MARKED_PROPERTIES:
            return &m_properties;
        default:
            return nullptr;
        }
    }
    bool Find(const T_NAMED& rNamed, std::int32_t iID, std::uint32_t iPlace, T_LOSSES& rFound) {
        const auto pFirst = std::lower_bound(rNamed.begin(), rNamed.end(), std::pair(iID, std::uint32_t{0}));
        auto p = pFirst;
        for (; p != rNamed.end() && p->first == iID; ++p) {
            rFound.emplace_back(iPlace, p->second);
            ++m_rColours.aLOSSES[p->second].nCOUNT;
        }
        return p != pFirst;
    }

    T_COLOURS_D& m_rColours;
    T_NAMED m_nodes, m_elements, m_properties;
};

void ColourByLoss(const T_SCEN_D& rScene, const CAccount& rAccount, T_COLOURS_D& rColours) {
    CLosses(rAccount, rColours).Mark(rScene);
    std::vector<T_COLOURROW_D>& rRows = rColours.aROWS;
    for (const T_COLOURROW_D& rLoss : rColours.aLOSSES) {
        if (rLoss.nCOUNT > 0) {
            rRows.push_back(rLoss);
        } else {
            ++rColours.nELSEWHERE;
        }
    }
    std::stable_sort(rRows.begin(), rRows.end(), [](const T_COLOURROW_D& a, const T_COLOURROW_D& b) {
        return a.iPAINT != b.iPAINT ? a.iPAINT < b.iPAINT : a.nCOUNT > b.nCOUNT;
    });
    const auto nWhole = std::count(rColours.aPAINTS.begin(), rColours.aPAINTS.end(), PAINT_NEUTRAL);
    rRows.push_back({PAINT_NEUTRAL, "without such a loss", static_cast<std::size_t>(nWhole)});
}

} // namespace

T_COLOURS_D ChooseColours(const CDataPool& rDataPool, const T_SCEN_D& rScene, E_COLOUR_BY eBy,
                          const CAccount* pAccount) {
    T_COLOURS_D colours;
    colours.eBY = eBy;
    if (eBy == BY_PROPERTY) ColourByIds(rScene, &T_PART_D::iPID, rDataPool.PROP, "property", colours);
    if (eBy == BY_MATERIAL) ColourByIds(rScene, &T_PART_D::iMID, rDataPool.MATL, "material", colours);
    if (eBy == BY_LOSS) ColourByLoss(rScene, *pAccount, colours);
    return colours;
}
