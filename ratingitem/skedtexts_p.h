// Remarks, values and name synonyms of the schedule rating items.
#ifndef SKEDTEXTS_P_H
#define SKEDTEXTS_P_H

#include <QString>

namespace SkedText {

// Matching and status
inline QString duplicate() {
    return QStringLiteral("评分项重复存在，扣分");
}
inline QString surplusDeducted() {
    return QStringLiteral("存在多余评分项，扣分");
}
inline QString missingCurveValue() {
    return QStringLiteral("不存在");
}

// Leaf rules
inline QString duplicateWorkItem() {
    return QStringLiteral("存在重复工作项，不得分");
}
inline QString fixedDurationFormat() {
    return QStringLiteral("\"%1\"%2%3%4");
}
inline QString fixedDuration() {
    return QStringLiteral("为固定时长");
}
inline QString noColour() {
    return QStringLiteral("不存在颜色");
}
inline QString lineWidthNotPositive() {
    return QStringLiteral("线宽为非大于0的整数");
}
inline QString lineWidthMismatch() {
    return QStringLiteral("与人力资源强度值不一致，不得分");
}
inline QString rowsTooFew() {
    return QStringLiteral("横道图分页显示行数设置不够，不得分");
}
inline QString processCountMismatch() {
    return QStringLiteral("工序数量不一致，不得分");
}
inline QString processOrderFormat() {
    return QStringLiteral("从工序%1始顺序不一致，不得分");
}
inline QString delayFormat() {
    return QStringLiteral("工作延期%1天");
}
inline QString zeroTotalDuration() {
    return QStringLiteral("总工期为0");
}
inline QString noResourceData() {
    return QStringLiteral("不存在资源数据，不得分");
}
inline QString varianceTooHigh() {
    return QStringLiteral("超出标准方差上限，不得分");
}

// Unit and wording synonyms of work-item names, each part of a ";"-separated text on its own.
inline QString canonicalNamePart(const QString& part) {
    struct Synonym {
        QString text;
        QString canonical;
    };
    static const Synonym synonyms[] = {
        {QStringLiteral("立方"), QStringLiteral("立方米")},
        {QStringLiteral("m³"), QStringLiteral("立方米")},
        {QStringLiteral("平米"), QStringLiteral("平方米")},
        {QStringLiteral("㎡"), QStringLiteral("平方米")},
        {QStringLiteral("平方"), QStringLiteral("平方米")},
        {QStringLiteral("t"), QStringLiteral("吨")},
        {QStringLiteral("临设建造"), QStringLiteral("临建建造")},
        {QStringLiteral("临时建造"), QStringLiteral("临建建造")},
        {QStringLiteral("临建建设"), QStringLiteral("临建建造")},
        {QStringLiteral("临时设施"), QStringLiteral("临建建造")},
        {QStringLiteral("临设建设"), QStringLiteral("临建建造")},
    };
    for (const Synonym& synonym : synonyms) {
        if (part == synonym.text)
            return synonym.canonical;
    }
    return part;
}

} // namespace SkedText

#endif // SKEDTEXTS_P_H
