// Generated Site schedules for the scaling benchmarks: work items with one to three predecessors
// among the recent ones, twenty resources with a curve each, an arrow diagram drawn from the links,
// and a candidate that renames, re-times and unlinks 5 % of the items each.
#ifndef SCHEDULEGEN_H
#define SCHEDULEGEN_H

#include <QByteArray>

namespace BenchGen {

// The standard answer of n work items as a project file. The first m items of a larger schedule are
// the m items of a smaller one, so a standard of 1,000 and a candidate of 100,000 share their start.
QByteArray siteStandard(int n);
// The candidate's answer to the standard of n items (5 % renamed, 5 % re-timed, 5 % with a link
// dropped; curves drawn by the candidate with other amounts).
QByteArray siteCandidate(int n);

} // namespace BenchGen

#endif // SCHEDULEGEN_H
