// Scene factory: the Site and Twin scenes of a schedule product, registered under their scene codes.
#include "qscene_site.h"
#include "markrulecodes.h"
#include "qscene_twin.h"

using namespace MarkCode;

void QSceneBase::CreateSceneInfo(const int& product, void* data) {
    if (product != ProductSked && product != ProductScenesOnly)
        return;
    // A scene registered before stays alive: pointers to it may still be held by the host.
    QSceneVirtual* site = new QScene_Site(nullptr);
    site->InitSceneInfo(data);
    m_mapScene.insert(SceneSite, site);
    QSceneVirtual* twin = new QScene_Twin(nullptr);
    twin->InitSceneInfo(data);
    m_mapScene.insert(SceneTwin, twin);
}
