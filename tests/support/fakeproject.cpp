#include "fakeproject.h"

FakeProjectData::~FakeProjectData() {
    qDeleteAll(workItems);
}

FakeWorkItem* FakeProjectData::addWorkItem(const QString& name) {
    auto* item = new FakeWorkItem(name);
    workItems.append(item);
    return item;
}

void FakeProjectData::GetLogicTexts(QStringList& names, QStringList& displays, QStringList& chains) {
    names = logicNames;
    displays = logicDisplays;
    chains = logicChains;
}

QClassifyVirtual* FakeProjectData::CreateElementType(const int& kind) {
    elementTypeKinds.append(kind);
    return elementTypeFactory ? elementTypeFactory(kind) : nullptr;
}

void FakeProjectData::GetWorkItemList(QList<void*>& items) {
    items.append(leadingWorkItemEntries);
    for (FakeWorkItem* item : workItems)
        items.append(static_cast<QObject*>(item));
    items.append(extraWorkItemEntries);
}

void FakeProjectData::SetWorkItemNameList(const QStringList& names) {
    receivedNameLists.append(names);
}

void FakeProjectData::GetWorkItemsByName(QMultiMap<QString, void*>& items) {
    if (byNameOverride) {
        items = byName;
        return;
    }
    for (FakeWorkItem* item : workItems)
        items.insert(item->name, static_cast<QObject*>(item));
}
