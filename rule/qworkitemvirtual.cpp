#include "qworkitemvirtual.h"

QWorkItemVirtual::QWorkItemVirtual(QObject* parent) : QObject(parent) {}
QWorkItemVirtual::~QWorkItemVirtual() = default;
