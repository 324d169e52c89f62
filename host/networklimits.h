// How large a schedule's networks may grow before the host declines to judge them. A category whose
// network exceeds its limit is reported as not gradable instead of exhausting memory; a course's
// settings may raise or lower the limits.
#ifndef NETWORKLIMITS_H
#define NETWORKLIMITS_H

#include <QtGlobal>

namespace Host {

struct NetworkLimits {
    // Work items in the judged logic network. The library takes the network as a dense k × k int
    // matrix, 4k² bytes: 20,000 items are 1.6 GB, a quarter of a 2-core, 24 GiB grading machine
    // running one grader per core with room for everything else.
    qint64 judgedItems = 20000;
    // Nodes of an arrow diagram: past this many, the surplus-dummy search would keep less than one
    // 64-bit word of reachability per node within reachWords.
    qint64 diagramNodes = 8 * 1024 * 1024;
    // Reachability words (64 bits each) that the surplus-dummy search keeps at most, 64 MiB: it takes
    // the dummy targets in blocks of up to 4096, fewer when the diagram's nodes need it.
    qint64 reachWords = 8 * 1024 * 1024;
};

} // namespace Host

#endif // NETWORKLIMITS_H
