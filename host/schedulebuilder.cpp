#include "schedulebuilder.h"

#include "colours.h"
#include "scheduleanalysis.h"
#include "scheduletiming.h"

#include <QSet>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// A cycle longer than this is told by its first and last names and its length.
const int cycleNamesShown = 6;

QString cycleText(const QVector<int>& cycle, const QList<WorkItemData>& items) {
    QStringList names;
    for (int v : cycle)
        names << items[v].name;
    const int length = cycle.size() - 1; // the first one is repeated at the end
    if (length <= cycleNamesShown)
        return names.join(QStringLiteral(" → "));
    return QStringLiteral("%1 → … → %2 (%3 work items)")
        .arg(names.mid(0, cycleNamesShown / 2).join(QStringLiteral(" → ")),
             names.mid(names.size() - cycleNamesShown / 2).join(QStringLiteral(" → ")))
        .arg(length);
}

// Whole working days, halves away from zero; a positive time below half a day is one day, so
// that only milestones last 0 days.
bool wholeDays(double days, bool isDuration, int& out) {
    if (!std::isfinite(days) || std::fabs(days) > maxDays)
        return false;
    out = int(std::lround(days));
    if (isDuration && out == 0 && days > 0.0)
        out = 1;
    return !isDuration || out >= 0;
}

class Builder {
public:
    Builder(const ImportedSchedule& in, const ImportOptions& options, ScheduleProject& out, ReadError& error)
        : in(in), options(options), out(out), error(error) {}

    bool run();

private:
    bool fail(const QString& where, const QString& message) { return error.fail(where, message); }
    bool indexTasks();
    void markSummaries();
    bool makeWorkItems();
    void checkNames();
    bool resolveLinks();
    QList<int> carriedLeaves(int task, bool last) const;
    bool resolveResources();
    void applyAssignments();
    void computeCurves();
    bool resolveDiagram();
    void finishGantt();

    const ImportedSchedule& in;
    const ImportOptions& options;
    ScheduleProject& out;
    ReadError& error;
    QHash<QString, int> m_taskOfId;     // task id -> index in in.tasks
    QVector<bool> m_summary;            // per task
    QVector<int> m_itemOfTask;          // per task: position in out.workItems, -1 for a summary
    QVector<int> m_subtreeEnd;          // per task: one past the last task below it
    QHash<QString, int> m_resourceOfId; // resource id -> position in out.resources
    QVector<double> m_assignmentTotals; // per resource
};

bool Builder::indexTasks() {
    for (int t = 0; t < in.tasks.size(); ++t) {
        const ImportedTask& task = in.tasks[t];
        auto found = m_taskOfId.constFind(task.id);
        if (found != m_taskOfId.constEnd())
            return fail(task.where, QStringLiteral("expected an id not used before, found %1, the id of %2")
                                        .arg(task.id, in.tasks[found.value()].where));
        m_taskOfId.insert(task.id, t);
    }
    return true;
}

// A task is a summary when it says so or when the task after it lies deeper; a summary's subtree
// is the run of deeper tasks after it.
void Builder::markSummaries() {
    const int n = in.tasks.size();
    m_summary.fill(false, n);
    m_subtreeEnd.fill(0, n);
    QVector<int> open; // tasks whose subtree is still running
    for (int t = 0; t < n; ++t) {
        const int level = in.tasks[t].outlineLevel;
        while (!open.isEmpty() && in.tasks[open.last()].outlineLevel >= level)
            m_subtreeEnd[open.takeLast()] = t;
        // A task flagged as a summary with nothing below it is a leaf: it has a duration to judge.
        m_summary[t] = t + 1 < n && in.tasks[t + 1].outlineLevel > level;
        open.append(t);
    }
    for (int t : open)
        m_subtreeEnd[t] = n;
}

