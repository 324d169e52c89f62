#include "qresourcebase.h"

QResourceBase::QResourceBase(QObject* parent) : QResourceVirtual(parent) {}
QResourceBase::~QResourceBase() = default;

QString QResourceBase::GetClassName() {
    return QStringLiteral("QResourceBase");
}
void QResourceBase::SetFactor(const int&) {}
void QResourceBase::SetPrice(const int&) {}
void QResourceBase::SetUnit(const QString&) {}
void QResourceBase::SetResource(QResourceBase*) {}
void QResourceBase::SetGeneralName(const QString&) {}
void QResourceBase::SetCurveName(const QString&) {}
void QResourceBase::SetProjectCode(const QString&) {}
void QResourceBase::SetProjectName(const QString&) {}
void QResourceBase::SetGxColor(const QString&) {}
