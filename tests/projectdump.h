// Test helpers for the file-format readers: a parsed schedule and a graded candidate written out as
// text, line by line, so that two of them compare with one QCOMPARE and a difference shows where.
#ifndef PROJECTDUMP_H
#define PROJECTDUMP_H

#include "datarow.h"
#include "graderesult.h"
#include "grading.h"
#include "projectreader.h"

#include <QFile>
#include <QTest>
#include <QStringList>

namespace TestDump {

using ::row;

#ifdef FORMAT_FIXTURES
// A file of tests/data/formats, for the tests that define FORMAT_FIXTURES.
inline QString fixture(const QString& name) {
    return QStringLiteral(FORMAT_FIXTURES "/") + name;
}

inline QByteArray fixtureBytes(const QString& name) {
    QFile file(fixture(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
#endif

inline QString linkText(const Host::LinkData& link, const QList<Host::WorkItemData>& items) {
    static const char* const types[] = {"FS", "SS", "FF", "SF"};
    return QStringLiteral("%1 %2%3%4")
        .arg(items[link.predecessor].name, QLatin1String(types[int(link.type)]))
        .arg(link.lagDays >= 0 ? "+" : "")
        .arg(link.lagDays);
}

inline QStringList schedule(const Host::ScheduleProject& p) {
    QStringList lines{QStringLiteral("scene %1, %2 days, time unit '%3', %4 rows")
                          .arg(p.scene)
                          .arg(p.totalDays)
                          .arg(p.gantt.timeUnit)
                          .arg(p.gantt.rowsPerPage)};
    for (const Host::WorkItemData& w : p.workItems) {
        QStringList links;
        for (const Host::LinkData& link : w.links)
            links << linkText(link, p.workItems);
        lines << QStringLiteral(
                     "item %1 '%2' %3d fixed=%4 %5-%6%7 colour '%8' width '%9' labour '%10' crew '%11' "
                     "links [%12] | %13 %14 %15 %16 %17")
                     .arg(w.id)
                     .arg(w.name)
                     .arg(w.duration)
                     .arg(w.fixedDuration)
                     .arg(w.start)
                     .arg(w.finish)
                     .arg(w.critical ? "*" : "")
                     .arg(w.color, w.lineWidth, w.labourIntensity, w.crew, links.join(", "), w.quantityCode,
                          w.quantityName, w.unit)
                     .arg(w.plannedQuantity)
                     .arg(w.materialTotal);
    }
    lines << QStringLiteral("gantt %1").arg(p.gantt.order.join(QLatin1Char('|')));
    for (const Host::ResourceData& r : p.resources)
        lines << QStringLiteral("resource '%1' total %2 code '%3' unit '%4'")
                     .arg(r.name)
                     .arg(r.plannedTotal)
                     .arg(r.code, r.unit);
    for (const Host::CurveData& c : p.curves) {
        QStringList points;
        for (const Host::CurvePoint& point : c.points)
            points << QStringLiteral("%1:%2").arg(point.minute).arg(point.amount);
        lines << QStringLiteral("curve '%1' drawn=%2 %3")
                     .arg(c.name)
                     .arg(c.drawnByCandidate)
                     .arg(points.join(' '));
    }
    lines << QStringLiteral("diagram %1, %2 nodes, %3 arrows")
                 .arg(p.hasDiagram)
                 .arg(p.diagram.nodes.size())
                 .arg(p.diagram.arrows.size());
    return lines;
}

inline void node(const Grade::ScoredNode& n, int depth, QStringList& lines) {
    lines << QStringLiteral("%1%2 [%3] %4/%5 %6")
                 .arg(QString(depth * 2, QLatin1Char(' ')), n.name, n.value)
                 .arg(n.obtained)
                 .arg(n.full)
                 .arg(n.remark);
    for (const Grade::ScoredNode& child : n.items)
        node(child, depth + 1, lines);
}

// Every category's marks and scored tree.
inline QStringList graded(const Grade::CandidateResult& result) {
    QStringList lines;
    for (const Grade::CategoryResult& c : result.categories) {
        lines << QStringLiteral("category %1 %2/%3 %4").arg(c.type).arg(c.obtained).arg(c.full).arg(c.note);
        node(c.tree, 1, lines);
    }
    return lines;
}

inline Host::ProjectFile read(const QString& path,
                              const Host::ImportOptions& options = Host::ImportOptions()) {
    Host::ProjectFile file;
    Host::ReadError error;
    if (!Host::readProjectFile(path, file, error, options))
        qWarning("%s", qPrintable(error.toString()));
    return file;
}

// Reads bytes as a project file named "f": the error message, or an empty text when it reads.
inline QString readError(const QByteArray& bytes, Host::ProjectFile& file) {
    Host::ReadError error;
    return Host::readProjectDocument(bytes, QStringLiteral("f"), file, error) ? QString() : error.toString();
}

} // namespace TestDump

#endif // PROJECTDUMP_H
