#include "qprojectdatavirtual.h"

QProjectDataVirtual::QProjectDataVirtual(QObject* parent) : QObject(parent) {}
QProjectDataVirtual::~QProjectDataVirtual() = default;

void QProjectDataVirtual::GetLogicTexts(QStringList&, QStringList&, QStringList&) {}
QClassifyVirtual* QProjectDataVirtual::CreateElementType(const int&) {
    return nullptr;
}
void QProjectDataVirtual::GetResourceList(QList<QResourceVirtual*>&) {}
void QProjectDataVirtual::GetWorkItemList(QList<void*>&) {}
void QProjectDataVirtual::GetWorkItemNameList(QStringList&) {}
void QProjectDataVirtual::SetWorkItemNameList(const QStringList&) {}
void QProjectDataVirtual::GetWorkItemsByName(QMultiMap<QString, void*>&) {}
int QProjectDataVirtual::GetTotalDays() {
    return 0;
}
