#pragma once
// Properties, materials and combinations of the file as JSON.

#include "store/DataPool.h"

#include <string>

/// An array of objects, each with id and form: "value" (area, side), "tapered" (area, side and those of end B), "shape"
/// (shape, dimensions in the order of the file), "membrane" and "plate" (thickness).
std::string PropertiesJson(const CDataPool& rPool);

/// An array of objects, each with id, kind ("isotropic", "orthotropic", "thermal") and its values by name.
std::string MaterialsJson(const CDataPool& rPool);

/// An array of objects, each with id and shares: [load set, factor].
std::string CombinationsJson(const CDataPool& rPool);
