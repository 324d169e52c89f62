// Builders for schedule rating-item trees in tests.
#ifndef SKEDITEMS_H
#define SKEDITEMS_H

#include "markpointer.h"
#include "qratingitem_sked.h"

#include <QList>

// A parentless item of class T with a name, attribute type, comparison key and standard score.
template <class T = QRatingItem_Sked>
T* skedItem(const QString& name, int type, const QString& key = QString(), double scoreStd = 0.0) {
    T* item = new T(static_cast<QObject*>(nullptr));
    item->SetRatingItemName(name);
    item->SetAttributeType(type);
    item->UpdateUniqueValue(key);
    item->SetRatingItemScoreStd(scoreStd);
    return item;
}

// Adds child under parent (keyed by its plain name) and returns the child.
template <class T> T* addSked(QRatingItemVirtual* parent, T* child, bool transform = false) {
    parent->AddRatingItem(MarkPointer::fromItem(child), transform);
    return child;
}

inline QList<QRatingItemVirtual*> skedChildren(QRatingItemVirtual* parent) {
    QList<void*> pointers;
    parent->GetRatingItemList(pointers);
    QList<QRatingItemVirtual*> items;
    for (void* pointer : pointers)
        items.append(MarkPointer::item(pointer));
    return items;
}

#endif // SKEDITEMS_H
