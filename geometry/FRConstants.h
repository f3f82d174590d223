// Tolerances and constants of the geometry kernel.
#pragma once

#include "port/Export.h"

// Absolute length tolerance: two positions closer than this are the same point.
inline constexpr double RESABS = 1e-6;

// Normal (direction) tolerance. A global that callers may change for a while:
// OrvCorrectionForRESNOR saves and sets it.
ORV_API extern double RESNOR;

// The default of RESNOR.
inline constexpr double RESNOR_DEFAULT = 1e-10;

inline constexpr double PI = 3.14159265358979323846;
// The full turn, 2 x PI.
inline constexpr double PI_2 = 2.0 * PI;
inline constexpr double RADIAN_TO_DEGREE = 180.0 / PI;
