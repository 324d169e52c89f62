// What the HTML report draws of a schedule: the standard's and the candidate's work items matched by
// name, the links one has and the other lacks, and their resource curves paired by name. Plain
// comparisons of parsed files; the rows point into the projects, which must outlive them.
#ifndef HTMLCOMPARE_H
#define HTMLCOMPARE_H

#include "projectmodel.h"
#include "svgchart.h"

#include <QList>
#include <QString>

namespace Grade {

enum class ItemChange { Same, Missing, Extra, Changed };

// One row of the Gantt chart: a work item of the standard, the candidate or both.
struct GanttRow {
    QString name;
    ItemChange change = ItemChange::Same;
    const Host::WorkItemData* standard = nullptr;  // null for an extra item
    const Host::WorkItemData* candidate = nullptr; // null for a missing item
};

// The standard's items in its order, each with the candidate's item of that name (the n-th of a
// repeated name with the n-th), then the candidate's extra items in its order. An item is changed
// when its start or duration differs.
QList<GanttRow> compareWorkItems(const Host::ScheduleProject& standard,
                                 const Host::ScheduleProject& candidate);

// A direct link as names: predecessor → successor.
struct NamedLink {
    QString predecessor;
    QString successor;
    bool operator==(const NamedLink& other) const {
        return predecessor == other.predecessor && successor == other.successor;
    }
};

struct LogicDifferences {
    QList<NamedLink> missing; // the standard's links the candidate lacks, in the standard's order
    QList<NamedLink> extra;   // the candidate's links the standard lacks, in the candidate's order
};
LogicDifferences compareLogic(const Host::ScheduleProject& standard, const Host::ScheduleProject& candidate);

// The standard's and the candidate's curve of one resource; either may be missing.
struct CurvePair {
    QString name;
    const Host::CurveData* standard = nullptr;
    const Host::CurveData* candidate = nullptr;
};
// The standard's curves in order, then the candidate's curves of other names.
QList<CurvePair> pairCurves(const Host::ScheduleProject& standard, const Host::ScheduleProject& candidate);

// A curve as steps over days: each point's amount holds from the previous point up to its minute.
QVector<Svg::Step> curveSteps(const Host::CurveData& curve);
// The last day a curve reaches (its last point), 0 for no points.
double curveEndDay(const Host::CurveData& curve);
// The curve's fluctuation: its time-weighted variance over the project's duration, the measure the
// rationality category applies to groups of curves; -1 for no duration.
double curveFluctuation(const Host::CurveData& curve, int totalDays);

} // namespace Grade

#endif // HTMLCOMPARE_H
