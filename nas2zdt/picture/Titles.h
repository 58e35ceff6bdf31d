#pragma once
// The titles that a viewer of the picture shows for the thing under the pointer.

#include "nas2zdt/picture/Colours.h"
#include "nas2zdt/picture/Drawing.h"

#include <string>
#include <unordered_map>

class CTitles {
  public:
    /// All arguments must outlive this object.
    CTitles(const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_COLOURS_D& rColours);

    /// Kind, id, property, material, values and losses, as text.
    std::string OfShape(const T_SHAP_D& rShape) const;
    std::string OfMark(const T_SYMB_D& rMark) const;
    std::string OfArrow(const T_ARRW_D& rArrow) const;

  private:
    std::string OfPart(std::uint32_t iPart) const;
    std::string OfNode(std::uint32_t iNode) const;
    std::string Losses(const T_LOSSES& rLosses, std::uint32_t iPlace) const;

    const T_SCEN_D& m_rScene;
    const T_COLOURS_D& m_rColours;
    std::unordered_map<std::int32_t, std::string> m_mapProperties; // their values by id
};
