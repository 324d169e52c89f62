#include "qscene_sked.h"
#include "markrulecodes.h"

#include "qresourcevirtual.h"

using namespace MarkCode;

QScene_Sked::QScene_Sked(QObject* parent) : QSceneBase(parent) {}

QScene_Sked::~QScene_Sked() {
    qDeleteAll(m_ownedResources);
}

int QScene_Sked::GetRLResourceFactor(const QString& code) {
    QResourceVirtual* resource = m_mapRLResource.value(code, nullptr);
    return resource ? resource->GetResourceFactor() : 0;
}

void QScene_Sked::GetAllCurveResource(QList<QResourceVirtual*>& list) {
    list = m_mapRLResource.values();
    list += m_mapCLResource.values();
    list += m_mapJXResource.values();
}

int QScene_Sked::GetResourceType(const QString& code) {
    const QMap<QString, QResourceVirtual*>* tables[] = {&m_mapRLResource, &m_mapCLResource, &m_mapJXResource};
    const int types[] = {ResourceLabour, ResourceMaterial, ResourceMachine};
    for (int i = 0; i < 3; ++i) {
        if (tables[i]->value(code, nullptr))
            return types[i];
    }
    return ResourceNone;
}

QString QScene_Sked::GetClassName() {
    return QStringLiteral("QScene_Sked");
}

void QScene_Sked::addResource(QMap<QString, QResourceVirtual*>& table, const QString& code,
                              QResourceVirtual* resource) {
    table.insert(code, resource);
    if (resource)
        m_ownedResources.append(resource);
}
