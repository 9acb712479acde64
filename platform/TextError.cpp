#include "platform/TextError.h"

#include <utility>

namespace velmora {

TextError::TextError(std::string text)
    : m_text(std::make_shared<const std::string>(std::move(text))) {}

}  // namespace velmora
