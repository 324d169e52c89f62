#include "qratingitem_sked_scene.h"

#include "markpointer.h"
#include "recordio_p.h"

#include <QJsonArray>
#include <QSet>

namespace {

// Smallest Site stream record: seven strings (4 bytes each), three 32-bit integers, three doubles
// (4 bytes each at single precision), three bools and the child count.
const qint64 kMinSiteRecordBytes = 7 * 4 + 3 * 4 + 3 * 4 + 3 * 1 + 4;

// Whether a record one level below the current one is still within the nesting limit. JSON has no
// status to report a refusal, so a subtree past the limit is neither written nor read.
bool childLevelAllowed() {
    RecordIO::DepthGuard probe;
    return probe.ok();
}

} // namespace

QRatingItem_Sked_Twin::QRatingItem_Sked_Twin(QObject* parent) : QRatingItem_Sked(parent) {}
QRatingItem_Sked_Twin::~QRatingItem_Sked_Twin() = default;
QString QRatingItem_Sked_Twin::GetClassName() {
    return QString::fromLatin1(staticMetaObject.className());
}

QRatingItem_Sked_Site::QRatingItem_Sked_Site(QObject* parent)
    : QRatingItem_Sked(parent), m_logicOwner(qobject_cast<QRatingItemVirtual*>(parent)) {}

QRatingItem_Sked_Site::QRatingItem_Sked_Site(QRatingItem_Sked* linkedItem) : QRatingItem_Sked(linkedItem) {}

QRatingItem_Sked_Site::QRatingItem_Sked_Site(std::nullptr_t)
    : QRatingItem_Sked_Site(static_cast<QObject*>(nullptr)) {}

QRatingItem_Sked_Site::~QRatingItem_Sked_Site() = default;

QString QRatingItem_Sked_Site::GetClassName() {
    return QString::fromLatin1(staticMetaObject.className());
}

void* QRatingItem_Sked_Site::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Sked_Site(static_cast<QObject*>(nullptr)));
}

void QRatingItem_Sked_Site::GetRatingItemLogic(QStringList& out) {
    // Walk up the owners without recursion; an owner met twice (a cycle) ends the walk there.
    QSet<QRatingItemVirtual*> visited;
    QRatingItem_Sked_Site* site = this;
    for (;;) {
        visited.insert(site);
        QRatingItemVirtual* owner = site->m_logicOwner;
        if (!owner || visited.contains(owner)) {
            out = site->m_logic;
            return;
        }
        QRatingItem_Sked_Site* ownerSite = qobject_cast<QRatingItem_Sked_Site*>(owner);
        if (!ownerSite) {
            owner->GetRatingItemLogic(out);
            return;
        }
        site = ownerSite;
    }
}

void QRatingItem_Sked_Site::DoSerialize(QJsonObject& json, const bool& load) {
    using namespace RecordIO;
    DepthGuard guard;
    if (!guard.ok())
        return;
    const QString itemsKey = QStringLiteral("items");
    if (!load) {
        json.insert(QStringLiteral("itemlevel"), m_level);
        json.insert(QStringLiteral("attribute"), m_attributeType);
        json.insert(QStringLiteral("scorestd"), m_scoreStd);
        json.insert(QStringLiteral("itemname"), m_name);
        json.insert(QStringLiteral("unit"), m_unit);
        json.insert(QStringLiteral("value"), m_value);
        json.insert(QStringLiteral("valuestd"), m_valueStd);
        json.insert(QStringLiteral("uniquevalue"), m_uniqueValue);
        json.insert(QStringLiteral("locked"), m_locked);
        json.insert(QStringLiteral("editable"), m_editable);
        json.insert(QStringLiteral("remark"), m_remark);
        json.insert(QStringLiteral("identical"), m_identical);
        QJsonArray items;
        const QList<void*> children = childLevelAllowed() ? childList() : QList<void*>();
        for (void* pointer : children) {
            // Only Site items have a record; other children are left out.
            if (QRatingItem_Sked_Site* child = MarkPointer::item<QRatingItem_Sked_Site>(pointer)) {
                QJsonObject childObject;
                child->DoSerialize(childObject, false);
                items.append(childObject);
            }
        }
        json.insert(itemsKey, items);
        return;
    }
    m_level = jsonInt(json, QStringLiteral("itemlevel"));
    m_attributeType = jsonInt(json, QStringLiteral("attribute"));
    m_scoreStd = jsonDouble(json, QStringLiteral("scorestd"));
    m_name = jsonString(json, QStringLiteral("itemname"));
    m_unit = jsonString(json, QStringLiteral("unit"));
    m_value = jsonString(json, QStringLiteral("value"));
    m_valueStd = jsonString(json, QStringLiteral("valuestd"));
    m_uniqueValue = jsonString(json, QStringLiteral("uniquevalue"));
    m_locked = jsonBool(json, QStringLiteral("locked"));
    m_editable = jsonBool(json, QStringLiteral("editable"));
    m_remark = jsonString(json, QStringLiteral("remark"));
    m_identical = jsonBool(json, QStringLiteral("identical"));
    const QJsonValue items = json.value(itemsKey);
    if (!items.isArray() || !childLevelAllowed())
        return;
    const QJsonArray array = items.toArray();
    for (const QJsonValue& element : array) {
        if (!element.isObject())
            continue;
        QJsonObject childObject = element.toObject();
        auto* child = new QRatingItem_Sked_Site(static_cast<QObject*>(nullptr));
        child->DoSerialize(childObject, true);
        AddRatingItem(MarkPointer::fromItem(child), true);
    }
}

void QRatingItem_Sked_Site::DoSerialize(QDataStream& stream, const bool& load) {
    using namespace RecordIO;
    DepthGuard guard;
    if (!guard.ok()) {
        stream.setStatus(load ? QDataStream::ReadCorruptData : QDataStream::WriteFailed);
        return;
    }
    if (!load) {
        if (!good(stream))
            return;
        stream << GetClassName() << qint32(m_level) << qint32(m_attributeType) << m_scoreStd << m_score
               << m_name << m_unit << m_valueStd << m_uniqueValue << m_value << m_locked << m_editable
               << m_remark << m_offset << qint32(m_status) << m_identical;
        // Only Site items have a record; other children are left out.
        writeChildRecords(stream, QRatingItem_Sked_Site::staticMetaObject);
        return;
    }

    QString className; // read to keep the stream aligned, then dropped
    qint32 level = 0, attributeType = 0, status = 0;
    double scoreStd = 0.0, score = 0.0, offset = 0.0;
    QString name, unit, valueStd, uniqueValue, value, remark;
    bool locked = false, editable = false, identical = false;
    stream >> className >> level >> attributeType >> scoreStd >> score >> name >> unit >> valueStd >>
        uniqueValue >> value >> locked >> editable >> remark >> offset >> status >> identical;
    if (!good(stream))
        return;
    m_level = level;
    m_attributeType = attributeType;
    m_scoreStd = scoreStd;
    m_score = score;
    m_name = name;
    m_unit = unit;
    m_valueStd = valueStd;
    m_uniqueValue = uniqueValue;
    m_value = value;
    m_locked = locked;
    m_editable = editable;
    m_remark = remark;
    m_offset = offset;
    m_status = status;
    m_identical = identical;

    readChildRecords(stream, kMinSiteRecordBytes);
}
