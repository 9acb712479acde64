#pragma once

#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/DayObjects.h"
#include "hosts/activex/control/OleControl.h"
#include "platform/Automation.h"

#include <VelmoraCalendarInterfaces.h>

#include <atomic>
#include <memory>
#include <string_view>
#include <type_traits>

namespace velmora {

/// `OleDrag` is published, and the core asks its container for it by the same name: each way of it
/// has a class of its own.
template <class Interface>
class DragMethod : public Dual<Interface> {
public:
    STDMETHODIMP OleDrag() override { return OnOleDrag(); }

protected:
    virtual HRESULT OnOleDrag() = 0;
};

class DragHosting : public OleControl {
public:
    void OleDrag() override { Drag(); }

protected:
    using OleControl::OleControl;
    virtual void Drag() = 0;
};

/// A control as a COM object: its references, its default interface, and the way of a property
/// between that and the core's property of the same name.
template <class Interface>
class PublishedControl : public DragMethod<Interface>, public DragHosting {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = Find(iid);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++m_references); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --m_references;
        if (left == 0) {
            m_references = 1;  // what the destructor calls may count
            delete this;
        }
        return static_cast<ULONG>(left);
    }

protected:
    using DragHosting::DragHosting;

    /// The core's control, which has every published property by name.
    virtual AutomationObject& Core() = 0;
    ObjectBridge& Objects() override { return *m_objects; }

    /// Runs a published member. Whatever it calls may drop the last reference.
    template <class Body>
    HRESULT Do(Body body) {
        const Hold hold(*this);
        return Guard([&] {
            EnsureInitialized();
            body();
        });
    }
    template <class Out>
    HRESULT Get(std::string_view name, Out* value) {
        return Give(value, [&](Out& out) { Convert(Core().GetMember(name), out); });
    }
    template <class Out, class Body>
    HRESULT Give(Out* value, Body body) {
        if (!value) return E_POINTER;
        *value = {};
        return Do([&] { body(*value); });
    }
    /// Error 387: somebody who is notified of the property refuses the change.
    template <class In>
    HRESULT Let(std::string_view name, In value) {
        return Do([&] {
            if (!RequestEdit(name)) throw ComFailure(HresultOf(kSetNotPermitted), kRefusedEdit);
            Core().LetMember(name, ToCore(value));
        });
    }
    HRESULT LetFlag(std::string_view name, VARIANT_BOOL value) {
        return Do([&] {
            if (!RequestEdit(name)) throw ComFailure(HresultOf(kSetNotPermitted), kRefusedEdit);
            Core().LetMember(name, value != VARIANT_FALSE);
        });
    }

private:
    static constexpr auto kSetNotPermitted = static_cast<ErrorNumber>(387);
    static constexpr const char* kRefusedEdit = "Set not permitted";

    void* Find(REFIID iid) {
        auto* const dual = static_cast<Interface*>(this);
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Interface)) {
            return dual;
        }
        return FindOle(iid);
    }

    // Out of the core.

    void Convert(const Variant& value, DATE& out) { out = FromVariant<Date>(value).value; }
    /// 16-bit numbers and Booleans have the same type here.
    void Convert(const Variant& value, short& out) {
        const auto* flag = value.As<bool>();
        out = flag ? (*flag ? VARIANT_TRUE : VARIANT_FALSE) : FromVariant<std::int16_t>(value);
    }
    void Convert(const Variant& value, long& out) { out = ToInt32(value); }
    void Convert(const Variant& value, ::OLE_COLOR& out) {
        out = static_cast<::OLE_COLOR>(ToInt32(value));
    }
    void Convert(const Variant& value, BSTR& out) {
        const auto* text = value.As<std::string>();
        if (!text) RaiseTypeMismatch();
        out = ToBstr(*text);
    }
    void Convert(const Variant& value, VARIANT& out) { ToComVariant(value, *m_objects, out); }
    template <class Out>
    void Convert(const Variant& value, Out& out) {
        if constexpr (std::is_enum_v<Out>) {
            out = static_cast<Out>(ToInt32(value));
        } else {
            const auto object = m_objects->ToClient(ToObject<Object>(value));
            if (object) Require(object->QueryInterface(IID_PPV_ARGS(&out)));
        }
    }

    // Into the core.

    template <class In>
    Variant ToCore(const In& value) {
        if constexpr (std::is_enum_v<In> || std::is_same_v<In, long> ||
                      std::is_same_v<In, ::OLE_COLOR>) {
            return static_cast<std::int32_t>(value);
        } else if constexpr (std::is_same_v<In, DATE>) {
            return Date(value);
        } else if constexpr (std::is_same_v<In, BSTR>) {
            return FromBstr(value);
        } else if constexpr (std::is_same_v<In, VARIANT>) {
            return FromComVariant(value, *m_objects);
        } else if constexpr (std::is_pointer_v<In>) {
            return m_objects->FromClient(value);
        } else {
            return std::int16_t{value};
        }
    }

    std::shared_ptr<ControlObjects> m_objects = std::make_shared<ControlObjects>();
    std::atomic<long> m_references = 1;
    ModuleLock m_lock;
};

}  // namespace velmora
