// Work-item attributes (MarkCode::CategoryAttribute): one criterion per work item under the root
// "工作项属性"; in the Site scene each carries the work item's attributes (duration, quantity code and name,
// planned quantity, unit, material total, labour intensity, bar line width and colour) as scored
// sub-criteria.
#ifndef QMARKATTRIBUTE_H
#define QMARKATTRIBUTE_H

#include "qmarkcategorybase.h"

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkAttribute : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkAttribute(QObject* parent = nullptr);

public:
    ~QMarkAttribute() override;

    QString GetClassName() override;
};

// Plain schedule scene: work-item criteria without attributes.
class MARKRULE_EXPORT QMarkAttribute_Sked : public QMarkAttribute {
    Q_OBJECT
public:
    explicit QMarkAttribute_Sked(QObject* parent = nullptr);
    ~QMarkAttribute_Sked() override;

    // Builds the tree once: one criterion per work item (equal names are not merged), each filled by
    // FillWorkItemAttributes. A creator that yields no item stops the build, which stays undone.
    void UpdateCategory(void* data, const bool& flag) override;
    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

    // Adds the attribute criteria of a work item (void* of a QWorkItemVirtual) below its criterion
    // (void* of a rating item). Does nothing here.
    virtual void FillWorkItemAttributes(void* workItem, void* item);

protected:
    void installRoot(QRatingItemVirtual* root);
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkAttribute_Sked_Twin : public QMarkAttribute_Sked {
    Q_OBJECT
public:
    explicit QMarkAttribute_Sked_Twin(QObject* parent = nullptr);
    ~QMarkAttribute_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene: criteria are QRatingItem_Sked_Site with the attribute sub-criteria.
class MARKRULE_EXPORT QMarkAttribute_Sked_Site : public QMarkAttribute_Sked {
    Q_OBJECT
public:
    explicit QMarkAttribute_Sked_Site(QObject* parent = nullptr);
    ~QMarkAttribute_Sked_Site() override;

    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
    // A fixed-duration work item gets "持续时间" alone (and both it and the work item's criterion are
    // marked identical); any other gets the nine attribute criteria, the line width linked to the
    // labour intensity. Either argument null or of the wrong kind: nothing happens.
    void FillWorkItemAttributes(void* workItem, void* item) override;
};

#endif // QMARKATTRIBUTE_H
