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

#include <cmath>
#include <optional>

namespace {

/// An element of the file with its corners.
struct T_FILEBODY_D {
    E_BODY eBODY = BODY_LINE;
    std::array<std::int32_t, 8> aNODES = {};
    std::array<T_VECTOR, 8> dCORNERS = {};
    std::optional<T_VECTOR> reference; // of a beam
};

class CFileTotals {
  public:
    explicit CFileTotals(const CDataPool& rPool) : m_rPool(rPool) {
        m_aPositions.reserve(rPool.NODS.GetCount());
        const auto node = [&](const T_NODE_ROW& r) {
            m_aPositions.push_back({r.iNODE, {r.dX, r.dY, r.dZ}});
            m_totals.AddNode(r.iNODE, m_aPositions.back().at);
        };
        ForEachNode(rPool, CRowVisitor{node, IGNORE_LEFT});
        m_places.Fill(m_aPositions, [](const T_POSITION_D& r) { return r.iNODE; });
        ForEachLocalAxis(rPool, [&](const CLocalAxis& rAxis) { AddAxis(rAxis); });
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
    /// A node of the file.
    struct T_POSITION_D {
        std::int32_t iNODE;
        T_VECTOR at;
    };

    bool Find(std::int32_t iNode, T_VECTOR& rPosition) const {
        const std::uint32_t iPlace = m_places.Find(iNode);
        if (iPlace == CKeyIndex::NONE) return false;
        rPosition = m_aPositions[iPlace].at;
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

    void Add(const T_SUMMEDELEMENT_D& rElement, const std::int32_t* pNodes) {
        m_elements.Add(rElement, pNodes, [&](std::int32_t iNode, T_VECTOR& rAt) { return Find(iNode, rAt); });
    }
    void AddLink(E_FORM eForm, std::int32_t iEID, std::int32_t iNode1, std::int32_t iNode2) {
        const std::array aNodes = {iNode1, iNode2};
        Add({eForm, BODY_LINK, iEID}, aNodes.data());
    }

    /// Body and nodes of a row of elements.
    template <class ROW>
    static T_FILEBODY_D BodyOf(const ROW& r) {
        T_FILEBODY_D body{BODY_LINE, {r.iNODE1, r.iNODE2}, {}, {}};
        if constexpr (std::is_same_v<ROW, T_BEAM_ROW>) body.reference = {r.dX, r.dY, r.dZ};
        return body;
    }
    static T_FILEBODY_D BodyOf(const T_PLATE_ROW& r) {
        const E_BODY eBody = r.nCORNERS == 3 ? BODY_TRIANGLE : BODY_QUAD;
        return {eBody, {r.aNODES[0], r.aNODES[1], r.aNODES[2], r.aNODES[3]}, {}, {}};
    }
    static T_FILEBODY_D BodyOf(const T_SOLID_ROW& r) {
        return {r.nCORNERS == 4 ? BODY_TETRA : r.nCORNERS == 6 ? BODY_WEDGE : BODY_HEXA, r.aNODES, {}, {}};
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
        const CRowVisitor elements{
            [&](const auto& r) {
                const auto& rNodes = NodesOf(r);
                Add(SummedOf(r), rNodes.data());
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
        const auto force = [&](const T_NODALLOAD_ROW& r) {
            T_VECTOR at;
            if (!Find(r.iNODE, at)) return;
            ++rSet.nFORCES;
            rSet.nodal.AddForce({r.dX, r.dY, r.dZ}, at);
        };
        const auto moment = [&](const T_NODALLOAD_ROW& r) {
            if (!Has(r.iNODE)) return;
            ++rSet.nMOMENTS;
            rSet.nodal.AddMoment({r.dX, r.dY, r.dZ});
        };
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_FORCE, CRowVisitor{force, IGNORE_LEFT});
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_MOMENT, CRowVisitor{moment, IGNORE_LEFT});
        const auto line = [&](const T_BEAMLOAD_ROW& r) { AddBeamLoad(rSet, r); };
        ForEachBeamLoad(m_rPool, rCase.rSET, CRowVisitor{line, IGNORE_LEFT});
        AddPressures(rSet, rCase.rSET);
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

    /// The element of an id. False if the file hasn't it or one of its nodes.
    bool FindBody(std::int32_t iEID, T_FILEBODY_D& rBody) const {
        const auto pElement = m_rPool.ELEM.Find(iEID);
        bool bFound = false;
        const CRowVisitor visitor{
            [&](const auto& r) {
                rBody = BodyOf(r);
                bFound = true;
            },
            IGNORE_LEFT,
        };
        if (pElement) VisitElement(m_rPool, iEID, *pElement, visitor);
        for (std::size_t i = 0; bFound && i < BODY_CORNERS[rBody.eBODY]; ++i) {
            bFound = Find(rBody.aNODES[i], rBody.dCORNERS[i]);
        }
        return bFound;
    }

    /// Loads name elements in any order. In that of their ids those that stand together use the same memory.
    void AddPressures(T_SETTOTALS_D& rTotals, const T_LOAD_D& rSet) {
        constexpr std::size_t MOST_PENDING = std::size_t{1} << 16;
        std::vector<T_CORNERPRESSURE_ROW> aPending;
        const auto add = [&] {
            std::vector<std::uint64_t> aOrder;
            aOrder.reserve(aPending.size());
            for (const T_CORNERPRESSURE_ROW& r : aPending) {
                aOrder.push_back(
                    MakeKeyed(static_cast<std::uint32_t>(r.iEID), static_cast<std::uint32_t>(aOrder.size())));
            }
            SortByKey(aOrder);
            for (const std::uint64_t nKeyed : aOrder) AddPressure(rTotals, aPending[GetValue(nKeyed)]);
            aPending.clear();
        };
        const auto take = [&](const T_CORNERPRESSURE_ROW& r) {
            aPending.push_back(r);
            if (aPending.size() == MOST_PENDING) add();
        };
        const CRowVisitor pressures{
            [&](const T_UNIFORMPRESSURE_ROW& r) {
                take({r.iEID, false, 0, false, {}, {r.dP, r.dP, r.dP, r.dP}});
            },
            take,
            IGNORE_LEFT,
        };
        ForEachPressure(m_rPool, rSet, pressures);
        add();
    }

    void AddPressure(T_SETTOTALS_D& rSet, const T_CORNERPRESSURE_ROW& r) {
        T_FILEBODY_D body;
        if (!FindBody(r.iEID, body)) return;
        constexpr std::array<std::uint8_t, 4> PLATE = {0, 1, 2, 3};
        const std::span<const std::uint8_t> places =
            r.bSOLID ? FaceCorners(body.eBODY, r.iFACE) : std::span(PLATE).first(BODY_CORNERS[body.eBODY]);
        if (places.empty()) return;
        std::array<T_VECTOR, 4> aFace;
        double dMean = 0.0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            aFace[i] = body.dCORNERS[places[i]];
            dMean += r.dP[i] / static_cast<double>(places.size());
        }
        T_FACELOAD_D load = {std::span(aFace).first(places.size()), r.dP, {}, {}};
        if (r.bSOLID) {
            load.dP.fill(dMean);
            T_VECTOR inside = {};
            for (std::size_t i = 0; i < BODY_CORNERS[body.eBODY]; ++i) {
                inside = ::Add(inside, Scale(body.dCORNERS[i], 1.0 / static_cast<double>(BODY_CORNERS[body.eBODY])));
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
    std::vector<T_POSITION_D> m_aPositions;
    CDenseRows m_places; // of these, by node
    T_TOTALS_D m_totals;
    CElementSum m_elements{m_totals};
};

} // namespace

T_TOTALS_D TotalFile(const CDataPool& rPool) {
    return CFileTotals(rPool).Take();
}
