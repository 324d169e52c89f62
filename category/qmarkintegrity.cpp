#include "qmarkintegrity.h"
#include "markrulecodes.h"

#include "categorytexts_p.h"
#include "qratingitem_sked_scene.h"
#include "skedcategory_p.h"

#include <QSet>

using namespace MarkCode;

SKED_CATEGORY_CLASS(QMarkIntegrity, QMarkCategoryBase)
SKED_CATEGORY_CLASS_TYPED(QMarkIntegrity_Sked, QMarkIntegrity, CategoryIntegrity)
SKED_CATEGORY_ITEMS(QMarkIntegrity_Sked, QRatingItem_Sked)
SKED_CATEGORY_CLASS(QMarkIntegrity_Sked_Twin, QMarkIntegrity_Sked)
SKED_CATEGORY_CLASS(QMarkIntegrity_Sked_Site, QMarkIntegrity_Sked)
SKED_CATEGORY_ITEMS(QMarkIntegrity_Sked_Site, QRatingItem_Sked_Site)

void QMarkIntegrity_Sked::installRoot(QRatingItemVirtual* root) {
    SkedCategory::nameRoot(root, CategoryText::integrityRoot(), SkedIntegrityRoot);
    setRootItem(root);
}

void QMarkIntegrity_Sked::UpdateCategory(void* data, const bool& flag) {
    QProjectDataVirtual* project = MarkPointer::projectData(data);
    if (!SkedCategory::beginBuild(m_created, m_projectData, data, project && rootItem()))
        return;
    QList<void*> workItems;
    project->GetWorkItemList(workItems);
    QMultiMap<QString, void*> byName;
    project->GetWorkItemsByName(byName);
    QStringList names;
    QSet<QString> seen;
    for (void* pointer : qAsConst(workItems)) {
        QWorkItemVirtual* workItem = MarkPointer::workItem(pointer);
        if (!workItem)
            continue;
        const QString name = workItem->GetWorkItemName();
        if (seen.contains(name))
            continue;
        QRatingItemVirtual* child = SkedCategory::adoptItem(CreateRatingItem(nullptr));
        if (!child)
            return;
        names.append(name);
        child->SetRatingItemName(name);
        child->SetRatingItemUnit(CategoryText::unitPiece());
        child->SetAttributeType(SkedWorkItemCount);
        child->SetRatingItemValue(QString::number(byName.count(name)), false);
        rootItem()->AddRatingItem(MarkPointer::fromItem(child), flag);
        seen.insert(name);
    }
    project->SetWorkItemNameList(names);
    m_created = true;
}
