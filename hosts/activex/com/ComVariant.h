#pragma once

#include "hosts/activex/com/ObjectBridge.h"
#include "platform/Automation.h"
#include "platform/Variant.h"

#include <oleauto.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A VARIANT that frees what it holds.
struct OwnedVariant : VARIANT {
    OwnedVariant() noexcept { VariantInit(this); }
    OwnedVariant(const OwnedVariant&) = delete;
    OwnedVariant& operator=(const OwnedVariant&) = delete;
    ~OwnedVariant() { VariantClear(this); }
};

/// A value that a client hands in; references are followed, a missing argument is Empty. Unsigned
/// 32-bit numbers keep their bits, as colours need it. Error 13: arrays and errors. Error 6: an
/// integer outside 32 bits.
Variant FromComVariant(const VARIANT& value, ObjectBridge& objects);
/// Into an initialised VARIANT, which the caller clears.
void ToComVariant(const Variant& value, ObjectBridge& objects, VARIANT& out);

std::string FromBstr(BSTR text);
BSTR ToBstr(std::string_view text);

/// A client's object by the names of its members. Its refusals are errors of the core where they
/// have a published number, else a `ComFailure` (ComError.h).
class ComAutomation final : public AutomationObject {
public:
    /// Keeps both.
    ComAutomation(IDispatch& object, ObjectBridge& objects);

    /// Of the class, else of the interface without a leading underscore.
    std::string_view TypeName() const override;
    Variant GetMember(std::string_view name) const override;
    Variant GetItem(std::int16_t index) const override;
    void LetMember(std::string_view name, const Variant& value) override;
    /// A method without a result that takes those values; arguments in their order. Values come
    /// back in `result` when it is given.
    void CallMember(std::string_view name, std::vector<Variant> arguments, Variant* result) const;

    IDispatch* Client() const noexcept { return m_object.Get(); }

private:
    Microsoft::WRL::ComPtr<IDispatch> m_object;
    std::shared_ptr<ObjectBridge> m_objects;
    mutable std::optional<std::string> m_typeName;  // once it has been asked for
};

}  // namespace velmora
