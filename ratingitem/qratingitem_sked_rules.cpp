// Leaf rules of the schedule rating item, chosen by attribute type, and the logic-chain search.
#include "qratingitem_sked.h"
#include "markrulecodes.h"

#include "markpointer.h"
#include "skedtexts_p.h"

#include <QHash>
#include <QVector>

#include <unordered_set>

using namespace MarkCode;

namespace {

const double kEpsilon = 1e-10;

// Text read as a decimal integer or a double; text that does not read counts as 0.
int asInteger(const QString& text) {
    return text.toInt();
}
double asNumber(const QString& text) {
    return text.toDouble();
}

// Depth-first search for one chain of names through the candidate's network. A (node, depth) pair
// that failed once fails again, so each pair is expanded at most once and each candidate link
// (p, q) is read at most once per chain position.
class ChainSearch {
public:
    ChainSearch(const QStringList& chain, const QMultiMap<QString, int>& nodes, int** matrix, int count)
        : m_chain(chain), m_nodes(nodes), m_matrix(matrix), m_count(count) {}

    bool run() {
        if (m_chain.isEmpty())
            return false;
        for (int node : candidates(0)) {
            if (continues(node, 1))
                return true;
        }
        return false;
    }

private:
    struct Frame {
        int node;
        int depth;
        int next; // position in candidates(depth) still to try
    };

    // Node indices under the name at a chain position, most recently inserted first.
    const QVector<int>& candidates(int depth) {
        const QString& name = m_chain.at(depth);
        auto it = m_byName.find(name);
        if (it == m_byName.end())
            it = m_byName.insert(name, m_nodes.values(name).toVector());
        return it.value();
    }

    bool linked(int from, int to) const {
        if (from < 0 || from >= m_count || to < 0 || to >= m_count)
            return false;
        const int* row = m_matrix[from];
        return row && row[to] == 1;
    }

    static quint64 key(int node, int depth) { return (quint64(quint32(node)) << 32) | quint32(depth); }

    // Whether node, standing at chain position depth - 1, continues the chain from position depth.
    bool continues(int node, int depth) {
        const int length = m_chain.size();
        if (depth >= length || !m_matrix)
            return true;
        if (m_failed.count(key(node, depth)))
            return false;
        QVector<Frame> stack;
        stack.append({node, depth, 0});
        while (!stack.isEmpty()) {
            Frame& top = stack.last();
            const QVector<int>& next = candidates(top.depth);
            bool descended = false;
            while (top.next < next.size()) {
                const int to = next.at(top.next++);
                if (!linked(top.node, to))
                    continue;
                if (top.depth + 1 >= length)
                    return true;
                if (m_failed.count(key(to, top.depth + 1)))
                    continue;
                const Frame frame{to, top.depth + 1, 0};
                stack.append(frame); // invalidates top
                descended = true;
                break;
            }
            if (descended)
                continue;
            m_failed.insert(key(stack.last().node, stack.last().depth));
            stack.removeLast();
        }
        return false;
    }

    const QStringList& m_chain;
    const QMultiMap<QString, int>& m_nodes;
    int** m_matrix;
    int m_count;
    QHash<QString, QVector<int>> m_byName;
    std::unordered_set<quint64> m_failed;
};

} // namespace

double QRatingItem_Sked::CalculateRatingItemScore(void* standardItem) {
    QRatingItem_Sked* standard = MarkPointer::item<QRatingItem_Sked>(standardItem);
    if (!standard)
        return 0.0;
    switch (m_attributeType) {
    case SkedWorkItemCount:
        if (m_uniqueValue == standard->m_uniqueValue)
            return fullScore(*standard);
        if (asInteger(m_uniqueValue) >= 2)
            m_remark = SkedText::duplicateWorkItem();
        return 0.0;
    case SkedDuration:
        return scoreFixedOrWeeklyDuration(*standard);
    case SkedColour:
        if (m_uniqueValue == standard->m_uniqueValue)
            return fullScore(*standard);
        m_remark = SkedText::noColour();
        return 0.0;
    case SkedLineWidth:
        return scoreLineWidth(*standard);
    case SkedLabourIntensity:
        return asInteger(m_uniqueValue) >= 1 ? fullScore(*standard) : 0.0;
    case SkedLogicRelation:
        return scoreLogicChains(*standard);
    case SkedGanttRowsPerPage:
        return scoreRowsPerPage(*standard);
    case SkedGanttOrder:
        return scoreProcessOrder(*standard);
    case SkedTotalDuration:
        return scoreTotalDuration(*standard);
    case SkedLabourCurve:
    case SkedRebarCurve:
    case SkedConcreteCurve:
    case SkedFormworkCurve:
        return scoreCurveVariance(*standard);
    default:
        return m_uniqueValue == standard->m_uniqueValue ? fullScore(*standard) : 0.0;
    }
}

