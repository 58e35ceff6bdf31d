// Visits the rows of the target file.

#include "nas2zdt/check/FileTotals.h"

#include "nas2zdt/check/DenseRows.h"
#include "nas2zdt/check/KeySort.h"
#include "nas2zdt/check/Measure.h"
#include "store/DataPool.h"
#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/SpringRows.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

namespace {

/// An element of the file with its corners.
struct T_FILEBODY_D {
    E_BODY eBODY = BODY_LINE;
    std::optional<T_VECTOR> reference = {}; // of a beam
    std::array<T_VECTOR, 8> dCORNERS;       // unknown until they are found
};

/// The pressures of all load sets by the elements that they are on. Cards name elements in any order, and looked up one
/// by one each would be waited for.
class CPressures {
  public:
    void Add(const CLoadEntries& rEntries, T_SETTOTALS_D& rTotals) {
        m_aSets.push_back({m_nEntries, rEntries, rTotals});
        const std::vector<std::int8_t>& aKinds = rEntries.GetKinds();
        for (std::size_t i = 0; i < aKinds.size(); ++i) {
            if (aKinds[i] != LOAD_PRESSURE) continue;
            m_aOrder.push_back(MakeKeyed(KeyOf(rEntries.IdOf(i)), static_cast<std::uint32_t>(m_nEntries + i)));
        }
        m_nEntries += aKinds.size();
    }

    /// Once all are added.
    void Sort() { SortByKey(m_aOrder); }

    /// Calls visit(entry, totals of its set) for the pressures on an element, whose id is above that of the call
    /// before.
    template <class VISIT>
    void Visit(std::int32_t iEID, VISIT visit) {
        const std::uint32_t nKey = KeyOf(iEID);
        while (m_iNext < m_aOrder.size() && GetKey(m_aOrder[m_iNext]) < nKey) ++m_iNext;
        for (; m_iNext < m_aOrder.size() && GetKey(m_aOrder[m_iNext]) == nKey; ++m_iNext) {
            FetchAhead();
            const auto [rSet, iEntry] = Locate(m_iNext);
            visit(rSet.rENTRIES[iEntry], rSet.rTOTALS);
        }
    }

  private:
    struct T_SET_D {
        std::size_t iFIRST; // of its entries among those of all sets
        const CLoadEntries& rENTRIES;
        T_SETTOTALS_D& rTOTALS;
    };

    /// A set and the place of an entry in it.
    std::pair<const T_SET_D&, std::size_t> Locate(std::size_t iOrdered) const {
        const std::size_t iEntry = GetValue(m_aOrder[iOrdered]);
        const auto isBefore = [](std::size_t i, const T_SET_D& r) { return i < r.iFIRST; };
        const T_SET_D& rSet = *std::prev(std::upper_bound(m_aSets.begin(), m_aSets.end(), iEntry, isBefore));
        return {rSet, iEntry - rSet.iFIRST};
    }

    void FetchAhead() const {
        constexpr std::size_t AHEAD = 8;
        if (m_iNext + AHEAD >= m_aOrder.size()) return;
        const auto [rSet, iEntry] = Locate(m_iNext + AHEAD);
        rSet.rENTRIES.Fetch(iEntry);
    }

    /// Unsigned, in the order of the ids.
    static std::uint32_t KeyOf(std::int32_t iEID) { return static_cast<std::uint32_t>(iEID) ^ 0x80000000u; }

    std::vector<T_SET_D> m_aSets;
    std::size_t m_nEntries = 0;
    std::vector<std::uint64_t> m_aOrder; // keyed by element
    std::size_t m_iNext = 0;
};

class CFileTotals {
  public:
    explicit CFileTotals(const CDataPool& rPool) : m_rPool(rPool) {
        AddNodes();
        ForEachLocalAxis(rPool, [&](const CLocalAxis& rAxis) { AddAxis(rAxis); });
        ForEachLoadCase(rPool, [&](const T_LOADCASE_ROW& rCase) {
            m_pressures.Add(rCase.rSET.aMBLD, m_totals.mapSETS[rCase.iSID]);
        });
        m_pressures.Sort();
        AddElements();
        AddTies();
        ForEachLoadCase(rPool, [&](const T_LOADCASE_ROW& rCase) { AddCase(rCase); });
        const auto combination = [&](const T_COMBINATION_ROW& r) {
            for (const T_SHARE_D& rShare : r.aSHARES) {
                m_totals.mapCOMBINATIONS[r.iSID][rShare.iSET] += rShare.dFACTOR;
            }
        };
        ForEachCombination(rPool, CRowVisitor{combination, IGNORE_LEFT});
    }

