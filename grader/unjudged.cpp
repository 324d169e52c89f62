#include "unjudged.h"

#include "markpointer.h"
#include "qratingitemvirtual.h"

namespace Grade {

namespace {

// Curve-fluctuation criteria of the rationality category; a negative value means no resource data.
const int firstCurveCriterion = 29;
const int lastCurveCriterion = 32;

bool withoutData(QRatingItemVirtual* item) {
    const int type = item->GetAttributeType();
    bool isNumber = false;
    const double value = item->GetRatingItemValue().toDouble(&isNumber);
    return type >= firstCurveCriterion && type <= lastCurveCriterion && (!isNumber || value < 0.0);
}

} // namespace

QHash<QString, QString> lockUnjudgeable(QRatingItemVirtual* standardRoot, double full) {
    QHash<QString, QString> reasons;
    if (!standardRoot)
        return reasons;
    QList<void*> children;
    standardRoot->GetRatingItemList(children);
    for (void* pointer : children) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (!child || !withoutData(child))
            continue;
        child->SetRatingItemScoreStd(0.0);
        child->SetRatingItemLock(true);
        reasons.insert(child->GetRatingItemName(),
                       QStringLiteral("not judged: the standard answer has no resource data for this curve group"));
    }
    if (!reasons.isEmpty())
        standardRoot->RedistributeScore(full);
    return reasons;
}

void markUnjudged(ScoredNode& tree, const QHash<QString, QString>& reasons) {
    for (ScoredNode& child : tree.items) {
        auto reason = reasons.constFind(child.name);
        if (reason == reasons.constEnd())
            continue;
        child.locked = true;
        child.note = reason.value();
    }
}

} // namespace Grade
