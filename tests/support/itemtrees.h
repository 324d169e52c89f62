// Builders and record helpers for the rating-item trees of the schedule, pricing and model tests.
#ifndef ITEMTREES_H
#define ITEMTREES_H

#include "categorytest.h" // childrenOf, jsonOf
#include "qratingitem_sked.h"

#include <QDataStream>

// A parentless schedule item of class T with a name, attribute type, comparison key and standard score.
template <class T = QRatingItem_Sked>
T* skedItem(const QString& name, int type, const QString& key = QString(), double scoreStd = 0.0) {
    T* item = new T(static_cast<QObject*>(nullptr));
    item->SetRatingItemName(name);
    item->SetAttributeType(type);
    item->UpdateUniqueValue(key);
    item->SetRatingItemScoreStd(scoreStd);
    return item;
}

// Adds child under parent (with the transform flag of AddRatingItem) and returns it.
template <class T> T* addChild(QRatingItemVirtual* parent, T* child, bool transform = false) {
    parent->AddRatingItem(MarkPointer::fromItem(child), transform);
    return child;
}

inline double scoreAgainst(QRatingItemVirtual* student, QRatingItemVirtual* standard, int mode = 1) {
    return student->ExecuteDBScore(MarkPointer::fromItem(standard), mode);
}

// The item's stream record; empty when writing failed.
inline QByteArray bytesOf(QRatingItemVirtual* item) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    item->DoSerialize(out, false);
    return out.status() == QDataStream::Ok ? bytes : QByteArray();
}

inline QDataStream::Status readBytes(QRatingItemVirtual* item, const QByteArray& bytes) {
    QDataStream in(bytes);
    item->DoSerialize(in, true);
    return in.status();
}

// Levels of the chain of first children that starts at item.
inline int depthOf(QRatingItemVirtual* item) {
    int depth = 0;
    for (; item; item = childrenOf(item).value(0))
        ++depth;
    return depth;
}

#endif // ITEMTREES_H
