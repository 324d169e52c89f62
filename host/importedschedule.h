// A schedule as a file format gives it, before the host's shared finishing step (schedulebuilder.h)
// turns it into a ScheduleProject: tasks keep the file's own ids, summaries and fractional
// durations, links name their predecessor by id, and each element remembers where in the file it
// stands so that a later error can point there. Every reader under formats/ fills one of these.
#ifndef IMPORTEDSCHEDULE_H
#define IMPORTEDSCHEDULE_H

#include "projectmodel.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Host {

struct ImportedLink {
    QString predecessor; // the predecessor task's id
    LinkType type = LinkType::FinishToStart;
    double lagDays = 0.0; // working days; negative for a lead
    QString where;
};

struct ImportedTask {
    QString id; // unique within the file
    QString name;
    QString where; // location in the file, for messages
    // The outline decides: a task is a summary when the next task has a deeper outline level. The
    // file's own summary flag is kept, but a flagged task with nothing below it is read as a leaf.
    int outlineLevel = 1;
    bool summary = false;
    bool milestone = false;
    double durationDays = 0.0; // working days
    // The file's own "fixed duration" flag, when its format has one.
    std::optional<bool> fixedDuration;
    QString color; // any notation of colours.h
    // Attributes only our own format carries.
    QString quantityCode;
    QString quantityName;
    QString unit;
    double plannedQuantity = 0.0;
    QString lineWidth;
    QString labourIntensity;
    QString crew;
    double materialTotal = 0.0;
    QList<ImportedLink> links;
};

struct ImportedResource {
    QString id;
    QString name;
    QString code;
    QString unit;
    bool labour = true;         // a work resource (people) rather than a material or a cost
    double plannedTotal = -1.0; // as the file states it; < 0: summed from the assignments
    QString where;
};

struct ImportedAssignment {
    QString task;
    QString resource;
    double unitsPerDay = -1.0; // amount in use per working day (1.0 = one worker); < 0: unknown
    double total = -1.0;       // amount over the whole task; < 0: unknown
    QString where;
};

struct ImportedArrow {
    int from = 0;
    int to = 0;
    QString workItem; // task id; empty for a dummy arrow
    QString where;
};

struct ImportedSchedule {
    QString format;             // "MS Project XML", ... for messages and reports
    std::optional<int> scene;   // only our own format states it
    bool explicitFlags = false; // the file states the fixed-duration flag of every task
    QList<ImportedTask> tasks;  // in file order
    QString tasksWhere;         // where the tasks stand, for an error about all of them
    QList<ImportedResource> resources;
    QList<ImportedAssignment> assignments;
    QList<CurveData> curves; // drawn curves (our format); otherwise computed from the assignments
    bool hasDiagram = false;
    QList<int> diagramNodes;
    QString diagramWhere;
    QList<ImportedArrow> arrows;
    QString timeUnit;
    std::optional<int> rowsPerPage;
    std::optional<QStringList> ganttOrder;
};

} // namespace Host

#endif // IMPORTEDSCHEDULE_H
