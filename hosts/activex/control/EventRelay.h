#pragma once

#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/com/ObjectBridge.h"
#include "platform/Events.h"
#include "platform/Hosting.h"
#include "platform/dates/Date.h"

#include <oleauto.h>
#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace velmora {

/// An argument of an event, handed to clients by reference: `Refer` makes it, `Return` brings back
/// what they have changed. An object of another class than it must have is not taken.
class EventArgument {
public:
    VARIANT Refer(std::int16_t& value, ObjectBridge&) {
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_I2;
        V_I2REF(&argument) = &value;
        return argument;
    }
    void Return(std::int16_t&, ObjectBridge&) {}

    VARIANT Refer(float& value, ObjectBridge&) {
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_R4;
        V_R4REF(&argument) = &value;
        return argument;
    }
    void Return(float&, ObjectBridge&) {}

    VARIANT Refer(Date& value, ObjectBridge&) {
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_DATE;
        V_DATEREF(&argument) = &value.value;
        return argument;
    }
    void Return(Date&, ObjectBridge&) {}

    VARIANT Refer(std::int32_t& value, ObjectBridge&) {
        m_long = value;
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_I4;
        V_I4REF(&argument) = &m_long;
        return argument;
    }
    void Return(std::int32_t& value, ObjectBridge&) { value = static_cast<std::int32_t>(m_long); }

    VARIANT Refer(bool& value, ObjectBridge&) {
        m_flag = value ? VARIANT_TRUE : VARIANT_FALSE;
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_BOOL;
        V_BOOLREF(&argument) = &m_flag;
        return argument;
    }
    void Return(bool& value, ObjectBridge&) { value = m_flag != VARIANT_FALSE; }

    VARIANT Refer(DataRef& value, ObjectBridge& objects) {
        m_object = objects.ToClient(value).Detach();
        VARIANT argument;
        V_VT(&argument) = VT_BYREF | VT_DISPATCH;
        V_DISPATCHREF(&argument) = &m_object;
        return argument;
    }
    void Return(DataRef& value, ObjectBridge& objects) {
        Microsoft::WRL::ComPtr<IDispatch> object;
        object = Adopt(std::exchange(m_object, nullptr));
        const ObjectRef core = objects.FromClient(object.Get());
        auto data = std::dynamic_pointer_cast<DataObject>(core);
        if (data || !core) value = std::move(data);
    }

private:
    LONG m_long = 0;
    VARIANT_BOOL m_flag = VARIANT_FALSE;
    IDispatch* m_object = nullptr;
};

/// A handler of the core's events, whatever arguments they have: `Raise` gets these in the order of
/// the declaration.
template <class Raise>
struct EventRelay {
    ObjectBridge& objects;
    Raise raise;

    template <class... Args>
    void operator()(Args&... args) const {
        Pass(std::index_sequence_for<Args...>(), args...);
    }

private:
    template <std::size_t... kIndex, class... Args>
    void Pass(std::index_sequence<kIndex...>, Args&... args) const {
        [[maybe_unused]] std::array<EventArgument, sizeof...(Args)> arguments;
        std::array<VARIANT, sizeof...(Args)> variants{arguments[kIndex].Refer(args, objects)...};
        raise(std::span<VARIANT>(variants));
        (arguments[kIndex].Return(args, objects), ...);
    }
};

/// Passes an event of the core on.
template <class Raise, class... Args>
void RelayEvent(Event<Args...>& event, ObjectBridge& objects, Raise raise) {
    event.Connect(EventRelay<Raise>{objects, std::move(raise)});
}

}  // namespace velmora
