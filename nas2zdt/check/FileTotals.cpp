// Visits the rows of the target file.

#include "nas2zdt/check/FileTotals.h"

#include "nas2zdt/check/Measure.h"
#include "nas2zdt/restate/IdTable.h"
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
        const auto node = [&](const T_NODE_ROW& r) {
            const T_VECTOR position = {r.dX, r.dY, r.dZ};
            m_positions.Put(r.iNODE, position);
            m_totals.AddNode(r.iNODE, position);
        };
        ForEachNode(rPool, CRowVisitor{node, IGNORE_LEFT});
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
    const T_VECTOR* Find(std::int32_t iNode) const { return m_positions.Find(iNode); }

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

    void Add(E_BODY eBody, std::int32_t iEID, const std::int32_t* pNodes) {
        m_totals.AddElement(eBody, iEID, pNodes, [&](std::int32_t iNode) { return Find(iNode); });
    }
    template <class ROW>
    void AddLink(const ROW& r) {
        const std::array aNodes = {r.iNODE1, r.iNODE2};
        Add(BODY_LINK, r.iEID, aNodes.data());
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

    void AddElements() {
        const CRowVisitor elements{
            [&](const auto& r) {
                const T_FILEBODY_D body = BodyOf(r);
                Add(body.eBODY, r.iEID, body.aNODES.data());
            },
            IGNORE_LEFT,
        };
        ForEachElement(m_rPool, elements);
        ForEachConrod(m_rPool, elements);
        const CRowVisitor springs{
            [&](const T_ELASTICLINK_ROW& r) { AddLink(r); },
            [&](const T_GROUNDSPRING_ROW& r) {
                const std::array aNodes = {r.iNODE, 0};
                Add(BODY_LINK, r.iEID, aNodes.data());
            },
            IGNORE_LEFT,
        };
        ForEachElasticLink(m_rPool, m_rPool.CEL1, springs);
        ForEachElasticLink(m_rPool, m_rPool.CEL2, springs);
        const CRowVisitor links{
            [&](const auto& r) { AddLink(r); },
            IGNORE_LEFT,
        };
        ForEachScalarLink(m_rPool, links);
        ForEachGeneralLink(m_rPool, links);
        const auto mass = [&](const T_MASS_ROW& r) {
            T_SUM_D inertia;
            for (const double d : {r.dRMX, r.dRMY, r.dRMZ}) inertia.Add(d);
            if (const T_VECTOR* pAt = Find(r.iNODE)) m_totals.AddMass(r.dMX, *pAt, inertia);
        };
        ForEachMass(m_rPool, CRowVisitor{mass, IGNORE_LEFT});
    }

    void AddTies() {
        const auto support = [&](const T_CONSTRAINT_ROW& r) {
            for (std::size_t i = 0; i < r.bDOF.size() && Find(r.iNODE); ++i) {
                if (r.bDOF[i]) m_totals.mapHELD[r.iNODE] |= static_cast<std::uint8_t>(1u << i);
            }
        };
        ForEachConstraint(m_rPool, CRowVisitor{support, IGNORE_LEFT});
        const CRowVisitor links{
            [&](const T_RIGIDLINK_ROW& r) {
                for (const std::int32_t iSlave : r.aSLAVES) {
                    for (std::size_t i = 0; i < r.bDOF.size(); ++i) {
                        if (r.bDOF[i]) m_totals.rigid.Add({r.iMASTER, static_cast<std::int32_t>(i + 1), iSlave});
                    }
                }
            },
            [&](const T_EQUATION_ROW& r) {
                if (!Find(r.iMASTER) || !Find(r.iSLAVE) || r.iCOMP < 1 || r.iCOMP > 6) return;
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
            const T_VECTOR* pAt = Find(r.iNODE);
            if (!pAt) return;
            ++rSet.nFORCES;
            rSet.nodal.AddForce({r.dX, r.dY, r.dZ}, *pAt);
        };
        const auto moment = [&](const T_NODALLOAD_ROW& r) {
            if (!Find(r.iNODE)) return;
            ++rSet.nMOMENTS;
            rSet.nodal.AddMoment({r.dX, r.dY, r.dZ});
        };
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_FORCE, CRowVisitor{force, IGNORE_LEFT});
        ForEachNodalLoad(m_rPool, rCase.rSET, LOAD_MOMENT, CRowVisitor{moment, IGNORE_LEFT});
        const auto line = [&](const T_BEAMLOAD_ROW& r) { AddBeamLoad(rSet, r); };
        ForEachBeamLoad(m_rPool, rCase.rSET, CRowVisitor{line, IGNORE_LEFT});
        const CRowVisitor pressures{
            [&](const T_UNIFORMPRESSURE_ROW& r) {
                AddPressure(rSet, {r.iEID, false, 0, false, {}, {r.dP, r.dP, r.dP, r.dP}});
            },
            [&](const T_CORNERPRESSURE_ROW& r) { AddPressure(rSet, r); },
            IGNORE_LEFT,
        };
        ForEachPressure(m_rPool, rCase.rSET, pressures);
        const auto temperature = [&](const T_NODETEMPERATURE_ROW& r) {
            if (Find(r.iNODE)) rSet.mapTEMPERATURES[r.iNODE] = r.dT;
        };
        ForEachNodeTemperature(m_rPool, rCase, CRowVisitor{temperature, IGNORE_LEFT});
        const auto element = [&](const T_ELEMENTTEMPERATURE_ROW& r) {
            if (m_rPool.ELEM.Find(r.iEID)) rSet.mapELEMENTTEMPERATURES[r.iEID] = r.dT;
        };
        ForEachElementTemperature(m_rPool, rCase.rSET, CRowVisitor{element, IGNORE_LEFT});
        const auto displacement = [&](const T_DISPLACEMENT_ROW& r) {
            for (std::size_t i = 0; i < r.dD.size() && Find(r.iNODE); ++i) {
                if (r.dD[i] == 0.0) continue;
                rSet.displacements.Add({r.iNODE, static_cast<std::int32_t>(i + 1)});
                rSet.displacement.Add(r.dD[i]);
            }
        };
        ForEachDisplacement(m_rPool, rCase.rSET, CRowVisitor{displacement, IGNORE_LEFT});
    }

    /// The element of an id. False if the file hasn't it or one of its nodes.
    bool FindBody(std::int32_t iEID, T_FILEBODY_D& rBody) const {
        const T_ELEM_D* pElement = m_rPool.ELEM.Find(iEID);
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
            const T_VECTOR* pCorner = Find(rBody.aNODES[i]);
            if (pCorner) rBody.dCORNERS[i] = *pCorner;
            bFound = pCorner != nullptr;
        }
        return bFound;
    }

    void AddPressure(T_SETTOTALS_D& rSet, const T_CORNERPRESSURE_ROW& r) {
        T_FILEBODY_D body;
        if (!FindBody(r.iEID, body)) return;
        constexpr std::array<std::uint8_t, 4> PLATE = {0, 1, 2, 3};
        const std::span<const std::uint8_t> places =
            r.bSOLID ? FaceCorners(body.eBODY, r.iFACE) : std::span(PLATE).first(BODY_CORNERS[body.eBODY]);
        if (places.empty()) return;
        std::vector<T_VECTOR> aFace;
        double dMean = 0.0;
        for (std::size_t i = 0; i < places.size(); ++i) {
            aFace.push_back(body.dCORNERS[places[i]]);
            dMean += r.dP[i] / static_cast<double>(places.size());
        }
        T_FACELOAD_D load = {aFace, r.dP, {}, {}};
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
    CIdTable<T_VECTOR> m_positions;
    T_TOTALS_D m_totals;
};

} // namespace

T_TOTALS_D TotalFile(const CDataPool& rPool) {
    return CFileTotals(rPool).Take();
}
