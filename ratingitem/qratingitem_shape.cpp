#include "qratingitem_shape.h"
#include "markrulecodes.h"

#include "calcalgorithm.h"
#include "markpointer.h"

#include <cmath>

using namespace MarkCode;

namespace {

const double kEpsilon = 1e-10;

bool isNumeric(int dataType) {
    return dataType == DataDouble || dataType == DataInteger;
}

// Score factors by the ratio of the candidate's value to the standard's: (lower, upper, factor).
QList<Q3DCoord> segmentTable() {
    return {Q3DCoord(0.9, 1.0, 1.0), Q3DCoord(0.8, 0.9, 0.8), Q3DCoord(0.5, 0.8, 0.6),
            Q3DCoord(0.3, 0.5, 0.4), Q3DCoord(0.1, 0.3, 0.2), Q3DCoord(0.0, 0.1, 0.0)};
}

} // namespace

QRatingItem_Shape::QRatingItem_Shape(QObject* parent) : QRatingItem_General(parent) {}
QRatingItem_Shape::~QRatingItem_Shape() = default;

void* QRatingItem_Shape::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Shape);
}

void QRatingItem_Shape::GetRatingItemTypeList(QList<int>& out) {
    out.clear();
    for (void* pointer : childList()) {
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            out.append(child->GetAttributeType());
    }
}

double QRatingItem_Shape::GetRatingItemScoreRate(const int& type) {
    for (void* pointer : childList()) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (!child || child->GetAttributeType() != type)
            continue;
        const double score = child->GetRatingItemScore();
        const double scoreStd = child->GetRatingItemScoreStd();
        if (std::fabs(static_cast<float>(scoreStd - score)) < kEpsilon)
            return 100.0;
        if (std::fabs(static_cast<float>(scoreStd)) < kEpsilon)
            return 0.0;
        return score / scoreStd * 100.0;
    }
    return 0.0;
}

double QRatingItem_Shape::CalculateRatingItemScore(void* standardItem) {
    QRatingItem_Shape* standard = MarkPointer::item<QRatingItem_Shape>(standardItem);
    if (!standard)
        return 0.0;
    const QString& text = m_value;
    const QString& standardText = standard->m_value;
    const double number = text.toDouble(); // unreadable text reads as 0
    const double standardNumber = standardText.toDouble();
    const double& points = standard->m_score;
    const bool numeric = isNumeric(m_dataType);
    switch (m_scoreRule) {
    case ScoreContrast:
        if (m_dataType == DataText)
            return CAL_Contrast(text, standardText, points, true);
        if (numeric)
            return CAL_Contrast(number, standardNumber, points);
        return 0.0;
    case ScoreInterval:
        if (numeric)
            return CAL_Interval(number, standardNumber, points, standard->m_upperRange,
                                standard->m_lowerRange, m_remark);
        return 0.0;
    case ScoreContainRatio:
        return CAL_Contain_Ratio(text, standardText, points, true);
    case ScoreValueRatio:
        if (numeric)
            return CAL_Value_Ratio(number, standardNumber, points, m_remark);
        return 0.0;
    case ScoreSegmentRatio:
        if (numeric)
            return CAL_Segment_Ratio(number, standardNumber, points, segmentTable(), m_remark);
        return 0.0;
    default:
        return 0.0;
    }
}
