#include "model/VmDay.h"

#include "model/VmDays.h"
#include "platform/AutomationError.h"

#include <utility>

namespace velmora {

void VmDay::BackColor(const Variant& value) { SetColor(&VmDay::m_backColor, value, "BackColor"); }
void VmDay::ForeColor(const Variant& value) { SetColor(&VmDay::m_foreColor, value, "ForeColor"); }

void VmDay::SetColor(Variant VmDay::*color, const Variant& value, std::string_view property) {
    const VarType type = value.Type();
    if (type != VarType::Empty && type != VarType::Null && type != VarType::Int32) {
        throw AutomationError(ErrorNumber::InvalidPropertyValue);
    }
    this->*color = value;
    m_dirty = true;
    Changed(property);
}

void VmDay::Caption(std::string value) {
    m_caption = std::move(value);
    m_dirty = true;
    Changed("Caption");
}

void VmDay::Picture(PictureRef value) {
    m_picture = std::move(value);
    m_dirty = true;
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
