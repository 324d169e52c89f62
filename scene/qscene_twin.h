// QScene_Twin: the model-based schedule scene (MarkCode::SceneTwin). It has no resource catalogue and no
// element rules: every resource query gets the empty answer of the schedule scene.
#ifndef QSCENE_TWIN_H
#define QSCENE_TWIN_H

#include "markrule_global.h"
#include "qscene_sked.h"

class MARKRULE_EXPORT QScene_Twin : public QScene_Sked {
    Q_OBJECT
public:
    explicit QScene_Twin(QObject* parent = nullptr);
    ~QScene_Twin() override;

    int GetSceneType() override;
    QString GetClassName() override;
};

#endif // QSCENE_TWIN_H
