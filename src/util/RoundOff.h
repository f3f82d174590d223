// Rounding of doubles and narrowing of sizes.
#pragma once

#include "port/Export.h"

#include "win/types.h"

// Rounds x to a step of 10 x RESABS, half towards zero at each of its two stages (first to RESABS,
// then to the step). A magnitude of 2147483647 or more is answered as that magnitude, unsigned.
ORV_API double RoundOffDouble(double x);

// Drops a fraction below 1e-10 in size (and above 1e-50); otherwise rounds the fraction away from
// zero to nine decimals.
ORV_API double RoundOffDoubleWithPrecision(double x);

// value as an int; a value above the largest int gives the largest int.
ORV_API int size_t2int(unsigned __int64 value);
