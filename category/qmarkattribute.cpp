#include "qmarkattribute.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

#include <cmath>

using namespace MarkCode;

namespace {

// A double as a plain decimal integer, truncated toward zero (12.9 -> 12, -3.7 -> -3, -0.5 -> 0).
// Values without an integer form (infinite, NaN) read as 0.
QString integerText(double value) {
    if (!std::isfinite(value))
        return QStringLiteral("0");
    return QString::number(std::trunc(value) + 0.0, 'f', 0);
}

// A new attribute criterion of a work item (level 3) with its name, value, attribute type and unit.
QRatingItem_Sked_Site* newNode(QRatingItem_Sked_Site* node, const QString& name, const QString& value,
                               SkedAttribute type, const QString& unit = QString(), bool transform = false) {
    node->SetRatingItemName(name);
    node->SetRatingItemValue(value, transform);
    node->SetRatingItemUnit(unit);
    node->SetRatingItemLevel(3);
    node->SetAttributeType(type);
    return node;
}

} // namespace

SKED_CATEGORY_CLASS(QMarkAttribute, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkAttribute_Sked, QMarkAttribute, CategoryAttribute)
SKED_CATEGORY_ITEMS(QMarkAttribute_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkAttribute_Sked_Twin, QMarkAttribute_Sked)
SKED_CATEGORY_CLASS(QMarkAttribute_Sked_Site, QMarkAttribute_Sked)
SKED_CATEGORY_ITEMS(QMarkAttribute_Sked_Site, QRatingItem_Sked_Site)

void QMarkAttribute_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::attributeRoot(), SkedAttributeRoot);
    setRootItem(root);
}

void QMarkAttribute_Sked::FillWorkItemAttributes(void*, void*) {}

void QMarkAttribute_Sked::UpdateCategory(void* data, const bool& flag) {
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, project && rootItem()))
        return;
    QList<void*> workItems;
    project->GetWorkItemList(workItems);
    for (void* pointer : qAsConst(workItems)) {
        QWorkItemVirtual* workItem = MarkPointer::workItem(pointer);
        if (!workItem)
            continue;
        QRatingItemVirtual* item = SkedCategory::adoptItem(CreateRatingItem(nullptr));
        if (!item)
            return;
        item->SetAttributeType(SkedWorkItemNode);
        item->SetRatingItemName(workItem->GetWorkItemName());
        FillWorkItemAttributes(pointer, MarkPointer::fromItem(item));
        rootItem()->AddRatingItem(MarkPointer::fromItem(item), flag);
    }
    m_created = true;
}

void QMarkAttribute_Sked_Site::FillWorkItemAttributes(void* workItemPointer, void* itemPointer) {
    QWorkItemVirtual* workItem = MarkPointer::workItem(workItemPointer);
    QRatingItemVirtual* item = MarkPointer::item(itemPointer);
    if (!workItem || !item)
        return;
    const auto add = [item](QRatingItemVirtual* node) {
        item->AddRatingItem(MarkPointer::fromItem(node), false);
    };

    QString durationText;
    workItem->GetDuration(durationText);
    QRatingItem_Sked_Site* duration = newNode(new QRatingItem_Sked_Site(), CategoryText::duration(),
                                              durationText, SkedDuration, CategoryText::unitDay());
    const bool fixed = workItem->IsFixedDuration() != 0;
    duration->SetValueIdentical(fixed);
    item->SetValueIdentical(fixed);
    add(duration);
    if (fixed)
        return;

    const QString unitText = workItem->GetUnit();
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::quantityCode(), workItem->GetQuantityCode(),
                SkedQuantityCode));
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::quantityName(), workItem->GetQuantityName(),
                SkedQuantityName));
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::plannedQuantity(),
                integerText(workItem->GetPlannedQuantity()), SkedPlannedQuantity, unitText));
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::unit(), unitText, SkedQuantityUnit, QString(),
                true));
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::materialTotal(),
                integerText(workItem->GetMaterialTotal()), SkedMaterialTotal, unitText));

    QString crew;
    const QString intensity = workItem->GetLabourIntensity(crew);
    QRatingItem_Sked_Site* labour = newNode(new QRatingItem_Sked_Site(), CategoryText::labourIntensity(),
                                            intensity, SkedLabourIntensity, CategoryText::unitCrew());
    labour->SetRatingItemRemark(crew);
    add(labour);
    // The line width is judged against the labour intensity of the same work item.
    add(newNode(new QRatingItem_Sked_Site(static_cast<QRatingItem_Sked*>(labour)), CategoryText::lineWidth(),
                workItem->GetLineWidth(), SkedLineWidth));
    add(newNode(new QRatingItem_Sked_Site(), CategoryText::colour(), workItem->GetColor(), SkedColour,
                CategoryText::unitRgb()));
}
