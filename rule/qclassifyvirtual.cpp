#include "qclassifyvirtual.h"

QClassifyVirtual::QClassifyVirtual(QObject* parent) : QObject(parent) {}
QClassifyVirtual::~QClassifyVirtual() = default;
