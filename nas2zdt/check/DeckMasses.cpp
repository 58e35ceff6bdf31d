#include "nas2zdt/check/DeckMasses.h"

#include "nas2zdt/restate/BarSections.h"
#include "nas2zdt/restate/PlateThickness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr std::size_t LINE = 8; // fields of a line, and so the first of the second line
constexpr double PI = 3.141592653589793;

struct T_DENSITY_D {
    std::string_view sMATERIAL;
    std::size_t iFIELD;
};
constexpr std::array DENSITIES = {
    T_DENSITY_D{"MAT1", 4},  T_DENSITY_D{"MAT2", 7},  T_DENSITY_D{"MAT3", 7},   T_DENSITY_D{"MAT8", 7},
    T_DENSITY_D{"MAT9", 22}, T_DENSITY_D{"MAT10", 2}, T_DENSITY_D{"MAT11", 10},
};

/// A property of one material: where its card has the area or thickness and the non-structural mass. 0 for none.
struct T_SIMPLE_D {
    std::string_view sPROPERTY;
    std::size_t iSIZE, iADDED;
    bool bPLATE = false;
};
constexpr std::array SIMPLE = {
    T_SIMPLE_D{"PBAR", 2, 6},   T_SIMPLE_D{"PBCOMP", 2, 7},       T_SIMPLE_D{"PBEND", 2, 18},
    T_SIMPLE_D{"PROD", 2, 5},   T_SIMPLE_D{"PSHEAR", 2, 3, true}, T_SIMPLE_D{"PSHELL", 2, 7, true},
    T_SIMPLE_D{"PSOLID", 0, 0},
};

/// A value at a fraction of a beam's length.
struct T_STATION_D {
    double dX, dAREA, dADDED;
};

bool IsStationWord(const CCardFields& rCard, std::size_t i) {
    return rCard.Is(i, "YES") || rCard.Is(i, "YESA") || rCard.Is(i, "NO");
}

/// The means over a beam of what is on straight lines between its stations. Without a station at its end it is as at
/// its beginning, which comes first.
T_STATION_D MeanOf(std::vector<T_STATION_D> aStations) {
    const auto atEnd = [](const T_STATION_D& r) { return r.dX == 1.0; };
    if (std::none_of(aStations.begin(), aStations.end(), atEnd)) {
        aStations.push_back({1.0, aStations[0].dAREA, aStations[0].dADDED});
    }
    std::stable_sort(aStations.begin(), aStations.end(), [](const auto& a, const auto& b) { return a.dX < b.dX; });
    T_STATION_D mean = {};
    for (std::size_t i = 1; i < aStations.size(); ++i) {
        const T_STATION_D &a = aStations[i - 1], &b = aStations[i];
        mean.dAREA += (b.dX - a.dX) * (a.dAREA + b.dAREA) / 2;
        mean.dADDED += (b.dX - a.dX) * (a.dADDED + b.dADDED) / 2;
    }
    return mean;
}

double AreaOf(const std::string& sType, std::vector<double> aDim) {
    const std::optional<T_SECTIONVALUES_D> values = ValuesOf({sType, std::move(aDim)});
    return values ? values->dA : 0.0;
}

std::string TypeOf(const CCardFields& rCard) {
    std::string sType(rCard.Text(3));
    std::transform(sType.begin(), sType.end(), sType.begin(), &ToUpper);
    return sType;
}

} // namespace

void CDeckMasses::TakeCard(const CCardFields& rCard) {
    const std::string_view sKeyword = rCard.GetKeyword();
    if (sKeyword.starts_with("MAT")) {
        const auto pDensity = std::ranges::find(DENSITIES, sKeyword, &T_DENSITY_D::sMATERIAL);
        if (pDensity != DENSITIES.end()) m_mapDensities[rCard.Int(0)] = rCard.Real(pDensity->iFIELD);
        return;
    }
    if (sKeyword == "CONROD") return TakeCONROD(rCard);
    if (sKeyword.starts_with('C')) return TakePlate(rCard);
    if (!sKeyword.starts_with('P')) return;
    const auto pSimple = std::ranges::find(SIMPLE, sKeyword, &T_SIMPLE_D::sPROPERTY);
    if (pSimple != SIMPLE.end()) {
        const bool bBending = sKeyword == "PSHELL" && rCard.IsBlank(1);
        const double dSize = pSimple->iSIZE == 0 ? 1.0 : rCard.Real(pSimple->iSIZE);
        const double dAdded = pSimple->iADDED == 0 ? 0.0 : rCard.Real(pSimple->iADDED);
        Put(rCard, {{rCard.Int(bBending ? 3 : 1), dSize}}, dAdded, pSimple->bPLATE);
    } else if (sKeyword == "PBARL") {
        TakePBARL(rCard);
    } else if (sKeyword == "PBEAM") {
        TakePBEAM(rCard);
    } else if (sKeyword == "PBEAML") {
        TakePBEAML(rCard);
    } else if (sKeyword == "PCOMP") {
        TakePCOMP(rCard);
    } else if (sKeyword == "PCOMPG") {
        TakePCOMPG(rCard);
    } else if (sKeyword == "PTUBE") {
        TakePTUBE(rCard);
    }
}

