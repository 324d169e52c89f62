// Where graded candidates go: a report format receives each section's standard answer, then its
// candidates one by one in file order, and writes as it goes, so that a batch never holds more than
// the candidates being graded. Every call returns false on a write error, with the reason in error().
#ifndef REPORTSINK_H
#define REPORTSINK_H

#include "graderesult.h"

#include <QSharedPointer>
#include <QString>

namespace Grade {

// One standard answer and the candidates graded against it.
struct SectionStart {
    QString standardFile;
    QSharedPointer<const Host::ProjectFile> standard; // as read
    int candidates = 0;                               // how many will follow
};

class ReportSink {
public:
    virtual ~ReportSink() = default;

    virtual bool beginSection(const SectionStart& section) = 0;
    // Called on the worker that graded a candidate, on several at once, before the result waits for
    // its turn: a format renders here what needs only this candidate and may drop what it will not
    // read again, so that the one thread that writes in order has less to do. It must leave the
    // sink's own state alone.
    virtual void prepare(CandidateResult&) const {}
    // A candidate, graded or not (result.graded, result.error); results come in file order.
    virtual bool addCandidate(const CandidateResult& result) = 0;
    virtual bool endSection() = 0;
    // After the last section: writes what needs the whole run (summaries, indexes) and commits the
    // output, which appears whole or not at all.
    virtual bool finish() = 0;

    const QString& error() const { return m_error; }

protected:
    bool fail(const QString& message) {
        m_error = message;
        return false;
    }

private:
    QString m_error;
};

} // namespace Grade

#endif // REPORTSINK_H
