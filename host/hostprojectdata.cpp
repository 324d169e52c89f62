#include "hostprojectdata.h"

#include "scheduleanalysis.h"

#include "qresourcebase.h"

namespace Host {

QString HostWorkItem::GetLabourIntensity(QString& crew) {
    crew = m_data.crew;
    return m_data.labourIntensity;
}

void HostElementType::AddElementItem(QClassifyItemVirtual* item) {
    if (!item)
        return;
    item->setParent(this);
    items.append(item);
}

QClassifyItemVirtual* HostElementType::CreateElementItem(const int& kind) {
    return new HostElementItem(kind, this);
}

HostProjectData::HostProjectData(const ScheduleProject& project) : m_project(project) {
    for (const WorkItemData& item : m_project.workItems)
        m_workItems.append(new HostWorkItem(item));
    m_normaliser = QResourceBase::CreateResource(MarkCode::ProductSked, MarkCode::ScenePlain);
    for (const ResourceData& data : m_project.resources) {
        QResourceVirtual* resource = QResourceBase::CreateResource(MarkCode::ProductSked, m_project.scene);
        if (!resource) {
            m_resourcesAvailable = false;
            break;
        }
        resource->SetResourceName(data.name);
        resource->SetResPlanTotal(data.plannedTotal);
        resource->SetResourceCode(data.code);
        resource->SetResourceUnit(data.unit);
        // Site resources carry the chart they are drawn in; other scenes ignore it.
        if (auto* site = qobject_cast<QResourceBase*>(resource))
            site->SetGeneralName(chartName(resource->GetResourceName()));
        m_resources.append(resource);
    }
}

HostProjectData::~HostProjectData() {
    qDeleteAll(m_workItems);
    qDeleteAll(m_resources);
    delete m_normaliser;
}

QString HostProjectData::canonicalName(const QString& name) const {
    return m_normaliser ? m_normaliser->TransformTextToName(name) : name;
}

void HostProjectData::GetLogicTexts(QStringList& names, QStringList& displays, QStringList& chains) {
    LogicTexts texts = logicTexts(m_project.workItems);
    names = texts.names;
    displays = texts.displays;
    chains = texts.chains;
}

QClassifyVirtual* HostProjectData::CreateElementType(const int& kind) {
    return new HostElementType(kind);
}

void HostProjectData::GetResourceList(QList<QResourceVirtual*>& resources) {
    resources = m_resources;
}

void HostProjectData::GetWorkItemList(QList<void*>& items) {
    items.clear();
    for (HostWorkItem* item : m_workItems)
        items.append(static_cast<QObject*>(item));
}

void HostProjectData::GetWorkItemNameList(QStringList& names) {
    names = m_project.gantt.order;
}

void HostProjectData::SetWorkItemNameList(const QStringList& names) {
    m_receivedNames = names;
}

void HostProjectData::GetWorkItemsByName(QMultiMap<QString, void*>& items) {
    items.clear();
    for (HostWorkItem* item : m_workItems)
        items.insert(item->data().name, static_cast<QObject*>(item));
}

int HostProjectData::GetTotalDays() {
    return m_project.totalDays;
}

} // namespace Host
