#include "qscene_twin.h"
#include "markrulecodes.h"

using namespace MarkCode;

QScene_Twin::QScene_Twin(QObject* parent) : QScene_Sked(parent) {}
QScene_Twin::~QScene_Twin() = default;

int QScene_Twin::GetSceneType() {
    return SceneTwin;
}
QString QScene_Twin::GetClassName() {
    return QStringLiteral("QScene_Twin");
}
