#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace velmora {

/// A text of the component's own in the language of the locale, from the module's string tables;
/// as it stands where they do not have it.
std::wstring Localized(std::string_view text, LCID locale);
/// For a screen reader, in the language of the user.
std::string ForReaders(std::string_view text);
/// Whether the texts of the locale's language are there and run from right to left.
bool IsRightToLeft(LCID locale);

}  // namespace velmora
