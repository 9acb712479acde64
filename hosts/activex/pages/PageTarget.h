#pragma once

#include "hosts/activex/com/ComVariant.h"
#include "platform/dates/Dates.h"

#include <windows.h>

#include <memory>
#include <string_view>

namespace velmora {

/// The object that a page edits. Text for a date or a number is read here, in the page's locale,
/// and handed over as what it says: a client would read it in a locale of its own. Text that says
/// no such thing is handed over for the client to refuse.
class PageTarget final : public AutomationObject {
public:
    /// `dates` lives longer.
    PageTarget(IDispatch& object, const Dates& dates);

    std::string_view TypeName() const override { return m_object.TypeName(); }
    /// Error 438 for whatever keeps the object from answering.
    Variant GetMember(std::string_view name) const override;
    void LetMember(std::string_view name, const Variant& value) override;

    /// Whether the object's member of that name has that id.
    bool HasMember(std::string_view name, DISPID id) const;

private:
    std::shared_ptr<ObjectBridge> m_objects = std::make_shared<ObjectBridge>();
    ComAutomation m_object;
    const Dates& m_dates;
};

}  // namespace velmora
