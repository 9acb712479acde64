#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// Between the core's UTF-8 and the system's UTF-16. What is not valid becomes U+FFFD.
std::wstring ToWide(std::string_view text);
std::string ToUtf8(std::wstring_view text);

}  // namespace velmora
