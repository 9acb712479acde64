#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace velmora {

/// The handlers of an event of any kind. Without any it costs two pointers.
class HandlerList {
    struct List;

public:
    using Id = std::size_t;

    /// One raising of the event: the handlers that it has now, as far as they are still connected
    /// when it is their turn.
    class Round {
    public:
        explicit Round(const HandlerList& handlers);

        /// Null behind the last one; otherwise it lives until the next call at least.
        const void* Next();

    private:
        std::shared_ptr<const List> m_list;
        Id m_called = 0;
        Id m_last = 0;
        std::shared_ptr<const void> m_handler;
    };

    HandlerList() = default;
    HandlerList(const HandlerList&) = delete;
    HandlerList& operator=(const HandlerList&) = delete;
    ~HandlerList();

    Id Add(std::shared_ptr<const void> handler);
    void Remove(Id id);

private:
    std::shared_ptr<List> m_list;
};

/// One event of a control: handlers are called in the order in which they were connected, from
/// inside the operation that causes the event. A handler may connect, disconnect, raise the event
/// again or destroy the event's owner; after that the handlers behind it are not called.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;
    using Id = HandlerList::Id;

    /// Returns what `Disconnect` takes; a connection otherwise lasts as long as the event.
    Id Connect(Handler handler) {
        return m_handlers.Add(std::make_shared<const Handler>(std::move(handler)));
    }
    void Disconnect(Id id) { m_handlers.Remove(id); }

    /// For the owner alone. A handler connected meanwhile is called from the next time on.
    void Raise(Args... args) const {
        HandlerList::Round round(m_handlers);
        while (const void* handler = round.Next()) (*static_cast<const Handler*>(handler))(args...);
    }

private:
    HandlerList m_handlers;
};

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
