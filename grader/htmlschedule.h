// The schedule sections of a candidate's page: the Gantt chart of the standard and the candidate on
// one time axis, their resource curves overlaid per resource, and the links one has and the other
// lacks. Each figure is an inline SVG drawn with the svgchart unit.
#ifndef HTMLSCHEDULE_H
#define HTMLSCHEDULE_H

#include "htmlcompare.h"

class QXmlStreamWriter;

namespace Grade {
namespace Html {

void writeScheduleSections(QXmlStreamWriter& out, const Host::ScheduleProject& standard,
                           const Host::ScheduleProject& candidate);

// One <svg class="gantt">: a row per item, the standard's bar above the candidate's, over [0, days].
void writeGanttChart(QXmlStreamWriter& out, const QList<GanttRow>& rows, double days);
// One <svg class="curve">: the standard's curve dashed, the candidate's solid, over [0, days].
void writeCurveChart(QXmlStreamWriter& out, const CurvePair& pair, double days);

} // namespace Html
} // namespace Grade

#endif // HTMLSCHEDULE_H
