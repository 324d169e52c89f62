#include "htmlcompare.h"

#include "scheduleanalysis.h"

#include <QHash>
#include <QSet>

namespace Grade {

namespace {

const double minutesPerDay = 1440.0;

ItemChange changeOf(const Host::WorkItemData& standard, const Host::WorkItemData& candidate) {
    return standard.start == candidate.start && standard.duration == candidate.duration ? ItemChange::Same
                                                                                        : ItemChange::Changed;
}

// Every distinct link of a project as names, in item order.
QList<NamedLink> namedLinks(const Host::ScheduleProject& project) {
    QList<NamedLink> links;
    const QList<Host::WorkItemData>& items = project.workItems;
    for (const Host::WorkItemData& item : items)
        for (int predecessor : item.predecessors)
            if (predecessor >= 0 && predecessor < items.size()) {
                const NamedLink link{items[predecessor].name, item.name};
                if (!links.contains(link))
                    links.append(link);
            }
    return links;
}

QList<NamedLink> linksNotIn(const QList<NamedLink>& links, const QList<NamedLink>& others) {
    QSet<QString> known;
    for (const NamedLink& link : others)
        known.insert(link.predecessor + QChar(0) + link.successor);
    QList<NamedLink> result;
    for (const NamedLink& link : links)
        if (!known.contains(link.predecessor + QChar(0) + link.successor))
            result.append(link);
    return result;
}

} // namespace

QList<GanttRow> compareWorkItems(const Host::ScheduleProject& standard,
                                 const Host::ScheduleProject& candidate) {
    QHash<QString, QList<int>> unmatched; // the candidate's positions by name, first first
    for (int i = 0; i < candidate.workItems.size(); ++i)
        unmatched[candidate.workItems[i].name].append(i);
    QVector<bool> matched(candidate.workItems.size(), false);
    QList<GanttRow> rows;
    for (const Host::WorkItemData& item : standard.workItems) {
        GanttRow row{item.name, ItemChange::Missing, &item, nullptr};
        QList<int>& positions = unmatched[item.name];
        if (!positions.isEmpty()) {
            const int position = positions.takeFirst();
            matched[position] = true;
            row.candidate = &candidate.workItems[position];
            row.change = changeOf(item, *row.candidate);
        }
        rows.append(row);
    }
    for (int i = 0; i < candidate.workItems.size(); ++i)
        if (!matched[i])
            rows.append(
                GanttRow{candidate.workItems[i].name, ItemChange::Extra, nullptr, &candidate.workItems[i]});
    return rows;
}

LogicDifferences compareLogic(const Host::ScheduleProject& standard, const Host::ScheduleProject& candidate) {
    const QList<NamedLink> standardLinks = namedLinks(standard);
    const QList<NamedLink> candidateLinks = namedLinks(candidate);
    return LogicDifferences{linksNotIn(standardLinks, candidateLinks),
                            linksNotIn(candidateLinks, standardLinks)};
}

QList<CurvePair> pairCurves(const Host::ScheduleProject& standard, const Host::ScheduleProject& candidate) {
    QList<CurvePair> pairs;
    QHash<QString, int> pairOf;
    for (const Host::CurveData& curve : standard.curves)
        if (!pairOf.contains(curve.name)) {
            pairOf.insert(curve.name, pairs.size());
            pairs.append(CurvePair{curve.name, &curve, nullptr});
        }
    for (const Host::CurveData& curve : candidate.curves) {
        const int pair = pairOf.value(curve.name, -1);
        if (pair < 0) {
            pairOf.insert(curve.name, pairs.size());
            pairs.append(CurvePair{curve.name, nullptr, &curve});
        } else if (!pairs[pair].candidate) {
            pairs[pair].candidate = &curve;
        }
    }
    return pairs;
}

QVector<Svg::Step> curveSteps(const Host::CurveData& curve) {
    QVector<Svg::Step> steps;
    steps.reserve(curve.points.size());
    for (const Host::CurvePoint& point : curve.points)
        steps.append(Svg::Step{point.minute / minutesPerDay, point.amount});
    return steps;
}

double curveEndDay(const Host::CurveData& curve) {
    return curve.points.isEmpty() ? 0.0 : curve.points.last().minute / minutesPerDay;
}

double curveFluctuation(const Host::CurveData& curve, int totalDays) {
    return Host::timeWeightedVariance({&curve}, qint64(totalDays) * 1440);
}

} // namespace Grade
