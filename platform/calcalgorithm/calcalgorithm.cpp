#include "calcalgorithm.h"

#include <QSet>
#include <QStringList>

#include <cmath>
#include <limits>

namespace {

const double kEpsilon = 1e-10;

// Remark texts written when a comparison deducts points.
QString deviationRemark(double deviation, double deducted) {
    return QStringLiteral("偏差%1%，扣%2分").arg(deviation, 0, 'f', 2).arg(deducted, 0, 'f', 2);
}
QString zeroStandardRemark() {
    return QStringLiteral("标准值为0，偏差无法计算，不得分");
}
QString ratioRemark(double ratio) {
    return QStringLiteral("与标准值比例为%1%").arg(ratio * 100.0, 0, 'f', 2);
}
QString segmentRemark(double ratio, double factor) {
    return QStringLiteral("与标准值比例为%1%，得分系数%2")
        .arg(ratio * 100.0, 0, 'f', 2)
        .arg(factor, 0, 'g', 6);
}

// min/max of the absolute values when both numbers have the same sign.
double valueRatio(double student, double standard) {
    const bool studentZero = std::fabs(student) <= kEpsilon;
    const bool standardZero = std::fabs(standard) <= kEpsilon;
    if (studentZero && standardZero)
        return 1.0;
    if (studentZero || standardZero || (student > 0) != (standard > 0))
        return 0.0;
    const double a = std::fabs(student);
    const double b = std::fabs(standard);
    return std::min(a, b) / std::max(a, b);
}

QStringList trimmedParts(const QString& text) {
    QStringList parts;
    for (const QString& part : text.split(QLatin1Char(';'))) {
        const QString trimmed = part.trimmed();
        if (!trimmed.isEmpty())
            parts.append(trimmed);
    }
    return parts;
}

} // namespace

Q3DCoord::Q3DCoord() = default;
Q3DCoord::Q3DCoord(double x, double y, double z) : m_x(x), m_y(y), m_z(z) {}
Q3DCoord::Q3DCoord(const Q3DCoord& other) = default;
Q3DCoord& Q3DCoord::operator=(const Q3DCoord& other) = default;
Q3DCoord::~Q3DCoord() = default;

bool Q3DCoord::operator==(const Q3DCoord& other) const {
    return m_x == other.m_x && m_y == other.m_y && m_z == other.m_z;
}

double CAL_Contrast(const QString& student, const QString& standard, const double& points,
                    const bool& caseSensitive) {
    const Qt::CaseSensitivity cs = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    return student.compare(standard, cs) == 0 ? points : 0.0;
}

double CAL_Contrast(const double& student, const double& standard, const double& points) {
    return std::fabs(student - standard) <= kEpsilon ? points : 0.0;
}

double CAL_Interval(const double& student, const double& standard, const double& points, const double& bandA,
                    const double& bandB, QString& remark) {
    const double lower = std::min(bandA, bandB);
    const double upper = std::max(bandA, bandB);
    double deviation = 0.0;
    if (std::fabs(standard) <= kEpsilon) {
        if (std::fabs(student) > kEpsilon) {
            remark = zeroStandardRemark();
            return 0.0;
        }
    } else {
        deviation = std::fabs(student - standard) / std::fabs(standard) * 100.0;
    }
    if (!(deviation > lower))
        return points;
    double score = 0.0;
    if (deviation <= upper && upper > lower)
        score = points * (upper - deviation) / (upper - lower);
    remark = deviationRemark(deviation, points - score);
    return score;
}

double CAL_Contain_Ratio(const QString& student, const QString& standard, const double& points,
                         const bool& caseSensitive) {
    const QStringList wanted = trimmedParts(standard);
    const QStringList given = trimmedParts(student);
    if (wanted.isEmpty())
        return given.isEmpty() ? points : 0.0;
    QSet<QString> present;
    for (const QString& part : given)
        present.insert(caseSensitive ? part : part.toCaseFolded());
    int found = 0;
    for (const QString& part : wanted) {
        if (present.contains(caseSensitive ? part : part.toCaseFolded()))
            ++found;
    }
    return points * found / wanted.size();
}

double CAL_Value_Ratio(const double& student, const double& standard, const double& points, QString& remark) {
    const double ratio = valueRatio(student, standard);
    if (ratio < 1.0)
        remark = ratioRemark(ratio);
    return ratio * points;
}

double CAL_Segment_Ratio(const double& student, const double& standard, const double& points,
                         const QList<Q3DCoord>& segments, QString& remark) {
    const double ratio = valueRatio(student, standard);
    double factor = 0.0;
    for (const Q3DCoord& segment : segments) {
        if (segment.x() <= ratio && ratio <= segment.y()) {
            factor = segment.z();
            break;
        }
    }
    if (factor < 1.0)
        remark = segmentRemark(ratio, factor);
    return factor * points;
}

QString Double2String(const double& value, const int& decimals) {
    return QString::number(value, 'f', qBound(0, decimals, 15));
}
