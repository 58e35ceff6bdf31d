#pragma once
// The legend: what there is of each kind, how large the model is, and what the picture leaves out.

#include "nas2zdt/picture/Drawing.h"
#include "platform/File.h"

void WriteLegend(CFile& rFile, const T_SCEN_D& rScene, const T_DRAW_D& rDrawing);
