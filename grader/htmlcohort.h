// Statistics of one standard answer's cohort for the HTML report's index, gathered one candidate at a
// time: a row per candidate (its marks per category and its page), the score lists per category for
// mean, median and spread, and per criterion how many candidates lost marks there. Nothing of a
// candidate's tree is kept beyond these tallies.
#ifndef HTMLCOHORT_H
#define HTMLCOHORT_H

#include "graderesult.h"

#include <QHash>
#include <QSet>
#include <QList>
#include <QString>
#include <QVector>

namespace Grade {

struct Summary {
    int count = 0;
    double mean = 0.0;
    double median = 0.0;
    double min = 0.0;
    double max = 0.0;
};
// All zero for no values.
Summary summarize(QVector<double> values);

struct CohortColumn {
    int type = 0;
    QString title;
    double full = 0.0;      // the full marks of the first candidate scored in it
    QVector<double> scores; // one per candidate scored in it
};

struct CohortRow {
    QString file;
    bool graded = false;
    QString page; // the candidate's page, empty for none
    QString error;
    double obtained = 0.0;
    double full = 0.0;
    QVector<double> categories; // by column; NaN (or beyond the end) where not scored

    double category(int column) const;
};

// A criterion lost by some candidates: the path from its category title down to it.
struct CriterionLoss {
    QString path;
    int candidates = 0;     // how many lost marks there
    double marksLost = 0.0; // summed over them
};

class CohortStats {
public:
    explicit CohortStats(const QString& standardFile = QString());

    // A candidate in file order; page is its page's file name, empty when it has none.
    void add(const CandidateResult& result, const QString& page);

    const QString& standardFile() const { return m_standardFile; }
    const QList<CohortColumn>& columns() const { return m_columns; }
    const QList<CohortRow>& rows() const { return m_rows; }
    const QVector<double>& totals() const { return m_totals; }
    double totalFull() const { return m_totalFull; }
    int graded() const { return m_totals.size(); }
    // The criteria lost by most candidates, then by most marks, at most limit of them.
    QList<CriterionLoss> mostLost(int limit) const;

private:
    int column(const CategoryResult& category);
    void tallyLosses(const ScoredNode& node, const QString& path, QSet<QString>& seen);

    QString m_standardFile;
    QList<CohortColumn> m_columns;
    QList<CohortRow> m_rows;
    QVector<double> m_totals;
    double m_totalFull = 0.0;
    QHash<QString, CriterionLoss> m_losses;
};

} // namespace Grade

#endif // HTMLCOHORT_H
