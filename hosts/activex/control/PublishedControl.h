#pragma once

#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/control/DayObjects.h"
#include "hosts/activex/control/EventRelay.h"
#include "hosts/activex/control/OleControl.h"
#include "platform/Automation.h"

#include <VelmoraCalendarInterfaces.h>

#include <atomic>
#include <memory>
#include <span>
#include <type_traits>

namespace velmora {

/// What a control with a default interface is besides that: its references, its objects, and the
/// way of a property between the interface and the core's property of the same name.
class PublishedControl : public OleControl {
public:
    /// Published under the same name, which the default interface takes.
    void OleDrag() final { Drag(); }

protected:
    using OleControl::OleControl;

    /// The core's control, which has every published property by name.
    virtual AutomationObject& Core() = 0;
    virtual void Drag() = 0;
    ObjectBridge& Objects() override { return *m_objects; }

    ULONG Count() noexcept { return static_cast<ULONG>(++m_references); }
    /// 0: the object has to go; what its destructor calls may count.
    ULONG Uncount() noexcept;

    /// Runs a published member. Whatever it calls may drop the last reference.
    template <class Body>
    HRESULT Do(Body body) noexcept {
        return Run([](void* object) { (*static_cast<Body*>(object))(); }, &body);
    }
    template <class Out, class Body>
    HRESULT Give(Out* value, Body body) noexcept {
        if (!value) return E_POINTER;
        *value = {};
        return Do([&] { body(*value); });
    }

    // Out of the core.

    HRESULT Get(const char* name, DATE* value) noexcept;
    /// 16-bit numbers and Booleans have the same type here.
    HRESULT Get(const char* name, short* value) noexcept;
    HRESULT Get(const char* name, BSTR* value) noexcept;
    HRESULT Get(const char* name, VARIANT* value) noexcept;
    HRESULT Get(const char* name, long* value) noexcept { return GetBits(name, value); }
    HRESULT Get(const char* name, ::OLE_COLOR* value) noexcept { return GetBits(name, value); }
    template <class Enumeration>
    HRESULT Get(const char* name, Enumeration* value) noexcept {
        static_assert(std::is_enum_v<Enumeration> && sizeof(Enumeration) == sizeof(long));
        return GetBits(name, value);
    }
    template <class Interface>
    HRESULT Get(const char* name, Interface** value) noexcept {
        return GetInterface(name, __uuidof(Interface), reinterpret_cast<void**>(value));
    }

    // Into the core. Error 387: somebody who is notified of the property refuses the change.

    HRESULT Let(const char* name, const VARIANT& value) noexcept;
    HRESULT Let(const char* name, DATE value) noexcept;
    HRESULT Let(const char* name, short value) noexcept;
    HRESULT Let(const char* name, long value) noexcept;
    HRESULT Let(const char* name, BSTR value) noexcept;
    HRESULT Let(const char* name, IDispatch* value) noexcept;
    HRESULT LetFlag(const char* name, VARIANT_BOOL value) noexcept;
    HRESULT Let(const char* name, ::OLE_COLOR value) noexcept {
        return Let(name, static_cast<long>(value));
    }
    template <class Enumeration>
    std::enable_if_t<std::is_enum_v<Enumeration>, HRESULT> Let(const char* name,
                                                               Enumeration value) noexcept {
        return Let(name, static_cast<long>(value));
    }

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

    HRESULT Run(void (*body)(void*), void* object) noexcept;
    /// A 32-bit number; `value` is null or has room for it.
    HRESULT GetBits(const char* name, void* value) noexcept;
    HRESULT GetInterface(const char* name, REFIID iid, void** value) noexcept;

    std::shared_ptr<ControlObjects> m_objects = std::make_shared<ControlObjects>();
    std::atomic<long> m_references = 1;
    ModuleLock m_lock;
};

}  // namespace velmora
