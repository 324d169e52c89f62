// Category factories: the schedule product's seven category types, by scene code.
#include "qmarkattribute.h"
#include "markrulecodes.h"
#include "qmarkcategorybase.h"
#include "qmarkganttchart.h"
#include "qmarkintegrity.h"
#include "qmarklogical.h"
#include "qmarknetprinciple.h"
#include "qmarknetrationality.h"
#include "qmarkrescurve.h"

using namespace MarkCode;

namespace {

// The class of a category family for a scene code: Site, Twin, any other the plain scene.
template <class Plain, class Twin, class Site> QMarkCategoryVirtual* forScene(int scene) {
    switch (scene) {
    case SceneSite:
        return new Site(nullptr);
    case SceneTwin:
        return new Twin(nullptr);
    default:
        return new Plain(nullptr);
    }
}

QMarkCategoryVirtual* scheduleCategory(int scene, int categoryType) {
    switch (categoryType) {
    case CategoryIntegrity:
        return forScene<QMarkIntegrity_Sked, QMarkIntegrity_Sked_Twin, QMarkIntegrity_Sked_Site>(scene);
    case CategoryAttribute:
        return forScene<QMarkAttribute_Sked, QMarkAttribute_Sked_Twin, QMarkAttribute_Sked_Site>(scene);
    case CategoryLogical:
        return forScene<QMarkLogical_Sked, QMarkLogical_Sked_Twin, QMarkLogical_Sked_Site>(scene);
    case CategoryResCurve:
        return forScene<QMarkResCurve_Sked, QMarkResCurve_Sked_Twin, QMarkResCurve_Sked_Site>(scene);
    case CategoryGanttChart:
        return forScene<QMarkGanttChart_Sked, QMarkGanttChart_Sked_Twin, QMarkGanttChart_Sked_Site>(scene);
    case CategoryNetRationality:
        return forScene<QMarkNetRationality_Sked, QMarkNetRationality_Sked_Twin,
                        QMarkNetRationality_Sked_Site>(scene);
    case CategoryNetPrinciple:
        return forScene<QMarkNetPrinciple_Sked, QMarkNetPrinciple_Sked_Twin, QMarkNetPrinciple_Sked_Site>(
            scene);
    default:
        return nullptr;
    }
}

} // namespace

QMarkCategoryVirtual* QMarkCategoryBase::CreateMarkCategoryByType(const int& product, const int& scene,
                                                                  const int& categoryType) {
    if (product != ProductSked)
        return nullptr;
    QMarkCategoryVirtual* category = scheduleCategory(scene, categoryType);
    // Every category leaves the factory with its root criterion.
    if (category)
        category->InitMarkCategoryItem();
    return category;
}

void QMarkCategoryBase::CreateMarkCategory(const int& product, const int& scene,
                                           QMap<int, QMarkCategoryVirtual*>& categories) {
    if (product != ProductSked)
        return;
    for (int type = CategoryFirst; type <= CategoryLast; ++type) {
        if (QMarkCategoryVirtual* category = CreateMarkCategoryByType(product, scene, type))
            categories.insert(type, category);
    }
}
