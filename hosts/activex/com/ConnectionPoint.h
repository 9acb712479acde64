#pragma once

#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <vector>

namespace velmora {

/// Where clients connect their sinks of one interface. It is a part of its container: it counts
/// references there, so whoever holds it keeps the container alive.
class ConnectionPoint final : public IConnectionPoint {
public:
    /// `iid`: an event interface is taken as plain `IDispatch`, too, when a sink knows no better.
    enum class Kind { Interface, Events };
    ConnectionPoint(IConnectionPointContainer& container, const IID& iid, Kind kind)
        : m_container(container), m_iid(iid), m_kind(kind) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    const IID& Iid() const noexcept { return m_iid; }
    bool IsConnected() const noexcept { return !m_sinks.empty(); }
    void DisconnectAll() noexcept;

    /// Calls every sink that is connected when its turn comes, which may connect and disconnect
    /// sinks; new ones are not called. `Sink` is the interface of the connection point. Stops when
    /// `call` returns false.
    template <class Sink, class Call>
    void ForEach(Call call) const {
        const std::vector<Entry> sinks = m_sinks;
        for (const Entry& entry : sinks) {
            if (Has(entry.cookie) && !call(static_cast<Sink&>(*entry.sink.Get()))) return;
        }
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return m_container.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_container.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

private:
    struct Entry {
        DWORD cookie;
        Microsoft::WRL::ComPtr<IUnknown> sink;
    };

    bool Has(DWORD cookie) const noexcept;

    IConnectionPointContainer& m_container;
    const IID& m_iid;
    const Kind m_kind;
    std::vector<Entry> m_sinks;
    DWORD m_lastCookie = 0;
};

}  // namespace velmora
