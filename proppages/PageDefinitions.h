#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace velmora {

/// What a field of a property page is to its user, and how its text is checked.
enum class FieldKind {
    List,      // one of the named values
    CheckBox,  // True or False
    Date,      // date text; red while it is none, not to be left blank
    Number,    // decimal text; red while `IsNumber` finds it is none
    Format,    // a date format; may be blank
    Color,     // an OLE_COLOR that is chosen
    Font,      // a font that is chosen
};

/// One field of a page, in the order of loading, writing and the tab key.
struct FieldDefinition {
    FieldKind kind;
    std::string_view name;                         // published name of the control
    std::string_view label;                        // the "&" marks its access key
    std::string_view property;                     // what it edits
    std::span<const std::string_view> items = {};  // of a list, in the order of the values
    int first = 0;                                 // the value of the first item
    std::string_view boxProperty = {};             // where a date box has another name for it
    std::size_t boxItems = 0;                      // how many items a date box has; 0: all
};

struct PageDefinition {
    std::string_view title;
    std::string_view help;  // a sentence on what it edits
    std::span<const FieldDefinition> fields;
};

/// Appearance, captions, selectors, the range of dates and the date; for a date box the date
/// format.
extern const PageDefinition kGeneralPP;
/// The enabled state and the drop-down size of a date box.
extern const PageDefinition kDropDownPP;
/// How the day cells look, and which day begins the week.
extern const PageDefinition kDayPP;
/// All colours and fonts, for hosts whose system has no pages for them.
extern const PageDefinition kLookPP;

}  // namespace velmora
