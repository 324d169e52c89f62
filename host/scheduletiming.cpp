#include "scheduletiming.h"

#include <algorithm>
#include <limits>

namespace Host {

bool topologicalOrder(const QVector<QVector<int>>& successors, QVector<int>& order, QVector<int>& cycle) {
    const int n = successors.size();
    QVector<int> inDegree(n, 0);
    for (const QVector<int>& next : successors)
        for (int v : next)
            ++inDegree[v];
    order.clear();
    order.reserve(n);
    for (int v = 0; v < n; ++v)
        if (inDegree[v] == 0)
            order.append(v);
    for (int head = 0; head < order.size(); ++head)
        for (int v : successors[order[head]])
            if (--inDegree[v] == 0)
                order.append(v);
    cycle.clear();
    if (order.size() == n)
        return true;

    // Every vertex left over has a predecessor that is left over too: walk backwards until a vertex
    // repeats; the stretch between its two visits is a cycle.
    QVector<int> leftPredecessor(n, -1);
    for (int u = 0; u < n; ++u)
        if (inDegree[u] > 0)
            for (int v : successors[u])
                if (inDegree[v] > 0)
                    leftPredecessor[v] = u;
    int start = 0;
    while (inDegree[start] == 0)
        ++start;
    QVector<int> seenAt(n, -1);
    QVector<int> walk;
    for (int v = start; seenAt[v] < 0; v = leftPredecessor[v]) {
        seenAt[v] = walk.size();
        walk.append(v);
    }
    const int repeated = leftPredecessor[walk.last()];
    for (int i = walk.size() - 1; i >= seenAt[repeated]; --i)
        cycle.append(walk[i]);
    // Start at the vertex that comes first, so the same cycle is always told the same way.
    std::rotate(cycle.begin(), std::min_element(cycle.begin(), cycle.end()), cycle.end());
    cycle.append(cycle.first());
    return false;
}

namespace {

// Dates are kept in 64 bits while they are worked out: durations and lags are bounded when read,
// but a long chain of them may still pass the range of int.
struct Times {
    QVector<qint64> start, finish, lateFinish;
};

// The earliest start of item i that one link into it allows.
qint64 earliestStart(const LinkData& link, qint64 duration, const Times& t) {
    const qint64 p = link.predecessor;
    switch (link.type) {
    case LinkType::StartToStart:
        return t.start[p] + link.lagDays;
    case LinkType::FinishToFinish:
        return t.finish[p] + link.lagDays - duration;
    case LinkType::StartToFinish:
        return t.start[p] + link.lagDays - duration;
    case LinkType::FinishToStart:
        break;
    }
    return t.finish[p] + link.lagDays;
}

// The latest finish of the predecessor of a link into item i that keeps i at its late dates.
qint64 latestFinish(const LinkData& link, qint64 predecessorDuration, qint64 duration, qint64 lateFinish) {
    const qint64 lateStart = lateFinish - duration;
    switch (link.type) {
    case LinkType::StartToStart:
        return lateStart - link.lagDays + predecessorDuration;
    case LinkType::FinishToFinish:
        return lateFinish - link.lagDays;
    case LinkType::StartToFinish:
        return lateFinish - link.lagDays + predecessorDuration;
    case LinkType::FinishToStart:
        break;
    }
    return lateStart - link.lagDays;
}

int clampToInt(qint64 value) {
    return int(std::max<qint64>(std::numeric_limits<int>::min(),
                                std::min<qint64>(value, std::numeric_limits<int>::max())));
}

} // namespace

bool scheduleTimes(QList<WorkItemData>& items, int& totalDays, QVector<int>& cycle) {
    const int n = items.size();
    QVector<QVector<int>> successors(n);
    for (int i = 0; i < n; ++i)
        for (const LinkData& link : items[i].links)
            successors[link.predecessor].append(i);
    QVector<int> order;
    totalDays = 0;
    if (!topologicalOrder(successors, order, cycle))
        return false;
    Times t{QVector<qint64>(n, 0), QVector<qint64>(n, 0), QVector<qint64>(n, 0)};
    qint64 total = 0;
    for (int i : order) {
        const qint64 duration = items[i].duration;
        for (const LinkData& link : items[i].links)
            t.start[i] = std::max(t.start[i], earliestStart(link, duration, t));
        t.finish[i] = t.start[i] + duration;
        total = std::max(total, t.finish[i]);
    }
    t.lateFinish.fill(total);
    for (int k = n - 1; k >= 0; --k) {
        const int i = order[k];
        for (const LinkData& link : items[i].links) {
            const int p = link.predecessor;
            t.lateFinish[p] = std::min(
                t.lateFinish[p], latestFinish(link, items[p].duration, items[i].duration, t.lateFinish[i]));
        }
    }
    for (int i = 0; i < n; ++i) {
        items[i].start = clampToInt(t.start[i]);
        items[i].finish = clampToInt(t.finish[i]);
        items[i].critical = t.lateFinish[i] == t.finish[i];
    }
    totalDays = clampToInt(total);
    return true;
}

} // namespace Host
