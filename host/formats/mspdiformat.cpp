#include "mspdiformat.h"

#include "xmlsupport.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QVector>

#include <cmath>

namespace Host {

namespace {

const double defaultMinutesPerDay = 480.0;
const double minutesPerElapsedDay = 1440.0;
const int maxOutlineLevel = 100;
const double maxUnits = 1.0e6;    // an assignment's units (1 = 100 %) or material amount
const double maxLinkLag = 1.0e15; // far beyond any lag the finishing step accepts, still exact

// Codes as the file writes them.
enum TaskType { FixedUnits = 0, FixedDuration = 1, FixedWork = 2 };
enum MspdiLinkType { FinishFinish = 0, FinishStart = 1, StartFinish = 2, StartStart = 3 };
enum ResourceType { MaterialResource = 0, WorkResource = 1, CostResource = 2 };
enum SpecialUid { ProjectSummaryUid = 0, PlaceholderResourceUid = 0, UnassignedResourceUid = -65535 };
// The unit a lag is shown in: minutes (3) to months (12), the elapsed ones even; percentages
// (19, 20); none (21); the same marked as estimated are 32 higher.
enum LagFormat {
    FirstLagUnit = 3,
    LastLagUnit = 12,
    PercentLag = 19,
    ElapsedPercentLag = 20,
    NoLagUnit = 21,
    EstimatedLag = 32
};

enum class LagKind { Working, Elapsed, Percent };

bool lagKind(int code, LagKind& kind) {
    const int unit = code > NoLagUnit ? code - EstimatedLag : code;
    if (unit >= FirstLagUnit && unit <= LastLagUnit)
        kind = unit % 2 == 0 ? LagKind::Elapsed : LagKind::Working;
    else if (unit == PercentLag || unit == ElapsedPercentLag)
        kind = LagKind::Percent;
    else if (unit == NoLagUnit)
        kind = LagKind::Working;
    else
        return false;
    return true;
}

LinkType linkType(int code) {
    switch (code) {
    case FinishFinish:
        return LinkType::FinishToFinish;
    case StartFinish:
        return LinkType::StartToFinish;
    case StartStart:
        return LinkType::StartToStart;
    default:
        return LinkType::FinishToStart;
    }
}

// Minutes in an ISO 8601 duration as MS Project writes them ("PT16H0M0S"); a day ("P1D") is 24 h.
bool isoMinutes(const QString& text, double& minutes) {
    static const QRegularExpression pattern(
        QStringLiteral("^P(?:(\\d+(?:\\.\\d+)?)D)?(?:T(?:(\\d+(?:\\.\\d+)?)H)?"
                       "(?:(\\d+(?:\\.\\d+)?)M)?(?:(\\d+(?:\\.\\d+)?)S)?)?$"));
    const QString trimmed = text.trimmed();
    const QRegularExpressionMatch match = pattern.match(trimmed);
    if (!match.hasMatch() || trimmed.size() < 3)
        return false;
    const double factors[] = {minutesPerElapsedDay, 60.0, 1.0, 1.0 / 60.0};
    minutes = 0.0;
    for (int i = 0; i < 4; ++i)
        minutes += match.captured(i + 1).toDouble() * factors[i]; // an absent part reads as 0
    return std::isfinite(minutes);
}

// A link's lag as written, converted once the day length is known.
struct RawLag {
    int task;
    int link;
    double tenthsOrPercent;
    LagKind kind;
};

class MspdiReader {
public:
    MspdiReader(XmlCursor& cursor, ImportedSchedule& out) : c(cursor), out(out) {}

    bool read();

private:
    void project();
    void task();
    bool taskField(ImportedTask& task, bool& skipped);
    void link(int index, ImportedTask& task);
    void resource();
    void assignment();
    bool duration(double& minutes);
    void convert();

