#pragma once

#include "apps/vmhost/Value.h"

#include <wrl/client.h>

#include <string>
#include <string_view>
#include <vector>

namespace velmora::vmhost {

template <class T>
using ComPtr = Microsoft::WRL::ComPtr<T>;

/// What a call by name came to.
struct Outcome {
    HRESULT code = S_OK;
    Value result;
    std::string source;
    std::string description;

    bool Succeeded() const { return SUCCEEDED(code); }
    /// The number that a script sees: 380 for a refused value, 13, 6, 438, ...; 0 for success.
    long Number() const;
    /// "380: Invalid property value"; empty for success.
    std::string Text() const;
};

/// Calls by name on any automation object; arguments in written order.
Outcome GetProperty(IUnknown* object, std::string_view name, std::vector<Value> arguments = {});
/// An object is set by reference where the property can be, otherwise by value.
Outcome PutProperty(IUnknown* object, std::string_view name, const Value& value,
                    std::vector<Value> arguments = {});
Outcome CallMethod(IUnknown* object, std::string_view name, std::vector<Value> arguments = {});

/// One readable property as the object's type information tells it.
struct PropertyInfo {
    std::string name;
    DISPID id = DISPID_UNKNOWN;
    bool writable = false;
};

/// The readable properties without arguments, in the interface's order; hidden ones are left out.
std::vector<PropertyInfo> PropertiesOf(IUnknown* object);

}  // namespace velmora::vmhost
