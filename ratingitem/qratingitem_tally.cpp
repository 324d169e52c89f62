#include "qratingitem_tally.h"
#include "markrulecodes.h"

#include "calcalgorithm.h"
#include "markpointer.h"
#include "markrecords.h"
#include "recordio_p.h"

#include <QSet>

#include <cmath>

using namespace MarkCode;

namespace {

const double kEpsilon = 1e-10;

// Matching key of a pricing item: code, code and name, or name, by its attribute type.
QString tallyKey(QRatingItemVirtual* item) {
    QString key;
    switch (item->GetAttributeType()) {
    case TallyMatchByCode:
        key = item->GetRatingItemCode();
        break;
    case TallyMatchByCodeAndName:
        key = item->GetRatingItemCode() + item->GetRatingItemName();
        break;
    default:
        key = item->GetRatingItemName();
        break;
    }
    return key.simplified();
}

// Attribute types whose children list returns to every added child after scoring, without missing
// items.
bool restoresAddedChildren(int attributeType) {
    switch (attributeType) {
    case TallyKeepAdded2:
    case TallyKeepAdded3:
    case TallyKeepAdded4:
    case TallyKeepAdded15:
    case TallyKeepAdded17:
    case TallyKeepAdded18:
        return true;
    default:
        return false;
    }
}

} // namespace

QRatingItem_Tally::QRatingItem_Tally(QObject* parent) : QRatingItem_General(parent) {
    m_code.clear();
    m_upperRange = 5.0;
    m_lowerRange = 2.0;
    m_precision = 2;
}

QRatingItem_Tally::~QRatingItem_Tally() = default;

namespace {
// Exactly two decimals, a trailing ".00" removed.
QString twoDecimals(double amount) {
    QString text = QString::number(amount, 'f', 2);
    if (text.endsWith(QLatin1String(".00")))
        text.chop(3);
    return text;
}
} // namespace

QString QRatingItem_Tally::amountText(double amount) {
    return std::fabs(amount) <= kEpsilon ? QStringLiteral("0") : twoDecimals(amount);
}

QString QRatingItem_Tally::GetRatingItemValue() {
    return amountText(m_rate);
}
QString QRatingItem_Tally::GetRatingItemValueStd() {
    return m_valueStd;
}
bool QRatingItem_Tally::GetRatingItemUnitProject() {
    return m_unitProject;
}
void QRatingItem_Tally::SetRatingItemUnitProject(const bool& unitProject) {
    m_unitProject = unitProject;
}
void QRatingItem_Tally::SetRatingItemFeature(const QString& feature) {
    m_feature = feature;
}
void QRatingItem_Tally::SetRatingItemQuantity(const double& quantity) {
    m_quantity = quantity;
}
void QRatingItem_Tally::SetRatingItemRate(const double& rate) {
    m_rate = rate;
}
void QRatingItem_Tally::SetRatingItemRatio(const double& ratio) {
    m_ratio = ratio;
}
double QRatingItem_Tally::GetRatingItemRatio() {
    return m_ratio;
}
double QRatingItem_Tally::GetRatingItemUpperLimit() {
    return m_upperRange;
}
double QRatingItem_Tally::GetRatingItemLowerLimit() {
    return m_lowerRange;
}
double QRatingItem_Tally::GetRatingItemAmount() {
    return m_rate;
}
QString QRatingItem_Tally::GetRatingItemFeature() {
    return m_feature;
}
double QRatingItem_Tally::GetRatingItemQuantity() {
    return m_quantity;
}
QString QRatingItem_Tally::GetRatingItemIndex() {
    return tallyKey(this);
}

void QRatingItem_Tally::SetRatingItemLimit(const double& upper, const double& lower) {
    m_upperRange = upper;
    m_lowerRange = lower;
}

bool QRatingItem_Tally::IsRatingItemExist(const QString& key) {
    return answerChildMap().contains(key.simplified());
}

