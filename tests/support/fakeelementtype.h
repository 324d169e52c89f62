// Recording doubles of the host's element types (QClassifyVirtual) and their items
// (QClassifyItemVirtual). Every call on them, and every CreateElementType call made through the
// factory hook, is appended to one shared ClassifyCallLog, so that a test can check the order of
// calls across objects.
#ifndef FAKEELEMENTTYPE_H
#define FAKEELEMENTTYPE_H

#include "qclassifyitemvirtual.h"
#include "qclassifyvirtual.h"

#include <QList>
#include <QMetaType>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>

// One recorded call: the object called ("project", "E1", "E1.I1", ...), the operation, its argument
// (int, double, QString, or a pointer as QObject*) and the whole call as a line of text, such as
// "E1.SetItemValue(3.5)" or "E1.AddElementItem(E1.I1)". In the line, a double always shows a point
// ("7.0"), a null pointer shows "null", an item of this double its label, and another object its
// class name.
struct ClassifyCall {
    QString object;
    QString operation;
    QVariant argument;
    QString line;
};

class FakeElementType;

class ClassifyCallLog {
public:
    // What a CreateElementType call answers.
    enum Answer { ElementType, NullElementType, ElementTypeWithNullItem };

    // A hook for FakeProjectData::elementTypeFactory. It logs each call as object "project" and
    // answers the n-th call with answers[n] (ElementType beyond the list). Element types are named
    // "E1", "E2", ... in creation order. The log must outlive the element types it makes.
    std::function<QClassifyVirtual*(int)> factory(const QList<Answer>& answers = {});

    void record(const QString& object, const QString& operation, const QVariant& argument);
    // The lines of all calls, in order.
    QStringList lines() const;

    QList<ClassifyCall> calls;
    // Every element type made through factory(), in creation order; null once deleted.
    QList<QPointer<FakeElementType>> elementTypes;
};

Q_DECLARE_METATYPE(ClassifyCallLog::Answer)

class FakeElementItem : public QClassifyItemVirtual {
    Q_OBJECT
public:
    FakeElementItem(const QString& label, ClassifyCallLog* log) : label(label), m_log(log) {}

    void SetItemName(const QString& name) override;
    void SetItemIndex(const int& index) override;
    void SetItemScene(QSceneVirtual* scene) override;
    void SetItemValue(const double& value) override;

    const QString label;

private:
    ClassifyCallLog* m_log;
};

// Owns every item its CreateElementItem made (deleted with the element type).
class FakeElementType : public QClassifyVirtual {
    Q_OBJECT
public:
    FakeElementType(const QString& label, ClassifyCallLog* log) : label(label), m_log(log) {}
    ~FakeElementType() override;

    void AddElementItem(QClassifyItemVirtual* item) override;
    QClassifyItemVirtual* CreateElementItem(const int& kind) override;
    void SetElementKind(const int& kind) override;
    void SetElementScene(QSceneVirtual* scene) override;
    void SetPrevName(const QString& name) override;
    void SetNextName(const QString& name) override;
    void SetElementName(const QString& name) override;

    const QString label;
    // When set, CreateElementItem answers null.
    bool nullItems = false;
    QList<QClassifyItemVirtual*> addedItems;

private:
    ClassifyCallLog* m_log;
    QList<FakeElementItem*> m_createdItems;
};

#endif // FAKEELEMENTTYPE_H
