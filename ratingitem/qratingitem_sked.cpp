#include "qratingitem_sked.h"
#include "markrulecodes.h"

#include "markpointer.h"
#include "markpublic.h"
#include "markrecords.h"
#include "ratingitemtexts_p.h"
#include "skedtexts_p.h"

#include <QSet>

using namespace MarkCode;

namespace {

// The host's calculation record. It is a plain struct, not an object, so MarkPointer cannot check
// it: the host contract guarantees the type of a non-null record.
CalculateRecord* calculateRecord(void* record) {
    return static_cast<CalculateRecord*>(record);
}

// The schedule items of the map, each once, in map order.
QList<QRatingItem_Sked*> distinctSkedItems(const QMultiMap<QString, void*>& items) {
    QList<QRatingItem_Sked*> result;
    QSet<void*> seen;
    for (auto it = items.cbegin(); it != items.cend(); ++it) {
        QRatingItem_Sked* item = MarkPointer::item<QRatingItem_Sked>(it.value());
        if (item && !seen.contains(it.value())) {
            seen.insert(it.value());
            result.append(item);
        }
    }
    return result;
}

// The template of surplus items: the first unlocked standard child, else the last one.
QRatingItemVirtual* surplusTemplate(const QList<void*>& standardChildren) {
    for (void* pointer : standardChildren) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (child && !child->GetRatingItemLock())
            return child;
    }
    return standardChildren.isEmpty() ? nullptr : MarkPointer::item(standardChildren.last());
}

// The first entry that is a rating item, or null.
void* firstItem(const QList<void*>& items) {
    for (void* pointer : items) {
        if (MarkPointer::item(pointer))
            return pointer;
    }
    return nullptr;
}

} // namespace

QRatingItem_Sked::QRatingItem_Sked(QObject* parent) : QRatingItem_General(parent) {
    reset(nullptr);
}

QRatingItem_Sked::QRatingItem_Sked(QRatingItem_Sked* linkedItem) : QRatingItem_General(nullptr) {
    reset(linkedItem);
}

QRatingItem_Sked::QRatingItem_Sked(std::nullptr_t) : QRatingItem_Sked(static_cast<QObject*>(nullptr)) {}

QRatingItem_Sked::~QRatingItem_Sked() = default;

void QRatingItem_Sked::reset(QRatingItem_Sked* linkedItem) {
    m_scoreStd = 0.0;
    m_score = 0.0;
    m_name.clear();
    m_unit.clear();
    m_valueStd.clear();
    m_uniqueValue.clear();
    m_remark.clear();
    m_value.clear();
    m_locked = false;
    m_offset = 0.0;
    m_attributeType = 0;
    m_status = StatusNone;
    m_linkedItem = linkedItem;
    m_editable = false;
    m_identical = false;
    m_logic.clear();
    m_nodeMap.clear();
    m_linkMatrix = nullptr;
    m_nodeCount = 0;
}

QString QRatingItem_Sked::GetRatingItemValue() {
    return m_value;
}
QString QRatingItem_Sked::GetRatingItemValueStd() {
    return m_valueStd;
}
double QRatingItem_Sked::GetRatingItemOffset() {
    return m_offset;
}
bool QRatingItem_Sked::GetRatingItemEditable() {
    return m_editable;
}
void QRatingItem_Sked::SetRatingItemEditable(const bool& editable) {
    m_editable = editable;
}
void QRatingItem_Sked::UpdateUniqueValue(const QStringList& logic) {
    m_logic = logic;
}
void QRatingItem_Sked::UpdateUniqueValue(const QString& key) {
    m_uniqueValue = key;
}
void QRatingItem_Sked::SetValueIdentical(const bool& identical) {
    m_identical = identical;
}
void QRatingItem_Sked::GetRatingItemLogic(QStringList& out) {
    out = m_logic;
}
void QRatingItem_Sked::DoSerialize(QJsonObject&, const bool&) {}
void QRatingItem_Sked::DoSerialize(QDataStream&, const bool&) {}
void* QRatingItem_Sked::CreateRatingItem(QObject*) {
    return MarkPointer::fromItem(new QRatingItem_Sked());
}
QString QRatingItem_Sked::GetClassName() {
    return QString::fromLatin1(staticMetaObject.className());
}

