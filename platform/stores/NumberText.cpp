#include "platform/stores/NumberText.h"

#include <charconv>
#include <iterator>

namespace velmora {

std::string NumberText(double number) {
    char text[32];
    for (int digits = 15;; ++digits) {
        char* const end =
            std::to_chars(text, std::end(text), number, std::chars_format::general, digits).ptr;
        double back = 0;
        if (digits == 17 ||
            (std::from_chars(text, end, back).ec == std::errc() && back == number)) {
            return std::string(text, end);
        }
    }
}

std::errc ParseNumber(std::string_view text, double& number) {
    const char* const end = text.data() + text.size();
    double parsed = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, parsed);
    if (stop != end) return std::errc::invalid_argument;
    if (error == std::errc()) number = parsed;
    return error;
}

}  // namespace velmora
