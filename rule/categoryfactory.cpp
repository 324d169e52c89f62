// Category factories: product 5 (schedule) and category types 1 to 7, by scene code.
#include "qmarkcategorybase.h"

QMarkCategoryVirtual* QMarkCategoryBase::CreateMarkCategoryByType(const int& product, const int&,
                                                                  const int&) {
    if (product != 5)
        return nullptr;
    return nullptr;
}

void QMarkCategoryBase::CreateMarkCategory(const int& product, const int& scene,
                                           QMap<int, QMarkCategoryVirtual*>& categories) {
    if (product != 5)
        return;
    for (int type = 1; type <= 7; ++type) {
        if (QMarkCategoryVirtual* category = CreateMarkCategoryByType(product, scene, type))
            categories.insert(type, category);
    }
}