QString QRatingItem_Sked::TransformTextToName(const QString& text) {
    QStringList parts = text.split(QLatin1Char(';'), Qt::KeepEmptyParts);
    for (QString& part : parts)
        part = SkedText::canonicalNamePart(part);
    return parts.join(QLatin1Char(';'));
}

void QRatingItem_Sked::TransformTextToName(QStringList& texts) {
    for (QString& text : texts)
        text = TransformTextToName(text);
}

void QRatingItem_Sked::AddRatingItem(void* child, const bool& transform) {
    QRatingItemVirtual* item = MarkPointer::item(child);
    if (!item)
        return;
    appendChild(child);
    const QString name = item->GetRatingItemName();
    insertAnswerChild(transform ? TransformTextToName(name) : name, child);
}

QString QRatingItem_Sked::GetRatingItemNumber(const int& number) {
    switch (m_level) {
    case 1:
        return ConvertIntToUString(number);
    case 3:
        return ConvertIntToTString(number);
    default:
        return QString::number(number);
    }
}

void QRatingItem_Sked::GetCalculateData(void* record) {
    CalculateRecord* data = calculateRecord(record);
    if (!data)
        return;
    data->scoreStd = m_scoreStd;
    data->locked = m_locked;
    if (m_editable)
        data->value = m_value;
}

void QRatingItem_Sked::SetCalculateData(void* record) {
    CalculateRecord* data = calculateRecord(record);
    if (!data)
        return;
    m_locked = data->locked;
    m_scoreStd = data->scoreStd;
    if (m_editable)
        SetRatingItemValue(data->value, true);
}

void QRatingItem_Sked::SetRatingItemValue(QMultiMap<QString, int>& nodes, int** matrix, int& count) {
    m_nodeMap = nodes;
    m_linkMatrix = matrix;
    m_nodeCount = count;
}

void QRatingItem_Sked::SetRatingItemValue(const QString& text, const QString& key, const bool& transform) {
    m_valueStd = text;
    m_value = text;
    m_uniqueValue = transform ? TransformTextToName(key) : key;
}

void QRatingItem_Sked::SetRatingItemValue(const QString& text, const bool& transform) {
    SetRatingItemValue(text, text, transform);
}

double QRatingItem_Sked::ExecuteDBScore(void* standardItem, const int& mode) {
    QRatingItem_Sked* standard = MarkPointer::item<QRatingItem_Sked>(standardItem);
    if (!standard)
        return m_score; // a schedule item keeps its score when there is no standard
    m_status = mode;    // and keeps the mode as its status
    // The standard's standard score and standard value, not its score and value.
    m_scoreStd = standard->m_scoreStd;
    m_valueStd = standard->m_valueStd;
    return scoreAgainst(*standard, standardItem, mode);
}

void QRatingItem_Sked::ScoreChildRatingItems(const int& mode, void* standardItem) {
    QRatingItem_Sked* standard = MarkPointer::item<QRatingItem_Sked>(standardItem);
    if (!standard)
        return;
    // Surplus children count unless the standard is marked identical, even when none are left.
    scoreChildren(*standard, mode,
                  [standard](const QMultiMap<QString, void*>&) { return !standard->m_identical; });
}

void QRatingItem_Sked::MatchChildRatingItems(const int& mode, QMultiMap<QString, void*>& remaining,
                                             QList<void*>& standardChildren) {
    // Every standard child looks in the whole answer-child map, so a candidate item whose name two
    // standard children share is scored (and listed) once for each of them.
    for (void* standardPointer : standardChildren) {
        QRatingItemVirtual* standardChild = MarkPointer::item(standardPointer);
        if (!standardChild)
            continue;
        QString key = standardChild->GetRatingItemName();
        if (!answerChildMap().contains(key))
            key = TransformTextToName(key);
        const QList<void*> candidates = answerChildMap().values(key);
        remaining.remove(key);
        int position = 0;
        for (void* pointer : candidates) {
            QRatingItem_Sked* candidate = MarkPointer::item<QRatingItem_Sked>(pointer);
            if (!candidate)
                continue;
            const int childMode =
                (mode == StatusDuplicate || position > 0) ? StatusDuplicate : StatusOrdinary;
            ++position;
            if (candidate->m_attributeType == SkedWorkItemNode)
                candidate->m_valueStd.clear();
            m_score += candidate->ExecuteDBScore(standardPointer, childMode);
            appendChild(pointer);
        }
        if (!candidates.isEmpty())
            continue;
        // A schedule item's missing item sits one level below it.
        if (!addMissingChild(standardPointer, true))
            return;
    }
}

