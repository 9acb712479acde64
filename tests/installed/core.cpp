#include "calendar/CProperties.h"
#include "proppages/PageDefinitions.h"

/// Needs every library of the core.
int main() {
    const velmora::Dates dates(std::make_shared<velmora::DateLocale>(),
                               [] { return velmora::DateOf(45429); });
    velmora::CProperties properties(dates);
    properties.LetMember("ShowWeekend", velmora::Variant(false));
    return properties.Values().showWeekend || velmora::kGeneralPP.fields.empty() ? 1 : 0;
}
