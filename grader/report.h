// Reports of graded candidates: a readable text tree, the whole scored tree as JSON, and CSV (one row
// per criterion, and a summary with one row per candidate and one column per category).
#ifndef REPORT_H
#define REPORT_H

#include "graderesult.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace Grade {

// The candidates graded against one standard answer.
struct ReportSection {
    QString standardFile;
    QList<CandidateResult> results;
};

struct ReportOptions {
    bool color = false;    // ANSI colours for lost marks
    bool lostOnly = false; // text: only the branches where marks were lost
};

QString textReport(const QList<ReportSection>& sections, const ReportOptions& options);
// {"reports": [{"standard": file, "candidates": [...]}, ...]}
QByteArray jsonReport(const QList<ReportSection>& sections);
QString csvReport(const QList<ReportSection>& sections);
QString csvSummary(const QList<ReportSection>& sections);

// A CSV field, quoted when it holds a comma, a quotation mark or a line break.
QString csvField(const QString& text);
// Marks as the text report shows them: two decimals.
QString marksText(double marks);

} // namespace Grade

#endif // REPORT_H
