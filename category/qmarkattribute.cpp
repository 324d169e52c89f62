#include "qmarkattribute.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

#include <cmath>

namespace {

// A double as a plain decimal integer, truncated toward zero (12.9 -> 12, -3.7 -> -3, -0.5 -> 0).
// Values without an integer form (infinite, NaN) read as 0.
QString integerText(double value) {
    if (!std::isfinite(value))
        return QStringLiteral("0");
    return QString::number(std::trunc(value) + 0.0, 'f', 0);
}

// A new attribute criterion with its name and value, ready for its other settings.
QRatingItem_Sked_Site* newNode(QRatingItem_Sked_Site* node, const QString& name, const QString& value,
                               bool transform = false) {
    node->SetRatingItemName(name);
    node->SetRatingItemValue(value, transform);
    return node;
}

} // namespace

SKED_CATEGORY_CLASS(QMarkAttribute, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkAttribute_Sked, QMarkAttribute, 2)
SKED_CATEGORY_ITEMS(QMarkAttribute_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkAttribute_Sked_Twin, QMarkAttribute_Sked)
SKED_CATEGORY_CLASS(QMarkAttribute_Sked_Site, QMarkAttribute_Sked)
SKED_CATEGORY_ITEMS(QMarkAttribute_Sked_Site, QRatingItem_Sked_Site)

void QMarkAttribute_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::attributeRoot(), 3);
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
        item->SetAttributeType(4);
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
    QRatingItem_Sked_Site* duration =
        newNode(new QRatingItem_Sked_Site(), CategoryText::duration(), durationText);
    duration->SetRatingItemUnit(CategoryText::unitDay());
    duration->SetRatingItemLevel(3);
    duration->SetAttributeType(5);
    const bool fixed = workItem->IsFixedDuration() != 0;
    duration->SetValueIdentical(fixed);
    item->SetValueIdentical(fixed);
    add(duration);
    if (fixed)
        return;

    QRatingItem_Sked_Site* code =
        newNode(new QRatingItem_Sked_Site(), CategoryText::quantityCode(), workItem->GetQuantityCode());
    code->SetRatingItemLevel(3);
    code->SetAttributeType(6);
    add(code);

    QRatingItem_Sked_Site* name =
        newNode(new QRatingItem_Sked_Site(), CategoryText::quantityName(), workItem->GetQuantityName());
    name->SetAttributeType(7);
    name->SetRatingItemLevel(3);
    add(name);

    const QString unitText = workItem->GetUnit();
    QRatingItem_Sked_Site* planned = newNode(new QRatingItem_Sked_Site(), CategoryText::plannedQuantity(),
                                             integerText(workItem->GetPlannedQuantity()));
    planned->SetRatingItemUnit(unitText);
    planned->SetRatingItemLevel(3);
    planned->SetAttributeType(8);
    add(planned);

    QRatingItem_Sked_Site* unit = newNode(new QRatingItem_Sked_Site(), CategoryText::unit(), unitText, true);
    unit->SetAttributeType(9);
    unit->SetRatingItemLevel(3);
    add(unit);

    QRatingItem_Sked_Site* material = newNode(new QRatingItem_Sked_Site(), CategoryText::materialTotal(),
                                              integerText(workItem->GetMaterialTotal()));
    material->SetAttributeType(13);
    material->SetRatingItemUnit(unitText);
    material->SetRatingItemLevel(3);
    add(material);

    QString crew;
    const QString intensity = workItem->GetLabourIntensity(crew);
    QRatingItem_Sked_Site* labour =
        newNode(new QRatingItem_Sked_Site(), CategoryText::labourIntensity(), intensity);
    labour->SetRatingItemRemark(crew);
    labour->SetAttributeType(12);
    labour->SetRatingItemUnit(CategoryText::unitCrew());
    labour->SetRatingItemLevel(3);
    add(labour);

    // The line width is judged against the labour intensity of the same work item.
    QRatingItem_Sked_Site* width = newNode(new QRatingItem_Sked_Site(static_cast<QRatingItem_Sked*>(labour)),
                                           CategoryText::lineWidth(), workItem->GetLineWidth());
    width->SetAttributeType(11);
    width->SetRatingItemLevel(3);
    add(width);

    QRatingItem_Sked_Site* colour =
        newNode(new QRatingItem_Sked_Site(), CategoryText::colour(), workItem->GetColor());
    colour->SetAttributeType(10);
    colour->SetRatingItemUnit(CategoryText::unitRgb());
    colour->SetRatingItemLevel(3);
    add(colour);
}
