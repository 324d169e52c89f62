// QResourceBase: the exported base of every resource class. It adds the class name and nine setters
// that do nothing here; the Site resources store what they receive.
#ifndef QRESOURCEBASE_H
#define QRESOURCEBASE_H

#include "markrule_global.h"
#include "qresourcevirtual.h"

class MARKRULE_EXPORT QResourceBase : public QResourceVirtual {
    Q_OBJECT
protected:
    explicit QResourceBase(QObject* parent = nullptr);

public:
    ~QResourceBase() override;

    virtual QString GetClassName();
    virtual void SetFactor(const int& factor);
    virtual void SetPrice(const int& price);
    virtual void SetUnit(const QString& unit);
    virtual void SetResource(QResourceBase* resource);
    virtual void SetGeneralName(const QString& name);
    virtual void SetCurveName(const QString& name);
    virtual void SetProjectCode(const QString& code);
    virtual void SetProjectName(const QString& name);
    virtual void SetGxColor(const QString& color);

    // A parentless resource of the scene's general class for MarkCode::ProductSked, else null; the caller
    // owns it.
    static QResourceVirtual* CreateResource(const int& product, const int& scene);
};

#endif // QRESOURCEBASE_H
