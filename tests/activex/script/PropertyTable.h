#pragma once

#include <string>
#include <vector>

namespace velmora::vmhost {

struct Refusal {
    std::string literal;  // VBScript
    long number;          // of the error
};

/// A published property as a script meets it.
struct ScriptProperty {
    std::string name;
    std::string first;    // of a new control, as `shown`; "" where it depends on the day
    std::string literal;  // another value, in VBScript
    std::string shown;    // how it reads back
    std::vector<Refusal> refused;
    bool asHex = false;  // colours read by Hex
};

std::vector<ScriptProperty> CalendarProperties();
std::vector<ScriptProperty> BoxProperties();

}  // namespace velmora::vmhost
