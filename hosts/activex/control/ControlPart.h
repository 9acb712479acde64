#pragma once

#include <unknwn.h>
#include <wrl/client.h>

namespace velmora {

/// Interfaces of a control that a member of it implements: their references are the control's.
template <class... Interfaces>
class ControlPart : public Interfaces... {
public:
    explicit ControlPart(IUnknown& control) : m_control(control) {}
    ControlPart(const ControlPart&) = delete;
    ControlPart& operator=(const ControlPart&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return m_control.QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_control.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_control.Release(); }

protected:
    ~ControlPart() = default;

    /// A reference to the control for the duration of a call.
    Microsoft::WRL::ComPtr<IUnknown> Hold() { return &m_control; }

private:
    IUnknown& m_control;
};

}  // namespace velmora
