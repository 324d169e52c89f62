// The reference host's project data: a parsed schedule seen through the host contract. Each object
// makes its own work items and resource objects, so every thread builds its own.
#ifndef HOSTPROJECTDATA_H
#define HOSTPROJECTDATA_H

#include "projectmodel.h"

#include "qclassifyitemvirtual.h"
#include "qclassifyvirtual.h"
#include "qprojectdatavirtual.h"
#include "qworkitemvirtual.h"

#include <QList>
#include <QStringList>

class QResourceVirtual;

namespace Host {

class HostWorkItem : public QWorkItemVirtual {
    Q_OBJECT
public:
    explicit HostWorkItem(const WorkItemData& data) : m_data(data) {}

    QString GetQuantityCode() override { return m_data.quantityCode; }
    QString GetQuantityName() override { return m_data.quantityName; }
    QString GetWorkItemName() override { return m_data.name; }
    QString GetUnit() override { return m_data.unit; }
    double GetPlannedQuantity() override { return m_data.plannedQuantity; }
    void GetDuration(QString& out) override { out = QString::number(m_data.duration); }
    QString GetColor() override { return m_data.color; }
    QString GetLineWidth() override { return m_data.lineWidth; }
    QString GetLabourIntensity(QString& crew) override;
    double GetMaterialTotal() override { return m_data.materialTotal; }
    int IsFixedDuration() override { return m_data.fixedDuration ? 1 : 0; }

    const WorkItemData& data() const { return m_data; }

private:
    WorkItemData m_data;
};

// An item of an element type; it stores what the scene tells it.
class HostElementItem : public QClassifyItemVirtual {
    Q_OBJECT
public:
    explicit HostElementItem(int kind, QObject* parent = nullptr)
        : QClassifyItemVirtual(parent), kind(kind) {}

    void SetItemName(const QString& value) override { name = value; }
    void SetItemIndex(const int& value) override { index = value; }
    void SetItemScene(QSceneVirtual* value) override { scene = value; }
    void SetItemValue(const double& value) override { this->value = value; }

    int kind;
    QString name;
    int index = 0;
    QSceneVirtual* scene = nullptr;
    double value = 0.0;
};

// An element type made for a scene. It owns every item it made, added or not.
class HostElementType : public QClassifyVirtual {
    Q_OBJECT
public:
    explicit HostElementType(int kind) : createdKind(kind) {}

    void AddElementItem(QClassifyItemVirtual* item) override;
    QClassifyItemVirtual* CreateElementItem(const int& kind) override;
    void SetElementKind(const int& value) override { kind = value; }
    void SetElementScene(QSceneVirtual* value) override { scene = value; }
    void SetPrevName(const QString& value) override { prevName = value; }
    void SetNextName(const QString& value) override { nextName = value; }
    void SetElementName(const QString& value) override { name = value; }

    int createdKind;
    int kind = 0;
    QSceneVirtual* scene = nullptr;
    QString prevName;
    QString nextName;
    QString name;
    QList<QClassifyItemVirtual*> items; // added items, in order
};

class HostProjectData : public QProjectDataVirtual {
    Q_OBJECT
public:
    // Makes the work items, and the resource objects through the library's resource factory.
    explicit HostProjectData(const ScheduleProject& project);
    ~HostProjectData() override;

    void GetLogicTexts(QStringList& names, QStringList& displays, QStringList& chains) override;
    QClassifyVirtual* CreateElementType(const int& kind) override;
    void GetResourceList(QList<QResourceVirtual*>& resources) override;
    void GetWorkItemList(QList<void*>& items) override;
    void GetWorkItemNameList(QStringList& names) override;
    void SetWorkItemNameList(const QStringList& names) override;
    void GetWorkItemsByName(QMultiMap<QString, void*>& items) override;
    int GetTotalDays() override;

    const ScheduleProject& project() const { return m_project; }
    // The void* under which the library receives this object.
    void* handle() { return static_cast<QObject*>(this); }
    // False when the resource factory gave no object: the resource list is then empty.
    bool resourcesAvailable() const { return m_resourcesAvailable; }
    // The canonical resource name of a name as the project writes it (unchanged without the factory).
    QString canonicalName(const QString& name) const;
    // The names the library last handed back through SetWorkItemNameList.
    const QStringList& receivedNames() const { return m_receivedNames; }

private:
    ScheduleProject m_project;
    QList<HostWorkItem*> m_workItems;
    QList<QResourceVirtual*> m_resources;
    QResourceVirtual* m_normaliser = nullptr;
    bool m_resourcesAvailable = true;
    QStringList m_receivedNames;
};

} // namespace Host

#endif // HOSTPROJECTDATA_H
