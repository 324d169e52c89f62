// QRatingItemBase: one criterion of a scoring tree, with its standard score, obtained score, level,
// remark and ordered children. It moves scores through a tree (equal distribution, redistribution of
// standard scores around locked criteria, the sign clamp) and owns its subtree.
//
// Ownership: an item owns every item it ever held (children, answer-child map entries, items it made
// for missing criteria, also those that later dropped out of the children list) and deletes each of
// them exactly once when it is cleared or destroyed. An item must not be given to two parents.
#ifndef QRATINGITEMBASE_H
#define QRATINGITEMBASE_H

#include "markrule_global.h"
#include "markrulecodes.h"
#include "qratingitemvirtual.h"

#include <QJsonObject>
#include <QList>
#include <QMultiMap>
#include <QString>

#include <functional>

class MARKRULE_EXPORT QRatingItemBase : public QRatingItemVirtual {
    Q_OBJECT
public:
    explicit QRatingItemBase(QObject* parent = nullptr);
    ~QRatingItemBase() override;

    double GetRatingItemScore() override;
    double GetRatingItemScoreStd() override;
    int GetRatingItemLevel() override;
    void GetRatingItemList(QList<void*>& out) override;
    bool GetRatingItemLock() override;
    QString GetRatingItemRemark() override;
    void SetRatingItemScoreStd(const double& score) override;
    void SetRatingItemScore(const double& score) override;
    void DoSerialize(QJsonObject& object, const bool& read) override;
    using QRatingItemVirtual::DoSerialize;
    void SetRatingItemRemark(const QString& remark) override;
    void SetRatingItemLevel(const int& level) override;
    void ClearRatingItemData() override;
    void RedistributeScore(const double& score) override;
    void AssignScore(const double& score) override;
    int GetChildItemCount() override;
    bool HasChildRatingItem() override;

    virtual QString GetClassName();
    // Deletes every distinct rating item of the list once; the list itself is left as it is.
    virtual void ClearRatingItemData(QList<void*>& items);
    virtual int EliminateLockItem(double& rest);

    // Factories: a rating item of the product's class, or by item type; null for unknown codes.
    static QRatingItemBase* CreateMarkRatingItem(const int& product);
    static QRatingItemBase* CreateRatingItemByType(const int& itemType);

protected:
    // Sign clamp: a score whose sign is opposite to the standard score's becomes 0.
    void AdjustRatingItemScore();

    // Tree maintenance for subclasses. Every pointer placed in the children list or the answer-child
    // map through these becomes owned by this item.
    const QList<void*>& childList() const { return m_children; }
    const QMultiMap<QString, void*>& answerChildMap() const { return m_answerChildren; }
    void appendChild(void* child);
    void insertAnswerChild(const QString& key, void* child);
    void clearChildList() { m_children.clear(); }
    void replaceChildList(const QList<void*>& children);
    // Takes a pointer into ownership without listing it; false for null or this item itself.
    bool takeOwnership(void* child);

    // How a record keeps its children in the JSON key "items".
    struct JsonChildren {
        const QMetaObject* recordClass; // the children written: those whose class inherits this
        bool keepEmpty;                 // whether "items" is written when no child is
        bool skipNonObjects;            // on reading, skip elements that are not objects (else: {})
        std::function<void*()> make;    // the item each element is read into
    };
    // Writes or reads the children part of a record by the rule. Each child read is added with
    // AddRatingItem(child, true) and owned. Called under the item's own DepthGuard: children that
    // would lie past the nesting limit are neither written nor read.
    void serializeJsonChildren(QJsonObject& object, bool read, const JsonChildren& rule);

    int m_level = 2;
    int m_status = MarkCode::StatusNone;
    double m_scoreStd = 0.0;
    QString m_valueStd;

private:
    QList<void*> m_children;
    QMultiMap<QString, void*> m_answerChildren;

protected:
    QString m_remark;
    double m_score = 0.0;

private:
    void foldOwned();

    // Every item this item ever held, deleted once each on clear. A repeat is not looked up when it
    // is taken (a hash set per item cost more than the items): the list is folded to its distinct
    // entries whenever it doubles, so it stays within about twice the items owned.
    QList<void*> m_owned;
    int m_ownedDistinct = 0; // entries of m_owned when it was last folded
};

#endif // QRATINGITEMBASE_H