bool Builder::makeWorkItems() {
    m_itemOfTask.fill(-1, in.tasks.size());
    for (int t = 0; t < in.tasks.size(); ++t) {
        if (m_summary[t])
            continue;
        const ImportedTask& task = in.tasks[t];
        WorkItemData item;
        item.id = out.workItems.size() + 1;
        item.name = tidyName(task.name);
        item.name.replace(QLatin1Char(';'), QChar(0xFF1B)).replace(QLatin1Char('&'), QChar(0xFF06));
        if (item.name.isEmpty())
            return fail(task.where, QStringLiteral("expected a task name, found an empty one"));
        const double days = task.milestone ? 0.0 : task.durationDays;
        if (!wholeDays(days, true, item.duration))
            return fail(task.where, QStringLiteral("expected a duration of 0 to %1 working days, found %2")
                                        .arg(maxDays)
                                        .arg(days));
        const bool exact =
            options.durations == ImportOptions::Durations::Exact ||
            (options.durations == ImportOptions::Durations::FormatDefault && !in.explicitFlags);
        item.fixedDuration = exact || task.fixedDuration.value_or(false);
        item.color = normalisedColour(task.color);
        item.quantityCode = task.quantityCode;
        item.quantityName = task.quantityName;
        item.unit = task.unit;
        item.plannedQuantity = task.plannedQuantity;
        item.lineWidth = task.lineWidth;
        item.labourIntensity = task.labourIntensity;
        item.crew = task.crew;
        item.materialTotal = task.materialTotal;
        m_itemOfTask[t] = out.workItems.size();
        out.workItems.append(item);
    }
    return true;
}

// Work items that share a name are one criterion to the library; they are numbered on request and
// reported otherwise.
void Builder::checkNames() {
    QHash<QString, int> seen;
    QStringList repeated; // in first-seen order
    for (WorkItemData& item : out.workItems) {
        const int count = ++seen[item.name];
        if (count == 2)
            repeated << item.name;
        if (count > 1 && options.dedupeNames)
            item.name += QStringLiteral(" (%1)").arg(count);
    }
    if (options.dedupeNames)
        return;
    for (const QString& name : repeated)
        out.warnings << QStringLiteral(
                            "the work item name \"%1\" occurs %2 times; --dedupe-names numbers them")
                            .arg(name)
                            .arg(seen.value(name));
}

// The leaves of a summary that a link on it is carried to: its last leaves (that no other leaf
// below it follows) or its first leaves (that follow no other leaf below it).
QList<int> Builder::carriedLeaves(int task, bool last) const {
    if (!m_summary[task])
        return {m_itemOfTask[task]};
    QSet<int> tied; // leaves below the summary linked to another leaf below it on the side asked
    for (int t = task + 1; t < m_subtreeEnd[task]; ++t) {
        if (m_summary[t])
            continue;
        for (const ImportedLink& link : in.tasks[t].links) {
            const int p = m_taskOfId.value(link.predecessor, -1);
            if (p > task && p < m_subtreeEnd[task] && !m_summary[p])
                tied.insert(last ? p : t);
        }
    }
    QList<int> leaves;
    for (int t = task + 1; t < m_subtreeEnd[task]; ++t)
        if (!m_summary[t] && !tied.contains(t))
            leaves.append(m_itemOfTask[t]);
    return leaves;
}

// A link ties the predecessor's finish (FS, FF) or start (SS, SF) to the successor's start (FS, SS)
// or finish (FF, SF); on a summary, that end is its last leaves' finish or its first leaves' start.
bool tiesPredecessorFinish(LinkType type) {
    return type == LinkType::FinishToStart || type == LinkType::FinishToFinish;
}
bool tiesSuccessorFinish(LinkType type) {
    return type == LinkType::FinishToFinish || type == LinkType::StartToFinish;
}

