#include "unjudged.h"

#include "markpointer.h"
#include "markrulecodes.h"
#include "qratingitemvirtual.h"

namespace Grade {

namespace {

QList<QRatingItemVirtual*> children(QRatingItemVirtual* root) {
    QList<QRatingItemVirtual*> out;
    QList<void*> pointers;
    if (root)
        root->GetRatingItemList(pointers);
    for (void* pointer : pointers)
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            out.append(child);
    return out;
}

} // namespace

QHash<int, QString> unjudgeable(const Host::ScheduleProject& standard, QRatingItemVirtual* standardRoot) {
    QHash<int, QString> reasons;
    for (QRatingItemVirtual* child : children(standardRoot)) {
        const int type = child->GetAttributeType();
        bool isNumber = false;
        const double value = child->GetRatingItemValue().toDouble(&isNumber); // negative: no resource data
        if (type >= MarkCode::SkedLabourCurve && type <= MarkCode::SkedFormworkCurve &&
            (!isNumber || value < 0.0))
            reasons.insert(type,
                           QStringLiteral("not judged: the standard answer has no resource data for this "
                                          "curve group"));
        else if (type == MarkCode::SkedGanttTimeUnit && standard.gantt.timeUnit.isEmpty())
            reasons.insert(type, QStringLiteral("not judged: the standard answer states no Gantt time unit "
                                                "(give one in the course settings)"));
        else if (type == MarkCode::SkedGanttRowsPerPage && standard.gantt.rowsPerPage == 0)
            reasons.insert(type, QStringLiteral("not judged: the standard answer states no rows per page "
                                                "(give them in the course settings)"));
    }
    return reasons;
}

QHash<QString, QString> lockCriteria(QRatingItemVirtual* standardRoot, double full,
                                     const QHash<int, QString>& reasons) {
    QHash<QString, QString> locked;
    for (QRatingItemVirtual* child : children(standardRoot)) {
        auto reason = reasons.constFind(child->GetAttributeType());
        if (reason == reasons.constEnd())
            continue;
        child->SetRatingItemScoreStd(0.0);
        child->SetRatingItemLock(true);
        locked.insert(child->GetRatingItemName(), reason.value());
    }
    if (!locked.isEmpty())
        standardRoot->RedistributeScore(full);
    return locked;
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
