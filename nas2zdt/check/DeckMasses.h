#pragma once
// What elements weigh by their properties and materials.

#include "nas2zdt/check/CheckDeck.h"

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

/// For each unit of an element's length, area or volume.
struct T_PROPERTYMASS_D {
    double dMASS = 0.0;      // by density
    double dADDED = 0.0;     // non-structural
    double dTHICKNESS = 0.0; // of a plate with one material
    double dDENSITY = 0.0;   // of that material
    std::int32_t iMID = 0;   // the one material of the property, 0 if it has several or none
};

/// Reads properties and materials. Stations of a tapered beam count by the trapezoids between them; plies of a
/// composite add up; a blank or unknown density is zero.
class CDeckMasses : public CCardTaker {
  public:
    void TakeCard(const CCardFields& rCard) override;

    /// Once all cards are taken.
    void Finish();

    /// Null for a property that isn't there or that weighs nothing here, such as that of a spring.
    const T_PROPERTYMASS_D* Find(std::int32_t iPID) const;

    /// The same of a CONROD by its id.
    const T_PROPERTYMASS_D* FindRod(std::int32_t iEID) const;

    /// What a plate weighs by density for each unit of area. rMass is of its property.
    double FindPlate(std::int32_t iEID, const T_PROPERTYMASS_D& rMass) const {
        return m_mapThicknesses.empty() ? rMass.dMASS : FindThickPlate(iEID, rMass);
    }

  private:
    struct T_LAYER_D {
        std::int32_t iMID;
        double dSIZE; // area or thickness; 1 for a solid
    };
    struct T_PROPERTY_D {
        std::vector<T_LAYER_D> aLAYERS;
        double dADDED = 0.0;
        bool bPLATE = false;
    };

    /// Corners' thicknesses of a plate.
    struct T_CORNERS_D {
        double dSUM = 0.0;   // of those that aren't blank
        double dBLANK = 0.0; // number of the others
        double dALL = 0.0;
        bool bPARTS = false; // of the property's thickness
    };

    double FindThickPlate(std::int32_t iEID, const T_PROPERTYMASS_D& rMass) const;
    double FindDensity(std::int32_t iMID) const;
    T_PROPERTYMASS_D Weigh(const T_PROPERTY_D& rCard) const;
    void TakeCONROD(const CCardFields& rCard);
    void TakePlate(const CCardFields& rCard);
    void TakePBARL(const CCardFields& rCard);
    void TakePBEAM(const CCardFields& rCard);
    void TakePBEAML(const CCardFields& rCard);
    void TakePCOMP(const CCardFields& rCard);
    void TakePCOMPG(const CCardFields& rCard);
    void TakePTUBE(const CCardFields& rCard);
    void Put(const CCardFields& rCard, std::vector<T_LAYER_D> aLayers, double dAdded, bool bPlate = false);

    std::map<std::int32_t, double> m_mapDensities;
    std::map<std::int32_t, T_PROPERTY_D> m_mapCards;
    std::map<std::int32_t, T_PROPERTY_D> m_mapRods;
    std::map<std::int32_t, T_CORNERS_D> m_mapThicknesses;
    std::map<std::int32_t, T_PROPERTYMASS_D> m_mapMasses, m_mapRodMasses;
};
