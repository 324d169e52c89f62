#include "batch.h"

#include "grading.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace Grade {

QList<CandidateResult> gradeBatch(const Host::ProjectFile& standard, const QStringList& files,
                                  const Marks& marks, const BatchOptions& options) {
    const int total = files.size();
    std::vector<CandidateResult> results(size_t(std::max(total, 0)));
    std::atomic<int> next{0};
    int done = 0;
    std::mutex doneLock;
    std::condition_variable doneChanged;
    // Each worker takes the next file until none is left; results land in file order.
    const auto work = [&] {
        for (int index; (index = next.fetch_add(1)) < total;) {
            results[size_t(index)] = gradeFile(standard, files.at(index), marks);
            const std::lock_guard<std::mutex> locker(doneLock);
            ++done;
            doneChanged.notify_all();
        }
    };
    const int jobs = options.jobs > 0 ? options.jobs : QThread::idealThreadCount();
    std::vector<std::thread> workers;
    for (int worker = 0; worker < std::min(std::max(jobs, 1), total); ++worker)
        workers.emplace_back(work);

    QElapsedTimer clock;
    clock.start();
    for (std::unique_lock<std::mutex> locker(doneLock);;) {
        if (options.progress) {
            const int finished = done;
            const qint64 elapsed = clock.elapsed();
            locker.unlock();
            const int left = finished > 0 ? int(elapsed / 1000.0 / finished * (total - finished) + 0.5) : -1;
            options.progress(finished, total, left);
            locker.lock();
        }
        if (done == total)
            break;
        doneChanged.wait_for(locker, std::chrono::milliseconds(200), [&] { return done == total; });
    }
    for (std::thread& worker : workers)
        worker.join();
    return QList<CandidateResult>(results.begin(), results.end());
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
