// QResource_Sked: a resource of a schedule project (labour, material or machinery) with its code,
// canonical name, planned quantities, price and unit. QResource_Sked_Twin is the Twin scene's
// resource and adds nothing. Neither has a factor, curve chart or work process: the nine setters
// of QResourceBase do nothing on them.
#ifndef QRESOURCE_SKED_H
#define QRESOURCE_SKED_H

#include "markrule_global.h"
#include "qresourcebase.h"

class MARKRULE_EXPORT QResource_Sked : public QResourceBase {
    Q_OBJECT
public:
    explicit QResource_Sked(QObject* parent = nullptr);
    ~QResource_Sked() override;

    int GetResPlanTotal() override;
    QString GetResourceName() override;
    QString GetResourceCode() override;
    void SetResourceCode(const QString& code) override;
    // Stores the canonical name of the text, as the (virtual) TransformTextToName gives it.
    void SetResourceName(const QString& name) override;
    void SetResPlanTotal(const int& total) override;
    void SetResPlanStrength(const double& strength) override;
    void SetResourceReal(const int& real) override;
    void SetResourcePrice(const int& price) override;
    void SetResourceUnit(const QString& unit) override;
    // The canonical resource name of a project's text; a text without a canonical name is returned
    // unchanged (nothing is trimmed, letter case counts).
    QString TransformTextToName(const QString& text) override;
    // The canonical name of every entry, in the same order.
    QStringList TransformTextToName(const QStringList& texts) override;
    QString GetClassName() override;

    // Values stored for the host; no operation of the interface reads them back.
    double planStrength() const { return m_planStrength; }
    int realQuantity() const { return m_realQuantity; }
    QString unit() const { return m_unit; }
    int price() const { return m_price; }

private:
    QString m_code;
    QString m_name;
    int m_planTotal = 0;
    double m_planStrength = 0.0;
    int m_realQuantity = 0;
    QString m_unit;
    int m_price = 0;
};

class MARKRULE_EXPORT QResource_Sked_Twin : public QResource_Sked {
    Q_OBJECT
public:
    explicit QResource_Sked_Twin(QObject* parent = nullptr);
    ~QResource_Sked_Twin() override;

    QString GetClassName() override;
};

#endif // QRESOURCE_SKED_H
