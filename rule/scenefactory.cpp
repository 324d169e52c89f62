// Scene factory: the Site and Twin scenes of a schedule product, registered under codes 1 and 2.
#include "qscene_site.h"
#include "qscene_twin.h"

namespace {
constexpr int scheduleProduct = 5;
constexpr int scenesOnlyProduct = 6;
constexpr int siteScene = 1;
constexpr int twinScene = 2;
} // namespace

void QSceneBase::CreateSceneInfo(const int& product, void* data) {
    if (product != scheduleProduct && product != scenesOnlyProduct)
        return;
    // A scene registered before stays alive: pointers to it may still be held by the host.
    QSceneVirtual* site = new QScene_Site(nullptr);
    site->InitSceneInfo(data);
    m_mapScene.insert(siteScene, site);
    QSceneVirtual* twin = new QScene_Twin(nullptr);
    twin->InitSceneInfo(data);
    m_mapScene.insert(twinScene, twin);
}
