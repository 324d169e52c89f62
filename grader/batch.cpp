#include "batch.h"

#include "grading.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <condition_variable>
#include <map>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

namespace Grade {

namespace {

CandidateResult failure(const QString& file, const QString& reason) {
    CandidateResult result;
    result.file = file;
    result.error = QStringLiteral("%1: %2").arg(file, reason);
    return result;
}

// One candidate, graded and prepared for its report, whatever happens on the way.
CandidateResult gradeGuarded(const BatchOptions& options, const Host::ProjectFile& standard,
                             const QString& file, const Marks& marks) {
    try {
        CandidateResult result =
            options.grade ? options.grade(standard, file, marks) : gradeFile(standard, file, marks);
        if (options.prepare)
            options.prepare(result);
        return result;
    } catch (const std::bad_alloc&) {
        return failure(file, QStringLiteral("out of memory while grading"));
    } catch (const std::exception& exception) {
        return failure(file,
                       QStringLiteral("grading failed: %1").arg(QString::fromLocal8Bit(exception.what())));
    } catch (...) {
        return failure(file, QStringLiteral("grading failed"));
    }
}

// The state the workers and the delivering thread share, under lock.
class Batch {
public:
    Batch(const Host::ProjectFile& standard, const QStringList& files, const Marks& marks,
          const BatchOptions& options, int jobs)
        : m_standard(standard), m_files(files), m_marks(marks), m_options(options), m_window(2 * jobs) {
        for (int worker = 0; worker < std::min(jobs, int(m_files.size())); ++worker)
            m_workers.emplace_back([this] { work(); });
    }
    // Stops and joins the workers, also when delivery throws.
    ~Batch() {
        stop();
        for (std::thread& worker : m_workers)
            worker.join();
    }

    bool deliverAll(const std::function<bool(const CandidateResult&)>& deliver,
                    const std::function<void(int, int, int)>& progress);

private:
    void work();
    void stop() {
        const std::lock_guard<std::mutex> locker(m_lock);
        m_stopped = true;
        m_changed.notify_all();
    }

    const Host::ProjectFile& m_standard;
    const QStringList& m_files;
    const Marks& m_marks;
    const BatchOptions& m_options;
    const int m_window;
    std::vector<std::thread> m_workers;

    std::mutex m_lock;
    std::condition_variable m_changed;      // a result is ready, one was delivered, or the batch stops
    std::map<int, CandidateResult> m_ready; // graded, waiting for the ones before them
    int m_next = 0;                         // the next file to start
    int m_graded = 0;
    int m_delivered = 0;
    bool m_stopped = false;
};

void Batch::work() {
    const int total = m_files.size();
    for (;;) {
        int index;
        {
            std::unique_lock<std::mutex> locker(m_lock);
            m_changed.wait(locker,
                           [&] { return m_stopped || m_next >= total || m_next < m_delivered + m_window; });
            if (m_stopped || m_next >= total)
                return;
            index = m_next++;
        }
        CandidateResult result = gradeGuarded(m_options, m_standard, m_files.at(index), m_marks);
        const std::lock_guard<std::mutex> locker(m_lock);
        m_ready.emplace(index, std::move(result));
        ++m_graded;
        m_changed.notify_all();
    }
}

bool Batch::deliverAll(const std::function<bool(const CandidateResult&)>& deliver,
                       const std::function<void(int, int, int)>& progress) {
    const int total = m_files.size();
    QElapsedTimer clock, shown;
    clock.start();
    std::unique_lock<std::mutex> locker(m_lock);
    while (m_delivered < total) {
        const auto due = [&] { return !m_ready.empty() && m_ready.begin()->first == m_delivered; };
        m_changed.wait_for(locker, std::chrono::milliseconds(200), due);
        if (progress && (!shown.isValid() || shown.elapsed() >= 200)) {
            const int graded = m_graded;
            locker.unlock();
            const qint64 elapsed = clock.elapsed();
            progress(graded, total,
                     graded > 0 ? int(elapsed / 1000.0 / graded * (total - graded) + 0.5) : -1);
            shown.start();
            locker.lock();
        }
        if (!due())
            continue;
        CandidateResult result = std::move(m_ready.begin()->second);
        m_ready.erase(m_ready.begin());
        locker.unlock();
        const bool delivered = deliver(result);
        result = CandidateResult(); // the trees and the parsed file go before the next one is taken
        locker.lock();
        ++m_delivered;
        m_changed.notify_all();
        if (!delivered)
            return false;
    }
    locker.unlock();
    if (progress)
        progress(total, total, 0);
    return true;
}

} // namespace

bool gradeBatch(const Host::ProjectFile& standard, const QStringList& files, const Marks& marks,
                const BatchOptions& options, const std::function<bool(const CandidateResult&)>& deliver) {
    Batch batch(standard, files, marks, options, batchThreads(options.jobs));
    return batch.deliverAll(deliver, options.progress);
}

int batchThreads(int jobs) {
    return std::max(jobs > 0 ? jobs : QThread::idealThreadCount(), 1);
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
