// Helpers for tests of the schedule categories: factory-made categories, their trees as typed items,
// and the fields that only the records show.
#ifndef CATEGORYTEST_H
#define CATEGORYTEST_H

#include "fakeproject.h"
#include "markrule.h"
#include "testitem.h"

#include <QJsonObject>
#include <QStringList>

#include <memory>

using CategoryPtr = std::unique_ptr<QMarkCategoryVirtual>;

// A schedule category of the product's code table, with its root.
inline CategoryPtr makeCategory(int scene, int type) {
    return CategoryPtr(QMarkCategoryBase::CreateMarkCategoryByType(5, scene, type));
}

inline QRatingItemVirtual* rootOf(QMarkCategoryVirtual* category) {
    return MarkPointer::item(category->GetRatingItemPtr());
}

inline QList<QRatingItemVirtual*> itemsOf(QRatingItemVirtual* item) {
    return childrenOf(item);
}

inline QStringList namesOf(QRatingItemVirtual* item) {
    QStringList names;
    for (QRatingItemVirtual* child : itemsOf(item))
        names.append(child ? child->GetRatingItemName() : QString());
    return names;
}

// The first child of that name, or null.
inline QRatingItemVirtual* childNamed(QRatingItemVirtual* item, const QString& name) {
    for (QRatingItemVirtual* child : itemsOf(item)) {
        if (child && child->GetRatingItemName() == name)
            return child;
    }
    return nullptr;
}

// The JSON record of a category (its own keys and its root's).
inline QJsonObject jsonOf(QMarkCategoryVirtual* category) {
    QJsonObject object;
    category->DoSerialize(object, false);
    return object;
}
// The JSON record of a Site item: the only place that shows its comparison key and flags.
inline QJsonObject jsonOf(QRatingItemVirtual* item) {
    QJsonObject object;
    item->DoSerialize(object, false);
    return object;
}

inline bool isBuilt(QMarkCategoryVirtual* category) {
    return jsonOf(category).value(QStringLiteral("iscreated")).toBool();
}

inline QString classNameOf(QMarkCategoryVirtual* category) {
    auto* base = qobject_cast<QMarkCategoryBase*>(category);
    return base ? base->GetClassName() : QString();
}

// Builds the standard side from one project and the candidate from another, gives the standard its
// full marks and returns the candidate's total.
inline double scorePair(QMarkCategoryVirtual* standard, QMarkCategoryVirtual* candidate,
                        QProjectDataVirtual* standardData, QProjectDataVirtual* candidateData, double marks) {
    standard->UpdateCategory(static_cast<QObject*>(standardData), false);
    candidate->UpdateCategory(static_cast<QObject*>(candidateData), true);
    standard->AssignScore(marks);
    return candidate->ExecuteDBScore(standard);
}

#endif // CATEGORYTEST_H