void QRatingItem_Sked::HandleSurplusRatingItems(QMultiMap<QString, void*>& remaining,
                                                QList<void*>& standardChildren) {
    const QList<QRatingItem_Sked*> surplusItems = distinctSkedItems(remaining);
    if (surplusItems.isEmpty())
        return;
    switch (m_attributeType) {
    case SkedIntegrityRoot:
    case SkedAttributeRoot:
    case SkedLogicRoot: {
        // Surplus children are deducted against a template standard child, down their subtree.
        QRatingItemVirtual* templ = surplusTemplate(standardChildren);
        if (!templ)
            return;
        QList<void*> templateChildren;
        templ->GetRatingItemList(templateChildren);
        for (QRatingItem_Sked* surplus : surplusItems) {
            surplus->SetRatingItemStatus(StatusSurplus, MarkPointer::fromItem(templ));
            m_score += surplus->m_score;
            QMultiMap<QString, void*> grandChildren = surplus->answerChildMap();
            surplus->HandleSurplusRatingItems(grandChildren, templateChildren);
            appendChild(MarkPointer::fromItem(surplus));
        }
        break;
    }
    case SkedWorkItemNode: {
        // Attributes of a work item: judged against the first standard attribute, not listed.
        void* first = firstItem(standardChildren);
        if (!first)
            return;
        for (QRatingItem_Sked* surplus : surplusItems)
            surplus->SetRatingItemStatus(StatusSurplus, first);
        break;
    }
    default:
        break;
    }
}

void QRatingItem_Sked::SetRatingItemStatus(const int& status, void* standardItem) {
    QRatingItem_Sked* standard = MarkPointer::item<QRatingItem_Sked>(standardItem);
    if (!standard)
        return;
    switch (status) {
    case StatusMissing:
        takeMissing(*standard);
        break;
    case StatusDuplicate:
        m_remark = SkedText::duplicate();
        m_score = -standard->m_scoreStd;
        break;
    case StatusSurplus:
        takeSurplus(*standard);
        break;
    default:
        break;
    }
}

void QRatingItem_Sked::takeMissing(const QRatingItem_Sked& standard) {
    const int type = standard.m_attributeType;
    if (type == SkedWorkItemNode || type == SkedLogicRelation)
        m_value.clear();
    else if (type == SkedCurve)
        m_value = SkedText::missingCurveValue();
    else
        m_value = QStringLiteral("0");
    m_name = standard.m_name;
    m_remark = RatingItemText::missing();
    m_unit = standard.m_unit;
    m_score = 0.0;
    m_attributeType = type;
}

void QRatingItem_Sked::takeSurplus(const QRatingItem_Sked& standard) {
    switch (m_attributeType) {
    case SkedWorkItemCount:
        m_valueStd = QStringLiteral("0");
        m_remark = SkedText::surplusDeducted();
        m_score = -standard.m_scoreStd;
        break;
    case SkedDuration:
    case SkedPlannedQuantity:
    case SkedLineWidth:
    case SkedLabourIntensity:
    case SkedMaterialTotal:
    case SkedNumericReserved:
        // Attributes of a surplus work item are neither scored nor deducted: numeric ones show a
        // standard value of 0, textual ones none.
        withholdScore(QStringLiteral("0"));
        break;
    case SkedQuantityCode:
    case SkedQuantityName:
    case SkedQuantityUnit:
    case SkedColour:
        withholdScore(QString());
        break;
    default:
        m_remark = SkedText::surplusDeducted();
        m_score = -standard.m_scoreStd;
        m_valueStd.clear();
        break;
    }
}

void QRatingItem_Sked::withholdScore(const QString& valueStd) {
    m_valueStd = valueStd;
    m_score = 0.0;
    m_scoreStd = 0.0;
    m_remark.clear();
}
