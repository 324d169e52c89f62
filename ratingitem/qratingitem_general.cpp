#include "qratingitem_general.h"
#include "markrulecodes.h"

#include "calcalgorithm.h"
#include "markpointer.h"
#include "ratingitemtexts_p.h"
#include "recordio_p.h"

#include <QJsonValue>
#include <QStringList>

using namespace MarkCode;

QRatingItem_General::QRatingItem_General(QObject* parent) : QRatingItemBase(parent) {}
QRatingItem_General::~QRatingItem_General() = default;

QString QRatingItem_General::GetRatingItemName() {
    return m_name;
}
QString QRatingItem_General::GetRatingItemUnit() {
    return m_unit;
}
QString QRatingItem_General::GetRatingItemValue() {
    return formatValue(m_value);
}
QString QRatingItem_General::GetRatingItemValueStd() {
    return formatValue(m_valueStd);
}
void QRatingItem_General::SetRatingItemLock(const bool& locked) {
    m_locked = locked;
}
bool QRatingItem_General::GetRatingItemLock() {
    return m_locked;
}
void QRatingItem_General::SetRatingItemName(const QString& name) {
    m_name = name;
}
void QRatingItem_General::SetRatingItemUnit(const QString& unit) {
    m_unit = unit;
}
void QRatingItem_General::SetAttributeType(const int& type) {
    m_attributeType = type;
}
int QRatingItem_General::GetAttributeType() {
    return m_attributeType;
}
void QRatingItem_General::SetRatingItemAttribute(const QVariant& data) {
    m_attribute = data;
}
void QRatingItem_General::GetRatingItemAttribute(QVariant& out) {
    out = m_attribute;
}
void QRatingItem_General::SetRatingItemCode(const QString& code) {
    m_code = code;
}
void QRatingItem_General::SetRatingItemPrecision(const int& precision) {
    m_precision = precision;
}
QString QRatingItem_General::GetRatingItemCode() {
    return m_code;
}
void QRatingItem_General::SetRatingItemIndexRule(const int& rule) {
    m_indexRule = rule;
}
void QRatingItem_General::SetRatingItemScoreRule(const int& rule) {
    m_scoreRule = rule;
}
double QRatingItem_General::CalculateRatingItemScore(void*) {
    return 0.0;
}
bool QRatingItem_General::IsSurplusIgnored() {
    return false;
}
bool QRatingItem_General::SkipRatingItemMatch(QList<void*>&, const bool&) {
    return false;
}
void QRatingItem_General::DoSerializeExtra(QDataStream&, const bool&) {}
void QRatingItem_General::DoSerializeExtra(QJsonObject&, const bool&) {}

void QRatingItem_General::SetRatingItemValue(const int& value) {
    m_dataType = DataInteger;
    m_value = QString::number(value);
}

void QRatingItem_General::SetRatingItemValue(const double& value) {
    m_dataType = DataDouble;
    m_value = QString::number(value, 'f', 10);
}

void QRatingItem_General::SetRatingItemValue(const QString& text, const bool&) {
    m_value = text;
}

QString QRatingItem_General::formatValue(const QString& text) const {
    if (m_dataType != DataDouble && m_dataType != DataInteger)
        return text;
    const double number = text.toDouble(); // text that is not a number reads as 0
    return Double2String(number, m_precision);
}

QString QRatingItem_General::GetRatingItemCode(const QString& text) {
    return (m_indexRule == IndexByAttributeList || m_indexRule == IndexByValue) ? text : m_code;
}

QString QRatingItem_General::GetRatingItemIndex() {
    QString text;
    switch (m_indexRule) {
    case IndexByCode:
        text = m_code;
        break;
    case IndexByName:
        text = m_name;
        break;
    case IndexByAttributeList:
        text = m_attribute.toStringList().join(QLatin1Char(','));
        break;
    case IndexByValue:
        text = m_value;
        break;
    default:
        break;
    }
    return text.simplified();
}

void QRatingItem_General::AddRatingItem(void* child, const bool&) {
    QRatingItemVirtual* item = MarkPointer::item(child);
    if (!item)
        return;
    appendChild(child);
    const QString key = item->GetRatingItemIndex();
    if (!key.isEmpty())
        insertAnswerChild(key, child);
}

void* QRatingItem_General::GetRatingItemByIndex(const QString& text) {
    return answerChildMap().value(text, nullptr);
}

