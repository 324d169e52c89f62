#include "qscenebase.h"

QMap<int, QSceneVirtual*> QSceneBase::m_mapScene;

QSceneBase::QSceneBase(QObject* parent) : QSceneVirtual(parent) {}
QSceneBase::~QSceneBase() = default;

QString QSceneBase::GetClassName() {
    return QStringLiteral("QSceneBase");
}

QSceneVirtual* QSceneBase::GetScenePtrByType(const int& sceneType) {
    return m_mapScene.value(sceneType, nullptr);
}