bool Builder::resolveLinks() {
    for (int t = 0; t < in.tasks.size(); ++t) {
        for (const ImportedLink& link : in.tasks[t].links) {
            const int p = m_taskOfId.value(link.predecessor, -1);
            if (p < 0)
                return fail(link.where,
                            QStringLiteral("expected the id of a task, found %1, which no task has")
                                .arg(link.predecessor));
            LinkData data;
            data.type = link.type;
            if (!wholeDays(link.lagDays, false, data.lagDays))
                return fail(link.where, QStringLiteral("expected a lag of -%1 to %1 working days, found %2")
                                            .arg(maxDays)
                                            .arg(link.lagDays));
            for (int successor : carriedLeaves(t, tiesSuccessorFinish(link.type))) {
                WorkItemData& item = out.workItems[successor];
                for (int predecessor : carriedLeaves(p, tiesPredecessorFinish(link.type))) {
                    if (predecessor == successor || item.predecessors.contains(predecessor))
                        continue; // a repeated predecessor adds nothing
                    data.predecessor = predecessor;
                    item.predecessors.append(predecessor);
                    item.links.append(data);
                }
            }
        }
    }
    QVector<int> cycle;
    if (!scheduleTimes(out.workItems, out.totalDays, cycle))
        return fail(in.tasksWhere, QStringLiteral("expected predecessors without a cycle, found the cycle %1")
                                       .arg(cycleText(cycle, out.workItems)));
    return true;
}

bool Builder::resolveResources() {
    for (const ImportedResource& resource : in.resources) {
        if (m_resourceOfId.contains(resource.id))
            return fail(resource.where,
                        QStringLiteral("expected a resource id not used before, found %1").arg(resource.id));
        ResourceData data;
        const QString name = tidyName(resource.name);
        data.name = options.resourceNames.value(name, name);
        data.code = resource.code;
        data.unit = resource.unit;
        if (resource.plannedTotal >= 0.0)
            data.plannedTotal = int(std::lround(std::min(resource.plannedTotal, 2.0e9)));
        m_resourceOfId.insert(resource.id, out.resources.size());
        out.resources.append(data);
    }
    m_assignmentTotals.fill(0.0, out.resources.size());
    for (const ImportedAssignment& assignment : in.assignments) {
        if (!m_taskOfId.contains(assignment.task))
            return fail(assignment.where,
                        QStringLiteral("expected the id of a task, found %1, which no task has")
                            .arg(assignment.task));
        if (!m_resourceOfId.contains(assignment.resource))
            return fail(assignment.where,
                        QStringLiteral("expected the id of a resource, found %1, which no resource has")
                            .arg(assignment.resource));
    }
    return true;
}

// Each assignment adds its amount to its resource's planned total and, for people, its units to the
// labour intensity of its task's leaves (a summary's assignment is counted on no leaf).
void Builder::applyAssignments() {
    QVector<double> labour(out.workItems.size(), 0.0);
    QVector<QStringList> crews(out.workItems.size());
    for (const ImportedAssignment& assignment : in.assignments) {
        const int item = m_itemOfTask[m_taskOfId.value(assignment.task)];
        const int resource = m_resourceOfId.value(assignment.resource);
        const double days = item < 0 ? 0.0 : out.workItems[item].duration;
        double total = assignment.total;
        if (total < 0.0)
            total = std::max(assignment.unitsPerDay, 0.0) * days;
        m_assignmentTotals[resource] += total;
        const ImportedResource& source = in.resources[resource];
        if (item >= 0 && source.labour) {
            labour[item] += assignment.unitsPerDay >= 0.0 ? assignment.unitsPerDay
                            : days > 0                    ? total / days
                                                          : 0.0;
            crews[item] << out.resources[resource].name;
        }
    }
    for (int r = 0; r < out.resources.size(); ++r)
        if (in.resources[r].plannedTotal < 0.0)
            out.resources[r].plannedTotal = int(std::lround(std::min(m_assignmentTotals[r], 2.0e9)));
    for (int i = 0; i < out.workItems.size(); ++i) {
        WorkItemData& item = out.workItems[i];
        if (crews[i].isEmpty() || !item.labourIntensity.isEmpty())
            continue;
        item.labourIntensity = QString::number(std::lround(std::min(labour[i], 2.0e9)));
        item.lineWidth = item.labourIntensity;
        item.crew = crews[i].join(QStringLiteral(", "));
    }
}