    T_TOTALS_D Take() { return std::move(m_totals); }

  private:
    void AddNodes() {
        std::vector<std::int32_t> aIDs;
        aIDs.reserve(m_rPool.NODS.GetCount());
        m_aPositions.reserve(m_rPool.NODS.GetCount());
        const auto node = [&](const T_NODE_ROW& r) {
            aIDs.push_back(r.iNODE);
            m_aPositions.push_back({r.dX, r.dY, r.dZ});
            m_totals.AddNode(r.iNODE, m_aPositions.back());
        };
        ForEachNode(m_rPool, CRowVisitor{node, IGNORE_LEFT});
        m_places.Fill(aIDs, [](std::int32_t iNode) { return iNode; });
    }

    bool Find(std::int32_t iNode, T_VECTOR& rPosition) const {
        const std::uint32_t iPlace = m_places.Find(iNode);
        if (iPlace == CKeyIndex::NONE) return false;
        rPosition = m_aPositions[iPlace];
        return true;
    }
    bool Has(std::int32_t iNode) const { return m_places.Find(iNode) != CKeyIndex::NONE; }

    /// Three points: the origin, one on X, one in the XY plane.
    void AddAxis(const CLocalAxis& r) {
        T_VECTOR x, xy;
        for (std::size_t i = 0; i < 3; ++i) {
            x[i] = r.dP1[i] - r.dP0[i];
            xy[i] = r.dP2[i] - r.dP0[i];
        }
        const T_VECTOR z = Cross(x, xy);
        std::array<T_VECTOR, 3> axes = {x, Cross(z, x), z};
        for (T_VECTOR& rAxis : axes) rAxis = Scale(rAxis, 1.0 / Length(rAxis));
        m_totals.AddAxes(r.iNODE, axes);
    }

    void AddLink(E_FORM eForm, std::int32_t iEID, std::int32_t iNode1, std::int32_t iNode2) {
        const std::array aNodes = {iNode1, iNode2};
        m_elements.AddPlaced({eForm, BODY_LINK, iEID}, aNodes.data(), nullptr);
    }

    /// Takes a row of elements. False if a node doesn't exist.
    template <class ROW>
    bool FindCorners(const ROW& r, T_FILEBODY_D& rBody) const {
        rBody.eBODY = SummedOf(r).eBODY;
        if constexpr (std::is_same_v<ROW, T_BEAM_ROW>) rBody.reference = {r.dX, r.dY, r.dZ};
        const auto& rNodes = NodesOf(r);
        bool bFound = true;
        for (std::size_t i = 0; bFound && i < BODY_CORNERS[rBody.eBODY]; ++i) {
            bFound = Find(rNodes[i], rBody.dCORNERS[i]);
        }
        return bFound;
    }

    static T_SUMMEDELEMENT_D SummedOf(const T_TRUSS_ROW& r) { return {FORM_ROD, BODY_LINE, r.iEID, r.iPID, r.iMID}; }
    static T_SUMMEDELEMENT_D SummedOf(const T_PLATE_ROW& r) {
        const bool bThree = r.nCORNERS == 3;
        const E_FORM eForm = r.bPLANESTRESS ? FORM_SHEAR : bThree ? FORM_TRIANGLE : FORM_QUAD;
        return {eForm, bThree ? BODY_TRIANGLE : BODY_QUAD, r.iEID, r.iPID, r.iMID};
    }
    static T_SUMMEDELEMENT_D SummedOf(const T_SOLID_ROW& r) {
        if (r.nCORNERS == 4) return {FORM_TETRA, BODY_TETRA, r.iEID, 0, r.iMID};
        if (r.nCORNERS == 6) return {FORM_WEDGE, BODY_WEDGE, r.iEID, 0, r.iMID};
        return {FORM_HEXA, BODY_HEXA, r.iEID, 0, r.iMID};
    }
    template <class ROW>
    static T_SUMMEDELEMENT_D SummedOf(const ROW& r) {
        return {FORM_BEAM, BODY_LINE, r.iEID, r.iPID, r.iMID};
    }
    template <class ROW>
    static std::array<std::int32_t, 2> NodesOf(const ROW& r) {
        return {r.iNODE1, r.iNODE2};
    }
    static const std::array<std::int32_t, 4>& NodesOf(const T_PLATE_ROW& r) { return r.aNODES; }
    static const std::array<std::int32_t, 8>& NodesOf(const T_SOLID_ROW& r) { return r.aNODES; }

