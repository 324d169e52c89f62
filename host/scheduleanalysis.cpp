#include "scheduleanalysis.h"

#include "hosttexts_p.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Host {

namespace {

QString joinNumbers(const QList<int>& numbers) {
    QStringList texts;
    for (int number : numbers)
        texts << QString::number(number);
    return texts.isEmpty() ? HostTexts::none() : texts.join(HostTexts::listSeparator());
}

// Breadth-first walk from one vertex along the given adjacency; marks every vertex reached.
void markReachable(int start, const QVector<QVector<int>>& adjacency, QVector<bool>& reached) {
    QVector<int> queue{start};
    reached[start] = true;
    for (int head = 0; head < queue.size(); ++head) {
        for (int next : adjacency[queue[head]]) {
            if (!reached[next]) {
                reached[next] = true;
                queue.append(next);
            }
        }
    }
}

} // namespace

LogicTexts logicTexts(const QList<WorkItemData>& items) {
    // Distinct names in first-seen order, each with its distinct predecessor names in first-seen order.
    QHash<QString, int> entryOf;
    QVector<QStringList> predecessorNames;
    QVector<QSet<QString>> seen;
    LogicTexts texts;
    for (const WorkItemData& item : items) {
        auto found = entryOf.constFind(item.name);
        int entry;
        if (found == entryOf.constEnd()) {
            entry = texts.names.size();
            entryOf.insert(item.name, entry);
            texts.names << item.name;
            predecessorNames.append(QStringList());
            seen.append(QSet<QString>());
        } else {
            entry = found.value();
        }
        for (int p : item.predecessors) {
            const QString& name = items[p].name;
            if (!seen[entry].contains(name)) {
                seen[entry].insert(name);
                predecessorNames[entry] << name;
            }
        }
    }
    for (int entry = 0; entry < texts.names.size(); ++entry) {
        const QString& name = texts.names[entry];
        QStringList chains;
        QStringList displays;
        for (const QString& predecessor : predecessorNames[entry]) {
            chains << predecessor + QLatin1Char(';') + name;
            displays << predecessor + HostTexts::logicArrow() + name;
        }
        if (chains.isEmpty()) {
            chains << name;
            displays << name;
        }
        texts.chains << chains.join(QLatin1Char('&'));
        texts.displays << displays.join(QLatin1Char(';'));
    }
    return texts;
}

LinkMatrix linkMatrix(const QList<WorkItemData>& items) {
    LinkMatrix links;
    links.count = items.size();
    for (int i = 0; i < items.size(); ++i)
        links.nodes.insert(items[i].name, i);
    if (links.count == 0)
        return links;
    links.matrix = new int*[links.count];
    for (int row = 0; row < links.count; ++row)
        links.matrix[row] = new int[links.count](); // zeroed
    for (int q = 0; q < items.size(); ++q)
        for (int p : items[q].predecessors)
            links.matrix[p][q] = 1;
    return links;
}

void freeLinkMatrix(LinkMatrix& links) {
    if (links.matrix) {
        for (int row = 0; row < links.count; ++row)
            delete[] links.matrix[row];
        delete[] links.matrix;
    }
    links.matrix = nullptr;
    links.count = 0;
    links.nodes.clear();
}

namespace {

// The diagram as index-based adjacency.
struct DiagramGraph {
    QHash<int, int> indexOf; // node number -> index
    QVector<int> numberOf;
    QVector<QVector<int>> successors;   // node indexes, one entry per arrow
    QVector<QVector<int>> predecessors; // node indexes, one entry per arrow
    QVector<QVector<int>> outArrows;    // arrow positions
    QVector<QVector<int>> inArrows;

