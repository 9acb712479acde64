#pragma once

#include <windows.h>

#include <map>
#include <memory>

namespace velmora {

/// Holds a lock for as long as it lives.
class ExclusiveLock {
public:
    explicit ExclusiveLock(SRWLOCK& lock) : m_lock(lock) { AcquireSRWLockExclusive(&m_lock); }
    ExclusiveLock(const ExclusiveLock&) = delete;
    ExclusiveLock& operator=(const ExclusiveLock&) = delete;
    ~ExclusiveLock() { ReleaseSRWLockExclusive(&m_lock); }

private:
    SRWLOCK& m_lock;
};

/// The one `T` of the calling thread: made on first use, ended with its last holder. Nothing of it
/// stays behind in the module or in the thread, so that the module can be unloaded. The constructor
/// of `T` must not ask for another `T`.
template <class T>
std::shared_ptr<T> ThreadShared() {
    static SRWLOCK lock = SRWLOCK_INIT;
    static std::map<DWORD, std::weak_ptr<T>> objects;
    const DWORD thread = GetCurrentThreadId();

    const ExclusiveLock locked(lock);
    std::erase_if(objects, [](const auto& entry) { return entry.second.expired(); });
    const auto known = objects.find(thread);
    std::shared_ptr<T> object = known != objects.end() ? known->second.lock() : nullptr;
    if (!object) {
        object = std::make_shared<T>();
        objects[thread] = object;
    }
    return object;
}

}  // namespace velmora
