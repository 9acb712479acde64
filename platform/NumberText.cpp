#include "platform/NumberText.h"

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace velmora {
namespace {

/// What the C library writes instead of a point.
char DecimalPoint() { return *std::localeconv()->decimal_point; }

}  // namespace

std::string NumberText(double number) {
    char text[32];
    for (int digits = 15; digits <= 17; ++digits) {
        std::snprintf(text, sizeof text, "%.*g", digits, number);
        if (std::strtod(text, nullptr) == number) break;
    }
    std::string plain = text;
    std::ranges::replace(plain, DecimalPoint(), '.');
    return plain;
}

std::errc ParseNumber(std::string_view text, double& number) {
    constexpr std::string_view kLetters = "0123456789+-.eEinfatyINFATY";  // infinity and nan, too
    const bool isPlain = text.find_first_not_of(kLetters) == std::string_view::npos;
    if (!isPlain || text.empty() || text.front() == '+') return std::errc::invalid_argument;
    std::string local(text);
    std::ranges::replace(local, '.', DecimalPoint());
    char* stop = nullptr;
    errno = 0;
    const double parsed = std::strtod(local.c_str(), &stop);
    if (stop != local.c_str() + local.size()) return std::errc::invalid_argument;
    if (errno == ERANGE && (parsed == 0 || std::isinf(parsed))) {
        return std::errc::result_out_of_range;
    }
    number = parsed;
    return {};
}

}  // namespace velmora
