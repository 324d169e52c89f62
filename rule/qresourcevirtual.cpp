#include "qresourcevirtual.h"

QResourceVirtual::QResourceVirtual(QObject* parent) : QObject(parent) {}
QResourceVirtual::~QResourceVirtual() = default;
