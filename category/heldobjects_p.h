#ifndef HELDOBJECTS_P_H
#define HELDOBJECTS_P_H

// Objects the host hands to more than one category (link matrices, curve records, sub-categories),
// listed by address for the whole process: an object handed over again joins its first holders
// instead of getting a second owner, and the last holder releases it. Hosts may build distinct trees
// on distinct threads, so the lists are locked. They are left to the process (never destroyed), so
// that categories destroyed during exit can still unlist what they hold.

#include <QHash>
#include <QSharedPointer>
#include <QWeakPointer>

#include <mutex>

namespace HeldObjects {

inline std::mutex& lock() {
    static auto* mutex = new std::mutex;
    return *mutex;
}

template <class T> QHash<const void*, QWeakPointer<T>>& listed() {
    static auto* table = new QHash<const void*, QWeakPointer<T>>();
    return *table;
}

// The live holder listed under key, or null.
template <class T> QSharedPointer<T> find(const void* key) {
    const std::lock_guard<std::mutex> locker(lock());
    return listed<T>().value(key).toStrongRef();
}

// The live holder listed under key; otherwise make() (called under the lock) becomes the holder,
// listed under key unless key is null. The last strong reference unlists and deletes it.
template <class T, class Make> QSharedPointer<T> hold(const void* key, Make make) {
    const std::lock_guard<std::mutex> locker(lock());
    QHash<const void*, QWeakPointer<T>>& table = listed<T>();
    if (QSharedPointer<T> held = table.value(key).toStrongRef())
        return held;
    QSharedPointer<T> shared(make(), [key](T* released) {
        {
            const std::lock_guard<std::mutex> releaseLocker(lock());
            QHash<const void*, QWeakPointer<T>>& entries = listed<T>();
            const auto it = entries.find(key);
            if (it != entries.end() && it->isNull())
                entries.erase(it);
        }
        // Outside the lock: releasing a category releases what it holds in turn.
        delete released;
    });
    if (key)
        table.insert(key, shared);
    return shared;
}

} // namespace HeldObjects

#endif // HELDOBJECTS_P_H
