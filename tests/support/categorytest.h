// Helpers for tests of the schedule categories: factory-made categories, their trees as text lines, and
// a standard and a candidate side scored against each other.
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
    return CategoryPtr(QMarkCategoryBase::CreateMarkCategoryByType(MarkCode::ProductSked, scene, type));
}

inline QRatingItemVirtual* rootOf(QMarkCategoryVirtual* category) {
    return MarkPointer::item(category->GetRatingItemPtr());
}

inline void* dataOf(QProjectDataVirtual& project) {
    return static_cast<QObject*>(&project);
}

// One line per child of item: "name|value|score|remark".
inline QStringList rowsOf(QRatingItemVirtual* item) {
    QStringList rows;
    for (QRatingItemVirtual* child : childrenOf(item))
        rows.append(QStringList{child->GetRatingItemName(), child->GetRatingItemValue(),
                                QString::number(child->GetRatingItemScore()), child->GetRatingItemRemark()}
                        .join('|'));
    return rows;
}

// The first child of that name, or null.
inline QRatingItemVirtual* childNamed(QRatingItemVirtual* item, const QString& name) {
    for (QRatingItemVirtual* child : childrenOf(item)) {
        if (child && child->GetRatingItemName() == name)
            return child;
    }
    return nullptr;
}

// The JSON record of a category or an item: the only place that shows comparison keys and flags.
template <class T> QJsonObject jsonOf(T* object) {
    QJsonObject json;
    object->DoSerialize(json, false);
    return json;
}

// Builds the standard side from one project and the candidate from another, gives the standard its
// full marks and returns the candidate's total.
inline double scorePair(QMarkCategoryVirtual* standard, QMarkCategoryVirtual* candidate,
                        QProjectDataVirtual& standardData, QProjectDataVirtual& candidateData, double marks) {
    standard->UpdateCategory(dataOf(standardData), false);
    candidate->UpdateCategory(dataOf(candidateData), true);
    standard->AssignScore(marks);
    return candidate->ExecuteDBScore(standard);
}

#endif // CATEGORYTEST_H
