#include "calcrecorder.h"

namespace {

double record(const char* function, QVariantList args, QString* remark = nullptr) {
    if (remark)
        args.append(*remark);
    CalcRecorder::calls.append(CalcCall{QString::fromLatin1(function), args});
    const double result =
        CalcRecorder::respond ? CalcRecorder::respond(CalcRecorder::calls.last()) : args.value(2).toDouble();
    if (remark && !CalcRecorder::remark.isNull())
        *remark = CalcRecorder::remark;
    return result;
}

} // namespace

// The replacements, with exactly the stand-in's signatures.

double CAL_Contrast(const QString& student, const QString& standard, const double& points,
                    const bool& caseSensitive) {
    return record("CAL_Contrast", {student, standard, points, caseSensitive});
}

double CAL_Contrast(const double& student, const double& standard, const double& points) {
    return record("CAL_Contrast", {student, standard, points});
}

double CAL_Interval(const double& student, const double& standard, const double& points, const double& bandA,
                    const double& bandB, QString& remark) {
    return record("CAL_Interval", {student, standard, points, bandA, bandB}, &remark);
}

double CAL_Contain_Ratio(const QString& student, const QString& standard, const double& points,
                         const bool& caseSensitive) {
    return record("CAL_Contain_Ratio", {student, standard, points, caseSensitive});
}

double CAL_Value_Ratio(const double& student, const double& standard, const double& points, QString& remark) {
    return record("CAL_Value_Ratio", {student, standard, points}, &remark);
}

double CAL_Segment_Ratio(const double& student, const double& standard, const double& points,
                         const QList<Q3DCoord>& segments, QString& remark) {
    QVariantList table;
    for (const Q3DCoord& segment : segments)
        table.append(QVariant(QVariantList{segment.x(), segment.y(), segment.z()}));
    return record("CAL_Segment_Ratio", {student, standard, points, QVariant(table)}, &remark);
}
