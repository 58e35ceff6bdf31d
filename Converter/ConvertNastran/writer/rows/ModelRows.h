#pragma once
// The rows of all sections.

#include "writer/rows/ConstraintRows.h"
#include "writer/rows/ElementRows.h"
#include "writer/rows/LoadRows.h"
#include "writer/rows/PropertyRows.h"
#include "writer/rows/SpringRows.h"

/// Everything of the store once, in the order of the file; load cases by ascending id.
template <class VISITOR>
void ForEachRow(const CDataPool& rPool, const VISITOR& rVisitor) {
    ForEachNode(rPool, rVisitor);
    ForEachElement(rPool, rVisitor);
    ForEachConrod(rPool, rVisitor);
    ForEachMaterial(rPool, rVisitor);
    ForEachSection(rPool, rVisitor);
    ForEachThickness(rPool, rVisitor);
    ForEachConstraint(rPool, rVisitor);
    ForEachLocalAxis(rPool, rVisitor);
    ForEachElasticLink(rPool, rPool.CEL1, rVisitor);
    ForEachElasticLink(rPool, rPool.CEL2, rVisitor);
    ForEachRigidLink(rPool, rVisitor);
    ForEachLinkProperty(rPool, rVisitor);
    ForEachGeneralLink(rPool, rVisitor);
    ForEachEquation(rPool, rVisitor);
    ForEachScalarLink(rPool, rVisitor);
    ForEachMass(rPool, rVisitor);
    for (const auto& [iSID, rSet] : rPool.LOAD.Sorted()) {
        const T_LOADCASE_ROW loadCase{iSID, rSet};
        rVisitor(loadCase);
        ForEachGravity(rSet, rVisitor);
        ForEachNodalLoad(rPool, rSet, LOAD_FORCE, rVisitor);
        ForEachNodalLoad(rPool, rSet, LOAD_MOMENT, rVisitor);
        ForEachBeamLoad(rPool, rSet, rVisitor);
        ForEachPressure(rPool, rSet, rVisitor);
        ForEachNodeTemperature(rPool, loadCase, rVisitor);
        ForEachElementTemperature(rSet, rVisitor);
        ForEachGradient(rPool, rSet, rVisitor);
        ForEachDisplacement(rPool, rSet, rVisitor);
    }
    ForEachCombination(rPool, rVisitor);
    ForEachEigenControl(rPool, rVisitor);
}
