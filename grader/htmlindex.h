// The cohort page of the HTML report (index.html): per standard answer a histogram of the totals,
// mean, median, minimum and maximum per category, the criteria most candidates lost, a sortable table
// of the candidates linking to their pages, and the files that could not be graded with the reason.
#ifndef HTMLINDEX_H
#define HTMLINDEX_H

#include "htmlcohort.h"

class QXmlStreamWriter;

namespace Grade {
namespace Html {

void writeIndexBody(QXmlStreamWriter& out, const QList<CohortStats>& cohorts);

// One <svg class="histogram">: counts of totals in twenty equal bins over [0, full].
void writeHistogram(QXmlStreamWriter& out, const QVector<double>& totals, double full);

} // namespace Html
} // namespace Grade

#endif // HTMLINDEX_H
