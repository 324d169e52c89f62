// Work-item integrity (MarkCode::CategoryIntegrity): does the schedule hold every work item of the standard
// answer, each as many times as the standard does? One count criterion per distinct work-item name
// under the root "工作项完整性"; the schedule rating items compare and score them.
#ifndef QMARKINTEGRITY_H
#define QMARKINTEGRITY_H

#include "qmarkcategorybase.h"

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkIntegrity : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkIntegrity(QObject* parent = nullptr);

public:
    ~QMarkIntegrity() override;

    QString GetClassName() override;
};

// Plain schedule scene; criteria are QRatingItem_Sked.
class MARKRULE_EXPORT QMarkIntegrity_Sked : public QMarkIntegrity {
    Q_OBJECT
public:
    explicit QMarkIntegrity_Sked(QObject* parent = nullptr);
    ~QMarkIntegrity_Sked() override;

    // Builds the tree once from the project's work items: one child per distinct name, in first-seen
    // order, whose value is the number of work items of that name; hands the names back to the
    // project. A creator that yields no item stops the build, which stays undone.
    void UpdateCategory(void* data, const bool& flag) override;
    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

protected:
    // Names root and installs it as the category's root.
    void installRoot(QRatingItemVirtual* root);
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkIntegrity_Sked_Twin : public QMarkIntegrity_Sked {
    Q_OBJECT
public:
    explicit QMarkIntegrity_Sked_Twin(QObject* parent = nullptr);
    ~QMarkIntegrity_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene; criteria are QRatingItem_Sked_Site (persisted with the category).
class MARKRULE_EXPORT QMarkIntegrity_Sked_Site : public QMarkIntegrity_Sked {
    Q_OBJECT
public:
    explicit QMarkIntegrity_Sked_Site(QObject* parent = nullptr);
    ~QMarkIntegrity_Sked_Site() override;

    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

#endif // QMARKINTEGRITY_H
