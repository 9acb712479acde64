#include "hosts/activex/com/ConnectionPoint.h"

#include "hosts/activex/com/Enumerator.h"

#include <olectl.h>

#include <algorithm>
#include <utility>

namespace velmora {

template <>
struct ItemCopy<CONNECTDATA> {
    static HRESULT Copy(CONNECTDATA& to, const CONNECTDATA& from) noexcept {
        to = from;
        to.pUnk->AddRef();
        return S_OK;
    }
    static void Free(CONNECTDATA& item) noexcept { item.pUnk->Release(); }
};

void ConnectionPoint::DisconnectAll() noexcept {
    const auto sinks = std::exchange(m_sinks, {});  // releasing one may come back here
}

bool ConnectionPoint::Has(DWORD cookie) const noexcept {
    return std::ranges::any_of(m_sinks,
                               [cookie](const Entry& entry) { return entry.cookie == cookie; });
}

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    const bool known = iid == __uuidof(IUnknown) || iid == __uuidof(IConnectionPoint);
    *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid) {
    if (!iid) return E_POINTER;
    *iid = m_iid;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = &m_container;
    m_container.AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!cookie) return E_POINTER;
    *cookie = 0;
    if (!sink) return E_POINTER;
    const auto query = [sink](REFIID iid) {
        Microsoft::WRL::ComPtr<IUnknown> found;
        sink->QueryInterface(iid, reinterpret_cast<void**>(found.GetAddressOf()));
        return found;
    };
    return Guard([&]() -> HRESULT {
        auto found = query(m_iid);
        if (!found && m_kind == Kind::Events) found = query(__uuidof(IDispatch));
        if (!found) return CONNECT_E_CANNOTCONNECT;
        m_sinks.push_back({m_lastCookie + 1, std::move(found)});
        *cookie = ++m_lastCookie;
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    const auto found = std::ranges::find(m_sinks, cookie, &Entry::cookie);
    if (found == m_sinks.end()) return CONNECT_E_NOCONNECTION;
    const Entry entry = std::move(*found);  // released when the list is right again
    m_sinks.erase(found);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections) {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return Guard([&] {
        std::vector<CONNECTDATA> items;
        for (const Entry& entry : m_sinks) items.push_back({entry.sink.Get(), entry.cookie});
        return Enumerator<IEnumConnections, CONNECTDATA>::Make(items, &m_container, connections);
    });
}

}  // namespace velmora