int QRatingItem_Tally::GetRatingItemColor() {
    if (m_score < kEpsilon)
        return Qt::red;
    return m_level == 1 ? Qt::blue : Qt::black;
}

bool QRatingItem_Tally::IsSurplusIgnored() {
    return m_attributeType == TallyAnyChild || restoresAddedChildren(m_attributeType);
}

const QList<void*>& QRatingItem_Tally::addedChildren() {
    // Every added child also enters the answer-child map, which only empties when the base releases
    // the children: an empty map means the list below points at deleted items.
    if (answerChildMap().isEmpty())
        m_addedChildren.clear();
    return m_addedChildren;
}

void QRatingItem_Tally::AddRatingItem(void* child, const bool&) {
    QRatingItemVirtual* item = MarkPointer::item(child);
    if (!item || !takeOwnership(child))
        return;
    addedChildren(); // forgets children an earlier ClearRatingItemData released
    appendChild(child);
    m_addedChildren.append(child);
    insertAnswerChild(tallyKey(item), child);
}

double QRatingItem_Tally::ExecuteDBScore(void* standardItem, const int& mode) {
    QRatingItem_Tally* standard = MarkPointer::item<QRatingItem_Tally>(standardItem);
    if (!standard)
        return 0.0;
    m_scoreStd = standard->m_scoreStd;          // the standard's standard score, not its score
    m_status = mode;                            // a pricing item keeps the mode as its status
    m_valueStd = twoDecimals(standard->m_rate); // the standard's rate; unlike the value text, no zero rule
    return scoreAgainst(*standard, standardItem, mode);
}

double QRatingItem_Tally::CalculateRatingItemScore(void* standardItem) {
    QRatingItem_Tally* standard = MarkPointer::item<QRatingItem_Tally>(standardItem);
    if (!standard)
        return 0.0;
    return CAL_Interval(m_rate, standard->m_rate, standard->m_scoreStd, standard->m_lowerRange,
                        standard->m_upperRange, m_remark);
}

bool QRatingItem_Tally::SkipRatingItemMatch(QList<void*>& candidates, const bool& finished) {
    if (!finished && !candidates.isEmpty())
        return false;
    if (m_attributeType == TallyAnyChild) {
        candidates = answerChildMap().values();
        return false;
    }
    if (!restoresAddedChildren(m_attributeType))
        return false;
    if (!finished)
        return true; // no missing item for an unmatched standard child
    const QList<void*> added = addedChildren();
    if (childList().size() != added.size()) {
        const QSet<void*> listed(childList().cbegin(), childList().cend());
        for (void* pointer : added) {
            QRatingItemVirtual* child = MarkPointer::item(pointer);
            if (child && !listed.contains(pointer))
                child->ClearLastRatingData();
        }
        replaceChildList(added);
    }
    return true;
}

void QRatingItem_Tally::distributeUnitProject(double score,
                                              void (QRatingItemVirtual::*distribute)(const double&)) {
    m_scoreStd = score;
    const QList<void*>& children = childList();
    QRatingItemVirtual* first = children.isEmpty() ? nullptr : MarkPointer::item(children.first());
    if (!first)
        return;
    first->SetRatingItemScoreStd(score);
    QList<void*> grandchildren;
    first->GetRatingItemList(grandchildren);
    for (void* pointer : grandchildren) {
        QRatingItemVirtual* grandchild = MarkPointer::item(pointer);
        if (!grandchild)
            continue;
        const double share = grandchild->GetRatingItemRatio() * score;
        grandchild->SetRatingItemScoreStd(share);
        (grandchild->*distribute)(share);
    }
}

void QRatingItem_Tally::AssignScore(const double& score) {
    if (m_unitProject) {
        distributeUnitProject(score, &QRatingItemVirtual::AssignScore);
        return;
    }
    QRatingItem_General::AssignScore(score);
    m_scoreStd = score;
}

