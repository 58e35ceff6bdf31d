#pragma once
// Writes a resolved model as a VTK unstructured grid.

#include "platform/File.h"
#include "store/DataPool.h"

#include <cstddef>
#include <string>

/// Writes the nodes of rDataPool, as the passes left them, and the elements, links and masses that the target file
/// takes into sPath: a .vtu file, XML with arrays in base64. Corners only, as in the target file. Points carry
/// "NodeId", cells "ElementId" (0 for a multipoint equation), "PropertyId" (0 for parts without property, 1 for a
/// CONROD), "MaterialId" (of the property, 1 if that is missing; 0 for links and masses) and "Kind" (E_KIND). Files of
/// rInputs aren't overwritten. Returns the number of elements and links left out because a node doesn't exist. Throws
/// CFileException, and then leaves what was at sPath as it was.
std::size_t WriteVtu(const CDataPool& rDataPool, const std::string& sPath, const T_INPUTS& rInputs = {});
