#include "treebuilder.h"

#include "markpointer.h"
#include "qratingitembase.h"

#include <QJsonArray>
#include <QJsonObject>

namespace Host {

namespace {

void fillPricing(QRatingItemBase* item, const TreeItemData& data) {
    item->SetRatingItemName(data.name);
    item->SetRatingItemCode(data.code);
    item->SetAttributeType(data.attribute);
    item->SetRatingItemUnit(data.unit);
    item->SetRatingItemFeature(data.feature);
    item->SetRatingItemQuantity(data.quantity);
    item->SetRatingItemRate(data.rate);
    item->SetRatingItemRatio(data.ratio);
    item->SetRatingItemUnitProject(data.unitProject);
    if (data.hasLimits)
        item->SetRatingItemLimit(data.upperLimit, data.lowerLimit);
    item->SetRatingItemPrecision(data.precision);
}

// Model items have no setter for their tolerance band, so the whole description goes in through the
// item record, whose keys are the general item's.
void fillModel(QRatingItemBase* item, const TreeItemData& data) {
    QJsonObject record{{QStringLiteral("attribute"), data.attribute},
                       {QStringLiteral("indexrule"), data.indexRule},
                       {QStringLiteral("scorerule"), data.scoreRule},
                       {QStringLiteral("datatype"), data.dataType},
                       {QStringLiteral("precision"), data.precision},
                       {QStringLiteral("code"), data.code},
                       {QStringLiteral("name"), data.name},
                       {QStringLiteral("value"), data.value},
                       {QStringLiteral("unit"), data.unit},
                       {QStringLiteral("upperrange"), data.upperLimit},
                       {QStringLiteral("lowerrange"), data.lowerLimit}};
    if (!data.attributeData.isEmpty())
        record.insert(QStringLiteral("attridata"), QJsonArray::fromStringList(data.attributeData));
    item->DoSerializeItem(record, true);
}

// Builds the subtree of data into item; false when the factory gave no item on the way.
bool buildInto(QRatingItemBase* item, const TreeItemData& data, int product, int level) {
    if (product == MarkCode::ProductShape)
        fillModel(item, data);
    else
        fillPricing(item, data);
    item->SetRatingItemLevel(level);
    for (const TreeItemData& childData : data.items) {
        QRatingItemBase* child = QRatingItemBase::CreateMarkRatingItem(product);
        if (!child)
            return false;
        const bool built = buildInto(child, childData, product, level + 1);
        item->AddRatingItem(MarkPointer::fromItem(child), false); // the parent owns it from here
        if (!built)
            return false;
    }
    return true;
}

} // namespace

QRatingItemBase* buildRatingTree(const ProjectFile& file) {
    QRatingItemBase* root = QRatingItemBase::CreateMarkRatingItem(file.product);
    if (root && !buildInto(root, file.root, file.product, 1)) {
        delete root;
        root = nullptr;
    }
    return root;
}

void assignFullMarks(QRatingItemBase* standardRoot, int product, double fullMarks) {
    if (!standardRoot)
        return;
    if (product == MarkCode::ProductShape)
        standardRoot->AssignScore(fullMarks);
    else
        standardRoot->RedistributeScore(fullMarks);
}

} // namespace Host