void QRatingItem_General::ClearLastRatingData() {
    m_scoreStd = 0.0;
    m_score = 0.0;
    m_valueStd.clear();
    m_remark.clear();
    for (void* pointer : childList()) {
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            child->ClearLastRatingData();
    }
}

double QRatingItem_General::ExecuteDBScore(void* standardItem, const int& mode) {
    QRatingItem_General* standard = MarkPointer::item<QRatingItem_General>(standardItem);
    if (!standard)
        return 0.0;
    // The standard's score (the marks its tree carries) and its stored value; the status is not kept.
    m_scoreStd = standard->m_score;
    m_valueStd = standard->m_value;
    return scoreAgainst(*standard, standardItem, mode);
}

double QRatingItem_General::scoreAgainst(QRatingItemVirtual& standard, void* standardItem, const int& mode) {
    SetRatingItemStatus(mode, standardItem);
    if (standard.HasChildRatingItem()) {
        clearChildList();
        ScoreChildRatingItems(mode, standardItem);
    } else if (mode == StatusOrdinary) {
        m_score = CalculateRatingItemScore(standardItem);
    }
    return m_score;
}

void QRatingItem_General::SetRatingItemStatus(const int& status, void* standardItem) {
    if (status == StatusMissing) {
        QRatingItem_General* standard = MarkPointer::item<QRatingItem_General>(standardItem);
        if (!standard)
            return;
        m_score = 0.0;
        m_dataType = standard->m_dataType;
        m_attributeType = standard->m_attributeType;
        m_indexRule = standard->m_indexRule;
        m_precision = standard->m_precision;
        m_scoreRule = standard->m_scoreRule;
        m_name = standard->m_name;
        m_code = standard->m_code;
        m_unit = standard->m_unit;
        m_lowerRange = standard->m_lowerRange;
        m_upperRange = standard->m_upperRange;
        m_attribute = standard->m_attribute;
        m_remark = RatingItemText::missing();
    } else if (status == StatusSurplus) {
        ClearLastRatingData();
        m_remark = RatingItemText::surplus();
    } else {
        m_remark.clear();
    }
}

void QRatingItem_General::ScoreChildRatingItems(const int& mode, void* standardItem) {
    QRatingItemVirtual* standard = MarkPointer::item(standardItem);
    if (!standard)
        return;
    // Unmatched children are surplus when there are any and this item does not ignore them.
    scoreChildren(*standard, mode, [this](const QMultiMap<QString, void*>& remaining) {
        return !remaining.isEmpty() && !IsSurplusIgnored();
    });
}

void QRatingItem_General::scoreChildren(QRatingItemVirtual& standard, const int& mode,
                                        const SurplusRule& surplusCounts) {
    QMultiMap<QString, void*> remaining = answerChildMap();
    m_score = 0.0;
    QList<void*> standardChildren;
    standard.GetRatingItemList(standardChildren);
    MatchChildRatingItems(mode, remaining, standardChildren);
    if (surplusCounts(remaining))
        HandleSurplusRatingItems(remaining, standardChildren);
    if (mode == StatusOrdinary)
        AdjustRatingItemScore();
}

bool QRatingItem_General::addMissingChild(void* standardChild, bool nextLevel) {
    void* created = CreateRatingItem(nullptr);
    QRatingItemVirtual* missing = MarkPointer::item(created);
    if (!missing) {
        delete MarkPointer::object(created);
        return false;
    }
    appendChild(created);
    if (nextLevel)
        missing->SetRatingItemLevel(m_level + 1);
    m_score += missing->ExecuteDBScore(standardChild, StatusMissing);
    return true;
}

void QRatingItem_General::MatchChildRatingItems(const int& mode, QMultiMap<QString, void*>& remaining,
                                                QList<void*>& standardChildren) {
    // A candidate child that several standard children reach (a shared index text, or the first
    // student child standing in for missing ones) is scored against each but listed once.
    QSet<void*> matched;
    QList<void*> candidates;
    for (void* standardPointer : standardChildren) {
        QRatingItemVirtual* standardChild = MarkPointer::item(standardPointer);
        if (!standardChild)
            continue;
        const QString key = standardChild->GetRatingItemIndex();
        candidates = answerChildMap().values(key);
        if (SkipRatingItemMatch(candidates, false))
            continue;
        if (!candidates.isEmpty()) {
            void* pointer = candidates.first();
            QRatingItemVirtual* match = MarkPointer::item(pointer);
            if (!match)
                continue;
            m_score += match->ExecuteDBScore(standardPointer, mode);
            if (!matched.contains(pointer)) {
                matched.insert(pointer);
                appendChild(pointer);
            }
            remaining.remove(key);
            continue;
        }
        if (!addMissingChild(standardPointer, false))
            return;
    }
    SkipRatingItemMatch(candidates, true);
}

