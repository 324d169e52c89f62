#include "qratingitembase.h"

#include "markpointer.h"
#include "ratingitemtexts_p.h"
#include "recordio_p.h"

#include <QJsonArray>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// The entries of items without repeats, each where it first stands.
QList<void*> firstOccurrences(const QList<void*>& items) {
    std::vector<std::pair<void*, int>> sorted;
    sorted.reserve(size_t(items.size()));
    for (int i = 0; i < items.size(); ++i)
        sorted.emplace_back(items[i], i);
    std::sort(sorted.begin(), sorted.end());
    std::vector<bool> first(sorted.size(), false);
    for (size_t k = 0; k < sorted.size(); ++k)
        first[size_t(sorted[k].second)] = k == 0 || sorted[k].first != sorted[k - 1].first;
    QList<void*> distinct;
    distinct.reserve(items.size());
    for (int i = 0; i < items.size(); ++i)
        if (first[size_t(i)])
            distinct.append(items[i]);
    return distinct;
}

} // namespace

QRatingItemBase::QRatingItemBase(QObject* parent) : QRatingItemVirtual(parent) {}

QRatingItemBase::~QRatingItemBase() {
    QRatingItemBase::ClearRatingItemData();
}

double QRatingItemBase::GetRatingItemScore() {
    return m_score;
}
double QRatingItemBase::GetRatingItemScoreStd() {
    return m_scoreStd;
}
int QRatingItemBase::GetRatingItemLevel() {
    return m_level;
}
void QRatingItemBase::GetRatingItemList(QList<void*>& out) {
    out = m_children;
}
bool QRatingItemBase::GetRatingItemLock() {
    return false;
}
QString QRatingItemBase::GetRatingItemRemark() {
    return m_remark;
}
void QRatingItemBase::SetRatingItemScoreStd(const double& score) {
    m_scoreStd = score;
}
void QRatingItemBase::SetRatingItemScore(const double& score) {
    m_score = score;
}
void QRatingItemBase::SetRatingItemRemark(const QString& remark) {
    m_remark = remark;
}
void QRatingItemBase::SetRatingItemLevel(const int& level) {
    m_level = level;
}
int QRatingItemBase::GetChildItemCount() {
    return m_children.size();
}
bool QRatingItemBase::HasChildRatingItem() {
    return !m_children.isEmpty();
}
QString QRatingItemBase::GetClassName() {
    return QStringLiteral("QRatingItemBase");
}

bool QRatingItemBase::takeOwnership(void* child) {
    if (!child || child == MarkPointer::fromItem(this))
        return false;
    // An item is mostly handed over twice in a row: as a child and as an answer.
    if (m_owned.isEmpty() || m_owned.constLast() != child) {
        m_owned.append(child);
        if (m_owned.size() >= 2 * m_ownedDistinct + 16)
            foldOwned();
    }
    return true;
}

void QRatingItemBase::foldOwned() {
    m_owned = firstOccurrences(m_owned);
    m_ownedDistinct = m_owned.size();
}

void QRatingItemBase::appendChild(void* child) {
    if (takeOwnership(child))
        m_children.append(child);
}

void QRatingItemBase::insertAnswerChild(const QString& key, void* child) {
    if (takeOwnership(child))
        m_answerChildren.insert(key, child);
}

void QRatingItemBase::replaceChildList(const QList<void*>& children) {
    m_children.clear();
    for (void* child : children)
        appendChild(child);
}

void QRatingItemBase::ClearRatingItemData(QList<void*>& items) {
    for (void* pointer : firstOccurrences(items))
        if (pointer)
            delete MarkPointer::item(pointer);
}

void QRatingItemBase::ClearRatingItemData() {
    // Detach first, so that nothing reachable from this item points at a deleted child.
    QList<void*> owned;
    owned.swap(m_owned);
    m_ownedDistinct = 0;
    m_children.clear();
    m_answerChildren.clear();
    ClearRatingItemData(owned);
}

void QRatingItemBase::AssignScore(const double& score) {
    m_score = score;
    const int count = m_children.size();
    if (count == 0)
        return;
    const double share = score / count;
    for (void* pointer : m_children) {
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            child->AssignScore(share);
    }
}

int QRatingItemBase::EliminateLockItem(double& rest) {
    int locked = 0;
    for (void* pointer : m_children) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (child && child->GetRatingItemLock()) {
            rest -= child->GetRatingItemScoreStd();
            ++locked;
        }
    }
    return locked;
}

void QRatingItemBase::RedistributeScore(const double& score) {
    if (GetRatingItemLock())
        return;
    m_scoreStd = score;
    double rest = score;
    const int locked = EliminateLockItem(rest);
    const int count = m_children.size();
    if (count <= locked)
        return;
    const double share = rest / (count - locked);
    for (void* pointer : m_children) {
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (child && !child->GetRatingItemLock())
            child->RedistributeScore(share);
    }
}

void QRatingItemBase::AdjustRatingItemScore() {
    if ((m_scoreStd >= 0.0 && m_score < 0.0) || (m_scoreStd < 0.0 && m_score > 0.0)) {
        m_score = 0.0;
        m_remark = RatingItemText::scoreClamped();
    }
}

void QRatingItemBase::DoSerialize(QJsonObject& object, const bool& read) {
    RecordIO::DepthGuard guard;
    // Every rating-item child, through this item's creator; "items" only when there are children.
    serializeJsonChildren(object, read, {&QRatingItemVirtual::staticMetaObject, false, false, [this] {
                                             return CreateRatingItem(nullptr);
                                         }});
}

void QRatingItemBase::serializeJsonChildren(QJsonObject& object, bool read, const JsonChildren& rule) {
    const QString key = QStringLiteral("items");
    bool nestable = false;
    {
        const RecordIO::DepthGuard childLevel; // a child record would sit one level deeper
        nestable = childLevel.ok();
    }
    if (!read) {
        QJsonArray array;
        for (void* pointer : nestable ? m_children : QList<void*>()) {
            QRatingItemVirtual* child = MarkPointer::item(pointer);
            if (!child || !child->metaObject()->inherits(rule.recordClass))
                continue;
            QJsonObject childObject;
            child->DoSerialize(childObject, false);
            array.append(childObject);
        }
        if (!array.isEmpty() || rule.keepEmpty)
            object.insert(key, array);
        return;
    }
    if (!nestable)
        return;
    const QJsonArray array = object.value(key).toArray(); // not an array: no children
    for (const QJsonValue& element : array) {
        if (rule.skipNonObjects && !element.isObject())
            continue;
        void* pointer = rule.make();
        QRatingItemVirtual* child = MarkPointer::item(pointer);
        if (!child) {
            delete MarkPointer::object(pointer);
            continue;
        }
        QJsonObject childObject = element.toObject(); // not an object: read as {}
        child->DoSerialize(childObject, true);
        AddRatingItem(pointer, true);
        // A subclass that ignores AddRatingItem still owns what it created.
        takeOwnership(pointer);
    }
}
