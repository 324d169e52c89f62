// Resource factory: the general resource class of a schedule scene.
#include "qresource_sked.h"
#include "qresource_sked_site.h"

namespace {
constexpr int scheduleProduct = 5;
constexpr int siteScene = 1;
constexpr int twinScene = 2;
} // namespace

QResourceVirtual* QResourceBase::CreateResource(const int& product, const int& scene) {
    if (product != scheduleProduct)
        return nullptr;
    switch (scene) {
    case siteScene:
        return new QResource_Sked_Site(nullptr);
    case twinScene:
        return new QResource_Sked_Twin(nullptr);
    default:
        return new QResource_Sked(nullptr);
    }
}
