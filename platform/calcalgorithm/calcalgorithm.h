// CalcAlgorithm: the numeric comparisons that scoring rules delegate to.
//
// This is the stand-in shipped with MarkRule; a platform that has its own CalcAlgorithm links that
// library in its place. Every function takes its arguments by const reference except the remark,
// which it may write, and keeps no reference after returning.
//
// Behaviour of this implementation:
//  - CAL_Contrast: full points when the two values are equal (texts: exactly, or ignoring case when
//    the flag is false; numbers: within 1e-10), 0 otherwise.
//  - CAL_Interval: the deviation is |student - standard| / |standard| in percent (0 when both are 0,
//    unbounded when only the standard is 0). The smaller of the two band arguments is the lower
//    bound, the larger the upper one, whatever their order. Within the lower bound: full points.
//    Between the bounds: points fall linearly from full at the lower bound to 0 at the upper bound.
//    Beyond the upper bound: 0. When points are deducted the remark becomes
//    "偏差<d>%，扣<x>分" (deviation and deduction with two decimals), or "标准值为0，偏差无法计算，不得分"
//    when the standard is 0; with full points the remark is left alone.
//  - CAL_Contain_Ratio: the standard text is split at ";" into its non-empty trimmed parts; the
//    ratio is the share of those parts that also occur among the student's parts (case-sensitive
//    when the flag is true). No standard parts: 1 when the student has none either, else 0. The
//    result is ratio × points.
//  - CAL_Value_Ratio: ratio = min/max of the two absolute values when both have the same sign
//    (1 when both are 0, 0 when the signs differ or exactly one is 0); result ratio × points. When
//    the ratio is below 1 the remark becomes "与标准值比例为<r>%" (two decimals).
//  - CAL_Segment_Ratio: the ratio as for CAL_Value_Ratio; the first segment (x lower, y upper,
//    z factor) with x <= ratio <= y gives the factor, no segment gives 0; result factor × points.
//    When the factor is below 1 the remark becomes "与标准值比例为<r>%，得分系数<f>".
//  - Double2String: fixed notation with the given number of decimals (clamped to 0..15).
#ifndef CALCALGORITHM_H
#define CALCALGORITHM_H

#include <QList>
#include <QString>
#include <QtGlobal>

#if defined(CALCALGORITHM_LIBRARY)
#define CALCALGORITHM_EXPORT Q_DECL_EXPORT
#else
#define CALCALGORITHM_EXPORT Q_DECL_IMPORT
#endif

// A point of three doubles; scoring rules use it as a (lower bound, upper bound, factor) triple.
class CALCALGORITHM_EXPORT Q3DCoord {
public:
    Q3DCoord();
    Q3DCoord(double x, double y, double z);
    Q3DCoord(const Q3DCoord& other);
    Q3DCoord& operator=(const Q3DCoord& other);
    virtual ~Q3DCoord();

    double x() const { return m_x; }
    double y() const { return m_y; }
    double z() const { return m_z; }
    bool operator==(const Q3DCoord& other) const;

private:
    double m_x = 0.0;
    double m_y = 0.0;
    double m_z = 0.0;
};

CALCALGORITHM_EXPORT double CAL_Contrast(const QString& student, const QString& standard,
                                         const double& points, const bool& caseSensitive);
CALCALGORITHM_EXPORT double CAL_Contrast(const double& student, const double& standard, const double& points);
CALCALGORITHM_EXPORT double CAL_Interval(const double& student, const double& standard, const double& points,
                                         const double& bandA, const double& bandB, QString& remark);
CALCALGORITHM_EXPORT double CAL_Contain_Ratio(const QString& student, const QString& standard,
                                              const double& points, const bool& caseSensitive);
CALCALGORITHM_EXPORT double CAL_Value_Ratio(const double& student, const double& standard,
                                            const double& points, QString& remark);
CALCALGORITHM_EXPORT double CAL_Segment_Ratio(const double& student, const double& standard,
                                              const double& points, const QList<Q3DCoord>& segments,
                                              QString& remark);
CALCALGORITHM_EXPORT QString Double2String(const double& value, const int& decimals);

#endif // CALCALGORITHM_H
