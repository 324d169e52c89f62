// Work handed to Qt's global thread pool, its result (or what it threw) delivered by a std::future.
// The pool's threads outlive the work on purpose: when a thread ends, jemalloc hands the freed pages
// of its arena back to the system, and a large pair would fault them in and clear them again.
#ifndef POOLTASK_H
#define POOLTASK_H

#include <QThreadPool>

#include <future>
#include <memory>
#include <utility>

namespace Grade {

// Unlike std::async, the future does not wait when it is destroyed: wait for it before anything the
// work refers to goes away.
template <typename Work> auto poolTask(Work work) -> std::future<decltype(work())> {
    auto task = std::make_shared<std::packaged_task<decltype(work())()>>(std::move(work));
    auto result = task->get_future();
    QThreadPool::globalInstance()->start([task] { (*task)(); });
    return result;
}

} // namespace Grade

#endif // POOLTASK_H
