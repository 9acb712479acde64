#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A long text cut to what a rectangle `width` pixels wide shows of it, for `DrawTextA` with these
/// flags in one line; nothing when the whole text is short enough to be laid out. The time does not
/// depend on the length of the text, which may be damaged UTF-8.
///
/// At the left it looks as the whole, at the right too but for a fraction of a pixel, which the
/// width of the whole decides. Both ends are kept for either: what is written from right to left
/// shows its end at the left. Of centred text the middle is kept, by its bytes, so it may be moved
/// by what the two halves that are left out differ in width.
std::optional<std::string> CutToWidth(std::string_view text, int width, std::uint32_t flags);

}  // namespace velmora
