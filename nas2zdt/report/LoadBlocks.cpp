// The load cases of the file as blocks of a page.

#include "nas2zdt/report/LoadBlocks.h"

#include "nas2zdt/report/Block.h"
#include "writer/rows/LoadRows.h"

#include <algorithm>
#include <limits>

namespace {

/// Adds the rows of a case.
class CLoadCollector {
  public:
    CLoadCollector(T_LOADTABLE_D& rTable, std::size_t nMost) : m_rTable(rTable), m_nMost(nMost) {}

    void operator()(const T_GRAVITY_ROW& r) const { Add(LOADROW_GRAVITY, 0, 0, {r.dX, r.dY, r.dZ}); }
    void operator()(const T_NODALLOAD_ROW& r) const { Add(m_eNodal, 0, r.iNODE, {r.dX, r.dY, r.dZ}); }
    void operator()(const T_UNIFORMPRESSURE_ROW& r) const {
        Add(LOADROW_PRESSURE, 0, r.iEID, {r.dP, r.dP, r.dP, r.dP});
    }
    void operator()(const T_CORNERPRESSURE_ROW& r) const {
        const auto iFace = static_cast<std::uint8_t>(r.bSOLID ? r.iFACE : 0);
        Add(LOADROW_PRESSURE, iFace, r.iEID, r.dP);
        if (r.bVECTOR) Add(LOADROW_DIRECTION, 0, r.iEID, {r.dN[0], r.dN[1], r.dN[2]});
    }
    void operator()(const T_BEAMLOAD_ROW& r) const {
        std::string sWords(r.sLOAD);
        for (const std::string_view sWord : {r.sDIRECTION, r.sPROJECTED}) sWords.append(" ").append(sWord);
        Add(LOADROW_BEAM, FindWords(sWords), r.iEID, {r.dX1, r.dP1, r.dX2, r.dP2});
    }
    void operator()(const T_NODETEMPERATURE_ROW& r) const { Add(LOADROW_TEMPERATURE, 0, r.iNODE, {r.dT}); }
    void operator()(const T_ELEMENTTEMPERATURE_ROW& r) const { Add(LOADROW_ELEMENT_TEMPERATURE, 0, r.iEID, {r.dT}); }
    void operator()(const T_GRADIENT_ROW& r) const { Add(LOADROW_GRADIENT, 0, r.iEID, {r.dTZ}); }
    void operator()(const T_DISPLACEMENT_ROW& r) const {
        const auto& d = r.dD;
        const auto isMoved = [&](std::size_t i) { return d[i] != 0.0 || d[i + 1] != 0.0 || d[i + 2] != 0.0; };
        if (isMoved(0)) Add(LOADROW_DISPLACEMENT, 0, r.iNODE, {d[0], d[1], d[2]});
        if (isMoved(3)) Add(LOADROW_ROTATION, 0, r.iNODE, {d[3], d[4], d[5]});
    }
    void operator()(const T_LEFT_D&) const {}

    void SetNodal(E_LOAD_ROW eNodal) { m_eNodal = eNodal; }

  private:
    static float Value(double d) {
        constexpr double MOST = std::numeric_limits<float>::max();
        return d >= -MOST && d <= MOST ? static_cast<float>(d) : std::numeric_limits<float>::quiet_NaN();
    }

    void Add(E_LOAD_ROW eType, std::uint8_t iCode, std::int32_t iID, const std::array<double, 4>& dValues) const {
        if (m_rTable.aROWS.size() == m_nMost) {
            ++m_rTable.nLEFTOUT;
            return;
        }
        T_LOADROW_D row{eType, iCode, iID, {}};
        std::transform(dValues.begin(), dValues.end(), row.dVALUES.begin(), &Value);
        m_rTable.aROWS.push_back(row);
        ++m_rTable.aCASES.back().nROWS;
    }

    /// The words of a load along a beam come from a few; past what a code can tell they share the last place.
    std::uint8_t FindWords(const std::string& sWords) const {
        auto& rWords = m_rTable.aWORDS;
        auto pFound = std::find(rWords.begin(), rWords.end(), sWords);
        constexpr std::size_t MOST_WORDS = 255;
        if (pFound == rWords.end()) {
            if (rWords.size() == MOST_WORDS) return MOST_WORDS - 1;
            pFound = rWords.insert(pFound, sWords);
        }
        return static_cast<std::uint8_t>(pFound - rWords.begin());
    }

    T_LOADTABLE_D& m_rTable;
    std::size_t m_nMost;
    E_LOAD_ROW m_eNodal = LOADROW_FORCE;
};

} // namespace

T_LOADTABLE_D CollectLoadRows(const CDataPool& rPool, std::size_t nMost) {
    T_LOADTABLE_D table;
    CLoadCollector collector(table, nMost);
    ForEachLoadCase(rPool, [&](const T_LOADCASE_ROW& rCase) {
        table.aCASES.push_back({rCase.iSID, table.aROWS.size(), 0});
        ForEachGravity(rCase.rSET, collector);
        collector.SetNodal(LOADROW_FORCE);
        ForEachNodalLoad(rPool, rCase.rSET, LOAD_FORCE, collector);
        collector.SetNodal(LOADROW_MOMENT);
        ForEachNodalLoad(rPool, rCase.rSET, LOAD_MOMENT, collector);
        ForEachBeamLoad(rPool, rCase.rSET, collector);
        ForEachPressure(rPool, rCase.rSET, collector);
        ForEachNodeTemperature(rPool, rCase, collector);
        ForEachElementTemperature(rPool, rCase.rSET, collector);
        ForEachGradient(rPool, rCase.rSET, collector);
        ForEachDisplacement(rPool, rCase.rSET, collector);
    });
    return table;
}

void WriteLoadBlocks(CFile& rFile, const T_LOADTABLE_D& rTable) {
    WriteBytes(rFile, "load-type", rTable.aROWS, [](const T_LOADROW_D& r) { return r.eTYPE; });
    WriteBytes(rFile, "load-code", rTable.aROWS, [](const T_LOADROW_D& r) { return r.iCODE; });
    WriteWords<std::int32_t>(rFile, "load-id", rTable.aROWS, [](const T_LOADROW_D& r) { return r.iID; });
    for (std::size_t i = 0; i < 4; ++i) {
        WriteWords<float>(rFile, "load-" + std::to_string(i), rTable.aROWS,
                          [&](const T_LOADROW_D& r) { return r.dVALUES[i]; });
    }
}
