// MarkCore interface of an element type, the object the host creates for the Site scene through
// QProjectDataVirtual::CreateElementType. Every operation's own body is the interface default.
#ifndef QCLASSIFYVIRTUAL_H
#define QCLASSIFYVIRTUAL_H

#include "markrule_global.h"

#include <QObject>
#include <QString>

class QClassifyItemVirtual;
class QSceneVirtual;

class MARKCORE_EXPORT QClassifyVirtual : public QObject {
    Q_OBJECT
protected:
    explicit QClassifyVirtual(QObject* parent = nullptr);

public:
    ~QClassifyVirtual() override;

    virtual void AddElementItem(QClassifyItemVirtual*) {}
    virtual QClassifyItemVirtual* CreateElementItem(const int&) { return nullptr; }
    virtual void SetElementKind(const int&) {}
    virtual void SetElementScene(QSceneVirtual*) {}
    virtual void SetPrevName(const QString&) {}
    virtual void SetNextName(const QString&) {}
    virtual void SetElementName(const QString&) {}
};

#endif // QCLASSIFYVIRTUAL_H
