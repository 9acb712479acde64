#pragma once

#include "hosts/activex/control/ControlPart.h"

#include <ocidl.h>

namespace velmora {

/// The storage that a container has a control keep itself in.
class ControlStorage final : public ControlPart<IPersistStorage> {
public:
    /// What is kept: by a stream of the storage.
    class Control {
    public:
        virtual IPersistStreamInit& Stream() = 0;
        /// `isCurrent`: the storage that it was loaded from holds what it is now.
        virtual void OnSaved(bool isCurrent) = 0;

    protected:
        ~Control() = default;
    };

    ControlStorage(IUnknown& identity, Control& control)
        : ControlPart(identity), m_control(control) {}

    STDMETHODIMP GetClassID(CLSID* clsid) override { return m_control.Stream().GetClassID(clsid); }
    STDMETHODIMP IsDirty() override { return m_control.Stream().IsDirty(); }
    STDMETHODIMP InitNew(IStorage* storage) override;
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage* storage) override;
    STDMETHODIMP HandsOffStorage() override;

private:
    enum class State { None, Normal, NoScribble, HandsOff };

    Control& m_control;
    State m_state = State::None;
    bool m_savedToOwn = false;  // the last save went to the storage that it was loaded from
    Microsoft::WRL::ComPtr<IStorage> m_storage;
};

}  // namespace velmora
