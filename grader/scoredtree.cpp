#include "scoredtree.h"

#include "markpointer.h"
#include "markrulecodes.h"
#include "qratingitemvirtual.h"

#include <QHash>
#include <QSet>

namespace Grade {

namespace {

const int maxTreeDepth = 64;

QList<QRatingItemVirtual*> children(QRatingItemVirtual* item) {
    QList<QRatingItemVirtual*> out;
    if (!item)
        return out;
    QList<void*> pointers;
    item->GetRatingItemList(pointers);
    for (void* pointer : pointers)
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            out.append(child);
    return out;
}

ScoredNode copyNode(QRatingItemVirtual* item, QRatingItemVirtual* standard, int depth,
                    QSet<QRatingItemVirtual*>& seen) {
    ScoredNode node;
    node.name = item->GetRatingItemName();
    node.value = item->GetRatingItemValue();
    node.remark = item->GetRatingItemRemark();
    node.full = item->GetRatingItemScoreStd();
    node.obtained = item->GetRatingItemScore();
    node.attributeType = item->GetAttributeType();
    node.locked = item->GetRatingItemLock();
    if (standard)
        node.standardValue = standard->GetRatingItemValue();
    const QList<QRatingItemVirtual*> itemChildren =
        depth < maxTreeDepth ? children(item) : QList<QRatingItemVirtual*>();
    if (itemChildren.isEmpty())
        return node;
    // Standard children by name, each taken once, in order.
    QMultiHash<QString, QRatingItemVirtual*> standardOf;
    const QList<QRatingItemVirtual*> standardChildren = children(standard);
    standardOf.reserve(standardChildren.size());
    for (int i = standardChildren.size() - 1; i >= 0; --i)
        standardOf.insert(standardChildren[i]->GetRatingItemName(), standardChildren[i]);
    node.items.reserve(itemChildren.size());
    for (QRatingItemVirtual* child : itemChildren) {
        if (seen.contains(child))
            continue;
        seen.insert(child);
        const QString name = child->GetRatingItemName();
        QRatingItemVirtual* counterpart = standardOf.value(name);
        standardOf.remove(name, counterpart);
        node.items.append(copyNode(child, counterpart, depth + 1, seen));
    }
    return node;
}

const int namesListed = 5;

QStringList parts(const QString& text) {
    return text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
}

// A note for the schedule criteria whose rules can fail without a remark.
QString leafNote(const ScoredNode& node) {
    switch (node.attributeType) {
    case MarkCode::SkedWorkItemCount:
        return QStringLiteral("%1 work items of this name; the standard has %2")
            .arg(node.value, node.standardValue);
    case MarkCode::SkedDuration:
        return QStringLiteral("duration %1 天 is not a whole number of weeks (a multiple of 7 days)")
            .arg(node.value);
    case MarkCode::SkedLabourIntensity:
        return QStringLiteral("labour intensity \"%1\" is not a whole number of at least 1").arg(node.value);
    case MarkCode::SkedLogicRelation: {
        QStringList missing = parts(node.standardValue);
        for (const QString& found : parts(node.value))
            missing.removeAll(found);
        return QStringLiteral("missing logic %1").arg(missing.join(QStringLiteral(", ")));
    }
    default:
        return QStringLiteral("\"%1\" differs from the standard's \"%2\"")
            .arg(node.value, node.standardValue);
    }
}

QString parentNote(const ScoredNode& node) {
    QStringList lost;
    for (const ScoredNode& child : node.items)
        if (child.lost())
            lost << child.name;
    if (lost.isEmpty())
        return QStringLiteral("marks lost here: %1 of %2").arg(node.obtained).arg(node.full);
    QString text = lost.mid(0, namesListed).join(QStringLiteral(", "));
    if (lost.size() > namesListed)
        text += QStringLiteral(" and %1 more").arg(lost.size() - namesListed);
    return QStringLiteral("marks lost in %1").arg(text);
}

} // namespace

void explainLosses(ScoredNode& node) {
    for (ScoredNode& child : node.items)
        explainLosses(child);
    if (!node.lost() || !node.remark.isEmpty() || !node.note.isEmpty())
        return;
    node.note = node.items.isEmpty() ? leafNote(node) : parentNote(node);
}

ScoredNode copyTree(QRatingItemVirtual* root, QRatingItemVirtual* standard) {
    if (!root)
        return ScoredNode();
    QSet<QRatingItemVirtual*> seen{root};
    return copyNode(root, standard, 0, seen);
}

} // namespace Grade