// The amount of each resource in use per working day, as a step curve in minutes: each assignment
// adds its daily amount from its task's early start to its early finish.
void Builder::computeCurves() {
    QVector<QVector<QPair<qint64, double>>> events(out.resources.size());
    for (const ImportedAssignment& assignment : in.assignments) {
        const int item = m_itemOfTask[m_taskOfId.value(assignment.task)];
        if (item < 0 || out.workItems[item].duration <= 0)
            continue;
        const WorkItemData& work = out.workItems[item];
        const double perDay = assignment.unitsPerDay >= 0.0 ? assignment.unitsPerDay
                                                            : std::max(assignment.total, 0.0) / work.duration;
        const int resource = m_resourceOfId.value(assignment.resource);
        events[resource].append(qMakePair(qint64(work.start) * 1440, perDay));
        events[resource].append(qMakePair(qint64(work.finish) * 1440, -perDay));
    }
    for (int r = 0; r < events.size(); ++r) {
        if (events[r].isEmpty())
            continue;
        std::sort(
            events[r].begin(), events[r].end(),
            [](const QPair<qint64, double>& a, const QPair<qint64, double>& b) { return a.first < b.first; });
        CurveData curve;
        curve.name = out.resources[r].name;
        double level = 0.0;
        for (int e = 0; e < events[r].size(); ++e) {
            const qint64 minute = events[r][e].first;
            if (minute > 0 && (curve.points.isEmpty() || curve.points.last().minute < minute)) {
                if (!curve.points.isEmpty() && std::fabs(curve.points.last().amount - level) < 1e-9)
                    curve.points.last().minute = int(minute); // the same amount goes on
                else
                    curve.points.append(CurvePoint{int(minute), std::fabs(level) < 1e-9 ? 0.0 : level});
            }
            level += events[r][e].second;
        }
        out.curves.append(curve);
    }
}

bool Builder::resolveDiagram() {
    out.hasDiagram = in.hasDiagram;
    out.diagram.nodes = in.diagramNodes;
    for (const ImportedArrow& arrow : in.arrows) {
        ArrowData data{arrow.from, arrow.to, -1};
        if (!arrow.workItem.isEmpty()) {
            const int task = m_taskOfId.value(arrow.workItem, -1);
            if (task < 0 || m_summary[task])
                return fail(arrow.where,
                            QStringLiteral("expected the id of a work item, found %1, which no work "
                                           "item has")
                                .arg(arrow.workItem));
            data.workItem = m_itemOfTask[task];
        }
        out.diagram.arrows.append(data);
    }
    QVector<int> cycle;
    if (!diagramIsAcyclic(out.diagram, cycle)) {
        QStringList nodes;
        for (int node : cycle)
            nodes << QString::number(node);
        return fail(in.diagramWhere,
                    QStringLiteral("expected arrows without a cycle, found the cycle through nodes %1")
                        .arg(nodes.join(QStringLiteral(" → "))));
    }
    return true;
}

void Builder::finishGantt() {
    out.gantt.timeUnit = in.timeUnit.isEmpty() ? options.timeUnit.value_or(QString()) : in.timeUnit;
    out.gantt.rowsPerPage = in.rowsPerPage.value_or(options.rowsPerPage.value_or(0));
    if (in.ganttOrder) {
        for (const QString& name : *in.ganttOrder)
            out.gantt.order << tidyName(name);
    } else {
        for (const WorkItemData& item : out.workItems)
            out.gantt.order << item.name;
    }
}

bool Builder::run() {
    out.scene = in.scene.value_or(options.scene.value_or(MarkCode::ScenePlain));
    if (!indexTasks())
        return false;
    markSummaries();
    if (!makeWorkItems())
        return false;
    checkNames();
    if (!resolveLinks() || !resolveResources() || !resolveDiagram())
        return false;
    applyAssignments();
    out.curves = in.curves;
    for (CurveData& curve : out.curves)
        curve.name = options.resourceNames.value(tidyName(curve.name), tidyName(curve.name));
    if (in.curves.isEmpty())
        computeCurves();
    finishGantt();
    return true;
}

} // namespace

QString tidyName(const QString& name) {
    return name.simplified();
}

bool buildSchedule(const ImportedSchedule& in, const ImportOptions& options, ScheduleProject& out,
                   ReadError& error) {
    out = ScheduleProject();
    Builder builder(in, options, out, error);
    if (builder.run())
        return true;
    out = ScheduleProject();
    return false;
}

} // namespace Host
