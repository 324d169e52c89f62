// Resource curves (MarkCode::CategoryResCurve). A category of this family plays two roles: it scores whether
// a project draws a curve for every resource it plans and whether its machinery curves are plausible (one
// criterion per chart under the root "资源曲线图正确性"; only the Site scene has rules), and it holds one
// curve (its name, whether the student drew it, its points) for the category that scores.
//
// Ownership: curve records (ResCurveRecord, allocated by the host with new) handed to
// AddResCurveRecord and categories handed to AddMarkCategory belong to the receiving category from
// then on. InitMarkCategory shares them with another category instead of copying them: every record
// and sub-category is released exactly once, when the last category that holds it lets it go,
// whatever order the categories are destroyed in. The same object handed over twice (to one or to
// several categories) is still released once.
#ifndef QMARKRESCURVE_H
#define QMARKRESCURVE_H

#include "markrecords.h"
#include "qmarkcategorybase.h"

#include <QList>
#include <QSet>
#include <QSharedPointer>
#include <QStringList>

class QResourceVirtual;

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkResCurve : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkResCurve(QObject* parent = nullptr);

public:
    ~QMarkResCurve() override;

    QString GetClassName() override;
};

// Plain schedule scene: keeps its curve data and answers the curve queries; builds no criteria.
class MARKRULE_EXPORT QMarkResCurve_Sked : public QMarkResCurve {
    Q_OBJECT
public:
    explicit QMarkResCurve_Sked(QObject* parent = nullptr);
    // Lets go of the records and sub-categories (each released once its last holder lets it go),
    // then the base destroys the root.
    ~QMarkResCurve_Sked() override;

    // Once: stores data; with project data and a root, reads the project's resources and total days
    // and hands the resources to BuildCurveItems (flag true, judged side) or BuildCurveItemsStd (flag
    // false). The category is marked built in every case.
    void UpdateCategory(void* data, const bool& flag) override;
    // Appends a curve held by another category object of this family. Null, this category itself, or
    // a category that already holds this one (directly or further down): refused.
    void AddMarkCategory(QMarkCategoryVirtual* category) override;
    QString GetMarkCurveName() override;
    void SetMarkCurveName(const QString& name) override;
    void SetMarkCurveCustomType(const bool& custom) override;
    // Shares another resource-curve category's sub-categories and records (the same objects; the
    // ones held before are let go). Null, another kind, or a category that holds this one: no effect.
    void InitMarkCategory(QMarkCategoryVirtual* other) override;
    void InitMarkCategoryItem() override;
    // Appends a curve point (a ResCurveRecord* allocated with new); null is refused.
    void AddResCurveRecord(void* record) override;
    bool IsCustomResCurve() override;
    // Summed length of the busy periods (value at least 1), with the end of the last idle period
    // before the first busy one in start and the time of the last busy point in end.
    int GetResCurveTotalTime(int& start, int& end) override;
    // Machine-weeks: the sum of period length / 10080 x value over the points of positive value,
    // rounded half up.
    int GetJxResUsedCount() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

    // Builders of the criteria for the standard answer and for the judged project; they do nothing
    // here. The resources belong to the project.
    virtual void BuildCurveItemsStd(QList<QResourceVirtual*>& resources);
    virtual void BuildCurveItems(QList<QResourceVirtual*>& resources);

protected:
    void installRoot(QRatingItemVirtual* root);
    // The held curve points and sub-categories, in the order they were added.
    QList<ResCurveRecord*> records() const;
    QList<QMarkCategoryVirtual*> subCategories() const;

    QString m_curveName;
    bool m_customCurve = false;
    QList<QSharedPointer<ResCurveRecord>> m_records;
    QList<QSharedPointer<QMarkCategoryVirtual>> m_subCategories;
    int m_totalDays = 0;

private:
    // Whether this category can be reached from category through sub-categories (or is category).
    bool reachableFrom(QMarkCategoryVirtual* category) const;
};

// Twin scene: as the plain scene.
class MARKRULE_EXPORT QMarkResCurve_Sked_Twin : public QMarkResCurve_Sked {
    Q_OBJECT
public:
    explicit QMarkResCurve_Sked_Twin(QObject* parent = nullptr);
    ~QMarkResCurve_Sked_Twin() override;

    QString GetClassName() override;
};

// Site scene: one criterion per resource-curve chart (built by the two builders).
class MARKRULE_EXPORT QMarkResCurve_Sked_Site : public QMarkResCurve_Sked {
    Q_OBJECT
public:
    explicit QMarkResCurve_Sked_Site(QObject* parent = nullptr);
    ~QMarkResCurve_Sked_Site() override;

    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
    void BuildCurveItemsStd(QList<QResourceVirtual*>& resources) override;
    void BuildCurveItems(QList<QResourceVirtual*>& resources) override;

protected:
    // Planned totals of the raw rebar and of the concrete raw materials, summed by BuildCurveItems.
    int m_rawRebarTotal = 0;
    int m_concreteRawTotal = 0;

private:
    // The judged project's drawn curves by canonical name.
    struct DrawnCurves;
    DrawnCurves drawnCurves() const;
    // One criterion of a chart below the root; false when CreateRatingItem yielded no item.
    bool addCurveItem(const QString& chart, const QString& value, const QString& remark);
    // Labour and material items for the planned names still in the set, taken in the given order.
    void buildPlannedItems(const QStringList& order, QSet<QString>& planned, DrawnCurves& curves);
    void buildMachineItems(DrawnCurves& curves);
    // Whether the machine's curve is plausible; remark receives the finding, if any.
    bool machineCheck(const QString& machine, const DrawnCurves& curves, QString& remark) const;
};

#endif // QMARKRESCURVE_H
