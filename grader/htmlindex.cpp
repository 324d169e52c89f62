#include "htmlindex.h"

#include "htmlpage.h"
#include "report.h"
#include "svgchart.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace Grade {
namespace Html {

namespace {

const int histogramBins = 20;
const int lostCriteriaShown = 20;
const double chartWidth = 560.0;
const double chartHeight = 200.0;
const double left = 40.0;
const double margin = Svg::chartMargin;
using Svg::axisHeight;

void cell(QXmlStreamWriter& out, const QString& text, const QString& sortKey, const QString& cssClass) {
    open(out, QStringLiteral("td"), cssClass);
    if (!sortKey.isNull())
        out.writeAttribute(QStringLiteral("data-sort"), sortKey);
    out.writeCharacters(text);
    out.writeEndElement();
}

void numberCell(QXmlStreamWriter& out, double value) {
    if (std::isnan(value))
        cell(out, QStringLiteral("—"), QStringLiteral("-1"), QStringLiteral("num"));
    else
        cell(out, marksText(value), QString::number(value, 'g', 12), QStringLiteral("num"));
}

void headerRow(QXmlStreamWriter& out, const QStringList& titles, bool sortable) {
    out.writeStartElement(QStringLiteral("thead"));
    out.writeStartElement(QStringLiteral("tr"));
    for (const QString& title : titles) {
        out.writeStartElement(QStringLiteral("th"));
        if (sortable)
            element(out, QStringLiteral("button"), QString(), title);
        else
            out.writeCharacters(title);
        out.writeEndElement();
    }
    out.writeEndElement();
    out.writeEndElement();
}

void summaryRow(QXmlStreamWriter& out, const QString& title, double full, const QVector<double>& scores) {
    const Summary summary = summarize(scores);
    out.writeStartElement(QStringLiteral("tr"));
    cell(out, title, QString(), QString());
    for (double value : {full, summary.mean, summary.median, summary.min, summary.max})
        numberCell(out, summary.count ? value : std::nan(""));
    out.writeEndElement();
}

void writeCategoryTable(QXmlStreamWriter& out, const CohortStats& cohort) {
    element(out, QStringLiteral("h3"), QString(), QStringLiteral("Marks per category"));
    open(out, QStringLiteral("table"), QStringLiteral("stats"));
    headerRow(out,
              {QStringLiteral("Category"), QStringLiteral("Full marks"), QStringLiteral("Mean"),
               QStringLiteral("Median"), QStringLiteral("Min"), QStringLiteral("Max")},
              false);
    out.writeStartElement(QStringLiteral("tbody"));
    summaryRow(out, QStringLiteral("Total"), cohort.totalFull(), cohort.totals());
    for (const CohortColumn& column : cohort.columns())
        summaryRow(out, column.title, column.full, column.scores);
    out.writeEndElement();
    out.writeEndElement();
}

void writeLossTable(QXmlStreamWriter& out, const CohortStats& cohort) {
    element(out, QStringLiteral("h3"), QString(), QStringLiteral("Criteria lost most often"));
    const QList<CriterionLoss> losses = cohort.mostLost(lostCriteriaShown);
    if (losses.isEmpty()) {
        element(out, QStringLiteral("p"), QString(), QStringLiteral("No candidate lost marks."));
        return;
    }
    open(out, QStringLiteral("table"), QStringLiteral("losses"));
    headerRow(out,
              {QStringLiteral("Criterion"), QStringLiteral("Candidates who lost it"),
               QStringLiteral("Marks lost on average (by them)")},
              false);
    out.writeStartElement(QStringLiteral("tbody"));
    for (const CriterionLoss& loss : losses) {
        out.writeStartElement(QStringLiteral("tr"));
        cell(out, loss.path, QString(), QString());
        cell(out,
             QStringLiteral("%1 % (%2 of %3)")
                 .arg(100.0 * loss.candidates / std::max(1, cohort.graded()), 0, 'f', 1)
                 .arg(loss.candidates)
                 .arg(cohort.graded()),
             QString(), QStringLiteral("num"));
        numberCell(out, loss.marksLost / loss.candidates);
        out.writeEndElement();
    }
    out.writeEndElement();
    out.writeEndElement();
}

void candidateRow(QXmlStreamWriter& out, const CohortRow& row, int columns) {
    out.writeStartElement(QStringLiteral("tr"));
    open(out, QStringLiteral("td"), QString());
    out.writeAttribute(QStringLiteral("data-sort"), row.file);
    if (row.page.isEmpty())
        out.writeCharacters(row.file);
    else
        link(out, row.page, row.file);
    out.writeEndElement();
    if (!row.graded) {
        cell(out, QStringLiteral("not graded"), QStringLiteral("-1"), QStringLiteral("error"));
        for (int i = 0; i < columns; ++i)
            numberCell(out, std::nan(""));
    } else {
        numberCell(out, row.obtained);
        for (int i = 0; i < columns; ++i)
            numberCell(out, row.category(i));
    }
    out.writeEndElement();
}

void writeCandidateTable(QXmlStreamWriter& out, const CohortStats& cohort) {
    element(out, QStringLiteral("h3"), QString(), QStringLiteral("Candidates"));
    QStringList titles{QStringLiteral("Candidate"), QStringLiteral("Total")};
    for (const CohortColumn& column : cohort.columns())
        titles << column.title;
    open(out, QStringLiteral("table"), QStringLiteral("sortable candidates"));
    headerRow(out, titles, true);
    out.writeStartElement(QStringLiteral("tbody"));
    for (const CohortRow& row : cohort.rows())
        candidateRow(out, row, cohort.columns().size());
    out.writeEndElement();
    out.writeEndElement();
}

void writeBroken(QXmlStreamWriter& out, const CohortStats& cohort) {
    const int broken = cohort.rows().size() - cohort.graded();
    if (broken == 0)
        return;
    element(out, QStringLiteral("h3"), QString(), QStringLiteral("Not graded (%1)").arg(broken));
    open(out, QStringLiteral("ul"), QStringLiteral("broken"));
    for (const CohortRow& row : cohort.rows())
        if (!row.graded)
            element(out, QStringLiteral("li"), QStringLiteral("error"), row.error);
    out.writeEndElement();
}

QString cohortId(int number) {
    return QStringLiteral("cohort-%1").arg(number);
}

// Links to the cohorts, when there is more than one.
void writeContents(QXmlStreamWriter& out, const QList<CohortStats>& cohorts) {
    if (cohorts.size() < 2)
        return;
    open(out, QStringLiteral("ul"), QStringLiteral("contents"));
    for (int i = 0; i < cohorts.size(); ++i) {
        out.writeStartElement(QStringLiteral("li"));
        link(out, QLatin1Char('#') + cohortId(i + 1), cohorts[i].standardFile());
        out.writeCharacters(QStringLiteral(": %1 candidates").arg(cohorts[i].rows().size()));
        out.writeEndElement();
    }
    out.writeEndElement();
}

void writeCohort(QXmlStreamWriter& out, const CohortStats& cohort, int number) {
    open(out, QStringLiteral("section"), QStringLiteral("cohort"));
    out.writeAttribute(QStringLiteral("id"), cohortId(number));
    element(out, QStringLiteral("h2"), QString(), QStringLiteral("Standard answer ") + cohort.standardFile());
    element(out, QStringLiteral("p"), QStringLiteral("meta"),
            QStringLiteral("Candidates: %1 (%2 graded, %3 not graded)")
                .arg(cohort.rows().size())
                .arg(cohort.graded())
                .arg(cohort.rows().size() - cohort.graded()));
    open(out, QStringLiteral("figure"), QString());
    writeHistogram(out, cohort.totals(), cohort.totalFull());
    element(out, QStringLiteral("figcaption"), QString(),
            QStringLiteral("Totals of the graded candidates, out of %1").arg(marksText(cohort.totalFull())));
    out.writeEndElement();
    writeCategoryTable(out, cohort);
    writeLossTable(out, cohort);
    writeCandidateTable(out, cohort);
    writeBroken(out, cohort);
    out.writeEndElement();
}

} // namespace

void writeHistogram(QXmlStreamWriter& out, const QVector<double>& totals, double full) {
    const double top = full > 0.0 ? full : 1.0;
    const QVector<int> counts = Svg::histogram(totals, 0.0, top, histogramBins);
    const int most = *std::max_element(counts.cbegin(), counts.cend());
    const double countTop = Svg::niceCeiling(std::max(most, 4), 5);
    const double bottom = chartHeight - axisHeight;
    const Svg::LinearScale x(0, top, left, chartWidth - margin);
    const Svg::LinearScale y(0, countTop, bottom, margin + 6);
    Svg::beginSvg(out, chartWidth, chartHeight, QStringLiteral("histogram"),
                  QStringLiteral("Histogram of the totals"));
    Svg::writeYAxis(out, y, Svg::niceTicks(0, countTop, 5), left, chartWidth - margin,
                    QStringLiteral("candidates"));
    const double binWidth = top / histogramBins;
    for (int i = 0; i < counts.size(); ++i) {
        const QRectF rect(x(i * binWidth), y(counts[i]), x((i + 1) * binWidth) - x(i * binWidth),
                          bottom - y(counts[i]));
        Svg::writeRect(out, rect, QStringLiteral("bin"),
                       QStringLiteral("%1 to %2: %3")
                           .arg(Svg::labelNumber(i * binWidth), Svg::labelNumber((i + 1) * binWidth))
                           .arg(counts[i]));
    }
    Svg::writeXAxis(out, x, Svg::niceTicks(0, top, 11), bottom, QStringLiteral("total"));
    out.writeEndElement();
}

void writeIndexBody(QXmlStreamWriter& out, const QList<CohortStats>& cohorts) {
    element(out, QStringLiteral("h1"), QString(), QStringLiteral("Cohort report"));
    writeContents(out, cohorts);
    for (int i = 0; i < cohorts.size(); ++i)
        writeCohort(out, cohorts[i], i + 1);
}

} // namespace Html
} // namespace Grade
