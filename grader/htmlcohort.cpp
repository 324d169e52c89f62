#include "htmlcohort.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Grade {

namespace {

const QString pathSeparator = QStringLiteral(" > ");
const double notScored = std::numeric_limits<double>::quiet_NaN();

} // namespace

double CohortRow::category(int column) const {
    return column < categories.size() ? categories[column] : notScored;
}

Summary summarize(QVector<double> values) {
    Summary summary;
    summary.count = values.size();
    if (values.isEmpty())
        return summary;
    std::sort(values.begin(), values.end());
    double sum = 0.0;
    for (double value : values)
        sum += value;
    const int middle = values.size() / 2;
    summary.mean = sum / values.size();
    summary.median = values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
    summary.min = values.first();
    summary.max = values.last();
    return summary;
}

CohortStats::CohortStats(const QString& standardFile) : m_standardFile(standardFile) {}

void CohortStats::add(const CandidateResult& result, const QString& page) {
    CohortRow row{result.file, result.graded, page, result.error, 0.0, 0.0, {}};
    if (!result.graded) {
        m_rows.append(row);
        return;
    }
    row.obtained = result.obtained();
    row.full = result.full();
    QSet<QString> seen; // a criterion counts once per candidate
    for (const CategoryResult& category : result.categories) {
        if (!category.available)
            continue;
        const int index = column(category);
        while (row.categories.size() <= index)
            row.categories.append(notScored);
        row.categories[index] = category.obtained;
        m_columns[index].scores.append(category.obtained);
        for (const ScoredNode& child : category.tree.items)
            tallyLosses(child, category.title, seen);
    }
    if (m_totals.isEmpty())
        m_totalFull = row.full;
    m_totals.append(row.obtained);
    m_rows.append(row);
}

int CohortStats::column(const CategoryResult& category) {
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].type == category.type)
            return i;
    m_columns.append(CohortColumn{category.type, category.title, category.full, {}});
    return m_columns.size() - 1;
}

void CohortStats::tallyLosses(const ScoredNode& node, const QString& parentPath, QSet<QString>& seen) {
    const QString path = parentPath + pathSeparator + node.name;
    if (!node.items.isEmpty()) {
        for (const ScoredNode& child : node.items)
            tallyLosses(child, path, seen);
        return;
    }
    if (!node.lost() || seen.contains(path))
        return;
    seen.insert(path);
    CriterionLoss& loss = m_losses[path];
    loss.path = path;
    loss.candidates += 1;
    loss.marksLost += node.full - node.obtained;
}

QList<CriterionLoss> CohortStats::mostLost(int limit) const {
    QList<CriterionLoss> losses = m_losses.values();
    std::sort(losses.begin(), losses.end(), [](const CriterionLoss& a, const CriterionLoss& b) {
        if (a.candidates != b.candidates)
            return a.candidates > b.candidates;
        if (a.marksLost != b.marksLost)
            return a.marksLost > b.marksLost;
        return a.path < b.path;
    });
    return losses.mid(0, limit);
}

} // namespace Grade
