// MarkCore interface of a scene (the kind of schedule project a host loaded). Every operation's own
// body is the interface default: no effect, and a zero, null or empty result. Slot order is the host's.
#ifndef QSCENEVIRTUAL_H
#define QSCENEVIRTUAL_H

#include "markrule_global.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QString>

class QClassifyVirtual;
class QResourceVirtual;

class MARKCORE_EXPORT QSceneVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QSceneVirtual(QObject* parent = nullptr);

public:
    ~QSceneVirtual() override;

    virtual void InitSceneInfo(void*) {}
    virtual void* GetRLResource(const QString&) { return nullptr; }
    virtual void GetElementTypeList(QList<QClassifyVirtual*>&) {}
    virtual int GetRLResourceFactor(const QString&) { return 0; }
    virtual void GetAllCurveResource(QList<QResourceVirtual*>&) {}
    virtual int GetSceneType() { return 0; }
    virtual int GetResourceType(const QString&) { return 0; }
    virtual QString GetRLResourceNameById(const QString&) { return QString(); }
    virtual QString GetElementLogic(const QString&, const QString&) { return QString(); }
    virtual QString TransformElementToComp(const QString&) { return QString(); }
    virtual void CombineElementToComp(const QString&, QMap<QString, QSet<QString>>&) {}
    virtual int GetResourceTypeById(const QString&) { return 0; }
};

#endif // QSCENEVIRTUAL_H
