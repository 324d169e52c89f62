// QScene_Sked: the plain schedule scene and the common base of the Site and Twin scenes. It holds
// the scene's labour, material and machinery resources, each table keyed by the code the scene
// registered the resource under, and answers the resource queries shared by every scene.
//
// Ownership: a scene deletes, when it is destroyed, every resource it registered through
// addResource (also those a later registration replaced in a table). Callers of
// GetAllCurveResource must not delete the pointers they receive.
#ifndef QSCENE_SKED_H
#define QSCENE_SKED_H

#include "markrule_global.h"
#include "qscenebase.h"

#include <QList>
#include <QMap>
#include <QString>

class QResourceVirtual;

class MARKRULE_EXPORT QScene_Sked : public QSceneBase {
    Q_OBJECT
public:
    explicit QScene_Sked(QObject* parent = nullptr);
    ~QScene_Sked() override;

    // The strength factor of the labour resource registered under code, else 0.
    int GetRLResourceFactor(const QString& code) override;
    // Replaces the list's contents with every resource: labour, then material, then machinery, each
    // table in ascending code order.
    void GetAllCurveResource(QList<QResourceVirtual*>& list) override;
    // 1 labour, 2 material, 3 machinery, 0 when no table holds the code (exact match).
    int GetResourceType(const QString& code) override;
    QString GetClassName() override;

protected:
    // Registers resource under code in table (replacing the pointer stored there) and takes ownership.
    void addResource(QMap<QString, QResourceVirtual*>& table, const QString& code,
                     QResourceVirtual* resource);

    QMap<QString, QResourceVirtual*> m_mapRLResource;
    QMap<QString, QResourceVirtual*> m_mapCLResource;
    QMap<QString, QResourceVirtual*> m_mapJXResource;

private:
    QList<QResourceVirtual*> m_ownedResources;
};

#endif // QSCENE_SKED_H
