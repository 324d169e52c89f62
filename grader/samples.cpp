#include "samples.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <climits>

// Resources of a static library are registered by name, outside any namespace.
static void registerSampleResources() {
    Q_INIT_RESOURCE(samples);
}

namespace Grade {

void initSamples() {
    registerSampleResources();
}

QList<QPair<QString, QString>> samplePairs() {
    QList<QPair<QString, QString>> pairs;
    for (const char* product : {"schedule", "pricing", "model"}) {
        const QString base = QStringLiteral(":/samples/") + QLatin1String(product);
        pairs.append(
            qMakePair(base + QStringLiteral("-standard.json"), base + QStringLiteral("-candidate.json")));
    }
    return pairs;
}

namespace {

QByteArray readResource(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool writeFile(const QString& path, const QByteArray& bytes, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()) {
        error = QStringLiteral("%1: cannot be written: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

// Candidate number k (from 1) of a batch: the sample candidate with one more difference, so that the
// scores of a batch spread.
QJsonObject variant(const QJsonObject& sample, int k) {
    QJsonObject project = sample;
    QJsonArray items = project.value(QStringLiteral("workItems")).toArray();
    QJsonObject gantt = project.value(QStringLiteral("gantt")).toObject();
    switch (k % 4) {
    case 1: // the excavation's duration put right
        for (int i = 0; i < items.size(); ++i) {
            QJsonObject item = items[i].toObject();
            if (item.value(QStringLiteral("name")).toString() == QStringLiteral("土方开挖")) {
                item.insert(QStringLiteral("duration"), 14);
                items[i] = item;
            }
        }
        break;
    case 2: // enough rows per page
        gantt.insert(QStringLiteral("rowsPerPage"), 30);
        break;
    case 3: { // one more duration off the weekly grid
        QJsonObject item = items[k % items.size()].toObject();
        item.insert(QStringLiteral("duration"), item.value(QStringLiteral("duration")).toInt() + 1);
        items[k % items.size()] = item;
        break;
    }
    default:
        break;
    }
    project.insert(QStringLiteral("workItems"), items);
    project.insert(QStringLiteral("gantt"), gantt);
    return project;
}

// The node where arrows start (the lowest without an incoming arrow) and the one where they end (the
// highest without an outgoing arrow).
QPair<int, int> diagramEnds(const QJsonArray& nodes, const QJsonArray& arrows) {
    QSet<int> entered, left;
    for (const QJsonValue& arrow : arrows) {
        left.insert(arrow[QStringLiteral("from")].toInt());
        entered.insert(arrow[QStringLiteral("to")].toInt());
    }
    int start = INT_MAX, end = INT_MIN;
    for (const QJsonValue& value : nodes) {
        const int node = value.toInt();
        if (!entered.contains(node))
            start = std::min(start, node);
        if (!left.contains(node))
            end = std::max(end, node);
    }
    return qMakePair(start, end);
}

// Stage s (from 0) of a chained schedule: the work items' ids shifted by s × idStride and their
// names marked with the stage; the first one follows the last one of the stage before.
void appendStageItems(const QJsonArray& items, int s, int idStride, QJsonArray& out) {
    const int shift = s * idStride;
    for (int i = 0; i < items.size(); ++i) {
        QJsonObject item = items[i].toObject();
        item.insert(QStringLiteral("id"), item.value(QStringLiteral("id")).toInt() + shift);
        if (s > 0)
            item.insert(
                QStringLiteral("name"),
                QStringLiteral("%1-%2").arg(item.value(QStringLiteral("name")).toString()).arg(s + 1));
        QJsonArray predecessors;
        for (const QJsonValue& id : item.value(QStringLiteral("predecessors")).toArray())
            predecessors.append(id.toInt() + shift);
        if (s > 0 && i == 0)
            predecessors.append(items.last()[QStringLiteral("id")].toInt() + shift - idStride);
        if (!predecessors.isEmpty())
            item.insert(QStringLiteral("predecessors"), predecessors);
        out.append(item);
    }
}

// The arrow diagram of stages chained: stage s's node numbers shifted by s × nodeStride, except that
// its start node is the end node of the stage before.
QJsonObject chainDiagram(const QJsonObject& diagram, int stages, int idStride) {
    const QJsonArray nodes = diagram[QStringLiteral("nodes")].toArray();
    const QJsonArray arrows = diagram[QStringLiteral("arrows")].toArray();
    const QPair<int, int> ends = diagramEnds(nodes, arrows);
    int nodeStride = 1;
    for (const QJsonValue& node : nodes)
        nodeStride = std::max(nodeStride, node.toInt() + 1);
    QJsonArray allNodes, allArrows;
    for (int s = 0; s < stages; ++s) {
        const auto shifted = [&](int node) {
            return s > 0 && node == ends.first ? ends.second + (s - 1) * nodeStride : node + s * nodeStride;
        };
        for (const QJsonValue& node : nodes)
            if (s == 0 || node.toInt() != ends.first)
                allNodes.append(shifted(node.toInt()));
        for (const QJsonValue& value : arrows) {
            QJsonObject arrow = value.toObject();
            for (const QLatin1String key : {QLatin1String("from"), QLatin1String("to")})
                arrow.insert(key, shifted(arrow.value(key).toInt()));
            if (arrow.contains(QStringLiteral("workItem")))
                arrow.insert(QStringLiteral("workItem"),
                             arrow.value(QStringLiteral("workItem")).toInt() + s * idStride);
            allArrows.append(arrow);
        }
    }
    return QJsonObject{{QStringLiteral("nodes"), allNodes}, {QStringLiteral("arrows"), allArrows}};
}

// The schedule repeated stages times in a row, each stage after the one before.
QByteArray chained(QJsonObject project, int stages) {
    const QJsonArray items = project.value(QStringLiteral("workItems")).toArray();
    int idStride = 1;
    for (const QJsonValue& item : items)
        idStride = std::max(idStride, item[QStringLiteral("id")].toInt() + 1);
    QJsonArray allItems;
    for (int s = 0; s < stages; ++s)
        appendStageItems(items, s, idStride, allItems);
    project.insert(QStringLiteral("workItems"), allItems);
    if (project.contains(QStringLiteral("arrowDiagram")))
        project.insert(
            QStringLiteral("arrowDiagram"),
            chainDiagram(project.value(QStringLiteral("arrowDiagram")).toObject(), stages, idStride));
    return QJsonDocument(project).toJson(QJsonDocument::Indented);
}

} // namespace

bool generateBatch(const QString& dir, int count, QStringList& files, QString& error, int stages) {
    initSamples();
    files.clear();
    if (!QDir().mkpath(dir)) {
        error = QStringLiteral("%1: cannot be made").arg(dir);
        return false;
    }
    const QDir target(dir);
    const auto sample = [](const char* side) {
        return QJsonDocument::fromJson(
                   readResource(QStringLiteral(":/samples/schedule-%1.json").arg(QLatin1String(side))))
            .object();
    };
    if (!writeFile(target.filePath(QStringLiteral("standard.json")), chained(sample("standard"), stages),
                   error))
        return false;
    const QJsonObject candidate = sample("candidate");
    const int broken = (count + 1) / 2;
    for (int k = 1; k <= count; ++k) {
        const QString path =
            target.filePath(QStringLiteral("candidate-%1.json").arg(k, 4, 10, QLatin1Char('0')));
        QByteArray bytes = chained(variant(candidate, k), stages);
        if (k == broken)
            bytes.truncate(bytes.size() / 2); // a file cut short in transfer
        if (!writeFile(path, bytes, error))
            return false;
        files << path;
    }
    return true;
}

} // namespace Grade
