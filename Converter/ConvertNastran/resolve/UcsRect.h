#pragma once
// The rectangular frame.

#include "resolve/UcsBase.h"

class CUCSRect : public CUCSBase {};