    explicit DiagramGraph(const ArrowDiagram& diagram) {
        const int n = diagram.nodes.size();
        numberOf = QVector<int>(diagram.nodes.begin(), diagram.nodes.end());
        for (int i = 0; i < n; ++i)
            indexOf.insert(numberOf[i], i);
        successors.resize(n);
        predecessors.resize(n);
        outArrows.resize(n);
        inArrows.resize(n);
        for (int a = 0; a < diagram.arrows.size(); ++a) {
            const int u = indexOf.value(diagram.arrows[a].from);
            const int v = indexOf.value(diagram.arrows[a].to);
            successors[u].append(v);
            predecessors[v].append(u);
            outArrows[u].append(a);
            inArrows[v].append(a);
        }
    }
};

} // namespace

bool diagramIsAcyclic(const ArrowDiagram& diagram, QVector<int>& cycleNodes) {
    const DiagramGraph graph(diagram);
    QVector<int> order;
    QVector<int> cycle;
    cycleNodes.clear();
    if (topologicalOrder(graph.successors, order, cycle))
        return true;
    for (int v : cycle)
        cycleNodes.append(graph.numberOf[v]);
    return false;
}

NetworkFindings analyseDiagram(const ArrowDiagram& diagram, bool drawn) {
    NetworkFindings findings;
    if (!drawn || diagram.nodes.isEmpty()) {
        findings.startEndText = drawn ? HostTexts::startEndNodes().arg(HostTexts::none(), HostTexts::none())
                                      : HostTexts::diagramNotDrawn();
        return findings;
    }
    const DiagramGraph graph(diagram);
    const int n = graph.numberOf.size();
    QVector<int> order;
    QVector<int> cycle;
    if (!topologicalOrder(graph.successors, order, cycle))
        return findings; // the reader refuses such diagrams; nothing sensible to find here

    // Start and end nodes.
    for (int v = 0; v < n; ++v) {
        if (graph.predecessors[v].isEmpty())
            findings.startNodes.append(graph.numberOf[v]);
        if (graph.successors[v].isEmpty())
            findings.endNodes.append(graph.numberOf[v]);
    }
    std::sort(findings.startNodes.begin(), findings.startNodes.end());
    std::sort(findings.endNodes.begin(), findings.endNodes.end());
    findings.singleStartEnd = findings.startNodes.size() == 1 && findings.endNodes.size() == 1;
    if (!findings.singleStartEnd)
        findings.startEndText =
            HostTexts::startEndNodes().arg(joinNumbers(findings.startNodes), joinNumbers(findings.endNodes));

    // Broken lines: every start node but the main start (the lowest-numbered one) and every end node
    // but the main end (the highest-numbered end node that the main start reaches) is a place where a
    // line of the diagram breaks off.
    QVector<bool> fromStart(n, false);
    const int mainStart = findings.startNodes.first();
    markReachable(graph.indexOf.value(mainStart), graph.successors, fromStart);
    int mainEnd = std::numeric_limits<int>::min(); // a walk from a start always ends somewhere
    for (int v = 0; v < n; ++v)
        if (fromStart[v] && graph.successors[v].isEmpty())
            mainEnd = std::max(mainEnd, graph.numberOf[v]);
    QSet<int> breaks;
    for (int number : findings.startNodes + findings.endNodes)
        if (number != mainStart && number != mainEnd)
            breaks.insert(number);
    findings.brokenNodes = breaks.values();
    std::sort(findings.brokenNodes.begin(), findings.brokenNodes.end());
    findings.broken = !findings.brokenNodes.isEmpty();
    if (findings.broken)
        findings.brokenText = HostTexts::brokenNodes().arg(joinNumbers(findings.brokenNodes));

    // Surplus dummies. Reachability is kept as one bit per distinct dummy target node.
    QHash<int, int> columnOf; // node index -> bit
    for (const ArrowData& arrow : diagram.arrows)
        if (arrow.isDummy() && !columnOf.contains(graph.indexOf.value(arrow.to)))
            columnOf.insert(graph.indexOf.value(arrow.to), columnOf.size());
    if (columnOf.isEmpty())
        return findings;
    const int words = (columnOf.size() + 63) / 64;
    QVector<quint64> reach(n * words, 0); // reach[v]: dummy targets reachable from v by one or more arrows
    QVector<bool> endBefore(n, false);    // a work item ends at v or before it
    QVector<bool> startAfter(n, false);   // a work item starts at v or after it
    for (int i = n - 1; i >= 0; --i) {
        const int v = order[i];
        for (int a : graph.outArrows[v]) {
            const int w = graph.indexOf.value(diagram.arrows[a].to);
            for (int k = 0; k < words; ++k)
                reach[v * words + k] |= reach[w * words + k];
            auto column = columnOf.constFind(w);
            if (column != columnOf.constEnd())
                reach[v * words + column.value() / 64] |= quint64(1) << (column.value() % 64);
            startAfter[v] = startAfter[v] || !diagram.arrows[a].isDummy() || startAfter[w];
        }
    }
    for (int v : order)
        for (int a : graph.inArrows[v])
            endBefore[v] = endBefore[v] || !diagram.arrows[a].isDummy() ||
                           endBefore[graph.indexOf.value(diagram.arrows[a].from)];

    // A dummy u→v is implied when another arrow out of u reaches v too: per node, the targets that two
    // or more of its arrows reach, built in one pass over its arrows. Dummies are taken node by node.
    QVector<int> dummies;
    for (int d = 0; d < diagram.arrows.size(); ++d)
        if (diagram.arrows[d].isDummy())
            dummies.append(d);
    std::stable_sort(dummies.begin(), dummies.end(), [&](int a, int b) {
        return graph.indexOf.value(diagram.arrows[a].from) < graph.indexOf.value(diagram.arrows[b].from);
    });
    QVector<bool> isSurplus(diagram.arrows.size(), false);
    QVector<quint64> once(words);
    QVector<quint64> twice(words);
    int twiceOf = -1; // the node whose arrows once and twice describe
    for (int d : dummies) {
        const int u = graph.indexOf.value(diagram.arrows[d].from);
        const int v = graph.indexOf.value(diagram.arrows[d].to);
        if (twiceOf != u) {
            twiceOf = u;
            once.fill(0);
            twice.fill(0);
            for (int a : graph.outArrows[u]) {
                const int w = graph.indexOf.value(diagram.arrows[a].to);
                auto column = columnOf.constFind(w);
                for (int k = 0; k < words; ++k) {
                    quint64 reached = reach[w * words + k];
                    if (column != columnOf.constEnd() && column.value() / 64 == k)
                        reached |= quint64(1) << (column.value() % 64);
                    twice[k] |= once[k] & reached;
                    once[k] |= reached;
                }
            }
        }
        const int column = columnOf.value(v);
        isSurplus[d] = (twice[column / 64] >> (column % 64)) & 1;
        if (!isSurplus[d] && (!endBefore[u] || !startAfter[v]))
            isSurplus[d] = graph.outArrows[u].size() > 1 && graph.inArrows[v].size() > 1;
    }
    QStringList surplusTexts;
    for (int d = 0; d < diagram.arrows.size(); ++d) {
        if (isSurplus[d]) {
            findings.surplusArrows.append(qMakePair(diagram.arrows[d].from, diagram.arrows[d].to));
            surplusTexts << QStringLiteral("%1-%2").arg(diagram.arrows[d].from).arg(diagram.arrows[d].to);
        }
    }
    findings.surplusDummy = !surplusTexts.isEmpty();
    findings.surplusNodes = surplusTexts.join(HostTexts::listSeparator());
    return findings;
}

