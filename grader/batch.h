// Grading many candidates against one standard on every core. Each worker reads its own candidate
// and builds its own library objects; only the parsed standard (plain values) is shared.
#ifndef BATCH_H
#define BATCH_H

#include "graderesult.h"
#include "marks.h"
#include "projectmodel.h"

#include <QStringList>
#include <functional>

namespace Grade {

struct BatchOptions {
    int jobs = 0; // 0: one worker per core
    // Called on the calling thread about five times a second while the batch runs: done, total and
    // the estimated seconds left (-1 before the first candidate is done).
    std::function<void(int, int, int)> progress;
};

// Results in the order of the files.
QList<CandidateResult> gradeBatch(const Host::ProjectFile& standard, const QStringList& files,
                                  const Marks& marks, const BatchOptions& options);

// "graded 120/650, about 0:42 left" (or "…, estimating time left" before the first result).
QString progressLine(int done, int total, int secondsLeft);

} // namespace Grade

#endif // BATCH_H
