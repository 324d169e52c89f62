// Grading many candidates against one standard on every core. Each worker reads its own candidate
// and builds its own library objects; only the parsed standard (plain values) is shared. Results
// are handed on in the order of the files as soon as they are ready and freed after, so a batch
// holds a few candidates at a time, however many it grades.
#ifndef BATCH_H
#define BATCH_H

#include "graderesult.h"
#include "marks.h"
#include "projectmodel.h"

#include <QStringList>
#include <functional>

namespace Grade {

using GradeFunction = std::function<CandidateResult(const Host::ProjectFile& standard, const QString& file,
                                                    const Marks& marks)>;

struct BatchOptions {
    int jobs = 0; // 0: one worker per core
    // Called on the calling thread about five times a second while the batch runs: done, total and
    // the estimated seconds left (-1 before the first candidate is done).
    std::function<void(int, int, int)> progress;
    // How one file is graded: gradeFile when empty. Whatever it throws (std::bad_alloc included)
    // fails that candidate only, with the reason as its error.
    GradeFunction grade;
    // Called on the worker with each result it graded (ReportSink::prepare); failing there fails the
    // candidate, as grading would.
    std::function<void(CandidateResult&)> prepare;
};

// Grades the files on options.jobs workers and calls deliver on the calling thread with each result,
// in the order of the files, as soon as it and every one before it are graded; the result is freed
// when deliver returns. Workers start a file only while fewer than 2 × jobs results wait to be
// delivered. deliver returns false to stop the batch (on a write error): files not started are
// left, and gradeBatch returns false.
bool gradeBatch(const Host::ProjectFile& standard, const QStringList& files, const Marks& marks,
                const BatchOptions& options, const std::function<bool(const CandidateResult&)>& deliver);

// The workers a batch runs: jobs, or one per core when jobs is 0.
int batchThreads(int jobs);

// "graded 120/650, about 0:42 left" (or "…, estimating time left" before the first result).
QString progressLine(int done, int total, int secondsLeft);

} // namespace Grade

#endif // BATCH_H