void QRatingItem_General::HandleSurplusRatingItems(QMultiMap<QString, void*>& remaining, QList<void*>&) {
    QSet<void*> listed;
    for (auto it = remaining.cbegin(); it != remaining.cend(); ++it) {
        QRatingItem_General* surplus = MarkPointer::item<QRatingItem_General>(it.value());
        if (!surplus || listed.contains(it.value()))
            continue;
        listed.insert(it.value());
        surplus->SetRatingItemStatus(StatusSurplus, nullptr);
        appendChild(it.value());
    }
}

void QRatingItem_General::DoSerialize(QJsonObject& object, const bool& read) {
    DoSerializeItem(object, read);
    QRatingItemBase::DoSerialize(object, read);
}

RecordIO::Fields QRatingItem_General::recordFields() {
    return {{"attribute", m_attributeType},
            {"indexrule", m_indexRule},
            {"scorerule", m_scoreRule},
            {"datatype", m_dataType},
            {"precision", m_precision},
            {"code", m_code},
            {"name", m_name},
            {"value", m_value},
            {"unit", m_unit},
            {"remark", m_remark},
            {"score", m_score},
            {"upperrange", m_upperRange},
            {"lowerrange", m_lowerRange},
            {"locked", m_locked},
            {"attridata", m_attribute}};
}

void QRatingItem_General::DoSerializeItem(QJsonObject& object, const bool& read) {
    recordFields().serialize(object, read);
    DoSerializeExtra(object, read);
}

void QRatingItem_General::DoSerialize(QDataStream& stream, const bool& read) {
    serializeRecord(stream, read, recordFields(), QRatingItemVirtual::staticMetaObject);
}

void QRatingItem_General::serializeRecord(QDataStream& stream, bool read, const RecordIO::Fields& fields,
                                          const QMetaObject& childClass, bool withExtra) {
    const RecordIO::DepthGuard guard;
    if (!RecordIO::admit(guard, stream, read) || !fields.serialize(stream, read))
        return;
    if (withExtra)
        DoSerializeExtra(stream, read);
    if (!RecordIO::good(stream))
        return;
    // A child record is at least as long as this class's fields and its child count.
    if (read)
        readChildRecords(stream, fields.minimumBytes() + RecordIO::kCountBytes);
    else
        writeChildRecords(stream, childClass);
}

void QRatingItem_General::writeChildRecords(QDataStream& stream, const QMetaObject& recordClass) {
    QList<QRatingItemVirtual*> children;
    for (void* pointer : childList()) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (child && child->metaObject()->inherits(&recordClass))
            children.append(child);
    }
    stream << qint32(children.size());
    for (QRatingItemVirtual* child : children) {
        if (!RecordIO::good(stream))
            return;
        child->DoSerialize(stream, false);
    }
}

void QRatingItem_General::readChildRecords(QDataStream& stream, qint64 minRecordBytes) {
    qint32 count = 0;
    if (!RecordIO::readCount(stream, count, minRecordBytes))
        return;
    bool nestable = false;
    {
        const RecordIO::DepthGuard childLevel; // a child record would sit one level deeper
        nestable = childLevel.ok();
    }
    if (count > 0 && !nestable) {
        RecordIO::refuse(stream);
        return;
    }
    for (qint32 i = 0; i < count && RecordIO::good(stream); ++i) {
        void* pointer = CreateRatingItem(nullptr);
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (!child) {
            // The child's record cannot be skipped without knowing its class: stop here.
            delete MarkPointer::object(pointer);
            RecordIO::refuse(stream);
            return;
        }
        child->DoSerialize(stream, true);
        AddRatingItem(pointer, true);
        // Owned even when a subclass's AddRatingItem does not take it.
        takeOwnership(pointer);
    }
}
