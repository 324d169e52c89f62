// Steps that every schedule category takes the same way while it builds its criteria tree.
#ifndef SKEDCATEGORY_P_H
#define SKEDCATEGORY_P_H

#include "markpointer.h"

#include <QMetaObject>
#include <QString>

namespace SkedCategory {

// The start of every build. A built category ignores the call and keeps everything, even the data
// pointer it stored before. Otherwise the pointer is stored; when the category cannot build (no data,
// data of another kind, no root) it is marked built with its root alone. True when building goes on.
inline bool beginBuild(bool& created, void*& stored, void* data, bool canBuild) {
    if (created)
        return false;
    stored = data;
    if (!canBuild) {
        created = true;
        return false;
    }
    return true;
}

// The item that CreateRatingItem made, or null. An object that is not a rating item is deleted, so a
// creator that hands back something foreign neither leaks nor reaches the tree.
inline QRatingItemVirtual* adoptItem(void* pointer) {
    QRatingItemVirtual* item = MarkPointer::item(pointer);
    if (!item)
        delete MarkPointer::object(pointer);
    return item;
}

// Names the root of a category: name, level 1, attribute type, in this order.
inline void nameRoot(QRatingItemVirtual* root, const QString& name, int attributeType) {
    root->SetRatingItemName(name);
    root->SetRatingItemLevel(1);
    root->SetAttributeType(attributeType);
}

// Adds one criterion of a fixed layout below parent: the item that the category's creator made, its
// name, its value (set by setValue), then its attribute type and remark (the remark first when
// remarkFirst), added with flag false. False when the creator yielded no item.
template <class SetValue>
bool addFixedNode(void* created, QRatingItemVirtual* parent, const QString& name, SetValue setValue,
                  int attributeType, const QString& remark, bool remarkFirst = false) {
    QRatingItemVirtual* node = adoptItem(created);
    if (!node)
        return false;
    node->SetRatingItemName(name);
    setValue(node);
    if (remarkFirst)
        node->SetRatingItemRemark(remark);
    node->SetAttributeType(attributeType);
    if (!remarkFirst)
        node->SetRatingItemRemark(remark);
    parent->AddRatingItem(MarkPointer::fromItem(node), false);
    return true;
}

// A value setter for addFixedNode: the text is the value and, unchanged, the comparison key.
inline auto textValue(const QString& text) {
    return [text](QRatingItemVirtual* node) { node->SetRatingItemValue(text, false); };
}

inline QString className(const QMetaObject& meta) {
    return QString::fromLatin1(meta.className());
}

} // namespace SkedCategory

// Constructor, destructor and class name of a category class. The _Sked class of a family passes its
// category type; the family base and the scene classes pass none and keep what their base sets.
#define SKED_CATEGORY_CLASS(Class, Base)                                                                     \
    Class::Class(QObject* parent) : Base(parent) {}                                                          \
    Class::~Class() = default;                                                                               \
    QString Class::GetClassName() {                                                                          \
        return SkedCategory::className(staticMetaObject);                                                    \
    }
#define SKED_CATEGORY_CLASS_TYPED(Class, Base, type)                                                         \
    Class::Class(QObject* parent) : Base(parent) {                                                           \
        m_categoryType = type;                                                                               \
    }                                                                                                        \
    Class::~Class() = default;                                                                               \
    QString Class::GetClassName() {                                                                          \
        return SkedCategory::className(staticMetaObject);                                                    \
    }

// Root and created criteria of one rating-item class: the root is made with new and named by the
// family's installRoot; CreateRatingItem ignores its argument and returns a parentless item.
#define SKED_CATEGORY_ITEMS(Class, ItemClass)                                                                \
    void Class::InitMarkCategoryItem() {                                                                     \
        installRoot(new ItemClass());                                                                        \
    }                                                                                                        \
    void* Class::CreateRatingItem(QObject*) {                                                                \
        return MarkPointer::fromItem(new ItemClass());                                                       \
    }

#endif // SKEDCATEGORY_P_H
