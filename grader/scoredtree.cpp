#include "scoredtree.h"

#include "pooltask.h"
#include "markpointer.h"
#include "markrulecodes.h"
#include "qratingitemvirtual.h"

#include <QHash>
#include <QSet>

#include <future>

namespace Grade {

namespace {

const int maxTreeDepth = 64;

// Below this many standard children a name is looked up by a scan; above it, through a hash.
const int scannedChildren = 32;
// A root with fewer children than this is not worth a second thread.
const int twoThreadChildren = 4096;

QVector<QRatingItemVirtual*> children(QRatingItemVirtual* item) {
    QVector<QRatingItemVirtual*> out;
    if (!item)
        return out;
    QList<void*> pointers;
    item->GetRatingItemList(pointers);
    out.reserve(pointers.size());
    for (void* pointer : qAsConst(pointers))
        if (QRatingItemVirtual* child = MarkPointer::item(pointer))
            out.append(child);
    return out;
}

// The standard's children by name, each handed out once, the first of a name first.
class Counterparts {
public:
    explicit Counterparts(QRatingItemVirtual* standard) : m_items(children(standard)) {
        m_names.reserve(m_items.size());
        for (QRatingItemVirtual* item : qAsConst(m_items))
            m_names.append(item->GetRatingItemName());
        m_taken.fill(false, m_items.size());
        if (m_items.size() > scannedChildren)
            for (int i = m_items.size() - 1; i >= 0; --i)
                m_index.insert(m_names[i], i);
    }
    QRatingItemVirtual* take(const QString& name) {
        int found = -1;
        if (m_items.size() <= scannedChildren) {
            for (int i = 0; i < m_items.size() && found < 0; ++i)
                if (!m_taken[i] && m_names[i] == name)
                    found = i;
        } else {
            found = m_index.value(name, -1);
            m_index.remove(name, found);
        }
        if (found < 0)
            return nullptr;
        m_taken[found] = true;
        return m_items[found];
    }

private:
    QVector<QRatingItemVirtual*> m_items;
    QVector<QString> m_names;
    QVector<bool> m_taken;
    QMultiHash<QString, int> m_index;
};

ScoredNode copyFields(QRatingItemVirtual* item, QRatingItemVirtual* standard) {
    ScoredNode node;
    node.name = item->GetRatingItemName();
    node.value = item->GetRatingItemValue();
    node.remark = item->GetRatingItemRemark();
    node.full = item->GetRatingItemScoreStd();
    node.obtained = item->GetRatingItemScore();
    node.attributeType = item->GetAttributeType();
    node.locked = item->GetRatingItemLock();
    if (standard)
        node.standardValue = standard->GetRatingItemValue();
    return node;
}

// Each child's counterpart among the standard's children.
QVector<QRatingItemVirtual*> pairUp(const QVector<QRatingItemVirtual*>& items, QRatingItemVirtual* standard) {
    Counterparts counterparts(standard);
    QVector<QRatingItemVirtual*> paired;
    paired.reserve(items.size());
    for (QRatingItemVirtual* child : items)
        paired.append(counterparts.take(child->GetRatingItemName()));
    return paired;
}

ScoredNode copyNode(QRatingItemVirtual* item, QRatingItemVirtual* standard, int depth,
                    QSet<QRatingItemVirtual*>& seen);

// Copies children [from, to). seen holds the items with children copied so far: a tree the library
// got wrong (an item under itself, or one parent listed twice) is copied once, not without end.
QVector<ScoredNode> copyChildren(const QVector<QRatingItemVirtual*>& items,
                                 const QVector<QRatingItemVirtual*>& paired, int from, int to, int depth,
                                 QSet<QRatingItemVirtual*>& seen) {
    QVector<ScoredNode> copies;
    copies.reserve(to - from);
    for (int i = from; i < to; ++i) {
        if (items[i]->HasChildRatingItem()) {
            if (seen.contains(items[i]))
                continue;
            seen.insert(items[i]);
        }
        copies.append(copyNode(items[i], paired[i], depth, seen));
    }
    return copies;
}

ScoredNode copyNode(QRatingItemVirtual* item, QRatingItemVirtual* standard, int depth,
                    QSet<QRatingItemVirtual*>& seen) {
    ScoredNode node = copyFields(item, standard);
    if (depth >= maxTreeDepth)
        return node;
    const QVector<QRatingItemVirtual*> items = children(item);
    if (!items.isEmpty())
        node.items = copyChildren(items, pairUp(items, standard), 0, items.size(), depth + 1, seen);
    return node;
}

const int namesListed = 5;

QStringList parts(const QString& text) {
    return text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
}

// A note for the schedule criteria whose rules can fail without a remark.
QString leafNote(const ScoredNode& node) {
    switch (node.attributeType) {
    case MarkCode::SkedWorkItemCount:
        return QStringLiteral("%1 work items of this name; the standard has %2")
            .arg(node.value, node.standardValue);
    case MarkCode::SkedDuration:
        return QStringLiteral("duration %1 天 is not a whole number of weeks (a multiple of 7 days)")
            .arg(node.value);
    case MarkCode::SkedLabourIntensity:
        return QStringLiteral("labour intensity \"%1\" is not a whole number of at least 1").arg(node.value);
    case MarkCode::SkedLogicRelation: {
        QStringList missing = parts(node.standardValue);
        for (const QString& found : parts(node.value))
            missing.removeAll(found);
        return QStringLiteral("missing logic %1").arg(missing.join(QStringLiteral(", ")));
    }
    default:
        return QStringLiteral("\"%1\" differs from the standard's \"%2\"")
            .arg(node.value, node.standardValue);
    }
}

QString parentNote(const ScoredNode& node) {
    QStringList lost;
    for (const ScoredNode& child : node.items)
        if (child.lost())
            lost << child.name;
    if (lost.isEmpty())
        return QStringLiteral("marks lost here: %1 of %2").arg(node.obtained).arg(node.full);
    QString text = lost.mid(0, namesListed).join(QStringLiteral(", "));
    if (lost.size() > namesListed)
        text += QStringLiteral(" and %1 more").arg(lost.size() - namesListed);
    return QStringLiteral("marks lost in %1").arg(text);
}

} // namespace

void explainLosses(ScoredNode& node) {
    for (ScoredNode& child : node.items)
        explainLosses(child);
    if (!node.lost() || !node.remark.isEmpty() || !node.note.isEmpty())
        return;
    node.note = node.items.isEmpty() ? leafNote(node) : parentNote(node);
}

ScoredNode copyTree(QRatingItemVirtual* root, QRatingItemVirtual* standard, bool twoThreads) {
    if (!root)
        return ScoredNode();
    const QVector<QRatingItemVirtual*> items = children(root);
    if (!twoThreads || items.size() < twoThreadChildren) {
        QSet<QRatingItemVirtual*> seen{root};
        return copyNode(root, standard, 0, seen);
    }
    // The root's children in two halves, one on a second thread, each half with its own guard.
    ScoredNode node = copyFields(root, standard);
    const QVector<QRatingItemVirtual*> paired = pairUp(items, standard);
    const int half = items.size() / 2;
    const auto copyHalf = [&](int from, int to) {
        QSet<QRatingItemVirtual*> seen{root};
        return copyChildren(items, paired, from, to, 1, seen);
    };
    std::future<QVector<ScoredNode>> firstHalf = poolTask([&] { return copyHalf(0, half); });
    QVector<ScoredNode> secondHalf;
    try {
        secondHalf = copyHalf(half, items.size());
    } catch (...) {
        firstHalf.wait(); // the first half refers to this call's lists
        throw;
    }
    node.items = firstHalf.get();
    node.items += secondHalf;
    return node;
}

} // namespace Grade
