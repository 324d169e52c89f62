// Host contract: an item of an element type, made by QClassifyVirtual::CreateElementItem. The host
// implements it; the defaults do nothing.
#ifndef QCLASSIFYITEMVIRTUAL_H
#define QCLASSIFYITEMVIRTUAL_H

#include "markrule_global.h"

#include <QObject>
#include <QString>

class QSceneVirtual;

class MARKRULE_EXPORT QClassifyItemVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QClassifyItemVirtual(QObject* parent = nullptr);

public:
    ~QClassifyItemVirtual() override;

    virtual void SetItemName(const QString&) {}
    virtual void SetItemIndex(const int&) {}
    virtual void SetItemScene(QSceneVirtual*) {}
    virtual void SetItemValue(const double&) {}
};

#endif // QCLASSIFYITEMVIRTUAL_H
