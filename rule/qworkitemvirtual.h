// Host contract: a work item of a schedule, as the project data lists it. It travels as a void* made
// from a QWorkItemVirtual*. The host implements it; every default returns a zero or empty result.
#ifndef QWORKITEMVIRTUAL_H
#define QWORKITEMVIRTUAL_H

#include "markrule_global.h"

#include <QObject>
#include <QString>

class MARKRULE_EXPORT QWorkItemVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QWorkItemVirtual(QObject* parent = nullptr);

public:
    ~QWorkItemVirtual() override;

    virtual QString GetQuantityCode() { return QString(); }
    virtual QString GetQuantityName() { return QString(); }
    virtual QString GetWorkItemName() { return QString(); }
    virtual QString GetUnit() { return QString(); }
    virtual double GetPlannedQuantity() { return 0.0; }
    // Fills out (passed empty) with the duration in days as text.
    virtual void GetDuration(QString&) {}
    virtual QString GetColor() { return QString(); }
    virtual QString GetLineWidth() { return QString(); }
    // Returns the labour intensity and fills crew (passed empty) with the crew text.
    virtual QString GetLabourIntensity(QString&) { return QString(); }
    virtual double GetMaterialTotal() { return 0.0; }
    // Non-zero when the duration is fixed.
    virtual int IsFixedDuration() { return 0; }
};

#endif // QWORKITEMVIRTUAL_H
