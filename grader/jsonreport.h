// The JSON report: every scored tree, as one document
// {"reports": [{"standard": file, "candidates": [...]}, ...]}, written candidate by candidate.
// Compact unless pretty, which indents it by four spaces a level.
#ifndef JSONREPORT_H
#define JSONREPORT_H

#include "jsonwriter.h"
#include "output.h"
#include "reportsink.h"

#include <memory>

namespace Grade {

// One candidate's object in the report.
void writeCandidate(JsonWriter& out, const CandidateResult& result);

class JsonSink : public ReportSink {
public:
    JsonSink(std::unique_ptr<ReportOutput> output, bool pretty);

    bool beginSection(const SectionStart& section) override;
    bool addCandidate(const CandidateResult& result) override;
    bool endSection() override;
    bool finish() override;

private:
    bool write(const QByteArray& bytes);
    // A line break and the indentation of depth levels when pretty; nothing otherwise.
    QByteArray indent(int depth) const;
    QByteArray opening() const; // up to the array of the sections

    std::unique_ptr<ReportOutput> m_output;
    bool m_pretty;
    int m_sections = 0;
    int m_candidates = 0; // in the current section
};

} // namespace Grade

#endif // JSONREPORT_H
