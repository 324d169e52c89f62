#include "htmlschedule.h"

#include "htmlpage.h"
#include "svgchart.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace Grade {
namespace Html {

namespace {

const double fontSize = 11.0;
const double rowHeight = 20.0;
const double plotWidth = 620.0;
const double margin = Svg::chartMargin;
using Svg::axisHeight;
const double curveWidth = 640.0;
const double curveHeight = 150.0;
const double curveLeft = 48.0;

const QString classes[] = {QStringLiteral("same"), QStringLiteral("missing"), QStringLiteral("extra"),
                           QStringLiteral("changed")};
const QString symbols[] = {QString(), QStringLiteral("✗ "), QStringLiteral("+ "), QStringLiteral("Δ ")};

QString changeClass(ItemChange change) {
    return classes[static_cast<int>(change)];
}

QString itemTitle(const QString& side, const Host::WorkItemData& item) {
    return QStringLiteral("%1 %2: day %3 to %4, %5 days%6")
        .arg(side, item.name)
        .arg(item.start)
        .arg(item.finish)
        .arg(item.duration)
        .arg(item.critical ? QStringLiteral(", critical") : QString());
}

void writeItemBar(QXmlStreamWriter& out, const Svg::LinearScale& x, const Host::WorkItemData& item,
                  bool standard, double rowTop) {
    const QRectF rect = standard ? Svg::barRect(x, item.start, item.finish, rowTop + 3, 6)
                                 : Svg::barRect(x, item.start, item.finish, rowTop + 10, 8);
    QString cssClass = standard ? QStringLiteral("std") : QStringLiteral("cand");
    if (item.critical)
        cssClass += QStringLiteral(" critical");
    Svg::writeRect(out, rect, cssClass,
                   itemTitle(standard ? QStringLiteral("standard") : QStringLiteral("candidate"), item));
}

void writeRowBackground(QXmlStreamWriter& out, const Svg::LinearScale& x, const GanttRow& row,
                        double rowTop) {
    if (row.change != ItemChange::Same)
        Svg::writeRect(out, QRectF(0, rowTop, x.rangeMax() + margin, rowHeight),
                       QStringLiteral("row-") + changeClass(row.change), QString());
}

void writeGanttRow(QXmlStreamWriter& out, const Svg::LinearScale& x, const GanttRow& row, double rowTop) {
    Svg::writeText(out, 4, rowTop + 14, symbols[static_cast<int>(row.change)] + row.name,
                   QStringLiteral("name ") + changeClass(row.change));
    if (row.standard)
        writeItemBar(out, x, *row.standard, true, rowTop);
    if (row.candidate)
        writeItemBar(out, x, *row.candidate, false, rowTop);
}

// A legend entry: a swatch of the figure's style when swatch is given, and its text.
void legendItem(QXmlStreamWriter& out, const QString& swatch, const QString& text) {
    open(out, QStringLiteral("span"), QStringLiteral("item"));
    if (!swatch.isEmpty())
        element(out, QStringLiteral("span"), QStringLiteral("swatch ") + swatch, QString());
    out.writeCharacters(text);
    out.writeEndElement();
}

void writeGanttLegend(QXmlStreamWriter& out, const QList<GanttRow>& rows) {
    int counts[4] = {0, 0, 0, 0};
    for (const GanttRow& row : rows)
        ++counts[static_cast<int>(row.change)];
    open(out, QStringLiteral("p"), QStringLiteral("legend"));
    legendItem(out, QStringLiteral("std"), QStringLiteral("standard"));
    legendItem(out, QStringLiteral("cand"), QStringLiteral("candidate"));
    legendItem(out, QStringLiteral("critical"), QStringLiteral("critical path"));
    legendItem(out, QString(), QStringLiteral("✗ missing: %1").arg(counts[1]));
    legendItem(out, QString(), QStringLiteral("+ extra: %1").arg(counts[2]));
    legendItem(out, QString(), QStringLiteral("Δ start or duration changed: %1").arg(counts[3]));
    out.writeEndElement();
}

void writeCurveValues(QXmlStreamWriter& out, const CurvePair& pair, int standardDays, int candidateDays) {
    auto value = [](const Host::CurveData* curve, int days) {
        if (!curve)
            return QStringLiteral("not drawn");
        const double variance = curveFluctuation(*curve, days);
        return variance < 0 ? QStringLiteral("no duration") : Svg::labelNumber(variance);
    };
    element(out, QStringLiteral("span"), QStringLiteral("curve-values"),
            QStringLiteral("fluctuation (time-weighted variance): standard %1 · candidate %2")
                .arg(value(pair.standard, standardDays), value(pair.candidate, candidateDays)));
}

double scheduleDays(const Host::ScheduleProject& standard, const Host::ScheduleProject& candidate) {
    double days = std::max({standard.totalDays, candidate.totalDays, 1});
    for (const Host::CurveData& curve : standard.curves)
        days = std::max(days, curveEndDay(curve));
    for (const Host::CurveData& curve : candidate.curves)
        days = std::max(days, curveEndDay(curve));
    return days;
}

void writeLogicList(QXmlStreamWriter& out, const QString& heading, const QList<NamedLink>& links) {
    element(out, QStringLiteral("h3"), QString(), QStringLiteral("%1 (%2)").arg(heading).arg(links.size()));
    if (links.isEmpty())
        return;
    open(out, QStringLiteral("ul"), QStringLiteral("links"));
    for (const NamedLink& link : links)
        element(out, QStringLiteral("li"), QString(),
                link.predecessor + QStringLiteral(" → ") + link.successor);
    out.writeEndElement();
}

} // namespace

void writeGanttChart(QXmlStreamWriter& out, const QList<GanttRow>& rows, double days) {
    double labelWidth = 60.0;
    for (const GanttRow& row : rows)
        labelWidth = std::max(
            labelWidth, Svg::textWidth(symbols[static_cast<int>(row.change)] + row.name, fontSize) + 14);
    const double plotBottom = margin + rows.size() * rowHeight;
    const Svg::LinearScale x(0, days, labelWidth, labelWidth + plotWidth);
    Svg::beginSvg(out, labelWidth + plotWidth + margin * 2, plotBottom + axisHeight, QStringLiteral("gantt"),
                  QStringLiteral("Gantt chart: standard and candidate"));
    for (int i = 0; i < rows.size(); ++i)
        writeRowBackground(out, x, rows[i], margin + i * rowHeight);
    const QVector<double> ticks = Svg::niceTicks(0, days, 12);
    for (double tick : ticks)
        Svg::writeLine(out, x(tick), margin, x(tick), plotBottom, QStringLiteral("grid"));
    for (int i = 0; i < rows.size(); ++i)
        writeGanttRow(out, x, rows[i], margin + i * rowHeight);
    Svg::writeXAxis(out, x, ticks, plotBottom, QStringLiteral("days"));
    out.writeEndElement();
}

void writeCurveChart(QXmlStreamWriter& out, const CurvePair& pair, double days) {
    double top = 1.0;
    for (const Host::CurveData* curve : {pair.standard, pair.candidate})
        if (curve)
            for (const Host::CurvePoint& point : curve->points)
                top = std::max(top, point.amount);
    top = Svg::niceCeiling(top, 5);
    const double plotBottom = curveHeight - axisHeight;
    const Svg::LinearScale x(0, days, curveLeft, curveWidth - margin);
    const Svg::LinearScale y(0, top, plotBottom, margin + 6);
    Svg::beginSvg(out, curveWidth, curveHeight, QStringLiteral("curve"), pair.name);
    Svg::writeYAxis(out, y, Svg::niceTicks(0, top, 5), curveLeft, curveWidth - margin,
                    QStringLiteral("amount"));
    Svg::writeXAxis(out, x, Svg::niceTicks(0, days, 10), plotBottom, QStringLiteral("days"));
    // The standard's dashes over the candidate's line, so that both show where they coincide.
    if (pair.candidate)
        Svg::writePath(out, Svg::stepPath(curveSteps(*pair.candidate), x, y), QStringLiteral("cand"));
    if (pair.standard)
        Svg::writePath(out, Svg::stepPath(curveSteps(*pair.standard), x, y), QStringLiteral("std"));
    out.writeEndElement();
}

namespace {

void writeGanttSection(QXmlStreamWriter& out, const QList<GanttRow>& rows, double days) {
    section(out, QStringLiteral("gantt"), QStringLiteral("Gantt chart"));
    writeGanttLegend(out, rows);
    open(out, QStringLiteral("figure"), QString());
    writeGanttChart(out, rows, days);
    out.writeEndElement();
    out.writeEndElement();
}

void writeCurvesSection(QXmlStreamWriter& out, const Host::ScheduleProject& standard,
                        const Host::ScheduleProject& candidate, double days) {
    section(out, QStringLiteral("curves"), QStringLiteral("Resource curves"));
    open(out, QStringLiteral("p"), QStringLiteral("legend"));
    legendItem(out, QStringLiteral("dashed"), QStringLiteral("standard"));
    legendItem(out, QStringLiteral("solid"), QStringLiteral("candidate"));
    out.writeEndElement();
    for (const CurvePair& pair : pairCurves(standard, candidate)) {
        open(out, QStringLiteral("figure"), QString());
        open(out, QStringLiteral("figcaption"), QString());
        element(out, QStringLiteral("strong"), QString(), pair.name + QStringLiteral(": "));
        writeCurveValues(out, pair, standard.totalDays, candidate.totalDays);
        out.writeEndElement();
        writeCurveChart(out, pair, days);
        out.writeEndElement();
    }
    out.writeEndElement();
}

void writeLogicSection(QXmlStreamWriter& out, const LogicDifferences& logic) {
    section(out, QStringLiteral("logic"), QStringLiteral("Logic differences"));
    writeLogicList(out, QStringLiteral("Links missing"), logic.missing);
    writeLogicList(out, QStringLiteral("Links extra"), logic.extra);
    out.writeEndElement();
}

} // namespace

void writeScheduleSections(QXmlStreamWriter& out, const Host::ScheduleProject& standard,
                           const Host::ScheduleProject& candidate) {
    const double days = scheduleDays(standard, candidate);
    writeGanttSection(out, compareWorkItems(standard, candidate), days);
    writeCurvesSection(out, standard, candidate, days);
    writeLogicSection(out, compareLogic(standard, candidate));
}

} // namespace Html
} // namespace Grade
