// Network-plan principles (MarkCode::CategoryNetPrinciple): three drawing rules of the network diagram under
// the root "网络计划原则": exactly one start and one end node, no broken lines, no surplus dummy work. The
// host analyses the diagram and hands in its findings; the standard side always shows the rule-satisfied
// texts, so a judged schedule scores where its texts equal them.
#ifndef QMARKNETPRINCIPLE_H
#define QMARKNETPRINCIPLE_H

#include "qmarkcategorybase.h"

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkNetPrinciple : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkNetPrinciple(QObject* parent = nullptr);

public:
    ~QMarkNetPrinciple() override;

    QString GetClassName() override;
};

// Plain schedule scene; criteria are QRatingItem_Sked.
class MARKRULE_EXPORT QMarkNetPrinciple_Sked : public QMarkNetPrinciple {
    Q_OBJECT
public:
    explicit QMarkNetPrinciple_Sked(QObject* parent = nullptr);
    ~QMarkNetPrinciple_Sked() override;

    // Builds the three criteria once from the findings set before (nothing is read from data). A
    // creator that yields no item stops the build, which stays undone.
    void UpdateCategory(void* data, const bool& flag) override;
    // Copies another principle category's findings. Null or another kind: no effect.
    void InitMarkCategory(QMarkCategoryVirtual* other) override;
    void InitMarkCategoryItem() override;
    void SetMarkBeginEndOnlyDot(const QString& text) override;
    void SetMarkBeginEndOnlyDot(const bool& single) override;
    // The surplus text becomes "多余虚工作节点编号：<nodes>" when found, else empty.
    void SetMarkSurplusVirJob(const bool& found, const QString& nodes) override;
    void SetMarkNetLineBreak(const QString& text) override;
    void SetMarkNetLineBreak(const bool& broken) override;
    bool GetMarkBeginEndOnlyDot() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

protected:
    void installRoot(QRatingItemVirtual* root);

    bool m_singleStartEnd = false;
    QString m_startEndText;
    bool m_surplusDummy = false;
    QString m_surplusDummyText;
    bool m_lineBreak = false;
    QString m_lineBreakText;
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkNetPrinciple_Sked_Twin : public QMarkNetPrinciple_Sked {
    Q_OBJECT
public:
    explicit QMarkNetPrinciple_Sked_Twin(QObject* parent = nullptr);
    ~QMarkNetPrinciple_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene; criteria are QRatingItem_Sked_Site.
class MARKRULE_EXPORT QMarkNetPrinciple_Sked_Site : public QMarkNetPrinciple_Sked {
    Q_OBJECT
public:
    explicit QMarkNetPrinciple_Sked_Site(QObject* parent = nullptr);
    ~QMarkNetPrinciple_Sked_Site() override;

    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

#endif // QMARKNETPRINCIPLE_H
