#include "batch.h"

#include "grading.h"

#include <QElapsedTimer>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent>

namespace Grade {

namespace {

struct GradeOne {
    using result_type = CandidateResult;
    const Host::ProjectFile* standard;
    const Marks* marks;
    CandidateResult operator()(const QString& file) const { return gradeFile(*standard, file, *marks); }
};

} // namespace

QList<CandidateResult> gradeBatch(const Host::ProjectFile& standard, const QStringList& files,
                                  const Marks& marks, const BatchOptions& options) {
    QThreadPool pool;
    pool.setMaxThreadCount(options.jobs > 0 ? options.jobs : QThread::idealThreadCount());
    QElapsedTimer clock;
    clock.start();
    // Start every candidate on the pool, keeping the futures in file order.
    QList<QFuture<CandidateResult>> futures;
    const GradeOne grade{&standard, &marks};
    for (const QString& file : files)
        futures.append(QtConcurrent::run(&pool, grade, file));
    for (;;) {
        int done = 0;
        for (const QFuture<CandidateResult>& future : futures)
            done += future.isFinished() ? 1 : 0;
        if (options.progress) {
            const int left =
                done > 0 ? int(clock.elapsed() / 1000.0 / done * (files.size() - done) + 0.5) : -1;
            options.progress(done, files.size(), left);
        }
        if (done == files.size())
            break;
        QThread::msleep(200);
    }
    QList<CandidateResult> results;
    for (QFuture<CandidateResult>& future : futures)
        results.append(future.result());
    return results;
}

QString progressLine(int done, int total, int secondsLeft) {
    const QString head = QStringLiteral("graded %1/%2").arg(done).arg(total);
    if (secondsLeft < 0)
        return head + QStringLiteral(", estimating time left");
    return head + QStringLiteral(", about %1:%2 left")
                      .arg(secondsLeft / 60)
                      .arg(secondsLeft % 60, 2, 10, QLatin1Char('0'));
}

} // namespace Grade
