// The Site scene's resources. QResource_Sked_Site adds a strength factor, a site price and unit of
// its own (beside those of QResource_Sked), the name of the resource-curve chart it is drawn in
// (which is also its general name) and a reference to a base resource. The material (_CL) and
// machinery (_JX) classes add nothing; the labour class (_RL) adds the work process it performs:
// its code, name and display colour. The Site scene makes the _CL, _JX and _RL resources itself.
#ifndef QRESOURCE_SKED_SITE_H
#define QRESOURCE_SKED_SITE_H

#include "markrule_global.h"
#include "qresource_sked.h"

class MARKRULE_EXPORT QResource_Sked_Site : public QResource_Sked {
    Q_OBJECT
public:
    explicit QResource_Sked_Site(QObject* parent = nullptr);
    ~QResource_Sked_Site() override;

    int GetResourceFactor() override;
    // The curve chart's name: the general name and the curve name are one field.
    QString GetGeneralName() override;
    QString GetClassName() override;
    void SetFactor(const int& factor) override;
    // The site price and unit are separate from SetResourcePrice / SetResourceUnit.
    void SetPrice(const int& price) override;
    void SetUnit(const QString& unit) override;
    // A reference only: the resource is never deleted through it.
    void SetResource(QResourceBase* resource) override;
    void SetGeneralName(const QString& name) override;
    void SetCurveName(const QString& name) override;

    // Values stored for the host; no operation of the interface reads them back.
    int sitePrice() const { return m_sitePrice; }
    QString siteUnit() const { return m_siteUnit; }
    QResourceBase* baseResource() const { return m_baseResource; }

private:
    int m_factor = 0;
    int m_sitePrice = 10000;
    QString m_siteUnit;
    QString m_curveName;
    QResourceBase* m_baseResource = nullptr;
};

class MARKRULE_EXPORT QResource_Sked_Site_CL : public QResource_Sked_Site {
    Q_OBJECT
public:
    explicit QResource_Sked_Site_CL(QObject* parent = nullptr);
    ~QResource_Sked_Site_CL() override;

    QString GetClassName() override;
};

class MARKRULE_EXPORT QResource_Sked_Site_JX : public QResource_Sked_Site {
    Q_OBJECT
public:
    explicit QResource_Sked_Site_JX(QObject* parent = nullptr);
    ~QResource_Sked_Site_JX() override;

    QString GetClassName() override;
};

class MARKRULE_EXPORT QResource_Sked_Site_RL : public QResource_Sked_Site {
    Q_OBJECT
public:
    explicit QResource_Sked_Site_RL(QObject* parent = nullptr);
    ~QResource_Sked_Site_RL() override;

    // The work process that this labour performs.
    QString GetProjectCode() override;
    QString GetProjectName() override;
    QString GetGxColor() override;
    QString GetClassName() override;
    void SetProjectCode(const QString& code) override;
    void SetProjectName(const QString& name) override;
    void SetGxColor(const QString& color) override;

private:
    QString m_processCode;
    QString m_processName;
    QString m_processColor;
};

#endif // QRESOURCE_SKED_SITE_H