void CDeckMasses::Put(const CCardFields& rCard, std::vector<T_LAYER_D> aLayers, double dAdded, bool bPlate) {
    m_mapCards[rCard.Int(0)] = {std::move(aLayers), dAdded, bPlate};
}

void CDeckMasses::TakeCONROD(const CCardFields& rCard) {
    constexpr std::size_t MID = 3, AREA = 4, ADDED = 7;
    m_mapRods[rCard.Int(0)] = {{{rCard.Int(MID), rCard.Real(AREA)}}, rCard.Real(ADDED), false};
}

/// A blank corner has the thickness of the property, and with TFLAG 1 corners have parts of that.
void CDeckMasses::TakePlate(const CCardFields& rCard) {
    const T_THICKNESS_D places = ThicknessOf(rCard.GetKeyword());
    if (!HasThickness(rCard, places)) return;
    T_CORNERS_D corners;
    corners.bPARTS = rCard.Int(places.iFLAG) == 1;
    corners.dALL = static_cast<double>(places.nCORNERS);
    for (std::size_t i = 0; i < places.nCORNERS; ++i) {
        corners.dSUM += rCard.Real(places.iFIRST + i);
        corners.dBLANK += rCard.IsBlank(places.iFIRST + i) ? 1.0 : 0.0;
    }
    m_mapThicknesses[rCard.Int(0)] = corners;
}

void CDeckMasses::TakePBARL(const CCardFields& rCard) {
    const std::string sType = TypeOf(rCard);
    std::vector<double> aDim(CountDimensions(sType));
    for (std::size_t i = 0; i < aDim.size(); ++i) aDim[i] = rCard.Real(LINE + i);
    const double dAdded = rCard.Real(LINE + aDim.size());
    Put(rCard, {{rCard.Int(1), AreaOf(sType, std::move(aDim))}}, dAdded);
}

/// Blank values of a station are those of end A.
void CDeckMasses::TakePBEAM(const CCardFields& rCard) {
    constexpr std::size_t AREA = 2, ADDED = 7;
    std::vector<T_STATION_D> aStations = {{0.0, rCard.Real(AREA), rCard.Real(ADDED)}};
    const T_STATION_D first = aStations[0];
    std::size_t i = IsStationWord(rCard, LINE) ? LINE : 2 * LINE;
    for (; IsStationWord(rCard, i); i += rCard.Is(i, "YES") ? 2 * LINE : LINE) {
        aStations.push_back(
            {rCard.Real(i + 1, 1.0), rCard.Real(i + AREA, first.dAREA), rCard.Real(i + ADDED, first.dADDED)});
    }
    const T_STATION_D mean = MeanOf(std::move(aStations));
    Put(rCard, {{rCard.Int(1), mean.dAREA}}, mean.dADDED);
}

/// Each station has its dimensions and non-structural mass; all but the first begin with two fields more.
void CDeckMasses::TakePBEAML(const CCardFields& rCard) {
    const std::string sType = TypeOf(rCard);
    const std::size_t nDim = CountDimensions(sType);
    std::vector<double> aFirst(nDim);
    std::vector<T_STATION_D> aStations;
    for (std::size_t i = LINE; nDim > 0 && (i < rCard.GetCount() || aStations.empty()); i += nDim + 1) {
        double dX = 0.0, dAdded = 0.0;
        if (!aStations.empty()) {
            dX = rCard.Real(i + 1, 1.0);
            dAdded = aStations[0].dADDED;
            i += 2;
        }
        std::vector<double> aDim = aFirst;
        for (std::size_t k = 0; k < nDim; ++k) aDim[k] = rCard.Real(i + k, aDim[k]);
        if (aStations.empty()) aFirst = aDim;
        aStations.push_back({dX, AreaOf(sType, std::move(aDim)), rCard.Real(i + nDim, dAdded)});
    }
    if (aStations.empty()) return;
    const T_STATION_D mean = MeanOf(std::move(aStations));
    Put(rCard, {{rCard.Int(1), mean.dAREA}}, mean.dADDED);
}

