#include "hosts/activex/com/ComBag.h"

#include "hosts/activex/com/ComError.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/AutomationError.h"
#include "platform/stores/PropertiesText.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <utility>
#include <vector>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

constexpr std::size_t kReadAtOnce = 1 << 16;  // damaged data must not ask for what is not there

/// The bag of a script: its objects follow no interface.
class ScriptBag final : public PropertyBag {
public:
    ScriptBag(IDispatch& object, ObjectBridge& objects) : m_object(object, objects) {}

    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override {
        Variant value;
        try {
            m_object.CallMember("ReadProperty", {std::string(name), defaultValue}, &value);
        } catch (const std::exception&) {
            return defaultValue;
        }
        return value.Type() == VarType::Empty ? defaultValue : value;
    }

    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override {
        m_object.CallMember("WriteProperty", {std::string(name), value, defaultValue}, nullptr);
    }

private:
    ComAutomation m_object;
};

/// A bag that a client has handed in, kept while it is used.
class ClientBag final : public PropertyBag {
public:
    ClientBag(ComPtr<IPropertyBag> bag, ObjectBridge& objects)
        : m_owner(std::move(bag)), m_bag(*m_owner.Get(), objects) {}

    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override {
        return m_bag.ReadProperty(name, defaultValue);
    }
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override {
        m_bag.WriteProperty(name, value, defaultValue);
    }

private:
    ComPtr<IPropertyBag> m_owner;
    ComBag m_bag;
};

void WriteBytes(IStream& stream, const void* bytes, std::size_t count) {
    ULONG written = 0;
    Require(stream.Write(bytes, static_cast<ULONG>(count), &written));
    if (written != count) throw ComFailure(STG_E_MEDIUMFULL);
}

void ReadBytes(IStream& stream, void* bytes, std::size_t count) {
    ULONG read = 0;
    Require(stream.Read(bytes, static_cast<ULONG>(count), &read));
    if (read != count) throw ComFailure(STG_E_READFAULT, "The saved properties are damaged");
}

}  // namespace

Variant ComBag::ReadProperty(std::string_view name, const Variant& defaultValue) {
    const std::wstring wide = ToWide(name);
    OwnedVariant value;
    if (FAILED(m_bag.Read(wide.c_str(), &value, m_log))) return defaultValue;
    // Bags of text, as that of a web page, have "True" and "False".
    if (V_VT(&value) == VT_BSTR && defaultValue.Type() == VarType::Boolean) {
        VariantChangeType(&value, &value, 0, VT_BOOL);
    }
    try {
        return FromComVariant(value, m_objects);
    } catch (const AutomationError&) {
        return defaultValue;
    }
}

void ComBag::WriteProperty(std::string_view name, const Variant& value,
                           const Variant& defaultValue) {
    if (!m_savesAll && IsDefaultValue(value, defaultValue)) return;
    const std::wstring wide = ToWide(name);
    OwnedVariant written;
    ToComVariant(value, m_objects, written);
    Require(m_bag.Write(wide.c_str(), &written));
}

std::unique_ptr<PropertyBag> BagOfClient(const VARIANT& object, ObjectBridge& objects) {
    OwnedVariant plain;
    if (FAILED(VariantCopyInd(&plain, const_cast<VARIANT*>(&object)))) RaiseTypeMismatch();
    const bool isObject = V_VT(&plain) == VT_DISPATCH || V_VT(&plain) == VT_UNKNOWN;
    if (!isObject || !V_UNKNOWN(&plain)) RaiseTypeMismatch();
    const ComPtr<IUnknown> client = V_UNKNOWN(&plain);
    ComPtr<IPropertyBag> bag;
    if (SUCCEEDED(client.As(&bag))) return std::make_unique<ClientBag>(std::move(bag), objects);
    ComPtr<IDispatch> dispatch;
    if (FAILED(client.As(&dispatch))) RaiseTypeMismatch();
    return std::make_unique<ScriptBag>(*dispatch.Get(), objects);
}

void WriteBag(const MemoryBag& values, IStream& stream) {
    MemoryBag stored;
    for (const NamedValue& entry : values.Values()) {
        const auto* object = entry.value.As<ObjectRef>();
        const auto picture = object ? std::dynamic_pointer_cast<StdPicture>(*object) : nullptr;
        stored.WriteProperty(entry.name,
                             picture ? Variant(ObjectRef(WithPixels(picture))) : entry.value, {});
    }
    const std::string text = FormatProperties(stored);
    const auto length = static_cast<std::uint32_t>(text.size());  // under kLargestPropertyFile
    WriteBytes(stream, &length, sizeof length);
    WriteBytes(stream, text.data(), text.size());
}

MemoryBag ReadBag(IStream& stream) {
    std::uint32_t length = 0;
    ReadBytes(stream, &length, sizeof length);
    if (length > kLargestPropertyFile) {
        throw ComFailure(STG_E_INVALIDHEADER, "The saved properties are damaged");
    }
    std::string text;
    while (text.size() < length) {
        const std::size_t part = std::min<std::size_t>(kReadAtOnce, length - text.size());
        const std::size_t before = text.size();
        text.resize(before + part);
        ReadBytes(stream, text.data() + before, part);
    }
    return ParseProperties(text);
}

}  // namespace velmora
