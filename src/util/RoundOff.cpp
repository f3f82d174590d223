#include "util/RoundOff.h"

#include <climits>
#include <cmath>

#include "geometry/FRConstants.h"

namespace {

// The integer part of a non-negative value, plus 1 when its fraction is above one half.
double RoundHalfDown(double value) {
    double whole = 0.0;
    const double fraction = std::modf(value, &whole);
    return fraction > 0.5 ? whole + 1.0 : whole;
}

} // namespace

double RoundOffDouble(double x) {
    const double sign = x < 0.0 ? -1.0 : 1.0;
    double steps = RoundHalfDown(std::fabs(x) / RESABS);
    steps = RoundHalfDown(steps / 10.0);
    // The step is 10 x RESABS. Dividing a count of steps by the whole number of steps in a unit,
    // rather than multiplying by the step, keeps the step's binary error out of the result.
    const double stepsPerUnit = std::round(1.0 / (RESABS * 10.0));
    const double value = steps / stepsPerUnit;
    if (value >= 2147483647.0) {
        return value;
    }
    const double whole = std::trunc(value);
    const double fractionSteps = std::trunc(steps - whole * stepsPerUnit);
    return (whole + fractionSteps / stepsPerUnit) * sign;
}

double RoundOffDoubleWithPrecision(double x) {
    double whole = 0.0;
    double fraction = std::modf(x, &whole);
    const double size = std::fabs(fraction);
    if (size > 1e-50 && size < 1e-10) {
        fraction = 0.0;
    } else {
        const double scaled = fraction * 1000000000.0;
        fraction = (fraction > 0.0 ? std::ceil(scaled) : std::floor(scaled)) / 1000000000.0;
    }
    return whole + fraction;
}

int size_t2int(unsigned __int64 value) {
    return value > static_cast<unsigned long long>(INT_MAX) ? INT_MAX : static_cast<int>(value);
}
