#pragma once
// A small model with a part of each kind.

#include "store/DataPool.h"

/// 24 nodes: two cubes side by side along X with a wedge and a tetrahedron on the first, beside them plates, lines and
/// links. Element 110 has no line in the target file; plate 113, a leg of the RBE2 and a force name nodes that don't
/// exist.
void FillModel(CDataPool& rDataPool);
