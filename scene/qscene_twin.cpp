#include "qscene_twin.h"

QScene_Twin::QScene_Twin(QObject* parent) : QScene_Sked(parent) {}
QScene_Twin::~QScene_Twin() = default;

int QScene_Twin::GetSceneType() {
    return 2;
}
QString QScene_Twin::GetClassName() {
    return QStringLiteral("QScene_Twin");
}
