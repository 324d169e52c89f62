#include "qscenevirtual.h"

QSceneVirtual::QSceneVirtual(QObject* parent) : QObject(parent) {}
QSceneVirtual::~QSceneVirtual() = default;
