// QSceneBase: the exported base of every scene, and the registry through which the host reaches the
// scenes that CreateSceneInfo built. The registry does not own its scenes: it never deletes one;
// their lifetime (and that of scenes a later CreateSceneInfo displaced) is the host's business.
// The registry is not locked: use it from the host's thread only.
#ifndef QSCENEBASE_H
#define QSCENEBASE_H

#include "markrule_global.h"
#include "qscenevirtual.h"

#include <QMap>

class MARKRULE_EXPORT QSceneBase : public QSceneVirtual {
    Q_OBJECT
public:
    explicit QSceneBase(QObject* parent = nullptr);
    ~QSceneBase() override;

    virtual QString GetClassName();

    // Builds the Site and Twin scenes of a schedule product (MarkCode::ProductSked or ProductScenesOnly) from
    // the host's project data and registers them under MarkCode::SceneSite and SceneTwin; other products do
    // nothing.
    static void CreateSceneInfo(const int& product, void* data);
    // The registered scene of a scene code, or null; a lookup never adds a key.
    static QSceneVirtual* GetScenePtrByType(const int& sceneType);

protected:
    static QMap<int, QSceneVirtual*> m_mapScene;
};

#endif // QSCENEBASE_H
