#pragma once

#include "platform/FontAndPicture.h"
#include "platform/TextError.h"
#include "platform/Variant.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

/// Text that is no value, or a value too large for text. `what()` gives the reason.
class ValueTextError : public TextError {
    using TextError::TextError;
};

inline constexpr std::size_t kMostStoredPixels = 16u << 20;  // of a picture: 64 MiB

/// A value as one line of ASCII and UTF-8, without any locale: its type, then what it holds, as in
///   int32 -5    date 43905.5    text "a \"b\"\n"    font "Sans Serif" 9 bold    nothing
/// docs/saved-properties.md lists all of them. Every value comes back as it was; a picture whose
/// pixels do not fill it comes back without pixels.
/// Error 13: an object other than a font, a picture or none. ValueTextError: too many pixels.
std::string FormatValue(const Variant& value);
/// ValueTextError: not what `FormatValue` makes, apart from spaces between the parts.
Variant ParseValue(std::string_view text);

/// Text in double quotes, on one line.
std::string QuotedText(std::string_view text);
/// Takes the quoted text that `rest` begins with off it. ValueTextError: there is none.
std::string TakeQuotedText(std::string_view& rest);

}  // namespace velmora
