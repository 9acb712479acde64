#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velmora {

/// One event of a control: handlers are called in the order in which they were connected, from
/// inside the operation that causes the event. A handler may connect, disconnect, raise the event
/// again or destroy the event's owner; after that the handlers behind it are not called. Without
/// handlers it costs two pointers.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;
    using Id = std::size_t;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() {
        if (m_list) m_list->entries.clear();
    }

    /// Returns what `Disconnect` takes; a connection otherwise lasts as long as the event.
    Id Connect(Handler handler) {
        if (!m_list) m_list = std::make_shared<List>();
        const Id id = ++m_list->lastId;
        m_list->entries.push_back({id, std::make_shared<const Handler>(std::move(handler))});
        return id;
    }
    void Disconnect(Id id) {
        if (m_list) std::erase_if(m_list->entries, [id](const Entry& e) { return e.id == id; });
    }

    /// For the owner alone. A handler connected meanwhile is called from the next time on.
    void Raise(Args... args) const {
        const std::shared_ptr<const List> list = m_list;  // the owner may end with its event
        if (!list) return;
        const Id last = list->lastId;
        Id called = 0;
        while (const auto handler = list->Behind(called, last)) (*handler)(args...);
    }

private:
    struct Entry {
        Id id;
        std::shared_ptr<const Handler> handler;
    };
    struct List {
        std::vector<Entry> entries;  // ids ascend
        Id lastId = 0;

        /// The next handler that is connected now, which the caller keeps; null behind the last.
        std::shared_ptr<const Handler> Behind(Id& called, Id last) const {
            for (const Entry& entry : entries) {
                if (entry.id <= called) continue;
                if (entry.id > last) break;
                called = entry.id;
                return entry.handler;
            }
            return nullptr;
        }
    };

    std::shared_ptr<List> m_list;
};

/// Raises events and then does the rest, also when a handler throws; its error goes on from here.
template <class Raise, class Rest>
void RaiseThen(Raise raise, Rest rest) {
    try {
        raise();
    } catch (...) {
        rest();
        throw;
    }
    rest();
}

/// Tells code that raises events whether its object still exists when the handlers have returned.
class Lifetime {
public:
    /// Made before the call of foreign code, asked after it.
    class Watch {
    public:
        explicit Watch(const Lifetime& lifetime) : m_token(lifetime.m_token) {}

        /// False once the object has been destroyed.
        explicit operator bool() const noexcept { return !m_token.expired(); }

    private:
        std::weak_ptr<const char> m_token;
    };

    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

private:
    std::shared_ptr<const char> m_token = std::make_shared<const char>();
};

}  // namespace velmora
