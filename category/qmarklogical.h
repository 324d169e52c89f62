// Logic relations (MarkCode::CategoryLogical): one criterion per work item under the root "逻辑关系". On the
// standard side each criterion carries the relation chains the work item must have; on the judged
// side each carries the judged network (node map and link matrix) in which the rating items look for
// the standard's chains.
//
// The link matrix: the category that receives it through SetLogicMatrix owns it (rows allocated with
// new int[], the row array with new int*[]) and frees it exactly once: when SetLogicMatrix replaces
// it, on ClearLogicData, or on destruction. A category that takes it over through InitMarkCategory
// only borrows it and never frees it; once the owner has freed it the borrower holds no network.
// Taking over another network keeps a matrix of one's own owned, so items built on it still score.
// Every rating item that was handed a matrix is detached when that matrix is freed: its network
// becomes empty (no nodes, no matrix), so the logic rule finds no chain there and never reads freed
// memory. Items therefore score against the matrix they were built with for as long as its owner
// keeps it; replace the matrix only before building, or rebuild in a new category.
#ifndef QMARKLOGICAL_H
#define QMARKLOGICAL_H

#include "qmarkcategorybase.h"

#include <QMultiMap>
#include <QSharedPointer>
#include <QStringList>
#include <QWeakPointer>

class LogicNetwork;

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkLogical : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkLogical(QObject* parent = nullptr);

public:
    ~QMarkLogical() override;

    QString GetClassName() override;
};

// Plain schedule scene; criteria are QRatingItem_Sked.
class MARKRULE_EXPORT QMarkLogical_Sked : public QMarkLogical {
    Q_OBJECT
public:
    explicit QMarkLogical_Sked(QObject* parent = nullptr);
    // Frees an owned matrix (ClearLogicData).
    ~QMarkLogical_Sked() override;

    // Builds the tree once from the project's logic texts. Judged side (flag true): the root's remark
    // is emptied and every criterion gets its display text and the category's network, which must
    // therefore be set before. Standard side: display text as value, chain text as comparison key.
    void UpdateCategory(void* data, const bool& flag) override;
    // Takes over another logic category's network: its node count and matrix (borrowed) and its node
    // map, whose names pass through the root's name normalisation. Null or another kind: no effect.
    void InitMarkCategory(QMarkCategoryVirtual* other) override;
    void InitMarkCategoryItem() override;
    void GetLogicList(QStringList& out) override;
    void SetLogicList(const QStringList& list) override;
    // ClearLogicData, then takes the matrix (and the duty to free it), the node map and the count. A
    // matrix that a category already owns is not owned twice: this category then borrows it.
    void SetLogicMatrix(QMultiMap<QString, int>& nodes, int** matrix, int& count) override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

    // Frees an owned matrix (a borrowed one is only let go), and empties the node count, the logic
    // list and the node map.
    virtual void ClearLogicData();

protected:
    void installRoot(QRatingItemVirtual* root);
    // The network as the category hands it on: empty when it holds none, or when the matrix it
    // borrowed has been freed by its owner.
    bool hasNetwork() const;
    QMultiMap<QString, int> nodeMap() const;
    int** linkMatrix() const;
    int nodeCount() const;

    QStringList m_logicList;
    QMultiMap<QString, int> m_nodeMap;

private:
    // The network this category refers to (owned or borrowed) and, when it owns it, the owning handle.
    QWeakPointer<LogicNetwork> m_network;
    QSharedPointer<LogicNetwork> m_ownedNetwork;
    int m_nodeCount = 0;
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkLogical_Sked_Twin : public QMarkLogical_Sked {
    Q_OBJECT
public:
    explicit QMarkLogical_Sked_Twin(QObject* parent = nullptr);
    ~QMarkLogical_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene; criteria are QRatingItem_Sked_Site.
class MARKRULE_EXPORT QMarkLogical_Sked_Site : public QMarkLogical_Sked {
    Q_OBJECT
public:
    explicit QMarkLogical_Sked_Site(QObject* parent = nullptr);
    ~QMarkLogical_Sked_Site() override;

    void InitMarkCategoryItem() override;
    // A QRatingItem_Sked_Site whose Qt parent is the argument (the item then reports the parent's
    // logic list); the caller owns it.
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

#endif // QMARKLOGICAL_H