/// A ply's blank material and thickness are those of the ply before. LAM SYM gives one half of a composite.
void CDeckMasses::TakePCOMP(const CCardFields& rCard) {
    constexpr std::size_t ADDED = 2, LAM = 7, PLY = 4;
    std::vector<T_LAYER_D> aLayers;
    T_LAYER_D layer = {};
    for (std::size_t i = LINE; i < rCard.GetCount(); i += PLY) {
        bool bPly = false;
        for (std::size_t k = 0; k < PLY; ++k) bPly = bPly || !rCard.IsBlank(i + k);
        if (!bPly) continue;
        layer = {rCard.Int(i, layer.iMID), rCard.Real(i + 1, layer.dSIZE)};
        aLayers.push_back(layer);
    }
    if (rCard.Is(LAM, "SYM")) {
        for (T_LAYER_D& rLayer : aLayers) rLayer.dSIZE *= 2;
    }
    Put(rCard, std::move(aLayers), rCard.Real(ADDED));
}

/// A ply a line.
void CDeckMasses::TakePCOMPG(const CCardFields& rCard) {
    constexpr std::size_t ADDED = 2;
    std::vector<T_LAYER_D> aLayers;
    T_LAYER_D layer = {};
    for (std::size_t i = LINE; i < rCard.GetCount(); i += LINE) {
        layer = {rCard.Int(i + 1, layer.iMID), rCard.Real(i + 2, layer.dSIZE)};
        aLayers.push_back(layer);
    }
    Put(rCard, std::move(aLayers), rCard.Real(ADDED));
}

/// The mean of the areas at both ends. Without a wall the tube is a solid rod.
void CDeckMasses::TakePTUBE(const CCardFields& rCard) {
    const double dOuter = rCard.Real(2), dWall = rCard.Real(3), dOuterB = rCard.Real(5, dOuter);
    const auto area = [&](double d) { return PI * (dWall == 0.0 ? d * d / 4 : (d - dWall) * dWall); };
    Put(rCard, {{rCard.Int(1), (area(dOuter) + area(dOuterB)) / 2}}, rCard.Real(4));
}

double CDeckMasses::FindDensity(std::int32_t iMID) const {
    const auto pFound = m_mapDensities.find(iMID);
    return pFound == m_mapDensities.end() ? 0.0 : pFound->second;
}

T_PROPERTYMASS_D CDeckMasses::Weigh(const T_PROPERTY_D& rCard) const {
    T_PROPERTYMASS_D mass;
    mass.dADDED = rCard.dADDED;
    if (!rCard.aLAYERS.empty()) mass.iMID = rCard.aLAYERS[0].iMID;
    for (const T_LAYER_D& rLayer : rCard.aLAYERS) {
        mass.dMASS += FindDensity(rLayer.iMID) * rLayer.dSIZE;
        if (rLayer.iMID != mass.iMID) mass.iMID = 0;
    }
    if (rCard.bPLATE) {
        mass.dTHICKNESS = rCard.aLAYERS[0].dSIZE;
        mass.dDENSITY = FindDensity(mass.iMID);
    }
    return mass;
}

void CDeckMasses::Finish() {
    for (const auto& [iPID, rCard] : m_mapCards) m_mapMasses[iPID] = Weigh(rCard);
    for (const auto& [iEID, rCard] : m_mapRods) m_mapRodMasses[iEID] = Weigh(rCard);
}

const T_PROPERTYMASS_D* CDeckMasses::Find(std::int32_t iPID) const {
    const auto pFound = m_mapMasses.find(iPID);
    return pFound == m_mapMasses.end() ? nullptr : &pFound->second;
}

const T_PROPERTYMASS_D* CDeckMasses::FindRod(std::int32_t iEID) const {
    const auto pFound = m_mapRodMasses.find(iEID);
    return pFound == m_mapRodMasses.end() ? nullptr : &pFound->second;
}

double CDeckMasses::FindThickPlate(std::int32_t iEID, const T_PROPERTYMASS_D& rMass) const {
    const auto pFound = m_mapThicknesses.find(iEID);
    if (pFound == m_mapThicknesses.end() || rMass.dDENSITY == 0.0) return rMass.dMASS;
    const auto& [dSum, dBlank, dAll, bParts] = pFound->second;
    const double dMean = bParts ? rMass.dTHICKNESS * (dSum + dBlank) / dAll : (dSum + dBlank * rMass.dTHICKNESS) / dAll;
    return rMass.dDENSITY * dMean;
}
