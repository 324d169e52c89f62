#include "calcrecorder.h"

#include "qratingitem_general.h"

namespace {

struct State {
    QList<CalcCall> calls;
    std::function<double(const CalcCall&)> responder;
    QString remark;
};

State& state() {
    static State instance;
    return instance;
}

double points(const CalcCall& call) {
    return call.args.value(2).toDouble();
}

double record(const char* function, const QVariantList& args, QString* remark = nullptr) {
    CalcCall call;
    call.function = QString::fromLatin1(function);
    call.args = args;
    call.hasRemark = remark != nullptr;
    if (remark)
        call.remarkIn = *remark;
    state().calls.append(call);
    const double result = state().responder ? state().responder(call) : points(call);
    if (remark && !state().remark.isNull())
        *remark = state().remark;
    return result;
}

} // namespace

namespace CalcRecorder {

QList<CalcCall>& calls() {
    return state().calls;
}

void reset() {
    state().calls.clear();
    state().responder = nullptr;
    state().remark = QString();
}

void setResponder(std::function<double(const CalcCall&)> responder) {
    state().responder = std::move(responder);
}
void setRemark(const QString& remark) {
    state().remark = remark;
}

QString double2StringText(double value, int decimals) {
    return QStringLiteral("D2S(%1,%2)").arg(value, 0, 'g', 17).arg(decimals);
}

bool substitutedInMarkRule() {
    // A number value is shown through Double2String inside MarkRule.
    QRatingItem_General item;
    item.SetRatingItemValue(2.5);
    item.SetRatingItemPrecision(3);
    const int before = calls().size();
    const QString text = item.GetRatingItemValue();
    return text == double2StringText(2.5, 3) && calls().size() == before + 1;
}

} // namespace CalcRecorder

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

QString Double2String(const double& value, const int& decimals) {
    CalcCall call;
    call.function = QStringLiteral("Double2String");
    call.args = {value, decimals};
    state().calls.append(call);
    return CalcRecorder::double2StringText(value, decimals);
}
