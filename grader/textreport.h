// The readable text report: per candidate the scored tree with the lost marks marked ✗, and per
// standard answer with several candidates a summary of their totals.
#ifndef TEXTREPORT_H
#define TEXTREPORT_H

#include "output.h"
#include "reportsink.h"

#include <memory>

namespace Grade {

struct TextOptions {
    bool color = false;    // ANSI colours for lost marks
    bool lostOnly = false; // only the branches where marks were lost
};

class TextSink : public ReportSink {
public:
    TextSink(std::unique_ptr<ReportOutput> output, const TextOptions& options);

    bool beginSection(const SectionStart& section) override;
    bool addCandidate(const CandidateResult& result) override;
    bool endSection() override;
    bool finish() override;

private:
    bool write(const QString& text);

    std::unique_ptr<ReportOutput> m_output;
    TextOptions m_options;
    int m_sections = 0;
    bool m_summary = false; // the section lists its candidates' totals at its end
    Spool m_summaryLines;
};

} // namespace Grade

#endif // TEXTREPORT_H
