#include "hosts/activex/control/PublishedControl.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"

#include <cstring>

namespace velmora {
namespace {

constexpr auto kSetNotPermitted = static_cast<ErrorNumber>(387);

}  // namespace

ULONG PublishedControl::Uncount() noexcept {
    const long left = --m_references;
    if (left == 0) m_references = 1;
    return static_cast<ULONG>(left);
}

HRESULT PublishedControl::Run(void (*body)(void*), void* object) noexcept {
    const Hold hold(*this);
    return Guard([&] {
        EnsureInitialized();
        body(object);
    });
}

HRESULT PublishedControl::Get(const char* name, DATE* value) noexcept {
    return Give(value, [&](DATE& out) { out = FromVariant<Date>(Core().GetMember(name)).value; });
}

HRESULT PublishedControl::Get(const char* name, short* value) noexcept {
    return Give(value, [&](short& out) {
        const Variant member = Core().GetMember(name);
        const auto* flag = member.As<bool>();
        out = flag ? (*flag ? VARIANT_TRUE : VARIANT_FALSE) : FromVariant<std::int16_t>(member);
    });
}

HRESULT PublishedControl::Get(const char* name, BSTR* value) noexcept {
    return Give(value, [&](BSTR& out) {
        const Variant member = Core().GetMember(name);
        const auto* text = member.As<std::string>();
        if (!text) RaiseTypeMismatch();
        out = ToBstr(*text);
    });
}

HRESULT PublishedControl::Get(const char* name, VARIANT* value) noexcept {
    return Give(value,
                [&](VARIANT& out) { ToComVariant(Core().GetMember(name), *m_objects, out); });
}

HRESULT PublishedControl::GetBits(const char* name, void* value) noexcept {
    if (!value) return E_POINTER;
    std::int32_t number = 0;
    const HRESULT done = Do([&] { number = ToInt32(Core().GetMember(name)); });
    std::memcpy(value, &number, sizeof number);
    return done;
}

HRESULT PublishedControl::GetInterface(const char* name, REFIID iid, void** value) noexcept {
    return Give(value, [&](void*& out) {
        const auto object = m_objects->ToClient(ToObject<Object>(Core().GetMember(name)));
        if (object) Require(object->QueryInterface(iid, &out));
    });
}

HRESULT PublishedControl::Let(const char* name, const VARIANT& value) noexcept {
    return Do([&] {
        if (!RequestEdit(name)) throw ComFailure(HresultOf(kSetNotPermitted), "Set not permitted");
        Core().LetMember(name, FromComVariant(value, *m_objects));
    });
}

HRESULT PublishedControl::Let(const char* name, DATE value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_DATE;
    V_DATE(&variant) = value;
    return Let(name, variant);
}

HRESULT PublishedControl::Let(const char* name, short value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_I2;
    V_I2(&variant) = value;
    return Let(name, variant);
}

HRESULT PublishedControl::Let(const char* name, long value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = value;
    return Let(name, variant);
}

HRESULT PublishedControl::Let(const char* name, BSTR value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = value;
    return Let(name, variant);
}

HRESULT PublishedControl::Let(const char* name, IDispatch* value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_DISPATCH;
    V_DISPATCH(&variant) = value;
    return Let(name, variant);
}

HRESULT PublishedControl::LetFlag(const char* name, VARIANT_BOOL value) noexcept {
    VARIANT variant;
    V_VT(&variant) = VT_BOOL;
    V_BOOL(&variant) = value;
    return Let(name, variant);
}

}  // namespace velmora
