#pragma once

#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/control/DayObjects.h"
#include "hosts/activex/control/EventRelay.h"
#include "hosts/activex/control/OleControl.h"

#include <atomic>
#include <memory>
#include <span>
#include <string_view>

namespace velmora {

/// What a control with a default interface is besides that: its references, its objects, and how
/// its published members run.
class PublishedControl : public OleControl {
protected:
    using OleControl::OleControl;

    ObjectBridge& Objects() override { return *m_objects; }

    ULONG CountUp() noexcept { return static_cast<ULONG>(++m_references); }
    /// 0: the object has to go; what its destructor calls may count.
    ULONG CountDown() noexcept;

    /// Runs a published member. Whatever it calls may drop the last reference.
    template <class Body>
    HRESULT RunMember(Body body) noexcept {
        const Hold hold(*this);
        return Guard([&] {
            EnsureInitialized();
            body();
        });
    }
    /// The same for a member with a result, which is zero after a failure.
    template <class Out, class Body>
    HRESULT RunGetter(Out* result, Body body) noexcept {
        if (!result) return E_POINTER;
        *result = {};
        return RunMember([&] { body(*result); });
    }
    /// Error 387: somebody who is notified of the property refuses a change of it.
    void AskForEdit(std::string_view property);

    /// Passes an event of the core on, under its published number.
    template <class... Args>
    void Relay(Event<Args...>& event, DISPID id) {
        RelayEvent(event, Objects(), Raiser{*this, id});
    }

private:
    struct Raiser {
        PublishedControl& control;
        DISPID id;

        void operator()(std::span<VARIANT> values) const { control.Raise(id, values); }
    };

    std::shared_ptr<ControlObjects> m_objects = std::make_shared<ControlObjects>();
    std::atomic<long> m_references = 1;
    ModuleLock m_lock;
};

}  // namespace velmora
