// A concrete generic rating item for tests of the item and category framework: children are again
// TestItems, and a leaf earns its standard score when its value equals the standard value.
#ifndef TESTITEM_H
#define TESTITEM_H

#include "markpointer.h"
#include "qmarkcategorybase.h"
#include "qratingitem_general.h"

#include <QPointer>

class TestItem : public QRatingItem_General {
    Q_OBJECT
public:
    explicit TestItem(const QString& name = QString(), QObject* parent = nullptr)
        : QRatingItem_General(parent) {
        SetRatingItemName(name);
        SetRatingItemIndexRule(1);
        ++liveCount;
    }
    ~TestItem() override {
        ++destroyedCount;
        --liveCount;
    }

    void* CreateRatingItem(QObject*) override {
        if (failCreate)
            return nullptr;
        return MarkPointer::fromItem(new TestItem);
    }
    double CalculateRatingItemScore(void* standardItem) override {
        return MarkPointer::item(standardItem) && m_value == m_valueStd ? m_scoreStd : 0.0;
    }

    // Exposes the protected sign clamp.
    void adjust() { AdjustRatingItemScore(); }

    // Adds a new child named name (and returns it).
    TestItem* add(const QString& name, double score = 0.0) {
        auto* child = new TestItem(name);
        child->SetRatingItemScore(score);
        AddRatingItem(MarkPointer::fromItem(child), false);
        return child;
    }

    static int destroyedCount;
    static int liveCount;
    static bool failCreate;
};

// A category whose root and items are TestItems.
class TestCategory : public QMarkCategoryBase {
    Q_OBJECT
public:
    explicit TestCategory(bool withRoot = true) {
        if (withRoot)
            setRootItem(new TestItem(QStringLiteral("root")));
        m_categoryType = 3;
    }
    void* CreateRatingItem(QObject*) override { return MarkPointer::fromItem(new TestItem); }
    QString GetClassName() override { return QStringLiteral("TestCategory"); }
    TestItem* root() const { return qobject_cast<TestItem*>(rootItem()); }
    void setCreated(bool created) { m_created = created; }
    bool created() const { return m_created; }
    int categoryType() const { return m_categoryType; }
};

// Children of an item as typed pointers, in list order.
template <class T = QRatingItemVirtual> QList<T*> childrenOf(QRatingItemVirtual* item) {
    QList<void*> pointers;
    item->GetRatingItemList(pointers);
    QList<T*> children;
    for (void* pointer : pointers)
        children.append(MarkPointer::item<T>(pointer));
    return children;
}

#endif // TESTITEM_H
