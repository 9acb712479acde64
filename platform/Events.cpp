#include "platform/Events.h"

#include <vector>

namespace velmora {

struct HandlerList::List {
    struct Entry {
        Id id;
        std::shared_ptr<const void> handler;
    };
    std::vector<Entry> entries;  // ids ascend
    Id lastId = 0;
};

HandlerList::~HandlerList() {
    if (m_list) m_list->entries.clear();
}

HandlerList::Id HandlerList::Add(std::shared_ptr<const void> handler) {
    if (!m_list) m_list = std::make_shared<List>();
    m_list->entries.push_back({++m_list->lastId, std::move(handler)});
    return m_list->lastId;
}

void HandlerList::Remove(Id id) {
    if (!m_list) return;
    std::erase_if(m_list->entries, [id](const List::Entry& entry) { return entry.id == id; });
}

HandlerList::Round::Round(const HandlerList& handlers) : m_list(handlers.m_list) {
    if (m_list) m_last = m_list->lastId;
}

const void* HandlerList::Round::Next() {
    if (!m_list) return nullptr;
    for (const List::Entry& entry : m_list->entries) {
        if (entry.id <= m_called) continue;
        if (entry.id > m_last) break;
        m_called = entry.id;
        m_handler = entry.handler;
        return m_handler.get();
    }
    return nullptr;
}

}  // namespace velmora
