#include "markruletables.h"

#include "categorytexts_p.h"
#include "markrulecodes.h"
#include "scenetexts_p.h"

#include <QVector>

using namespace MarkCode;

namespace {

struct ResourceRow {
    QString name;
    QString chart;
    int varianceCurve;
};

const QVector<ResourceRow>& resourceRows() {
    using namespace SceneText;
    static const QVector<ResourceRow> rows = {
        {rebarWorker(), rebarWorkerCurve(), SkedLabourCurve},
        {formworkWorker(), formworkWorkerCurve(), SkedLabourCurve},
        {concreteWorker(), concreteWorkerCurve(), SkedLabourCurve},
        {rawRebar(), rebarMaterialCurve(), SkedRebarCurve},
        {finishedRebar(), rebarMaterialCurve(), SkedRebarCurve},
        {formwork(), formworkMaterialCurve(), SkedFormworkCurve},
        {readyConcrete(), concreteMaterialCurve(), SkedConcreteCurve},
        {sandGravel(), concreteMaterialCurve(), SkedConcreteCurve},
        {cement(), concreteMaterialCurve(), SkedConcreteCurve},
        {generator(), generatorCurve(), 0},
        {waterPump(), waterPumpCurve(), 0},
        {concreteMixer(), mixerCurve(), 0},
        {rebarProcessor(), rebarMachineCurve(), 0},
    };
    return rows;
}

const ResourceRow* resourceRow(const QString& name) {
    for (const ResourceRow& row : resourceRows()) {
        if (row.name == name)
            return &row;
    }
    return nullptr;
}

} // namespace

namespace MarkRuleTables {

QStringList canonicalResourceNames() {
    QStringList names;
    for (const ResourceRow& row : resourceRows())
        names.append(row.name);
    return names;
}

QString canonicalResourceName(const QString& text) {
    return SceneText::resourceNameTable().value(text, text);
}

QString chartName(const QString& canonicalName) {
    const ResourceRow* row = resourceRow(canonicalName);
    return row ? row->chart : QString();
}

int varianceCurveType(const QString& canonicalName) {
    const ResourceRow* row = resourceRow(canonicalName);
    return row ? row->varianceCurve : 0;
}

QString categoryRootName(int categoryType) {
    switch (categoryType) {
    case CategoryIntegrity:
        return CategoryText::integrityRoot();
    case CategoryAttribute:
        return CategoryText::attributeRoot();
    case CategoryLogical:
        return CategoryText::logicRoot();
    case CategoryResCurve:
        return CategoryText::curveRoot();
    case CategoryGanttChart:
        return CategoryText::ganttRoot();
    case CategoryNetRationality:
        return CategoryText::rationalityRoot();
    case CategoryNetPrinciple:
        return CategoryText::principleRoot();
    default:
        return QString();
    }
}

} // namespace MarkRuleTables
