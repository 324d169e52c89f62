#include "curvelimits.h"

#include <QString>

#include <cmath>

namespace Host {

namespace {

// The value as the rule reads it back from its text.
double asRead(double value) {
    return QStringLiteral("%1").arg(value).toDouble();
}

} // namespace

double curveLimit(double value) {
    if (!(value >= 0.0))
        return value; // no data (or not a number): nothing to raise
    const double shown = asRead(value);
    // One unit in the sixth significant digit of the shown value; 0 becomes a millionth.
    double step = shown > 0.0 ? std::pow(10.0, std::floor(std::log10(shown)) - 5) : 1e-6;
    double limit = asRead(shown + step);
    while (!(limit > shown) && std::isfinite(limit)) { // rounding swallowed the step
        step *= 2;
        limit = asRead(shown + step);
    }
    return limit;
}

QMap<int, double> curveLimits(const QMap<int, double>& standardValues, const QMap<int, double>& explicitLimits) {
    QMap<int, double> limits;
    for (auto it = standardValues.constBegin(); it != standardValues.constEnd(); ++it)
        limits.insert(it.key(), explicitLimits.value(it.key(), curveLimit(it.value())));
    for (auto it = explicitLimits.constBegin(); it != explicitLimits.constEnd(); ++it)
        limits.insert(it.key(), it.value());
    return limits;
}

} // namespace Host
