#include "platform/Variant.h"

namespace velmora {

VarType Variant::Type() const noexcept {
    static constexpr VarType kTypes[] = {VarType::Empty, VarType::Null,   VarType::Int16,
                                         VarType::Int32, VarType::Double, VarType::Date,
                                         VarType::Text,  VarType::Object, VarType::Boolean};
    return kTypes[m_value.index()];
}

}  // namespace velmora
