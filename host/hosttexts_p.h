// The reference host's own Chinese texts: remarks of the network-plan findings, chart names of the
// resource-curve charts and the category titles. Written once, here.
#ifndef HOSTTEXTS_P_H
#define HOSTTEXTS_P_H

#include <QString>

namespace HostTexts {

// Separator of node lists and the arrow of a logic display text.
inline QString listSeparator() {
    return QStringLiteral("、");
}
inline QString logicArrow() {
    return QStringLiteral("→");
}
inline QString none() {
    return QStringLiteral("无");
}

// Network-plan findings.
inline QString startEndNodes() {
    return QStringLiteral("开始节点：%1；结束节点：%2");
}
inline QString brokenNodes() {
    return QStringLiteral("断开处节点编号：%1");
}
inline QString diagramNotDrawn() {
    return QStringLiteral("未绘制网络图");
}

// Canonical resource names.
inline QString rebarWorker() {
    return QStringLiteral("钢筋工");
}
inline QString formWorker() {
    return QStringLiteral("模板工");
}
inline QString concreteWorker() {
    return QStringLiteral("混凝土工");
}
inline QString rawRebar() {
    return QStringLiteral("钢筋原材");
}
inline QString finishedRebar() {
    return QStringLiteral("成品钢筋");
}
inline QString formwork() {
    return QStringLiteral("模板");
}
inline QString readyConcrete() {
    return QStringLiteral("成品混凝土");
}
inline QString sandGravel() {
    return QStringLiteral("砂石");
}
inline QString cement() {
    return QStringLiteral("水泥");
}
inline QString generator() {
    return QStringLiteral("发电机组");
}
inline QString waterPump() {
    return QStringLiteral("供水泵机");
}
inline QString concreteMixer() {
    return QStringLiteral("混凝土搅拌机");
}
inline QString rebarProcessor() {
    return QStringLiteral("钢筋加工机");
}

// Chart names of the resource-curve charts, by canonical resource name.
inline QString chartRebarWorker() {
    return QStringLiteral("钢筋工曲线图");
}
inline QString chartFormWorker() {
    return QStringLiteral("模板工/木工曲线图");
}
inline QString chartConcreteWorker() {
    return QStringLiteral("混凝土工/砼工曲线图");
}
inline QString chartRebar() {
    return QStringLiteral("钢筋原材/成品钢筋计划曲线图");
}
inline QString chartFormwork() {
    return QStringLiteral("模板计划曲线图");
}
inline QString chartConcrete() {
    return QStringLiteral("混凝土/水泥、砂石计划曲线图");
}
inline QString chartGenerator() {
    return QStringLiteral("小型/大型发电机曲线图");
}
inline QString chartWaterPump() {
    return QStringLiteral("小型/大型供水泵机曲线图");
}
inline QString chartConcreteMixer() {
    return QStringLiteral("混凝土搅拌机曲线图");
}
inline QString chartRebarProcessor() {
    return QStringLiteral("钢筋加工机曲线图");
}

// Category titles, by category type 1 to 7 (the library's root names).
inline QString categoryTitle(int type) {
    switch (type) {
    case 1:
        return QStringLiteral("工作项完整性");
    case 2:
        return QStringLiteral("工作项属性");
    case 3:
        return QStringLiteral("逻辑关系");
    case 4:
        return QStringLiteral("资源曲线图正确性");
    case 5:
        return QStringLiteral("横道图合理性");
    case 6:
        return QStringLiteral("网络计划合理性");
    case 7:
        return QStringLiteral("网络计划原则");
    default:
        return QString();
    }
}

} // namespace HostTexts

#endif // HOSTTEXTS_P_H
