// Names, values and remarks of the Site resource-curve criteria: the canonical resource names the
// checks work with, the chart each resource is drawn in, the criteria of the machinery charts and the
// findings of the judged project's curves. The chart names are the Site scene's, so that the charts
// its resources name (the standard side) and the charts built here (the judged side) pair up.
#ifndef RESCURVETEXTS_P_H
#define RESCURVETEXTS_P_H

#include "markruletables.h"
#include "scenetexts_p.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace ResCurveText {

// Canonical resource names: the scene's.
using SceneText::cement;
using SceneText::concreteMixer;
using SceneText::finishedRebar;
using SceneText::formwork;
using SceneText::generator;
using SceneText::rawRebar;
using SceneText::readyConcrete;
using SceneText::rebarProcessor;
using SceneText::sandGravel;
using SceneText::waterPump;

// A machinery chart: the machine, its chart and the criterion the standard states for it.
struct MachineChart {
    QString machine;
    QString chart;
    QString criterion;
};

// The four machinery charts, in the order the judged side checks them.
inline const QVector<MachineChart>& machineCharts() {
    static const QVector<MachineChart> charts{
        {generator(), SceneText::generatorCurve(),
         QStringLiteral("资源曲线图存在且发电机配置时间和工程起止时间一致")},
        {waterPump(), SceneText::waterPumpCurve(),
         QStringLiteral("资源曲线图存在且供水泵机配置时间和工程起止时间一致")},
        {rebarProcessor(), SceneText::rebarMachineCurve(),
         QStringLiteral("资源曲线图存在且钢筋加工机数量＞=钢筋原材总量/产能")},
        {concreteMixer(), SceneText::mixerCurve(),
         QStringLiteral("资源曲线图存在且混凝土加工机数量＞=混凝土原材总量/产能")},
    };
    return charts;
}

// The criterion of a machinery chart; empty for any other chart.
inline QString machineCriterion(const QString& chart) {
    for (const MachineChart& entry : machineCharts()) {
        if (entry.chart == chart)
            return entry.criterion;
    }
    return QString();
}

// The chart a canonical resource name is drawn in; a name without a chart of its own is its chart.
inline QString chartOf(const QString& name) {
    const QString chart = MarkRuleTables::chartName(name);
    return chart.isEmpty() ? name : chart;
}

// Values of a curve criterion.
inline QString exists() {
    return QStringLiteral("存在");
}
inline QString absent() {
    return QStringLiteral("不存在");
}
inline QString satisfied() {
    return QStringLiteral("满足条件");
}
inline QString unsatisfied() {
    return QStringLiteral("不满足");
}

// Findings; %1 is a resource name (or several, joined by missingSeparator).
inline QString missingCurveFormat() {
    return QStringLiteral("缺少\"%1\"资源曲线");
}
inline QString missingSeparator() {
    return QStringLiteral("、");
}
inline QString notFromStartFormat() {
    return QStringLiteral("\"%1\"未从工期起始时间使用");
}
inline QString shorterThanProjectFormat() {
    return QStringLiteral("\"%1\"使用时间小于总工期");
}
inline QString machineShortage() {
    return QStringLiteral("机械资源配置不合理");
}

} // namespace ResCurveText

#endif // RESCURVETEXTS_P_H
