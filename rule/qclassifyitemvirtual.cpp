#include "qclassifyitemvirtual.h"

QClassifyItemVirtual::QClassifyItemVirtual(QObject* parent) : QObject(parent) {}
QClassifyItemVirtual::~QClassifyItemVirtual() = default;
