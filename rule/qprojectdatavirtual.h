// Host contract: the project data that a host hands to categories (UpdateCategory) and to scenes
// (CreateSceneInfo) as void*. The host implements it; every default does nothing and returns a
// zero, null or empty result. The void* must be made from a QProjectDataVirtual*.
#ifndef QPROJECTDATAVIRTUAL_H
#define QPROJECTDATAVIRTUAL_H

#include "markrule_global.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

class QClassifyVirtual;
class QResourceVirtual;

class MARKRULE_EXPORT QProjectDataVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QProjectDataVirtual(QObject* parent = nullptr);

public:
    ~QProjectDataVirtual() override;

    // Fills, in parallel, the names of the work items to score, a display text and a chain text each.
    virtual void GetLogicTexts(QStringList& names, QStringList& displays, QStringList& chains);
    // A new element type owned by the caller, or null.
    virtual QClassifyVirtual* CreateElementType(const int& kind);
    virtual void GetResourceList(QList<QResourceVirtual*>& resources);
    // Work items as void* made from QWorkItemVirtual*, in schedule order.
    virtual void GetWorkItemList(QList<void*>& items);
    // Work-item names in the order the Gantt chart must show them.
    virtual void GetWorkItemNameList(QStringList& names);
    // Receives the distinct work-item names in first-seen order.
    virtual void SetWorkItemNameList(const QStringList& names);
    virtual void GetWorkItemsByName(QMultiMap<QString, void*>& items);
    virtual int GetTotalDays();
};

#endif // QPROJECTDATAVIRTUAL_H
