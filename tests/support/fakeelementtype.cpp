#include "fakeelementtype.h"

#include "qscenevirtual.h"

namespace {

QVariant pointerArgument(QObject* pointer) {
    return QVariant::fromValue(pointer);
}

QString describe(const QVariant& argument) {
    switch (argument.userType()) {
    case QMetaType::QObjectStar: {
        QObject* object = argument.value<QObject*>();
        if (!object)
            return QStringLiteral("null");
        if (auto* item = qobject_cast<FakeElementItem*>(object))
            return item->label;
        return QString::fromLatin1(object->metaObject()->className());
    }
    case QMetaType::Double: {
        QString text = QString::number(argument.toDouble(), 'g', 17);
        if (!text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e')))
            text += QStringLiteral(".0");
        return text;
    }
    default:
        return argument.toString();
    }
}

} // namespace

std::function<QClassifyVirtual*(int)> ClassifyCallLog::factory(const QList<Answer>& answers) {
    auto calls = std::make_shared<int>(0);
    return [this, answers, calls](int kind) -> QClassifyVirtual* {
        record(QStringLiteral("project"), QStringLiteral("CreateElementType"), kind);
        const Answer answer = answers.value((*calls)++, ElementType);
        if (answer == NullElementType)
            return nullptr;
        auto* type = new FakeElementType(QStringLiteral("E%1").arg(elementTypes.size() + 1), this);
        type->nullItems = answer == ElementTypeWithNullItem;
        elementTypes.append(type);
        return type;
    };
}

void ClassifyCallLog::record(const QString& object, const QString& operation, const QVariant& argument) {
    calls.append({object, operation, argument,
                  QStringLiteral("%1.%2(%3)").arg(object, operation, describe(argument))});
}

QStringList ClassifyCallLog::lines() const {
    QStringList result;
    for (const ClassifyCall& call : calls)
        result.append(call.line);
    return result;
}

void FakeElementItem::SetItemName(const QString& name) {
    m_log->record(label, QStringLiteral("SetItemName"), name);
}
void FakeElementItem::SetItemIndex(const int& index) {
    m_log->record(label, QStringLiteral("SetItemIndex"), index);
}
void FakeElementItem::SetItemScene(QSceneVirtual* scene) {
    m_log->record(label, QStringLiteral("SetItemScene"), pointerArgument(scene));
}
void FakeElementItem::SetItemValue(const double& value) {
    m_log->record(label, QStringLiteral("SetItemValue"), value);
}

FakeElementType::~FakeElementType() {
    qDeleteAll(m_createdItems);
}

void FakeElementType::AddElementItem(QClassifyItemVirtual* item) {
    m_log->record(label, QStringLiteral("AddElementItem"), pointerArgument(item));
    addedItems.append(item);
}

QClassifyItemVirtual* FakeElementType::CreateElementItem(const int& kind) {
    m_log->record(label, QStringLiteral("CreateElementItem"), kind);
    if (nullItems)
        return nullptr;
    auto* item =
        new FakeElementItem(QStringLiteral("%1.I%2").arg(label).arg(m_createdItems.size() + 1), m_log);
    m_createdItems.append(item);
    return item;
}

void FakeElementType::SetElementKind(const int& kind) {
    m_log->record(label, QStringLiteral("SetElementKind"), kind);
}
void FakeElementType::SetElementScene(QSceneVirtual* scene) {
    m_log->record(label, QStringLiteral("SetElementScene"), pointerArgument(scene));
}
void FakeElementType::SetPrevName(const QString& name) {
    m_log->record(label, QStringLiteral("SetPrevName"), name);
}
void FakeElementType::SetNextName(const QString& name) {
    m_log->record(label, QStringLiteral("SetNextName"), name);
}
void FakeElementType::SetElementName(const QString& name) {
    m_log->record(label, QStringLiteral("SetElementName"), name);
}
