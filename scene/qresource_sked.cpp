#include "qresource_sked.h"

#include "markruletables.h"

QResource_Sked::QResource_Sked(QObject* parent) : QResourceBase(parent) {}
QResource_Sked::~QResource_Sked() = default;

int QResource_Sked::GetResPlanTotal() {
    return m_planTotal;
}
QString QResource_Sked::GetResourceName() {
    return m_name;
}
QString QResource_Sked::GetResourceCode() {
    return m_code;
}
void QResource_Sked::SetResourceCode(const QString& code) {
    m_code = code;
}
void QResource_Sked::SetResourceName(const QString& name) {
    m_name = TransformTextToName(name);
}
void QResource_Sked::SetResPlanTotal(const int& total) {
    m_planTotal = total;
}
void QResource_Sked::SetResPlanStrength(const double& strength) {
    m_planStrength = strength;
}
void QResource_Sked::SetResourceReal(const int& real) {
    m_realQuantity = real;
}
void QResource_Sked::SetResourcePrice(const int& price) {
    m_price = price;
}
void QResource_Sked::SetResourceUnit(const QString& unit) {
    m_unit = unit;
}

QString QResource_Sked::TransformTextToName(const QString& text) {
    return MarkRuleTables::canonicalResourceName(text);
}

QStringList QResource_Sked::TransformTextToName(const QStringList& texts) {
    QStringList names;
    names.reserve(texts.size());
    for (const QString& text : texts)
        names.append(TransformTextToName(text));
    return names;
}

QString QResource_Sked::GetClassName() {
    return QStringLiteral("QResource_Sked");
}

QResource_Sked_Twin::QResource_Sked_Twin(QObject* parent) : QResource_Sked(parent) {}
QResource_Sked_Twin::~QResource_Sked_Twin() = default;

QString QResource_Sked_Twin::GetClassName() {
    return QStringLiteral("QResource_Sked_Twin");
}
