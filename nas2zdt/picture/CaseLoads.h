#pragma once
// The loads of a load case as one value for each node or part.

#include "nas2zdt/picture/Scene.h"

#include <vector>

/// Which parts have faces that take a pressure, by the ids of their elements.
CKeyIndex FindSurfaces(const T_SCEN_D& rScene);

/// The sums of the forces or moments at each node of the scene; nothing if there are none.
std::vector<T_VECTOR> SumNodalLoads(const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_LOAD_D& rSet,
                                    E_LOAD_KIND eKind);

/// The sums of the pressures on each part, each the mean of its corners; nothing if there are none.
std::vector<double> SumPressures(const CDataPool& rDataPool, const T_SCEN_D& rScene, const CKeyIndex& rSurfaces,
                                 const T_LOAD_D& rSet);
