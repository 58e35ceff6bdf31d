#pragma once
// Draws a resolved model into an SVG file.

#include "platform/File.h"
#include "store/DataPool.h"

#include <string>

/// Draws rDataPool, as the passes left it and the target file takes it, into sPath: an isometric view with a legend
/// that counts what there is of each kind and what couldn't be drawn. However large the model, the file has at most
/// some 30,000 faces and lines and 200 marks of a kind, and says so in the picture if it had to leave out or join any.
/// sTitle stands above the picture. Files of rInputs aren't overwritten. Throws CFileException, and then leaves what
/// was at sPath as it was.
void WriteSvg(const CDataPool& rDataPool, const std::string& sTitle, const std::string& sPath,
              const T_INPUTS& rInputs = {});
