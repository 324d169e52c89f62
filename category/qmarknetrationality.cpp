#include "qmarknetrationality.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

using namespace MarkCode;

SKED_CATEGORY_CLASS(QMarkNetRationality, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkNetRationality_Sked, QMarkNetRationality, CategoryNetRationality)
SKED_CATEGORY_CLASS(QMarkNetRationality_Sked_Twin, QMarkNetRationality_Sked)
SKED_CATEGORY_CLASS(QMarkNetRationality_Sked_Site, QMarkNetRationality_Sked)

void QMarkNetRationality_Sked::InitMarkCategoryItem() {
    QRatingItemVirtual* root = new QRatingItem_Sked();
    SkedCategory::nameRoot(root, CategoryText::rationalityRoot(), SkedRationalityRoot);
    setRootItem(root);
}

void* QMarkNetRationality_Sked::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Sked());
}

void QMarkNetRationality_Sked::SetMarkTotalTime(const int& days) {
    m_totalTime = days;
}

void QMarkNetRationality_Sked::SetMarkCurveVariance(const QMap<int, double>& variance) {
    m_curveVariance = variance;
}

void QMarkNetRationality_Sked::InitMarkCategory(QMarkCategoryVirtual* other) {
    const QMarkNetRationality_Sked* source = qobject_cast<QMarkNetRationality_Sked*>(other);
    if (!source)
        return;
    m_totalTime = source->m_totalTime;
    m_curveVariance = source->m_curveVariance;
}

QString QMarkNetRationality_Sked::valueText(int attributeType) const {
    if (attributeType == SkedTotalDuration)
        return QString::number(m_totalTime);
    if (attributeType >= SkedLabourCurve && attributeType <= SkedFormworkCurve)
        return QStringLiteral("%1").arg(m_curveVariance.value(attributeType, 0.0));
    return QString();
}

void* QMarkNetRationality_Sked_Twin::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Sked_Twin());
}

void QMarkNetRationality_Sked_Site::InitMarkCategoryItem() {
    QRatingItemVirtual* root = new QRatingItem_Sked_Site();
    root->SetRatingItemName(CategoryText::rationalityRoot());
    root->SetRatingItemLevel(1);
    setRootItem(root);
}

void* QMarkNetRationality_Sked_Site::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Sked_Site());
}

void QMarkNetRationality_Sked_Site::UpdateCategory(void* data, const bool&) {
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, data && rootItem()))
        return;
    QRatingItemVirtual* root = rootItem();

    QRatingItemVirtual* total = new QRatingItem_Sked_Site();
    total->SetRatingItemName(CategoryText::totalDuration());
    total->SetAttributeType(SkedTotalDuration);
    total->SetRatingItemUnit(CategoryText::unitDay());
    total->SetRatingItemValue(valueText(SkedTotalDuration), false);
    total->SetRatingItemEditable(true);
    root->AddRatingItem(MarkPointer::fromItem(total), false);

    const struct {
        QString name;
        int attributeType;
    } curves[] = {
        {CategoryText::labourCurve(), SkedLabourCurve},
        {CategoryText::rebarCurve(), SkedRebarCurve},
        {CategoryText::concreteCurve(), SkedConcreteCurve},
        {CategoryText::formworkCurve(), SkedFormworkCurve},
    };
    for (const auto& curve : curves) {
        QRatingItemVirtual* node = new QRatingItem_Sked_Site();
        node->SetRatingItemName(curve.name);
        node->SetAttributeType(curve.attributeType);
        node->SetRatingItemRemark(CategoryText::curveRemark());
        node->SetRatingItemValue(valueText(curve.attributeType), false);
        node->SetRatingItemEditable(true);
        node->SetRatingItemUnit(CategoryText::unitVariance());
        root->AddRatingItem(MarkPointer::fromItem(node), false);
    }
    m_created = true;
}

void QMarkNetRationality_Sked_Site::UpdateCategoryItem(const bool& flag) {
    QRatingItemVirtual* root = rootItem();
    if (!flag || !root)
        return;
    QList<void*> items;
    root->GetRatingItemList(items);
    for (void* pointer : qAsConst(items)) {
        if (QRatingItemVirtual* item = MarkPointer::item(pointer))
            item->SetRatingItemValue(valueText(item->GetAttributeType()), false);
    }
}
