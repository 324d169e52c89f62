// Ordering and timing of a schedule: topological order of a graph, and the early dates, total
// duration and critical items of work items tied by typed, lagged links.
#ifndef SCHEDULETIMING_H
#define SCHEDULETIMING_H

#include "projectmodel.h"

#include <QList>
#include <QVector>

namespace Host {

// Topological order of a directed graph of n vertices given by successor lists. When the graph has a
// cycle, returns false and fills cycle with its vertices in order (the first one repeated at the end).
bool topologicalOrder(const QVector<QVector<int>>& successors, QVector<int>& order, QVector<int>& cycle);

// Early start and finish of every item by a forward pass over its links, the total duration (the
// latest early finish, 0 for no items) and the critical items by a backward pass. A link delays its
// successor: finish-to-start from the predecessor's finish, start-to-start from its start,
// finish-to-finish and start-to-finish hold the successor's finish; each plus the lag. No item starts
// before day 0. False with the cycle (positions, closed) when the links form one.
bool scheduleTimes(QList<WorkItemData>& items, int& totalDays, QVector<int>& cycle);

} // namespace Host

#endif // SCHEDULETIMING_H
