// The drawing unit of the HTML report: linear scales, tick values, axes, step paths, bars and
// histogram bins, written as SVG elements through a QXmlStreamWriter. It knows nothing of schedules
// or marks; the report's figures are composed from these pieces.
#ifndef SVGCHART_H
#define SVGCHART_H

#include <QRectF>
#include <QString>
#include <QVector>

class QXmlStreamWriter;

namespace Grade {
namespace Svg {

// Maps the domain [domainMin, domainMax] linearly onto [rangeMin, rangeMax]; an empty domain maps
// everything to rangeMin.
class LinearScale {
public:
    LinearScale(double domainMin, double domainMax, double rangeMin, double rangeMax);
    double operator()(double value) const;
    double domainMin() const { return m_domainMin; }
    double domainMax() const { return m_domainMax; }
    double rangeMin() const { return m_rangeMin; }
    double rangeMax() const { return m_rangeMax; }

private:
    double m_domainMin, m_domainMax, m_rangeMin, m_rangeMax;
};

// At most maxCount round tick values (steps of 1, 2 or 5 times a power of ten) from the first multiple
// of the step at or above min to the last at or below max; {min} when min >= max.
QVector<double> niceTicks(double min, double max, int maxCount);
// The smallest tick value at or above max, so that an axis ends on a round number (max when <= 0).
double niceCeiling(double max, int maxCount);

// A step function from x = 0: level holds from the previous step's until (0 for the first) up to
// until; before the first and after the last step the level is 0.
struct Step {
    double until = 0.0;
    double level = 0.0;
};
// The SVG path data of the steps: starts on the x axis at 0, rises and falls vertically, ends on the
// x axis after the last step.
QString stepPath(const QVector<Step>& steps, const LinearScale& x, const LinearScale& y);

// A coordinate as SVG text: one decimal, no trailing zero ("12", "12.5", "-3").
QString coordinate(double value);
// A value for a label: up to two decimals, no trailing zeros.
QString labelNumber(double value);

// The width of text in the report's fonts, estimated: CJK and other wide characters one em, the rest
// six tenths of an em. Used to size label columns without measuring fonts.
double textWidth(const QString& text, double fontSize);

// The bar of [start, finish] on the x scale in the row whose top is rowTop; at least 1 wide, so that
// a zero-length item stays visible.
QRectF barRect(const LinearScale& x, double start, double finish, double rowTop, double rowHeight);

// Counts of values per bin: count equal bins over [min, max], values outside clamped to the end bins.
QVector<int> histogram(const QVector<double>& values, double min, double max, int count);

// The space around a chart's plot area and the height that a horizontal axis with its ticks and label
// takes below it, shared by every chart so that they line up on a page.
const double chartMargin = 10.0;
const double axisHeight = 36.0;

// <svg> with viewBox, width, a class and an accessible <title>; close it with writeEndElement().
void beginSvg(QXmlStreamWriter& out, double width, double height, const QString& cssClass,
              const QString& title);
// A horizontal axis at y (its line along the scale's range, ticks below), with an optional label.
void writeXAxis(QXmlStreamWriter& out, const LinearScale& x, const QVector<double>& ticks, double y,
                const QString& label);
// A vertical axis at x (ticks to the left), with grid lines across to gridEnd when gridEnd > x.
void writeYAxis(QXmlStreamWriter& out, const LinearScale& y, const QVector<double>& ticks, double x,
                double gridEnd, const QString& label);
void writeRect(QXmlStreamWriter& out, const QRectF& rect, const QString& cssClass, const QString& title);
void writeText(QXmlStreamWriter& out, double x, double y, const QString& text, const QString& cssClass);
void writeLine(QXmlStreamWriter& out, double x1, double y1, double x2, double y2, const QString& cssClass);
void writePath(QXmlStreamWriter& out, const QString& data, const QString& cssClass);

} // namespace Svg
} // namespace Grade

#endif // SVGCHART_H
