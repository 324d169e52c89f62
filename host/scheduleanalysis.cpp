#include "scheduleanalysis.h"

#include "hosttexts_p.h"
#include "markrulecodes.h"
#include "markruletables.h"

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
    return texts.isEmpty() ? HostTexts::none : texts.join(HostTexts::listSeparator);
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
            displays << predecessor + HostTexts::logicArrow + name;
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

QSet<QString> chainNames(const QStringList& chains) {
    QSet<QString> names;
    for (const QString& text : chains)
        for (const QStringRef& entry : text.splitRef(QLatin1Char('&'), Qt::KeepEmptyParts))
            for (const QStringRef& name : entry.split(QLatin1Char(';'), Qt::KeepEmptyParts))
                names.insert(name.toString());
    return names;
}

QVector<int> networkItems(const QList<WorkItemData>& items, const QSet<QString>& names) {
    QVector<int> positions;
    for (int i = 0; i < items.size(); ++i)
        if (names.contains(items[i].name))
            positions.append(i);
    return positions;
}

bool linkMatrix(const QList<WorkItemData>& items, const QVector<int>& positions, LinkMatrix& links) {
    links = LinkMatrix();
    const int k = positions.size();
    if (k == 0)
        return true;
    QVector<int> nodeOf(items.size(), -1);
    try {
        links.matrix = new int*[k](); // null rows, so that a partly allocated matrix can be freed
        links.count = k;
        for (int row = 0; row < k; ++row)
            links.matrix[row] = new int[k](); // zeroed
    } catch (const std::bad_alloc&) {
        freeLinkMatrix(links);
        return false;
    }
    for (int node = 0; node < k; ++node) {
        nodeOf[positions[node]] = node;
        links.nodes.insert(items[positions[node]].name, node);
    }
    for (int q = 0; q < k; ++q)
        for (int p : items[positions[q]].predecessors)
            if (nodeOf[p] >= 0)
                links.matrix[nodeOf[p]][q] = 1;
    return true;
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

// The diagram as index-based adjacency: arrows by their ends, and per node its outgoing and incoming
// arrows in compressed rows (arrows of node v at [start[v], start[v + 1])).
struct DiagramGraph {
    QHash<int, int> indexOf; // node number -> index
    QVector<int> numberOf;
    QVector<int> from; // node index per arrow
    QVector<int> to;
    QVector<QVector<int>> successors; // node indexes, one entry per arrow
    QVector<int> outStart;
    QVector<int> outArrows;
    QVector<int> inStart;
    QVector<int> inArrows;

    explicit DiagramGraph(const ArrowDiagram& diagram) {
        const int n = diagram.nodes.size();
        const int arrows = diagram.arrows.size();
        numberOf = QVector<int>(diagram.nodes.begin(), diagram.nodes.end());
        indexOf.reserve(n);
        for (int i = 0; i < n; ++i)
            indexOf.insert(numberOf[i], i);
        from.resize(arrows);
        to.resize(arrows);
        successors.resize(n);
        for (int a = 0; a < arrows; ++a) {
            from[a] = indexOf.value(diagram.arrows[a].from);
            to[a] = indexOf.value(diagram.arrows[a].to);
            successors[from[a]].append(to[a]);
        }
        compress(from, outStart, outArrows);
        compress(to, inStart, inArrows);
    }
    int outDegree(int v) const { return outStart[v + 1] - outStart[v]; }
    int inDegree(int v) const { return inStart[v + 1] - inStart[v]; }

private:
    // Arrows grouped by the node at one end, in arrow order within a node.
    void compress(const QVector<int>& end, QVector<int>& start, QVector<int>& list) const {
        start.fill(0, numberOf.size() + 1);
        for (int v : end)
            ++start[v + 1];
        for (int v = 0; v < numberOf.size(); ++v)
            start[v + 1] += start[v];
        list.resize(end.size());
        QVector<int> next = start;
        for (int a = 0; a < end.size(); ++a)
            list[next[end[a]]++] = a;
    }
};

// Start and end nodes: the rule holds with exactly one of each.
void findStartEnd(const DiagramGraph& graph, NetworkFindings& findings) {
    for (int v = 0; v < graph.numberOf.size(); ++v) {
        if (graph.inDegree(v) == 0)
            findings.startNodes.append(graph.numberOf[v]);
        if (graph.outDegree(v) == 0)
            findings.endNodes.append(graph.numberOf[v]);
    }
    std::sort(findings.startNodes.begin(), findings.startNodes.end());
    std::sort(findings.endNodes.begin(), findings.endNodes.end());
    findings.singleStartEnd = findings.startNodes.size() == 1 && findings.endNodes.size() == 1;
    if (!findings.singleStartEnd)
        findings.startEndText =
            HostTexts::startEndNodes.arg(joinNumbers(findings.startNodes), joinNumbers(findings.endNodes));
}

// Broken lines: every start node but the main start (the lowest-numbered one) and every end node but
// the main end (the highest-numbered end node that the main start reaches) is a place where a line
// of the diagram breaks off.
void findBrokenLines(const DiagramGraph& graph, NetworkFindings& findings) {
    const int n = graph.numberOf.size();
    QVector<bool> fromStart(n, false);
    const int mainStart = findings.startNodes.first();
    markReachable(graph.indexOf.value(mainStart), graph.successors, fromStart);
    int mainEnd = std::numeric_limits<int>::min(); // a walk from a start always ends somewhere
    for (int v = 0; v < n; ++v)
        if (fromStart[v] && graph.outDegree(v) == 0)
            mainEnd = std::max(mainEnd, graph.numberOf[v]);
    QSet<int> breaks;
    for (int number : findings.startNodes + findings.endNodes)
        if (number != mainStart && number != mainEnd)
            breaks.insert(number);
    findings.brokenNodes = breaks.values();
    std::sort(findings.brokenNodes.begin(), findings.brokenNodes.end());
    findings.broken = !findings.brokenNodes.isEmpty();
    if (findings.broken)
        findings.brokenText = HostTexts::brokenNodes.arg(joinNumbers(findings.brokenNodes));
}

// Words of one node's row in a block of dummy targets: 64 (4096 targets a block), fewer on large
// diagrams so that the rows of all nodes stay within the budget.
qsizetype blockWords(qsizetype nodes, qint64 budgetWords) {
    return qsizetype(std::max<qint64>(1, std::min<qint64>(64, budgetWords / std::max<qsizetype>(1, nodes))));
}

// Which dummies are implied by other arrows: a dummy u→v is implied when another arrow out of u
// reaches v too. The distinct dummy targets, in topological order, are taken in blocks of
// 64 × words; for one block, reach[v] holds the block's targets that v reaches by one or more
// arrows. Only nodes between the block's earliest dummy source and its last target (in topological
// order) can matter, so a block walks just those.
class ImpliedDummies {
public:
    ImpliedDummies(const DiagramGraph& graph, const QVector<int>& order, const QVector<int>& dummies,
                   qint64 budgetWords)
        : m_graph(graph), m_order(order), m_words(blockWords(order.size(), budgetWords)) {
        const int n = order.size();
        m_position.resize(n);
        for (int i = 0; i < n; ++i)
            m_position[order[i]] = i;
        m_column.fill(-1, n);
        QVector<int> targets;
        for (int d : dummies)
            if (m_column[graph.to[d]] < 0) {
                m_column[graph.to[d]] = 0;
                targets.append(graph.to[d]);
            }
        std::sort(targets.begin(), targets.end(),
                  [this](int a, int b) { return m_position[a] < m_position[b]; });
        for (int c = 0; c < targets.size(); ++c)
            m_column[targets[c]] = c;
        m_targets = targets;
    }

    // Marks implied[d] for each dummy d (dummies: arrow positions) whose target another arrow of its
    // source reaches.
    void find(QVector<int> dummies, QVector<bool>& implied) {
        const qsizetype bits = m_words * 64;
        std::sort(dummies.begin(), dummies.end(), [&](int a, int b) {
            const qsizetype blockA = m_column[m_graph.to[a]] / bits;
            const qsizetype blockB = m_column[m_graph.to[b]] / bits;
            return blockA != blockB ? blockA < blockB
                                    : m_position[m_graph.from[a]] < m_position[m_graph.from[b]];
        });
        for (int first = 0; first < dummies.size();) {
            const qsizetype block = m_column[m_graph.to[dummies[first]]] / bits;
            int last = first;
            while (last < dummies.size() && m_column[m_graph.to[dummies[last]]] / bits == block)
                ++last;
            m_first = block * bits;
            const qsizetype lastTarget = std::min<qsizetype>(m_first + bits, m_targets.size()) - 1;
            m_high = m_position[m_targets[int(lastTarget)]];
            m_low = m_position[m_graph.from[dummies[first]]];
            fillBlock();
            judge(dummies.mid(first, last - first), implied);
            first = last;
        }
    }

private:
    // The bit of w's own column in the block, as word and mask; false when w is no target of it.
    bool ownBit(int w, qsizetype& word, quint64& mask) const {
        const qsizetype column = m_column[w] - m_first;
        if (m_column[w] < 0 || column < 0 || column >= m_words * 64)
            return false;
        word = column / 64;
        mask = quint64(1) << (column % 64);
        return true;
    }
    // Row of the node at a topological position of the block's range.
    quint64* row(int position) { return m_reach.data() + qsizetype(position - m_low) * m_words; }

    void fillBlock() {
        const qsizetype size = qsizetype(m_high - m_low + 1) * m_words;
        m_reach.assign(size_t(size), 0);
        for (int i = m_high; i >= m_low; --i) {
            quint64* reach = row(i);
            const int v = m_order[i];
            for (int k = m_graph.outStart[v]; k < m_graph.outStart[v + 1]; ++k)
                addReached(m_graph.to[m_graph.outArrows[k]], reach, nullptr);
        }
    }
    // Ors into once what the arrow into w reaches of the block; into twice what was reached before.
    void addReached(int w, quint64* once, quint64* twice) {
        if (m_position[w] > m_high)
            return; // past the block's last target: reaches none of them
        const quint64* reached = row(m_position[w]);
        qsizetype ownWord = -1;
        quint64 ownMask = 0;
        ownBit(w, ownWord, ownMask);
        for (qsizetype k = 0; k < m_words; ++k) {
            const quint64 bits = reached[k] | (k == ownWord ? ownMask : 0);
            if (twice)
                twice[k] |= once[k] & bits;
            once[k] |= bits;
        }
    }
    // Per source node, the targets that two or more of its arrows reach, built in one pass over them.
    void judge(const QVector<int>& dummies, QVector<bool>& implied) {
        std::vector<quint64> once(static_cast<size_t>(m_words));
        std::vector<quint64> twice(static_cast<size_t>(m_words));
        int twiceOf = -1;
        for (int d : dummies) {
            const int u = m_graph.from[d];
            if (twiceOf != u) {
                twiceOf = u;
                std::fill(once.begin(), once.end(), 0);
                std::fill(twice.begin(), twice.end(), 0);
                for (int k = m_graph.outStart[u]; k < m_graph.outStart[u + 1]; ++k)
                    addReached(m_graph.to[m_graph.outArrows[k]], once.data(), twice.data());
            }
            qsizetype word = 0;
            quint64 mask = 0;
            implied[d] = ownBit(m_graph.to[d], word, mask) && (twice[size_t(word)] & mask);
        }
    }

    const DiagramGraph& m_graph;
    const QVector<int>& m_order;
    const qsizetype m_words;
    QVector<int> m_position; // topological position of each node
    QVector<int> m_column;   // column of each dummy target, -1 for other nodes
    QVector<int> m_targets;  // node of each column
    std::vector<quint64> m_reach;
    qsizetype m_first = 0; // the block's first column
    int m_low = 0;         // the block's range of topological positions
    int m_high = 0;
};

// Surplus dummies: implied by other arrows, or joining nothing while both ends keep other arrows
// (no work item ends at or before u, or none starts at or after v).
void findSurplusDummies(const ArrowDiagram& diagram, const DiagramGraph& graph, const QVector<int>& order,
                        qint64 budgetWords, NetworkFindings& findings) {
    const int n = order.size();
    QVector<int> dummies;
    for (int d = 0; d < diagram.arrows.size(); ++d)
        if (diagram.arrows[d].isDummy())
            dummies.append(d);
    if (dummies.isEmpty())
        return;
    QVector<bool> endBefore(n, false);  // a work item ends at v or before it
    QVector<bool> startAfter(n, false); // a work item starts at v or after it
    for (int i = n - 1; i >= 0; --i)
        for (int k = graph.outStart[order[i]]; k < graph.outStart[order[i] + 1]; ++k) {
            const int a = graph.outArrows[k];
            startAfter[order[i]] =
                startAfter[order[i]] || !diagram.arrows[a].isDummy() || startAfter[graph.to[a]];
        }
    for (int v : order)
        for (int k = graph.inStart[v]; k < graph.inStart[v + 1]; ++k) {
            const int a = graph.inArrows[k];
            endBefore[v] = endBefore[v] || !diagram.arrows[a].isDummy() || endBefore[graph.from[a]];
        }
    QVector<bool> isSurplus(diagram.arrows.size(), false);
    ImpliedDummies(graph, order, dummies, budgetWords).find(dummies, isSurplus);
    QStringList surplusTexts;
    for (int d : dummies) {
        const int u = graph.from[d];
        const int v = graph.to[d];
        if (!isSurplus[d] && (!endBefore[u] || !startAfter[v]))
            isSurplus[d] = graph.outDegree(u) > 1 && graph.inDegree(v) > 1;
        if (isSurplus[d]) {
            findings.surplusArrows.append(qMakePair(diagram.arrows[d].from, diagram.arrows[d].to));
            surplusTexts << QStringLiteral("%1-%2").arg(diagram.arrows[d].from).arg(diagram.arrows[d].to);
        }
    }
    findings.surplusDummy = !surplusTexts.isEmpty();
    findings.surplusNodes = surplusTexts.join(HostTexts::listSeparator);
}

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

NetworkFindings analyseDiagram(const ArrowDiagram& diagram, bool drawn, const NetworkLimits& limits) {
    NetworkFindings findings;
    if (!drawn || diagram.nodes.isEmpty()) {
        findings.startEndText = drawn ? HostTexts::startEndNodes.arg(HostTexts::none, HostTexts::none)
                                      : HostTexts::diagramNotDrawn;
        return findings;
    }
    if (diagram.nodes.size() > limits.diagramNodes) {
        findings.error = QStringLiteral("the arrow diagram has %1 nodes; at most %2 are supported")
                             .arg(diagram.nodes.size())
                             .arg(limits.diagramNodes);
        return findings;
    }
    const DiagramGraph graph(diagram);
    QVector<int> order;
    QVector<int> cycle;
    if (!topologicalOrder(graph.successors, order, cycle))
        return findings; // the reader refuses such diagrams; nothing sensible to find here
    findStartEnd(graph, findings);
    findBrokenLines(graph, findings);
    findSurplusDummies(diagram, graph, order, limits.reachWords, findings);
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
    QMap<int, QList<const CurveData*>> groups;
    for (const CurveData& curve : curves) {
        const int type = MarkRuleTables::varianceCurveType(canonical ? canonical(curve.name) : curve.name);
        if (type != 0)
            groups[type].append(&curve);
    }
    QMap<int, double> values;
    const qint64 axis = qint64(totalDays) * 1440;
    for (int type = MarkCode::SkedLabourCurve; type <= MarkCode::SkedFormworkCurve; ++type)
        values.insert(type, groups.contains(type) ? timeWeightedVariance(groups.value(type), axis) : -1.0);
    return values;
}

QString chartName(const QString& canonicalName) {
    const QString chart = MarkRuleTables::chartName(canonicalName);
    return chart.isEmpty() ? canonicalName : chart;
}

} // namespace Host
