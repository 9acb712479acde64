#pragma once

#include "hosts/activex/com/ComPicture.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/control/DayObjects.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/support/PropertyCases.h"

/// The table of properties, by a component's automation interface.
namespace velmora::vmhost {

using test::PropertyRow;

struct PublishedClass {
    const char* name;
    test::Rows rows;
};
inline constexpr PublishedClass kClasses[] = {{kCalendarClass, test::kCalendarRows},
                                              {kBoxClass, test::kBoxRows}};

/// A control as a client has it, with the core's values, fonts and pictures.
class Automated {
public:
    explicit Automated(ControlSite& site) : m_control(*Dispatch(site).Get(), *m_objects) {}

    Variant GetMember(std::string_view name) const {
        const Variant value = m_control.GetMember(name);
        if (value.Type() != VarType::Object) return value;
        const auto picture = std::dynamic_pointer_cast<StdPicture>(*value.As<ObjectRef>());
        return picture ? Variant(ObjectRef(WithPixels(picture))) : value;
    }
    void LetMember(std::string_view name, const Variant& value) {
        m_control.LetMember(name, value);
    }
    /// A box's with its time; a calendar's `DateValue` is a text in the user's form.
    velmora::Date SelectedDate() const {
        const Variant date = GetMember("DateValue");
        if (const auto* exact = date.As<velmora::Date>()) return *exact;
        const Value day = GetProperty(m_control.Client(), "SelectedDay").result;
        return velmora::Date(GetProperty(day.Object(), "DayDate").result.Real());
    }

private:
    static ComPtr<IDispatch> Dispatch(ControlSite& site) {
        ComPtr<IDispatch> dispatch;
        site.Control()->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf()));
        return dispatch;
    }

    std::shared_ptr<ControlObjects> m_objects = std::make_shared<ControlObjects>();
    ComAutomation m_control;
};

}  // namespace velmora::vmhost
