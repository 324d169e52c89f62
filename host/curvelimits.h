// Upper limits of the curve fluctuation that the standard answer's side hands to the rationality
// category. The rule passes a candidate whose value is strictly below the standard's, and both
// values reach it as text with six significant digits, so the standard's own value is raised to the
// next six-digit text: a candidate with the same curves passes and one that fluctuates more fails.
#ifndef CURVELIMITS_H
#define CURVELIMITS_H

#include <QMap>

namespace Host {

// The smallest six-significant-digit value whose text reads above the text of value; a negative
// value (no curve data) stays as it is.
double curveLimit(double value);

// The limits by curve group: an explicit limit where the course gives one, else curveLimit of the
// standard's own value.
QMap<int, double> curveLimits(const QMap<int, double>& standardValues, const QMap<int, double>& explicitLimits);

} // namespace Host

#endif // CURVELIMITS_H
