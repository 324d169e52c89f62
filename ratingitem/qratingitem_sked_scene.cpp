#include "qratingitem_sked_scene.h"

#include "markpointer.h"
#include "recordio_p.h"

#include <QSet>

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

RecordIO::Fields QRatingItem_Sked_Site::recordFields(QString& className) {
    return {{nullptr, className},      {"itemlevel", m_level},   {"attribute", m_attributeType},
            {"scorestd", m_scoreStd},  {nullptr, m_score},       {"itemname", m_name},
            {"unit", m_unit},          {"valuestd", m_valueStd}, {"uniquevalue", m_uniqueValue},
            {"value", m_value},        {"locked", m_locked},     {"editable", m_editable},
            {"remark", m_remark},      {nullptr, m_offset},      {nullptr, m_status},
            {"identical", m_identical}};
}

void QRatingItem_Sked_Site::DoSerialize(QJsonObject& json, const bool& load) {
    const RecordIO::DepthGuard guard;
    if (!guard.ok())
        return; // JSON has no status to report a refusal: a subtree past the limit is left out
    QString className;
    recordFields(className).serialize(json, load);
    // Only Site children have a record, loaded as Site items; "items" is written even when empty.
    serializeJsonChildren(json, load, {&QRatingItem_Sked_Site::staticMetaObject, true, true, [] {
                                           return MarkPointer::fromItem(new QRatingItem_Sked_Site(nullptr));
                                       }});
}

void QRatingItem_Sked_Site::DoSerialize(QDataStream& stream, const bool& load) {
    QString className = GetClassName(); // read to keep the stream aligned, then dropped
    // Site records carry no extra fields; only Site children have a record.
    serializeRecord(stream, load, recordFields(className), QRatingItem_Sked_Site::staticMetaObject, false);
}
