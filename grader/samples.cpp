#include "samples.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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
QByteArray variant(const QJsonObject& sample, int k) {
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
    return QJsonDocument(project).toJson(QJsonDocument::Indented);
}

} // namespace

bool generateBatch(const QString& dir, int count, QStringList& files, QString& error) {
    initSamples();
    files.clear();
    if (!QDir().mkpath(dir)) {
        error = QStringLiteral("%1: cannot be made").arg(dir);
        return false;
    }
    const QDir target(dir);
    if (!writeFile(target.filePath(QStringLiteral("standard.json")),
                   readResource(QStringLiteral(":/samples/schedule-standard.json")), error))
        return false;
    const QJsonObject sample =
        QJsonDocument::fromJson(readResource(QStringLiteral(":/samples/schedule-candidate.json"))).object();
    const int broken = (count + 1) / 2;
    for (int k = 1; k <= count; ++k) {
        const QString path =
            target.filePath(QStringLiteral("candidate-%1.json").arg(k, 4, 10, QLatin1Char('0')));
        QByteArray bytes = variant(sample, k);
        if (k == broken)
            bytes.truncate(bytes.size() / 2); // a file cut short in transfer
        if (!writeFile(path, bytes, error))
            return false;
        files << path;
    }
    return true;
}

} // namespace Grade
