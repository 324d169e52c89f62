#include "qratingitemvirtual.h"

QRatingItemVirtual::QRatingItemVirtual(QObject* parent) : QObject(parent) {}
QRatingItemVirtual::~QRatingItemVirtual() = default;
