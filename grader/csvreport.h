// The CSV reports: one row per criterion (candidate, path, full, obtained, remark), and a summary
// with one row per candidate and one column per category, after the rows or in a file of its own.
#ifndef CSVREPORT_H
#define CSVREPORT_H

#include "output.h"
#include "reportsink.h"

#include <QMap>

#include <memory>

namespace Grade {

// A text cell: quoted when it holds a comma, a quotation mark or a line break, and led by ' when it
// would start with a formula sign (= + - @, a tab or a carriage return) that a spreadsheet would
// run. Numbers are written as they are, not through this.
QString csvField(const QString& text);

class CsvSink : public ReportSink {
public:
    // Without a summary output, a batch's summary follows the rows after an empty line.
    CsvSink(std::unique_ptr<ReportOutput> rows, std::unique_ptr<ReportOutput> summary);

    bool beginSection(const SectionStart& section) override;
    void prepare(CandidateResult& result) const override;
    bool addCandidate(const CandidateResult& result) override;
    bool endSection() override;
    bool finish() override;

private:
    bool write(ReportOutput& output, const QString& text);
    bool spoolSummary(const CandidateResult& result);
    bool writeSummary(ReportOutput& output);

    std::unique_ptr<ReportOutput> m_rows;
    std::unique_ptr<ReportOutput> m_summary;
    int m_sections = 0;
    int m_candidates = 0;
    QMap<int, QString> m_columns; // every category seen, by type, titled as first seen
    Spool m_summaryRecords;
};

} // namespace Grade

#endif // CSVREPORT_H
