#include "model/VmDay.h"

#include "model/VmDays.h"
#include "platform/AutomationError.h"

#include <utility>

namespace velmora {

const VmDay::Decoration VmDay::kNone;

VmDay::Decoration& VmDay::Own() {
    if (!m_decoration) m_decoration = std::make_unique<Decoration>();
    return *m_decoration;
}

void VmDay::BackColor(const Variant& value) {
    SetColor(&Decoration::backColor, value, "BackColor");
}

void VmDay::ForeColor(const Variant& value) {
    SetColor(&Decoration::foreColor, value, "ForeColor");
}

void VmDay::SetColor(Variant Decoration::*color, const Variant& value, std::string_view property) {
    const VarType type = value.Type();
    if (type != VarType::Empty && type != VarType::Null && type != VarType::Int32) {
        throw AutomationError(ErrorNumber::InvalidPropertyValue);
    }
    Own().*color = value;
    Changed(property);
}

void VmDay::Caption(std::string value) {
    Own().caption = std::move(value);
    Changed("Caption");
}

void VmDay::Picture(PictureRef value) {
    Own().picture = std::move(value);
    Changed("Picture");
}

void VmDay::DayDate(Date value) {
    m_dayDate = value;
    Changed("DayDate");
}

void VmDay::Changed(std::string_view property) {
    if (const auto parent = m_parent.lock()) parent->RaiseDayChanged(*this, property);
}

}  // namespace velmora