    XmlCursor& c;
    ImportedSchedule& out;
    double m_minutesPerDay = defaultMinutesPerDay;
    QVector<double> m_taskMinutes; // per task of out.tasks
    QList<RawLag> m_lags;
    QSet<QString> m_skippedTasks;
    QSet<QString> m_skippedResources{QString::number(PlaceholderResourceUid),
                                     QString::number(UnassignedResourceUid)};
    QHash<QString, int> m_resourceType;
    QVector<double> m_workMinutes; // per assignment; < 0 when not stated
};

bool MspdiReader::read() {
    out.format = QStringLiteral("MS Project XML");
    if (c.child())
        project();
    if (!c.finish())
        return false;
    convert();
    return true;
}

void MspdiReader::project() {
    while (c.child()) {
        if (c.is("MinutesPerDay")) {
            c.readNumber(1.0, minutesPerElapsedDay, QStringLiteral("a number of minutes from 1 to 1440"),
                         m_minutesPerDay);
        } else if (c.is("Tasks")) {
            out.tasksWhere = c.where();
            c.each("Task", [this] { task(); });
        } else if (c.is("Resources")) {
            c.each("Resource", [this] { resource(); });
        } else if (c.is("Assignments")) {
            c.each("Assignment", [this] { assignment(); });
        } else {
            c.skip();
        }
    }
}

void MspdiReader::task() {
    ImportedTask task;
    task.where = c.where();
    const int index = out.tasks.size();
    const int firstLag = m_lags.size();
    bool skipped = false;
    double minutes = 0.0;
    while (c.child()) {
        if (c.is("PredecessorLink"))
            link(index, task);
        else if (c.is("Duration"))
            duration(minutes);
        else if (!taskField(task, skipped))
            c.skip();
    }
    if (!c.ok())
        return;
    if (task.id.isEmpty()) {
        c.fail(task.where, QStringLiteral("expected a <UID> in the task, found none"));
    } else if (skipped || task.id == QString::number(ProjectSummaryUid) || task.outlineLevel == 0) {
        m_skippedTasks.insert(task.id);
        m_lags.erase(m_lags.begin() + firstLag, m_lags.end());
    } else {
        m_taskMinutes.append(minutes);
        out.tasks.append(task);
    }
}

// One of the task's own fields; false for an element it does not read.
bool MspdiReader::taskField(ImportedTask& task, bool& skipped) {
    if (c.is("UID")) {
        c.readId(task.id);
    } else if (c.is("Name")) {
        task.name = c.text();
    } else if (c.is("OutlineLevel")) {
        c.readInteger(0, maxOutlineLevel,
                      QStringLiteral("an outline level from 0 to %1").arg(maxOutlineLevel),
                      task.outlineLevel);
    } else if (c.is("Summary")) {
        task.summary = isTrue(c.text());
    } else if (c.is("Milestone")) {
        task.milestone = isTrue(c.text());
    } else if (c.is("Type")) {
        int type = FixedUnits;
        if (c.readInteger(FixedUnits, FixedWork,
                          QStringLiteral("a task type 0 (fixed units), 1 (fixed duration) or 2 (fixed work)"),
                          type))
            task.fixedDuration = type == FixedDuration;
    } else if (c.is("IsNull") || c.is("ExternalTask")) {
        skipped = isTrue(c.text()) || skipped;
    } else {
        return false;
    }
    return true;
}

void MspdiReader::link(int index, ImportedTask& task) {
    ImportedLink link;
    link.where = c.where();
    RawLag lag{index, task.links.size(), 0.0, LagKind::Working};
    bool otherProject = false;
    while (c.child()) {
        int code = 0;
        if (c.is("PredecessorUID")) {
            c.readId(link.predecessor);
        } else if (c.is("Type")) {
            if (c.readInteger(FinishFinish, StartStart,
                              QStringLiteral("a link type 0 (FF), 1 (FS), 2 (SF) or 3 (SS)"), code))
                link.type = linkType(code);
        } else if (c.is("LinkLag")) {
            c.readNumber(-maxLinkLag, maxLinkLag, QStringLiteral("a lag in tenths of a minute"),
                         lag.tenthsOrPercent);
        } else if (c.is("LagFormat")) {
            const QString expected =
                QStringLiteral("a lag format code (3 to 12, 19 to 21, 35 to 44 or 51 to 53)");
            const QString at = c.where();
            if (c.readInteger(0, 99, expected, code) && !lagKind(code, lag.kind))
                c.failFound(at, expected, QString::number(code));
        } else if (c.is("CrossProject")) {
            otherProject = isTrue(c.text());
        } else {
            c.skip();
        }
    }
    if (!c.ok() || otherProject)
        return;
    if (link.predecessor.isEmpty()) {
        c.fail(link.where, QStringLiteral("expected a <PredecessorUID> in the link, found none"));
        return;
    }
    task.links.append(link);
    m_lags.append(lag);
}

void MspdiReader::resource() {
    ImportedResource resource;
    resource.where = c.where();
    int type = WorkResource;
    bool null = false;
    while (c.child()) {
        if (c.is("UID"))
            c.readId(resource.id);
        else if (c.is("Name"))
            resource.name = c.text();
        else if (c.is("Code"))
            resource.code = c.text();
        else if (c.is("MaterialLabel"))
            resource.unit = c.text();
        else if (c.is("Type"))
            c.readInteger(MaterialResource, CostResource,
                          QStringLiteral("a resource type 0 (material), 1 (work) or 2 (cost)"), type);
        else if (c.is("IsNull"))
            null = isTrue(c.text());
        else
            c.skip();
    }
    if (!c.ok())
        return;
    if (resource.id.isEmpty()) {
        c.fail(resource.where, QStringLiteral("expected a <UID> in the resource, found none"));
    } else if (null || m_skippedResources.contains(resource.id)) {
        m_skippedResources.insert(resource.id);
    } else {
        resource.labour = type == WorkResource;
        m_resourceType.insert(resource.id, type);
        out.resources.append(resource);
    }
}

void MspdiReader::assignment() {
    ImportedAssignment assignment;
    assignment.where = c.where();
    double work = -1.0;
    while (c.child()) {
        if (c.is("TaskUID"))
            c.readId(assignment.task);
        else if (c.is("ResourceUID"))
            c.readId(assignment.resource);
        else if (c.is("Units"))
            c.readNumber(0.0, maxUnits, QStringLiteral("units from 0 to 1000000 (1 is 100 %)"),
                         assignment.unitsPerDay);
        else if (c.is("Work"))
            duration(work);
        else
            c.skip();
    }
    if (!c.ok())
        return;
    if (assignment.task.isEmpty() || assignment.resource.isEmpty()) {
        c.fail(assignment.where, QStringLiteral("expected a <TaskUID> and a <ResourceUID> in the assignment, "
                                                "found only one or none"));
    } else if (!m_skippedTasks.contains(assignment.task) &&
               !m_skippedResources.contains(assignment.resource)) {
        out.assignments.append(assignment);
        m_workMinutes.append(work);
    }
}

bool MspdiReader::duration(double& minutes) {
    const QString at = c.where();
    const QString text = c.text();
    if (!c.ok())
        return false;
    if (!isoMinutes(text, minutes))
        return c.failFound(at, QStringLiteral("an ISO 8601 duration like PT8H0M0S"), text);
    return true;
}

// Minutes to working days, lags to working days, assignments to amounts: now that the day length
// and every task's duration are known.
void MspdiReader::convert() {
    QHash<QString, int> taskOfId;
    for (int t = 0; t < out.tasks.size(); ++t) {
        out.tasks[t].durationDays = m_taskMinutes[t] / m_minutesPerDay;
        taskOfId.insert(out.tasks[t].id, t);
    }
    for (const RawLag& lag : m_lags) {
        ImportedLink& link = out.tasks[lag.task].links[lag.link];
        const int predecessor = taskOfId.value(link.predecessor, -1);
        if (lag.kind == LagKind::Working)
            link.lagDays = lag.tenthsOrPercent / 10.0 / m_minutesPerDay;
        else if (lag.kind == LagKind::Elapsed)
            link.lagDays = lag.tenthsOrPercent / 10.0 / minutesPerElapsedDay;
        else if (predecessor >= 0) // a share of the predecessor's duration
            link.lagDays = lag.tenthsOrPercent / 100.0 * out.tasks[predecessor].durationDays;
    }
    for (int a = 0; a < out.assignments.size(); ++a) {
        ImportedAssignment& assignment = out.assignments[a];
        const int type = m_resourceType.value(assignment.resource, WorkResource);
        if (type == MaterialResource) { // the units are the amount the task uses
            assignment.total = std::max(assignment.unitsPerDay, 0.0);
            assignment.unitsPerDay = -1.0;
        } else if (type == CostResource) {
            assignment.total = 0.0;
            assignment.unitsPerDay = -1.0;
        } else if (m_workMinutes[a] >= 0.0) {
            assignment.total = m_workMinutes[a] / m_minutesPerDay;
        }
    }
}

} // namespace

bool isMsProjectXml(const FileSignature& file) {
    return file.xml && file.rootName == QLatin1String("Project") &&
           file.rootNamespace == QLatin1String("http://schemas.microsoft.com/project");
}

bool readMsProjectXml(const FileSignature& file, ImportedSchedule& out, ReadError& error) {
    XmlCursor cursor(file.bytes, error);
    return MspdiReader(cursor, out).read();
}

} // namespace Host
