// The HTML report: a directory with one self-contained page per graded candidate and index.html for
// the cohort. Pages are rendered as candidates arrive and written on background threads; only each
// candidate's small statistics are kept for the index, which finish() writes after the last page.
// Every file appears whole or not at all; a page that cannot be written fails the next call.
#ifndef HTMLREPORT_H
#define HTMLREPORT_H

#include "htmlcohort.h"
#include "htmlwriter.h"
#include "reportsink.h"

#include <memory>

namespace Grade {

class HtmlReportSink : public ReportSink {
public:
    explicit HtmlReportSink(const QString& outputDir);

    bool beginSection(const SectionStart& section) override;
    bool addCandidate(const CandidateResult& result) override;
    bool endSection() override;
    bool finish() override;

    // The page of the n-th candidate (from 1) of the run: "0007-cand_a.html", the file's base name
    // with anything but ASCII letters, digits, '-' and '_' replaced, so that links need no escaping
    // and every file system takes the name.
    static QString pageName(int number, const QString& candidateFile);

private:
    bool ensureDirectory();

    QString m_dir;
    bool m_dirReady = false;
    SectionStart m_section;
    QList<CohortStats> m_cohorts;
    int m_candidates = 0;
    Html::FileWriter m_writer; // last: its destructor waits for the pages still being written
};

std::unique_ptr<ReportSink> makeHtmlReport(const QString& outputDir);

} // namespace Grade

#endif // HTMLREPORT_H
