#pragma once
// The nodes, parts and supports of the file as blocks of a page.

#include "nas2zdt/picture/Scene.h"
#include "platform/File.h"

/// The middle of the box around all nodes that have a place.
T_VECTOR FindCentre(const T_SCEN_D& rScene);

/// A coordinate as the page has it: from the centre, not-a-number if it has no place there.
float PagePlace(double dValue, double dCentre);

/// Writes the blocks
/// - node-id, node-x, node-y, node-z (from the centre), node-held: of each node;
/// - part-kind (E_KIND), part-cell (E_CELL), part-id, part-property, part-material: of each part;
/// - corner-0 to corner-7: places among the nodes, of the parts that have so many corners;
/// - beam-x, beam-y, beam-z: the reference point of each part of KIND_BEAM, not-a-number for one without.
/// CollectSupports must have been called.
void WriteModelBlocks(CFile& rFile, const CDataPool& rPool, const T_SCEN_D& rScene, const T_VECTOR& rCentre);