void QRatingItem_Tally::RedistributeScore(const double& score) {
    if (m_unitProject)
        distributeUnitProject(score, &QRatingItemVirtual::RedistributeScore);
    else
        QRatingItem_General::RedistributeScore(score);
}

void QRatingItem_Tally::setLimit(double& bound, double value, bool recursive,
                                 void (QRatingItemVirtual::*setter)(const double&, const bool&)) {
    // Compared in single precision, as the host's own tolerance fields are.
    const float difference = static_cast<float>(bound - value);
    if (std::fabs(difference) <= kEpsilon)
        return;
    bound = value;
    if (!recursive)
        return;
    for (void* pointer : childList()) {
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            (child->*setter)(value, recursive);
    }
}

void QRatingItem_Tally::SetRatingItemUpperLimit(const double& value, const bool& recursive) {
    setLimit(m_upperRange, value, recursive, &QRatingItemVirtual::SetRatingItemUpperLimit);
}

void QRatingItem_Tally::SetRatingItemLowerLimit(const double& value, const bool& recursive) {
    setLimit(m_lowerRange, value, recursive, &QRatingItemVirtual::SetRatingItemLowerLimit);
}

RecordIO::Fields QRatingItem_Tally::recordFields() {
    return {{"attribute", m_attributeType},
            {"itemlevel", m_level},
            {"itemname", m_name},
            {"score", m_score},
            {"scorestd", m_scoreStd},
            {"unit", m_unit},
            {"locked", m_locked},
            {"status", m_status},
            {"remark", m_remark},
            {"valuestd", m_valueStd},
            {"unitproject", m_unitProject},
            {"code", m_code},
            {"feature", m_feature},
            {"quantity", m_quantity},
            {"rate", m_rate},
            {"ratio", m_ratio},
            {"upperrange", m_upperRange},
            {"lowerrange", m_lowerRange}};
}

void QRatingItem_Tally::DoSerialize(QJsonObject& object, const bool& load) {
    recordFields().serialize(object, load);
    DoSerializeExtra(object, load);
    QRatingItemBase::DoSerialize(object, load);
}

void QRatingItem_Tally::DoSerialize(QDataStream& stream, const bool& load) {
    serializeRecord(stream, load, recordFields(), QRatingItemVirtual::staticMetaObject);
}

// The product classes differ only in the class of the children they create.
#define TALLY_PRODUCT_ITEM(Class)                                                                            \
    Class::Class(QObject* parent) : QRatingItem_Tally(parent) {}                                             \
    Class::~Class() = default;                                                                               \
    void* Class::CreateRatingItem(QObject*) {                                                                \
        return MarkPointer::fromItem(new Class);                                                             \
    }

TALLY_PRODUCT_ITEM(QRatingItem_Ash)
TALLY_PRODUCT_ITEM(QRatingItem_Elm)
TALLY_PRODUCT_ITEM(QRatingItem_Fir)
TALLY_PRODUCT_ITEM(QRatingItem_Yew)
TALLY_PRODUCT_ITEM(QRatingItem_Oak)

#undef TALLY_PRODUCT_ITEM

void QRatingItem_Ash::GetCalculateData(void* record) {
    if (!record)
        return;
    // The calculation record is a plain host struct, not an object: it cannot be checked.
    auto* data = static_cast<CalculateRecord*>(record);
    data->scoreStd = m_scoreStd;
    data->locked = m_locked;
}

QString QRatingItem_Yew::GetRatingItemValue() {
    if (m_precision == 2)
        return QRatingItem_Tally::GetRatingItemValue();
    return QString::number(m_rate, 'g', 6);
}

void QRatingItem_Yew::DoSerializeExtra(QDataStream& stream, const bool& load) {
    RecordIO::Fields{{"precision", m_precision}}.serialize(stream, load);
}

void QRatingItem_Yew::DoSerializeExtra(QJsonObject& object, const bool& load) {
    RecordIO::Fields{{"precision", m_precision}}.serialize(object, load);
}