    void AddElements() {
        T_FILEBODY_D body;
        const auto add = [&](const auto& r) {
            const bool bFound = FindCorners(r, body);
            const auto& rNodes = NodesOf(r);
            m_elements.AddPlaced(SummedOf(r), rNodes.data(), bFound ? &body.dCORNERS : nullptr);
            return bFound;
        };
        const CRowVisitor elements{
            [&](const auto& r) { add(r); },
            [&](const T_PLATE_ROW& r) {
                if (add(r)) AddPressures(r.iEID, r.bPLANESTRESS ? TYPE_SHEAR : TYPE_PLATE, body);
            },
            [&](const T_SOLID_ROW& r) {
                if (add(r)) AddPressures(r.iEID, TYPE_SOLID, body);
            },
            IGNORE_LEFT,
        };
        ForEachElement(m_rPool, elements);
        ForEachConrod(m_rPool, elements);
        const CRowVisitor springs{
            [&](const T_ELASTICLINK_ROW& r) { AddLink(FORM_SPRING, r.iEID, r.iNODE1, r.iNODE2); },
            [&](const T_GROUNDSPRING_ROW& r) { AddLink(FORM_SPRING, r.iEID, r.iNODE, 0); },
            IGNORE_LEFT,
        };
        ForEachElasticLink(m_rPool, m_rPool.CEL1, springs);
        ForEachElasticLink(m_rPool, m_rPool.CEL2, springs);
        const auto linksOf = [&](E_FORM eForm) {
            return CRowVisitor{
                [this, eForm](const auto& r) { AddLink(eForm, r.iEID, r.iNODE1, r.iNODE2); },
                IGNORE_LEFT,
            };
        };
        ForEachScalarLink(m_rPool, linksOf(FORM_SPRING));
        ForEachGeneralLink(m_rPool, linksOf(FORM_LINK));
        m_elements.Finish();
        const auto mass = [&](const T_MASS_ROW& r) {
            T_VECTOR at;
            if (Find(r.iNODE, at))
                m_totals.AddMass(r.dMX, at, {r.dRMX, 0.0, r.dRMY, 0.0, 0.0, r.dRMZ}, T_FRAME_D().dAXES);
        };
        ForEachMass(m_rPool, CRowVisitor{mass, IGNORE_LEFT});
    }

    void AddTies() {
        CIdValues<std::uint8_t> held;
        const auto support = [&](const T_CONSTRAINT_ROW& r) {
            unsigned nHeld = 0;
            for (std::size_t i = 0; i < r.bDOF.size(); ++i) nHeld |= r.bDOF[i] ? 1u << i : 0u;
            if (Has(r.iNODE)) held.Put(r.iNODE, static_cast<std::uint8_t>(nHeld));
        };
        ForEachConstraint(m_rPool, CRowVisitor{support, IGNORE_LEFT});
        m_totals.AddSupports(held);
        const CRowVisitor links{
            [&](const T_RIGIDLINK_ROW& r) {
                for (const std::int32_t iSlave : r.aSLAVES) {
                    for (std::size_t i = 0; i < r.bDOF.size(); ++i) {
                        if (r.bDOF[i]) m_totals.rigid.Add({r.iMASTER, static_cast<std::int32_t>(i + 1), iSlave});
                    }
                }
            },
            [&](const T_EQUATION_ROW& r) {
                if (!Has(r.iMASTER) || !Has(r.iSLAVE) || r.iCOMP < 1 || r.iCOMP > 6) return;
                m_totals.rigid.Add({r.iMASTER, r.iCOMP, r.iSLAVE});
            },
            IGNORE_LEFT,
        };
        ForEachRigidLink(m_rPool, links);
        ForEachEquation(m_rPool, links);
    }

