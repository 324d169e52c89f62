// Network-plan rationality (MarkCode::CategoryNetRationality): how balanced the plan is, under the root
// "网络计划合理性": the total duration and the fluctuation of four resource curves, worked out by the
// host and handed in as settings. Only the Site scene builds criteria; they are editable and can be
// refreshed from new settings with UpdateCategoryItem(true).
#ifndef QMARKNETRATIONALITY_H
#define QMARKNETRATIONALITY_H

#include "qmarkcategorybase.h"

#include <QMap>

// Family base; never made by a factory.
class MARKRULE_EXPORT QMarkNetRationality : public QMarkCategoryBase {
    Q_OBJECT
protected:
    explicit QMarkNetRationality(QObject* parent = nullptr);

public:
    ~QMarkNetRationality() override;

    QString GetClassName() override;
};

// Plain schedule scene: keeps the settings and a root (MarkCode::SkedRationalityRoot); builds nothing below
// it.
class MARKRULE_EXPORT QMarkNetRationality_Sked : public QMarkNetRationality {
    Q_OBJECT
public:
    explicit QMarkNetRationality_Sked(QObject* parent = nullptr);
    ~QMarkNetRationality_Sked() override;

    // Copies another rationality category's total time and curve variances. Null or another kind:
    // no effect.
    void InitMarkCategory(QMarkCategoryVirtual* other) override;
    void SetMarkTotalTime(const int& days) override;
    // Replaces the whole map: attribute type of a curve criterion (29 to 32) to its fluctuation.
    void SetMarkCurveVariance(const QMap<int, double>& variance) override;
    void InitMarkCategoryItem() override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;

protected:
    // The value a criterion of this attribute type shows: the total time (28), a curve fluctuation
    // (29 to 32, 0 when absent), or the empty text.
    QString valueText(int attributeType) const;

    int m_totalTime = 0;
    QMap<int, double> m_curveVariance;
};

// Twin scene: as the plain scene; generated items are QRatingItem_Sked_Twin.
class MARKRULE_EXPORT QMarkNetRationality_Sked_Twin : public QMarkNetRationality_Sked {
    Q_OBJECT
public:
    explicit QMarkNetRationality_Sked_Twin(QObject* parent = nullptr);
    ~QMarkNetRationality_Sked_Twin() override;

    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

// Site scene: the five editable criteria (total duration and four curves).
class MARKRULE_EXPORT QMarkNetRationality_Sked_Site : public QMarkNetRationality_Sked {
    Q_OBJECT
public:
    explicit QMarkNetRationality_Sked_Site(QObject* parent = nullptr);
    ~QMarkNetRationality_Sked_Site() override;

    // Builds the five criteria once from the settings (the flag is not used, nothing is read from data).
    void UpdateCategory(void* data, const bool& flag) override;
    void InitMarkCategoryItem() override;
    // With true, writes the current settings into the root's criteria again; a criterion of another
    // attribute type gets the empty value. False: no effect.
    void UpdateCategoryItem(const bool& flag) override;
    void* CreateRatingItem(QObject* parent) override;
    QString GetClassName() override;
};

#endif // QMARKNETRATIONALITY_H
