// Category factories: product 5 (schedule) and category types 1 to 7, by scene code.
#include "qmarkattribute.h"
#include "qmarkcategorybase.h"
#include "qmarkganttchart.h"
#include "qmarkintegrity.h"
#include "qmarklogical.h"
#include "qmarknetprinciple.h"
#include "qmarknetrationality.h"
#include "qmarkrescurve.h"

namespace {

const int kScheduleProduct = 5;

// The class of a category family for a scene code: 1 Site, 2 Twin, any other the plain scene.
template <class Plain, class Twin, class Site> QMarkCategoryVirtual* forScene(int scene) {
    switch (scene) {
    case 1:
        return new Site(nullptr);
    case 2:
        return new Twin(nullptr);
    default:
        return new Plain(nullptr);
    }
}

QMarkCategoryVirtual* scheduleCategory(int scene, int categoryType) {
    switch (categoryType) {
    case 1:
        return forScene<QMarkIntegrity_Sked, QMarkIntegrity_Sked_Twin, QMarkIntegrity_Sked_Site>(scene);
    case 2:
        return forScene<QMarkAttribute_Sked, QMarkAttribute_Sked_Twin, QMarkAttribute_Sked_Site>(scene);
    case 3:
        return forScene<QMarkLogical_Sked, QMarkLogical_Sked_Twin, QMarkLogical_Sked_Site>(scene);
    case 4:
        return forScene<QMarkResCurve_Sked, QMarkResCurve_Sked_Twin, QMarkResCurve_Sked_Site>(scene);
    case 5:
        return forScene<QMarkGanttChart_Sked, QMarkGanttChart_Sked_Twin, QMarkGanttChart_Sked_Site>(scene);
    case 6:
        return forScene<QMarkNetRationality_Sked, QMarkNetRationality_Sked_Twin,
                        QMarkNetRationality_Sked_Site>(scene);
    case 7:
        return forScene<QMarkNetPrinciple_Sked, QMarkNetPrinciple_Sked_Twin, QMarkNetPrinciple_Sked_Site>(
            scene);
    default:
        return nullptr;
    }
}

} // namespace

QMarkCategoryVirtual* QMarkCategoryBase::CreateMarkCategoryByType(const int& product, const int& scene,
                                                                  const int& categoryType) {
    if (product != kScheduleProduct)
        return nullptr;
    QMarkCategoryVirtual* category = scheduleCategory(scene, categoryType);
    // Every category leaves the factory with its root criterion.
    if (category)
        category->InitMarkCategoryItem();
    return category;
}

void QMarkCategoryBase::CreateMarkCategory(const int& product, const int& scene,
                                           QMap<int, QMarkCategoryVirtual*>& categories) {
    if (product != kScheduleProduct)
        return;
    for (int type = 1; type <= 7; ++type) {
        if (QMarkCategoryVirtual* category = CreateMarkCategoryByType(product, scene, type))
            categories.insert(type, category);
    }
}
