// Resource factory: the general resource class of a schedule scene.
#include "qresource_sked.h"
#include "markrulecodes.h"
#include "qresource_sked_site.h"

using namespace MarkCode;

QResourceVirtual* QResourceBase::CreateResource(const int& product, const int& scene) {
    if (product != ProductSked)
        return nullptr;
    switch (scene) {
    case SceneSite:
        return new QResource_Sked_Site(nullptr);
    case SceneTwin:
        return new QResource_Sked_Twin(nullptr);
    default:
        return new QResource_Sked(nullptr);
    }
}