double QRatingItem_Sked::fullScore(const QRatingItem_Sked& standard) {
    m_remark.clear();
    return standard.m_scoreStd;
}

double QRatingItem_Sked::scoreFixedOrWeeklyDuration(const QRatingItem_Sked& standard) {
    if (standard.m_identical) {
        if (m_uniqueValue == standard.m_uniqueValue)
            return fullScore(standard);
        // Successive single-argument substitutions, so a name holding "%2" is filled in as well.
        m_remark = SkedText::fixedDurationFormat()
                       .arg(m_name)
                       .arg(SkedText::fixedDuration())
                       .arg(standard.m_uniqueValue)
                       .arg(standard.m_unit);
        return 0.0;
    }
    const int days = asInteger(m_uniqueValue);
    return (days > 0 && days % 7 == 0) ? fullScore(standard) : 0.0;
}

double QRatingItem_Sked::scoreLineWidth(const QRatingItem_Sked& standard) {
    if (asInteger(m_uniqueValue) < 1) {
        m_remark = SkedText::lineWidthNotPositive();
        return 0.0;
    }
    if (m_linkedItem && m_linkedItem->m_uniqueValue == m_uniqueValue)
        return fullScore(standard);
    m_remark = SkedText::lineWidthMismatch();
    return 0.0;
}

double QRatingItem_Sked::scoreRowsPerPage(const QRatingItem_Sked& standard) {
    QString required = standard.m_uniqueValue;
    required.remove(QStringLiteral(">="));
    if (asInteger(required.trimmed()) > asInteger(m_uniqueValue)) {
        m_remark = SkedText::rowsTooFew();
        return 0.0;
    }
    return fullScore(standard);
}

double QRatingItem_Sked::scoreProcessOrder(const QRatingItem_Sked& standard) {
    const QStringList mine = m_uniqueValue.split(QLatin1Char(';'), Qt::KeepEmptyParts);
    const QStringList expected = standard.m_uniqueValue.split(QLatin1Char(';'), Qt::KeepEmptyParts);
    if (mine.size() != expected.size()) {
        m_remark = SkedText::processCountMismatch();
        return 0.0;
    }
    m_remark.clear();
    for (int i = 0; i < mine.size(); ++i) {
        const QString part = mine.at(i).trimmed();
        if (part != expected.at(i).trimmed()) {
            m_remark = SkedText::processOrderFormat().arg(part);
            break;
        }
    }
    return m_remark.isEmpty() ? fullScore(standard) : 0.0;
}

double QRatingItem_Sked::scoreTotalDuration(const QRatingItem_Sked& standard) {
    const double expected = asNumber(standard.m_uniqueValue);
    const double actual = asNumber(m_uniqueValue);
    if (expected - actual < 0.0) {
        m_remark = SkedText::delayFormat().arg(actual - expected, 0, 'g');
        return 0.0;
    }
    if (expected <= kEpsilon || actual >= kEpsilon)
        return fullScore(standard);
    m_remark = SkedText::zeroTotalDuration();
    return 0.0;
}

double QRatingItem_Sked::scoreCurveVariance(const QRatingItem_Sked& standard) {
    const double variance = asNumber(m_uniqueValue);
    if (variance < 0.0) {
        m_remark = SkedText::noResourceData();
        return 0.0;
    }
    if (variance < asNumber(standard.m_uniqueValue))
        return fullScore(standard);
    m_remark = SkedText::varianceTooHigh();
    return 0.0;
}

double QRatingItem_Sked::scoreLogicChains(const QRatingItem_Sked& standard) {
    const QStringList entries = standard.m_uniqueValue.split(QLatin1Char('&'), Qt::KeepEmptyParts);
    const QStringList texts = standard.m_value.split(QLatin1Char(';'), Qt::KeepEmptyParts);
    m_value.clear();
    QStringList foundTexts;
    for (int i = 0; i < entries.size(); ++i) {
        if (!chainExists(entries.at(i).split(QLatin1Char(';'), Qt::KeepEmptyParts)))
            continue;
        // A standard value with fewer texts than entries lists an empty text for the rest.
        foundTexts.append(texts.value(i));
        m_value = foundTexts.join(QLatin1Char(';'));
    }
    return foundTexts.size() == entries.size() ? fullScore(standard) : 0.0;
}

bool QRatingItem_Sked::chainExists(const QStringList& chain) const {
    return ChainSearch(chain, m_nodeMap, m_linkMatrix, m_nodeCount).run();
}
