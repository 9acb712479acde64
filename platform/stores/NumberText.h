#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace velmora {

/// Numbers as text and back: exact, and in every locale as in "C".

/// As printf's "%.*g", with as many digits of 15 to 17 as give the same number again.
std::string NumberText(double number);

/// The whole text as a decimal number, `inf` or `nan`: the nearest `double`, of two the even one.
/// Errors, which leave `number` as it is: invalid_argument for anything else, as spaces or a plus;
/// result_out_of_range for what would be infinite, or zero with a digit other than 0.
std::errc ParseNumber(std::string_view text, double& number);

}  // namespace velmora
