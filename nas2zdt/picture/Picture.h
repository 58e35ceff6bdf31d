#pragma once
// Pictures of a resolved model as files. Each shows what the target file takes. Files of rInputs aren't overwritten.
// Failures throw CFileException, and then what was at the path stays as it was.

#include "platform/File.h"
#include "store/DataPool.h"

#include <cstddef>
#include <string>

/// Draws rDataPool into the SVG file sPath, under the title sTitle: an isometric view with a legend that counts what
/// there is of each kind and what couldn't be drawn. However large the model, the file has at most some 30,000 faces
/// and lines and 200 marks of a kind; the picture says so where any were joined or left out.
void WriteSvg(const CDataPool& rDataPool, const std::string& sTitle, const std::string& sPath,
              const T_INPUTS& rInputs = {});

/// Writes rDataPool into sPath as a VTK unstructured grid: a .vtu file, XML with arrays in base64. Corners only, as in
/// the target file. Points carry "NodeId", cells "ElementId" (0 for a multipoint equation), "PropertyId" (0 for parts
/// without property, 1 for a CONROD), "MaterialId" (of the property, 1 if that is missing; 0 for links and masses) and
/// "Kind" (E_KIND). Returns the number of elements and links left out because a node doesn't exist.
std::size_t WriteVtu(const CDataPool& rDataPool, const std::string& sPath, const T_INPUTS& rInputs = {});
