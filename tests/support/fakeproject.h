// In-memory doubles of the host's project data and work items, for tests.
#ifndef FAKEPROJECT_H
#define FAKEPROJECT_H

#include "qclassifyvirtual.h"
#include "qprojectdatavirtual.h"
#include "qresourcevirtual.h"
#include "qworkitemvirtual.h"

#include <QList>
#include <functional>
#include <QStringList>

class FakeWorkItem : public QWorkItemVirtual {
    Q_OBJECT
public:
    explicit FakeWorkItem(const QString& name = QString()) : name(name) {}

    QString GetQuantityCode() override { return quantityCode; }
    QString GetQuantityName() override { return quantityName; }
    QString GetWorkItemName() override { return name; }
    QString GetUnit() override { return unit; }
    double GetPlannedQuantity() override { return plannedQuantity; }
    void GetDuration(QString& out) override { out = duration; }
    QString GetColor() override { return color; }
    QString GetLineWidth() override { return lineWidth; }
    QString GetLabourIntensity(QString& crewOut) override {
        crewOut = crew;
        return labourIntensity;
    }
    double GetMaterialTotal() override { return materialTotal; }
    int IsFixedDuration() override { return fixedDuration; }

    QString quantityCode, quantityName, name, unit, duration, color, lineWidth, labourIntensity, crew;
    double plannedQuantity = 0.0;
    double materialTotal = 0.0;
    int fixedDuration = 0;
};

// A resource as a project lists it: name, planned total and chart (general) name.
class FakeResource : public QResourceVirtual {
    Q_OBJECT
public:
    explicit FakeResource(const QString& name = QString(), int planTotal = 0,
                          const QString& generalName = QString())
        : name(name), generalName(generalName), planTotal(planTotal) {}

    int GetResPlanTotal() override { return planTotal; }
    QString GetResourceName() override { return name; }
    QString GetGeneralName() override { return generalName; }

    QString name, generalName;
    int planTotal = 0;
};

// Owns its work items; the other lists are plain values the test fills. Records the calls that hand
// data back (SetWorkItemNameList) and the element types it was asked to create.
class FakeProjectData : public QProjectDataVirtual {
    Q_OBJECT
public:
    FakeProjectData() = default;
    ~FakeProjectData() override;

    // Adds a work item named name; the project owns it.
    FakeWorkItem* addWorkItem(const QString& name);

    void GetLogicTexts(QStringList& names, QStringList& displays, QStringList& chains) override;
    QClassifyVirtual* CreateElementType(const int& kind) override;
    void GetResourceList(QList<QResourceVirtual*>& list) override { list = resources; }
    void GetWorkItemList(QList<void*>& items) override;
    void GetWorkItemNameList(QStringList& names) override { names = ganttNames; }
    void SetWorkItemNameList(const QStringList& names) override;
    void GetWorkItemsByName(QMultiMap<QString, void*>& items) override;
    int GetTotalDays() override { return totalDays; }

    QList<FakeWorkItem*> workItems;
    // Extra entries of GetWorkItemList (for example null) listed before and after the work items.
    QList<void*> leadingWorkItemEntries;
    QList<void*> extraWorkItemEntries;
    // When set, GetWorkItemsByName lists only these names' items instead of every work item.
    bool byNameOverride = false;
    QMultiMap<QString, void*> byName;
    QStringList logicNames, logicDisplays, logicChains;
    QList<QResourceVirtual*> resources; // not owned
    QStringList ganttNames;
    int totalDays = 0;

    // Recorded calls.
    QList<QStringList> receivedNameLists;
    QList<int> elementTypeKinds;
    // Element types made by CreateElementType are built by this hook when set (not owned here).
    std::function<QClassifyVirtual*(int)> elementTypeFactory;
};

#endif // FAKEPROJECT_H
