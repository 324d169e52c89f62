// Recording doubles of the host's element types (QClassifyVirtual) and their items
// (QClassifyItemVirtual). Every call on them, and every CreateElementType made through the factory
// hook, is appended to one shared log as a line such as "E1.SetItemValue(3.5)" or
// "E1.AddElementItem(E1.I1)", so that a test can check the order of calls across objects. A pointer
// argument shows as the object's name ("null" for none): element types are named "E1", "E2", ... in
// creation order, their items "E1.I1", ..., and a test names the scene it passes.
#ifndef FAKEELEMENTTYPE_H
#define FAKEELEMENTTYPE_H

#include "qclassifyitemvirtual.h"
#include "qclassifyvirtual.h"
#include "qscenevirtual.h"

#include <QPointer>
#include <QStringList>
#include <functional>

template <class Interface> class CallRecorder : public Interface {
public:
    CallRecorder(const QString& name, QStringList& log, QObject* parent = nullptr)
        : Interface(parent), m_log(log) {
        this->setObjectName(name);
    }

protected:
    void record(const char* operation, const QString& argument) {
        m_log << QStringLiteral("%1.%2(%3)").arg(this->objectName(), QLatin1String(operation), argument);
    }
    void record(const char* operation, double number) { record(operation, QString::number(number)); }
    void record(const char* operation, const QObject* object) {
        record(operation, object ? object->objectName() : QStringLiteral("null"));
    }
    QStringList& m_log;
};

class FakeElementItem : public CallRecorder<QClassifyItemVirtual> {
public:
    using CallRecorder::CallRecorder;
    void SetItemName(const QString& name) override { record("SetItemName", name); }
    void SetItemIndex(const int& index) override { record("SetItemIndex", index); }
    void SetItemScene(QSceneVirtual* scene) override { record("SetItemScene", scene); }
    void SetItemValue(const double& value) override { record("SetItemValue", value); }
};

// Owns the items its CreateElementItem made (its QObject children); answers null items when asked to.
class FakeElementType : public CallRecorder<QClassifyVirtual> {
public:
    using CallRecorder::CallRecorder;
    void AddElementItem(QClassifyItemVirtual* item) override { record("AddElementItem", item); }
    QClassifyItemVirtual* CreateElementItem(const int& kind) override {
        record("CreateElementItem", kind);
        const QString label = objectName() + QStringLiteral(".I%1").arg(children().size() + 1);
        return nullItems ? nullptr : new FakeElementItem(label, m_log, this);
    }
    void SetElementKind(const int& kind) override { record("SetElementKind", kind); }
    void SetElementScene(QSceneVirtual* scene) override { record("SetElementScene", scene); }
    void SetPrevName(const QString& name) override { record("SetPrevName", name); }
    void SetNextName(const QString& name) override { record("SetNextName", name); }
    void SetElementName(const QString& name) override { record("SetElementName", name); }

    bool nullItems = false;
};

struct ClassifyCallLog {
    // A hook for FakeProjectData::elementTypeFactory: it logs each call as object "project" and
    // answers the n-th call as the n-th character of answers says: 'n' null, 'i' an element type
    // whose CreateElementItem answers null, else (also beyond the text) an element type. The log
    // must outlive the element types it makes.
    std::function<QClassifyVirtual*(int)> factory(const QString& answers = QString()) {
        return [this, answers](int kind) -> QClassifyVirtual* {
            lines << QStringLiteral("project.CreateElementType(%1)").arg(kind);
            const QString answer = answers.mid(m_calls++, 1);
            if (answer == QLatin1String("n"))
                return nullptr;
            auto* type = new FakeElementType(QStringLiteral("E%1").arg(elementTypes.size() + 1), lines);
            type->nullItems = answer == QLatin1String("i");
            elementTypes << type;
            return type;
        };
    }

    QStringList lines;
    QList<QPointer<FakeElementType>> elementTypes; // every one made, in order; null once deleted

private:
    int m_calls = 0;
};

#endif // FAKEELEMENTTYPE_H
