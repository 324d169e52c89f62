// Names, units, values and remarks that the schedule categories give to their criteria.
#ifndef CATEGORYTEXTS_P_H
#define CATEGORYTEXTS_P_H

#include <QString>

namespace CategoryText {

// Work-item integrity
inline QString integrityRoot() {
    return QStringLiteral("工作项完整性");
}
inline QString unitPiece() {
    return QStringLiteral("个");
}

// Work-item attributes
inline QString attributeRoot() {
    return QStringLiteral("工作项属性");
}
inline QString duration() {
    return QStringLiteral("持续时间");
}
inline QString quantityCode() {
    return QStringLiteral("工程量编码");
}
inline QString quantityName() {
    return QStringLiteral("工程量名称");
}
inline QString plannedQuantity() {
    return QStringLiteral("计划量");
}
inline QString unit() {
    return QStringLiteral("单位");
}
inline QString materialTotal() {
    return QStringLiteral("材料资源（总量）");
}
inline QString labourIntensity() {
    return QStringLiteral("人力资源（强度）");
}
inline QString lineWidth() {
    return QStringLiteral("工序线宽");
}
inline QString colour() {
    return QStringLiteral("工序颜色");
}
inline QString unitDay() {
    return QStringLiteral("天");
}
inline QString unitCrew() {
    return QStringLiteral("班组");
}
inline QString unitRgb() {
    return QStringLiteral("RGB");
}

// Logic relations
inline QString logicRoot() {
    return QStringLiteral("逻辑关系");
}
inline QString logicRootValue() {
    return QStringLiteral("前置构件");
}
inline QString logicRootRemark() {
    return QStringLiteral("构件关系在工序关系内体现，只用箭头依赖，不考虑时间");
}

// Gantt chart
inline QString ganttRoot() {
    return QStringLiteral("横道图合理性");
}
inline QString ganttTimeUnit() {
    return QStringLiteral("横道图时间单位");
}
inline QString ganttTimeUnitRemark() {
    return QStringLiteral("网络计划图以周为时间单位进行显示");
}
inline QString ganttProjectWeek() {
    return QStringLiteral("工程周");
}
inline QString ganttRows() {
    return QStringLiteral("横道图完整性显示");
}
inline QString ganttRowsRemark() {
    return QStringLiteral("横道图分页显示行数>=工序数量");
}
inline QString ganttRowsFormat() {
    return QStringLiteral(">= %1");
}
inline QString ganttOrder() {
    return QStringLiteral("横道图完整性及排序");
}
inline QString ganttOrderRemark() {
    return QStringLiteral("要求数量和内容以及顺序都完全与标准一致");
}
inline QString ganttOrderValue() {
    return QStringLiteral("完整性工序顺序");
}

// Network-plan principles
inline QString principleRoot() {
    return QStringLiteral("网络计划原则");
}
inline QString nodeCount() {
    return QStringLiteral("节点数");
}
inline QString singleStartEnd() {
    return QStringLiteral("起终节点数唯一");
}
inline QString notSingleStartEnd() {
    return QStringLiteral("起终节点数不唯一");
}
inline QString startEndDefault() {
    return QStringLiteral("一个开始节点，一个结束节点");
}
inline QString lineIntegrity() {
    return QStringLiteral("线路完整性");
}
inline QString noBrokenLine() {
    return QStringLiteral("无断开的线路");
}
inline QString brokenLine() {
    return QStringLiteral("有线路断开");
}
inline QString surplusDummy() {
    return QStringLiteral("多余虚工作");
}
inline QString noSurplusDummy() {
    return QStringLiteral("无多余虚工作");
}
inline QString surplusDummyFound() {
    return QStringLiteral("存在多余虚工作");
}
inline QString surplusDummyNodesFormat() {
    return QStringLiteral("多余虚工作节点编号：%1");
}

// Network-plan rationality
inline QString rationalityRoot() {
    return QStringLiteral("网络计划合理性");
}
inline QString totalDuration() {
    return QStringLiteral("总工期");
}
inline QString labourCurve() {
    return QStringLiteral("总人力资源曲线");
}
inline QString rebarCurve() {
    return QStringLiteral("成品钢筋/钢筋原材曲线");
}
inline QString concreteCurve() {
    return QStringLiteral("成品混凝土/水泥、砂石资源曲线");
}
inline QString formworkCurve() {
    return QStringLiteral("模板资源曲线");
}
inline QString curveRemark() {
    return QStringLiteral("以各自完成的总工期作为时间轴计算");
}
inline QString unitVariance() {
    return QStringLiteral("波动值");
}

// Resource curves
inline QString curveRoot() {
    return QStringLiteral("资源曲线图正确性");
}

} // namespace CategoryText

#endif // CATEGORYTEXTS_P_H
