// Number helpers of the resource-curve category: machine counts are rounded half up and every figure
// that leaves the category fits an int.
#ifndef RESCURVEMATH_P_H
#define RESCURVEMATH_P_H

#include <climits>
#include <cmath>

namespace ResCurveMath {

// The value as an int, saturated at the ends of the range; NaN gives 0.
inline int clampToInt(double value) {
    if (std::isnan(value))
        return 0;
    if (value >= double(INT_MAX))
        return INT_MAX;
    if (value <= double(INT_MIN))
        return INT_MIN;
    return int(value);
}

// Half up: the integer part (toward zero), plus one when the rest is at least one half.
inline int roundHalfUp(double value) {
    const double whole = std::trunc(value);
    return clampToInt(value - whole >= 0.5 ? whole + 1.0 : whole);
}

} // namespace ResCurveMath

#endif // RESCURVEMATH_P_H
