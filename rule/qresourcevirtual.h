// MarkCore interface of a schedule resource (labour, material or machinery). Every operation's own
// body is the interface default: no effect, and a zero or empty result. Slot order is the host's.
#ifndef QRESOURCEVIRTUAL_H
#define QRESOURCEVIRTUAL_H

#include "markrule_global.h"

#include <QObject>
#include <QString>
#include <QStringList>

class MARKCORE_EXPORT QResourceVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QResourceVirtual(QObject* parent = nullptr);

public:
    ~QResourceVirtual() override;

    virtual int GetResourceFactor() { return 0; }
    virtual int GetResPlanTotal() { return 0; }
    virtual QString GetResourceName() { return QString(); }
    virtual QString GetResourceCode() { return QString(); }
    virtual void SetResourceCode(const QString&) {}
    virtual void SetResourceName(const QString&) {}
    virtual void SetResPlanTotal(const int&) {}
    virtual void SetResPlanStrength(const double&) {}
    virtual void SetResourceReal(const int&) {}
    virtual void SetResourcePrice(const int&) {}
    virtual void SetResourceUnit(const QString&) {}
    virtual QString GetGeneralName() { return QString(); }
    virtual QString GetProjectCode() { return QString(); }
    virtual QString GetProjectName() { return QString(); }
    virtual QString GetGxColor() { return QString(); }
    virtual QString TransformTextToName(const QString&) { return QString(); }
    virtual QStringList TransformTextToName(const QStringList&) { return QStringList(); }
};

#endif // QRESOURCEVIRTUAL_H
