#include "svgchart.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace Grade {
namespace Svg {

namespace {

const double tickLength = 4.0;
const double tolerance = 1e-9;

double niceStep(double span, int maxCount) {
    const double rough = span / std::max(1, maxCount - 1);
    const double magnitude = std::pow(10.0, std::floor(std::log10(rough)));
    for (double factor : {1.0, 2.0, 5.0})
        if (factor * magnitude >= rough * (1.0 - tolerance))
            return factor * magnitude;
    return 10.0 * magnitude;
}

QString trimmed(double value, int decimals) {
    if (std::fabs(value) < 0.5 * std::pow(10.0, -decimals))
        value = 0.0; // no "-0"
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text;
}

} // namespace

LinearScale::LinearScale(double domainMin, double domainMax, double rangeMin, double rangeMax)
    : m_domainMin(domainMin), m_domainMax(domainMax), m_rangeMin(rangeMin), m_rangeMax(rangeMax) {}

double LinearScale::operator()(double value) const {
    const double span = m_domainMax - m_domainMin;
    if (std::fabs(span) < tolerance)
        return m_rangeMin;
    return m_rangeMin + (value - m_domainMin) / span * (m_rangeMax - m_rangeMin);
}

QVector<double> niceTicks(double min, double max, int maxCount) {
    if (!(max > min) || maxCount < 2)
        return {min};
    const double step = niceStep(max - min, maxCount);
    QVector<double> ticks;
    for (double tick = std::ceil(min / step - tolerance) * step; tick <= max + step * tolerance; tick += step)
        ticks.append(std::fabs(tick) < step * tolerance ? 0.0 : tick);
    return ticks;
}

double niceCeiling(double max, int maxCount) {
    if (max <= 0.0)
        return max;
    const double step = niceStep(max, maxCount);
    return std::ceil(max / step - tolerance) * step;
}

QString stepPath(const QVector<Step>& steps, const LinearScale& x, const LinearScale& y) {
    const QString zero = coordinate(y(0.0));
    QString path = QStringLiteral("M") + coordinate(x(0.0)) + QLatin1Char(' ') + zero;
    for (const Step& step : steps)
        path +=
            QStringLiteral("V") + coordinate(y(step.level)) + QStringLiteral("H") + coordinate(x(step.until));
    if (!steps.isEmpty())
        path += QStringLiteral("V") + zero;
    return path;
}

QString coordinate(double value) {
    return trimmed(value, 1);
}

QString labelNumber(double value) {
    return trimmed(value, 2);
}

double textWidth(const QString& text, double fontSize) {
    double ems = 0.0;
    for (const QChar c : text)
        ems += c.unicode() >= 0x2e80 || (c.unicode() >= 0x1100 && c.unicode() < 0x1200) ? 1.0 : 0.6;
    return ems * fontSize;
}

QRectF barRect(const LinearScale& x, double start, double finish, double rowTop, double rowHeight) {
    const double left = x(start);
    const double width = std::max(1.0, x(finish) - left);
    return QRectF(left, rowTop, width, rowHeight);
}

QVector<int> histogram(const QVector<double>& values, double min, double max, int count) {
    QVector<int> bins(std::max(1, count), 0);
    const double width = (max - min) / bins.size();
    for (double value : values) {
        int bin = width > 0.0 ? static_cast<int>(std::floor((value - min) / width)) : 0;
        bins[std::clamp(bin, 0, bins.size() - 1)] += 1;
    }
    return bins;
}

void beginSvg(QXmlStreamWriter& out, double width, double height, const QString& cssClass,
              const QString& title) {
    out.writeStartElement(QStringLiteral("svg"));
    out.writeAttribute(QStringLiteral("class"), cssClass);
    out.writeAttribute(QStringLiteral("viewBox"),
                       QStringLiteral("0 0 %1 %2").arg(coordinate(width), coordinate(height)));
    out.writeAttribute(QStringLiteral("width"), coordinate(width));
    out.writeAttribute(QStringLiteral("role"), QStringLiteral("img"));
    out.writeTextElement(QStringLiteral("title"), title);
}

void writeXAxis(QXmlStreamWriter& out, const LinearScale& x, const QVector<double>& ticks, double y,
                const QString& label) {
    writeLine(out, x.rangeMin(), y, x.rangeMax(), y, QStringLiteral("axis"));
    for (double tick : ticks) {
        writeLine(out, x(tick), y, x(tick), y + tickLength, QStringLiteral("axis"));
        writeText(out, x(tick), y + tickLength + 11, labelNumber(tick), QStringLiteral("tick x"));
    }
    if (!label.isEmpty())
        writeText(out, x.rangeMax(), y + tickLength + 24, label, QStringLiteral("label x"));
}

void writeYAxis(QXmlStreamWriter& out, const LinearScale& y, const QVector<double>& ticks, double x,
                double gridEnd, const QString& label) {
    writeLine(out, x, y.rangeMin(), x, y.rangeMax(), QStringLiteral("axis"));
    for (double tick : ticks) {
        if (gridEnd > x)
            writeLine(out, x, y(tick), gridEnd, y(tick), QStringLiteral("grid"));
        writeLine(out, x - tickLength, y(tick), x, y(tick), QStringLiteral("axis"));
        writeText(out, x - tickLength - 2, y(tick) + 4, labelNumber(tick), QStringLiteral("tick y"));
    }
    if (!label.isEmpty())
        writeText(out, x + tickLength, y.rangeMax() - 6, label, QStringLiteral("label y"));
}

void writeRect(QXmlStreamWriter& out, const QRectF& rect, const QString& cssClass, const QString& title) {
    out.writeStartElement(QStringLiteral("rect"));
    out.writeAttribute(QStringLiteral("x"), coordinate(rect.x()));
    out.writeAttribute(QStringLiteral("y"), coordinate(rect.y()));
    out.writeAttribute(QStringLiteral("width"), coordinate(rect.width()));
    out.writeAttribute(QStringLiteral("height"), coordinate(rect.height()));
    out.writeAttribute(QStringLiteral("class"), cssClass);
    if (!title.isEmpty())
        out.writeTextElement(QStringLiteral("title"), title);
    out.writeEndElement();
}

void writeText(QXmlStreamWriter& out, double x, double y, const QString& text, const QString& cssClass) {
    out.writeStartElement(QStringLiteral("text"));
    out.writeAttribute(QStringLiteral("x"), coordinate(x));
    out.writeAttribute(QStringLiteral("y"), coordinate(y));
    out.writeAttribute(QStringLiteral("class"), cssClass);
    out.writeCharacters(text);
    out.writeEndElement();
}

void writeLine(QXmlStreamWriter& out, double x1, double y1, double x2, double y2, const QString& cssClass) {
    out.writeEmptyElement(QStringLiteral("line"));
    out.writeAttribute(QStringLiteral("x1"), coordinate(x1));
    out.writeAttribute(QStringLiteral("y1"), coordinate(y1));
    out.writeAttribute(QStringLiteral("x2"), coordinate(x2));
    out.writeAttribute(QStringLiteral("y2"), coordinate(y2));
    out.writeAttribute(QStringLiteral("class"), cssClass);
}

void writePath(QXmlStreamWriter& out, const QString& data, const QString& cssClass) {
    out.writeEmptyElement(QStringLiteral("path"));
    out.writeAttribute(QStringLiteral("d"), data);
    out.writeAttribute(QStringLiteral("class"), cssClass);
}

} // namespace Svg
} // namespace Grade
