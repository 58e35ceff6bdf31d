#pragma once
// The target file added up.

#include "nas2zdt/check/Totals.h"

class CDataPool;

/// Adds up the lines of the file that a run with this model writes, as a host takes them: pressures of plates along
/// their normals by the order of the corners and into solids, corner pressures of a solid's face by their mean, loads
/// on beams by axes whose Z is in the plane of the reference point. Lines of nodes and elements that the file hasn't
/// are none.
T_TOTALS_D TotalFile(const CDataPool& rPool);
