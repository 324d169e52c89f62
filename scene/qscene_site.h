// QScene_Site: the construction-site scene (MarkCode::SceneSite). It holds the fixed catalogue of three
// labour, six material and six machinery resources, the two preparatory element types it asks the
// host to create, and the rules that map model element identifiers to labour, components and
// logic chains.
//
// Element identifiers: the text before the first "-" (the whole text without "-") is exactly "JC",
// "D" or "B"; the last character is the work-process number 1, 2 or 3. "JC-X-1", "JC-X-2" and
// "JC-X-3" are the three work processes of component "JC-X".
//
// Ownership: besides its resources, the scene owns the element types it recorded and deletes them
// when it is destroyed; an element type whose item the host could not create is deleted at once.
#ifndef QSCENE_SITE_H
#define QSCENE_SITE_H

#include "markrule_global.h"
#include "qscene_sked.h"

#include <QList>

class QClassifyVirtual;

class MARKRULE_EXPORT QScene_Site : public QScene_Sked {
    Q_OBJECT
public:
    explicit QScene_Site(QObject* parent = nullptr);
    ~QScene_Site() override;

    // Fills the resource catalogue and, when data is the host's project data, creates the two
    // preparatory element types through its CreateElementType.
    void InitSceneInfo(void* data) override;
    // The labour resource (a QResourceVirtual) responsible for the work process id, or null.
    void* GetRLResource(const QString& id) override;
    // Replaces the list's contents with the recorded element types (shared, not copied).
    void GetElementTypeList(QList<QClassifyVirtual*>& list) override;
    int GetSceneType() override;
    // The labour name of the work process id, or the empty text.
    QString GetRLResourceNameById(const QString& id) override;
    // The logic chains into element: for each ";"-separated predecessor, its expansion, ";" and the
    // expansion of element, joined by "&" (just the expansion of element without predecessors).
    QString GetElementLogic(const QString& element, const QString& predecessors) override;
    // The component of a first work process ("JC-X-1" gives "JC-X"); the empty text for other
    // element identifiers; any other text unchanged.
    QString TransformElementToComp(const QString& id) override;
    // For the ";"-separated work sequence text: each component with a complete chain of work
    // processes (and each plain work item) is mapped to the components and work items of the
    // sequence that finished before its first work process; sets already in result are united.
    void CombineElementToComp(const QString& text, QMap<QString, QSet<QString>>& result) override;
    // 1 labour, 4 rebar material, 5 concrete material, 6 formwork material, else 0.
    int GetResourceTypeById(const QString& code) override;
    QString GetClassName() override;

protected:
    QList<QClassifyVirtual*> m_listElementType;

private:
    void fillCatalogue();
    void createElementTypes(void* data);
};

#endif // QSCENE_SITE_H