double timeWeightedVariance(const QList<const CurveData*>& curves, qint64 axisMinutes) {
    if (axisMinutes <= 0)
        return -1.0;
    // Each period of a curve becomes a rise at its start and a fall at its end, cut at the axis end.
    // Amounts are scaled by a power of two below 1, which is exact, so that sums of huge amounts
    // cannot overflow into inf − inf.
    QVector<QPair<qint64, double>> events;
    double largest = 0.0;
    for (const CurveData* curve : curves) {
        qint64 previous = 0;
        for (const CurvePoint& point : curve->points) {
            if (!std::isfinite(point.amount))
                return fluctuationOverflow;
            const qint64 end = std::min<qint64>(point.minute, axisMinutes);
            if (previous < end && point.amount != 0.0) {
                events.append(qMakePair(previous, point.amount));
                events.append(qMakePair(end, -point.amount));
                largest = std::max(largest, std::abs(point.amount));
            }
            previous = point.minute;
        }
    }
    int exponent = 0;
    std::frexp(largest, &exponent);
    std::sort(
        events.begin(), events.end(),
        [](const QPair<qint64, double>& a, const QPair<qint64, double>& b) { return a.first < b.first; });
    double level = 0.0;
    double sum = 0.0;
    double sumOfSquares = 0.0;
    qint64 last = 0;
    for (const auto& event : events) {
        const double span = static_cast<double>(event.first - last);
        sum += level * span;
        sumOfSquares += level * level * span;
        level += std::ldexp(event.second, -exponent);
        last = event.first;
    }
    // The level is 0 again after the last event, so the rest of the axis adds nothing.
    const double axis = static_cast<double>(axisMinutes);
    const double mean = sum / axis;
    const double variance = std::ldexp(std::max(0.0, sumOfSquares / axis - mean * mean), 2 * exponent);
    return std::isfinite(variance) ? variance : fluctuationOverflow;
}

