#include "qresource_sked_site.h"

QResource_Sked_Site::QResource_Sked_Site(QObject* parent) : QResource_Sked(parent) {}
QResource_Sked_Site::~QResource_Sked_Site() = default;

int QResource_Sked_Site::GetResourceFactor() {
    return m_factor;
}
QString QResource_Sked_Site::GetGeneralName() {
    return m_curveName;
}
QString QResource_Sked_Site::GetClassName() {
    return QStringLiteral("QResource_Sked_Site");
}
void QResource_Sked_Site::SetFactor(const int& factor) {
    m_factor = factor;
}
void QResource_Sked_Site::SetPrice(const int& price) {
    m_sitePrice = price;
}
void QResource_Sked_Site::SetUnit(const QString& unit) {
    m_siteUnit = unit;
}
void QResource_Sked_Site::SetResource(QResourceBase* resource) {
    m_baseResource = resource;
}
void QResource_Sked_Site::SetGeneralName(const QString& name) {
    m_curveName = name;
}
void QResource_Sked_Site::SetCurveName(const QString& name) {
    m_curveName = name;
}

QResource_Sked_Site_CL::QResource_Sked_Site_CL(QObject* parent) : QResource_Sked_Site(parent) {}
QResource_Sked_Site_CL::~QResource_Sked_Site_CL() = default;
QString QResource_Sked_Site_CL::GetClassName() {
    return QStringLiteral("QResource_Sked_Site_CL");
}

QResource_Sked_Site_JX::QResource_Sked_Site_JX(QObject* parent) : QResource_Sked_Site(parent) {}
QResource_Sked_Site_JX::~QResource_Sked_Site_JX() = default;
QString QResource_Sked_Site_JX::GetClassName() {
    return QStringLiteral("QResource_Sked_Site_JX");
}

QResource_Sked_Site_RL::QResource_Sked_Site_RL(QObject* parent) : QResource_Sked_Site(parent) {}
QResource_Sked_Site_RL::~QResource_Sked_Site_RL() = default;

QString QResource_Sked_Site_RL::GetProjectCode() {
    return m_processCode;
}
QString QResource_Sked_Site_RL::GetProjectName() {
    return m_processName;
}
QString QResource_Sked_Site_RL::GetGxColor() {
    return m_processColor;
}
QString QResource_Sked_Site_RL::GetClassName() {
    return QStringLiteral("QResource_Sked_Site_RL");
}
void QResource_Sked_Site_RL::SetProjectCode(const QString& code) {
    m_processCode = code;
}
void QResource_Sked_Site_RL::SetProjectName(const QString& name) {
    m_processName = name;
}
void QResource_Sked_Site_RL::SetGxColor(const QString& color) {
    m_processColor = color;
}