    void AddCase(const T_LOADCASE_ROW& rCase) {
        T_SETTOTALS_D& rSet = m_totals.mapSETS[rCase.iSID];
        ForEachGravity(rCase.rSET, [&](const T_GRAVITY_ROW& r) { rSet.gravity.Add({r.dX, r.dY, r.dZ}); });
        CForces forces(*this, rSet);
        const auto force = [&](const T_NODALLOAD_ROW& r) { forces.Add(r); };
        const auto moment = [&](const T_NODALLOAD_ROW& r) {
            if (!Has(r.iNODE)) return;
            ++rSet.nMOMENTS;
            rSet.nodal.AddMoment({r.dX, r.dY, r.dZ});
        };
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_FORCE, CRowVisitor{force, IGNORE_LEFT});
        forces.Finish();
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_MOMENT, CRowVisitor{moment, IGNORE_LEFT});
        const auto line = [&](const T_BEAMLOAD_ROW& r) { AddBeamLoad(rSet, r); };
        ForEachBeamLoad(m_rPool, rCase.rSET, CRowVisitor{line, IGNORE_LEFT});
        CIdValues<double> nodes, elements;
        const auto temperature = [&](const T_NODETEMPERATURE_ROW& r) {
            if (Has(r.iNODE)) nodes.Put(r.iNODE, r.dT);
        };
        ForEachNodeTemperature(m_rPool, rCase, CRowVisitor{temperature, IGNORE_LEFT});
        nodes.AddTo(rSet.temperatures);
        const auto element = [&](const T_ELEMENTTEMPERATURE_ROW& r) {
            if (m_rPool.ELEM.Has(r.iEID)) elements.Put(r.iEID, r.dT);
        };
        ForEachElementTemperature(m_rPool, rCase.rSET, CRowVisitor{element, IGNORE_LEFT});
        elements.AddTo(rSet.elementTemperatures);
        const auto displacement = [&](const T_DISPLACEMENT_ROW& r) {
            for (std::size_t i = 0; i < r.dD.size() && Has(r.iNODE); ++i) {
                if (r.dD[i] == 0.0) continue;
                rSet.displacements.Add({r.iNODE, static_cast<std::int32_t>(i + 1)});
                rSet.displacement.Add(r.dD[i]);
            }
        };
        ForEachDisplacement(m_rPool, rCase.rSET, CRowVisitor{displacement, IGNORE_LEFT});
    }

    /// Forces of a set. They name nodes in any order, whose positions are asked for some at a time so that the waits
    /// for memory overlap.
    class CForces {
      public:
        CForces(const CFileTotals& rFile, T_SETTOTALS_D& rSet) : m_rFile(rFile), m_rSet(rSet) {}

        void Add(const T_NODALLOAD_ROW& r) {
            m_aRows[m_nRows++] = r;
            if (m_nRows == m_aRows.size()) Finish();
        }

        void Finish() {
            std::array<std::uint32_t, BATCH> aPlaces;
            for (std::size_t i = 0; i < m_nRows; ++i) aPlaces[i] = m_rFile.m_places.Find(m_aRows[i].iNODE);
            for (std::size_t i = 0; i < m_nRows; ++i) {
                if (aPlaces[i] != CKeyIndex::NONE) __builtin_prefetch(&m_rFile.m_aPositions[aPlaces[i]]);
            }
            for (std::size_t i = 0; i < m_nRows; ++i) {
                if (aPlaces[i] == CKeyIndex::NONE) continue;
                ++m_rSet.nFORCES;
                m_rSet.nodal.AddForce({m_aRows[i].dX, m_aRows[i].dY, m_aRows[i].dZ}, m_rFile.m_aPositions[aPlaces[i]]);
            }
            m_nRows = 0;
        }

      private:
        static constexpr std::size_t BATCH = 32;

        const CFileTotals& m_rFile;
        T_SETTOTALS_D& m_rSet;
        std::array<T_NODALLOAD_ROW, BATCH> m_aRows;
        std::size_t m_nRows = 0;
    };

    /// The element of an id. False if the file hasn't it or one of its nodes.
    bool FindBody(std::int32_t iEID, T_FILEBODY_D& rBody) const {
        const auto pElement = m_rPool.ELEM.Find(iEID);
        bool bFound = false;
        const CRowVisitor visitor{
            [&](const auto& r) { bFound = FindCorners(r, rBody); },
            IGNORE_LEFT,
        };
        if (pElement) VisitElement(m_rPool, iEID, *pElement, visitor);
        return bFound;
    }

    /// Those on an element of iType whose corners are found.
    void AddPressures(std::int32_t iEID, std::int32_t iType, const T_FILEBODY_D& rBody) {
        m_pressures.Visit(iEID, [&](const T_MBLD_D& rEntry, T_SETTOTALS_D& rSet) {
            const CRowVisitor pressures{
                [&](const T_UNIFORMPRESSURE_ROW& r) {
                    AddPressure(rSet, {r.iEID, false, 0, false, {}, {r.dP, r.dP, r.dP, r.dP}}, rBody);
                },
                [&](const T_CORNERPRESSURE_ROW& r) { AddPressure(rSet, r, rBody); },
                IGNORE_LEFT,
            };
            VisitPressure(m_rPool, rEntry, iType, pressures);
        });
    }

    static void AddPressure(T_SETTOTALS_D& rSet, const T_CORNERPRESSURE_ROW& r, const T_FILEBODY_D& rBody) {
        constexpr std::array<std::uint8_t, 4> PLATE = {0, 1, 2, 3};
        const std::span<const std::uint8_t> places =
            r.bSOLID ? FaceCorners(rBody.eBODY, r.iFACE) : std::span(PLATE).first(BODY_CORNERS[rBody.eBODY]);
        if (places.empty()) return;
        std::array<T_VECTOR, 4> aFace;
        double dMean = 0.0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            aFace[i] = rBody.dCORNERS[places[i]];
            dMean += r.dP[i] / static_cast<double>(places.size());
        }
        T_FACELOAD_D load = {std::span(aFace).first(places.size()), r.dP, {}, {}};
        if (r.bSOLID) {
            load.dP.fill(dMean);
            T_VECTOR inside = {};
            for (std::size_t i = 0; i < BODY_CORNERS[rBody.eBODY]; ++i) {
                inside = ::Add(inside, Scale(rBody.dCORNERS[i], 1.0 / static_cast<double>(BODY_CORNERS[rBody.eBODY])));
            }
            load.inside = inside;
        }
        if (r.bVECTOR) load.direction = r.dN;
        ++rSet.nPRESSURES;
        AddFaceLoad(rSet.pressure, load);
    }

    /// Direction words are an axis of the basic frame or of the element.
    static bool FindDirection(const T_FILEBODY_D& rBody, std::string_view sWord, T_VECTOR& rDirection) {
        if (sWord.size() != 2) return false;
        const auto iAxis = static_cast<std::size_t>(sWord[1] - 'X');
        std::array<T_VECTOR, 3> axes = T_FRAME_D().dAXES;
        if (sWord[0] == 'L') {
            axes[0] = Subtract(rBody.dCORNERS[1], rBody.dCORNERS[0]);
            if (iAxis != 0) {
                if (!rBody.reference) return false;
                axes[1] = Cross(Subtract(*rBody.reference, rBody.dCORNERS[0]), axes[0]);
                axes[2] = Cross(axes[0], axes[1]);
            }
        }
        const double dLength = Length(axes[iAxis]);
        rDirection = Scale(axes[iAxis], 1.0 / dLength);
        return dLength > 0.0;
    }

    void AddBeamLoad(T_SETTOTALS_D& rSet, const T_BEAMLOAD_ROW& r) {
        T_FILEBODY_D body;
        T_VECTOR direction;
        if (!FindBody(r.iEID, body) || body.eBODY != BODY_LINE || !FindDirection(body, r.sDIRECTION, direction)) return;
        const T_VECTOR &a = body.dCORNERS[0], &b = body.dCORNERS[1], along = Subtract(b, a);
        const bool bMoment = r.sLOAD.ends_with("MOMENT");
        ++rSet.nLINELOADS;
        if (r.sLOAD.starts_with("UNI")) {
            const bool bSeen = r.sPROJECTED == "YES" && r.sDIRECTION[0] == 'G';
            const double dSeen = bSeen ? Length(Cross(direction, along)) / Length(along) : 1.0;
            AddLineLoad(rSet.line, {a, b, direction, bMoment, r.dX1, r.dP1 * dSeen, r.dX2, r.dP2 * dSeen});
        } else if (bMoment) {
            rSet.line.AddMoment(Scale(direction, r.dP1));
        } else {
            rSet.line.AddForce(Scale(direction, r.dP1), ::Add(a, Scale(along, r.dX1)));
        }
    }

    const CDataPool& m_rPool;
    std::vector<T_VECTOR> m_aPositions; // of the file's nodes
    CDenseRows m_places;                // of these, by node
    CPressures m_pressures;
    T_TOTALS_D m_totals;
    CElementSum m_elements{m_totals};
};

} // namespace

T_TOTALS_D TotalFile(const CDataPool& rPool) {
    return CFileTotals(rPool).Take();
}