QMap<int, double> curveFluctuation(const QList<CurveData>& curves, int totalDays,
                                   const std::function<QString(const QString&)>& canonical) {
    const QHash<QString, int> keyOf{
        {HostTexts::rebarWorker(), 29}, {HostTexts::formWorker(), 29},    {HostTexts::concreteWorker(), 29},
        {HostTexts::rawRebar(), 30},    {HostTexts::finishedRebar(), 30}, {HostTexts::readyConcrete(), 31},
        {HostTexts::sandGravel(), 31},  {HostTexts::cement(), 31},        {HostTexts::formwork(), 32}};
    QMap<int, QList<const CurveData*>> groups;
    for (const CurveData& curve : curves) {
        const int key = keyOf.value(canonical ? canonical(curve.name) : curve.name, 0);
        if (key != 0)
            groups[key].append(&curve);
    }
    QMap<int, double> values;
    const qint64 axis = qint64(totalDays) * 1440;
    for (int key = 29; key <= 32; ++key)
        values.insert(key, groups.contains(key) ? timeWeightedVariance(groups.value(key), axis) : -1.0);
    return values;
}

QString chartName(const QString& canonicalName) {
    static const QHash<QString, QString> charts{
        {HostTexts::rebarWorker(), HostTexts::chartRebarWorker()},
        {HostTexts::formWorker(), HostTexts::chartFormWorker()},
        {HostTexts::concreteWorker(), HostTexts::chartConcreteWorker()},
        {HostTexts::rawRebar(), HostTexts::chartRebar()},
        {HostTexts::finishedRebar(), HostTexts::chartRebar()},
        {HostTexts::formwork(), HostTexts::chartFormwork()},
        {HostTexts::readyConcrete(), HostTexts::chartConcrete()},
        {HostTexts::sandGravel(), HostTexts::chartConcrete()},
        {HostTexts::cement(), HostTexts::chartConcrete()},
        {HostTexts::generator(), HostTexts::chartGenerator()},
        {HostTexts::waterPump(), HostTexts::chartWaterPump()},
        {HostTexts::concreteMixer(), HostTexts::chartConcreteMixer()},
        {HostTexts::rebarProcessor(), HostTexts::chartRebarProcessor()}};
    return charts.value(canonicalName, canonicalName);
}

} // namespace Host
