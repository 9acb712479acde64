#pragma once

#include "apps/vmhost/Ambients.h"
#include "tests/activex/support/ClientTest.h"
#include "tests/support/PropertyTable.h"

#include <cmath>
#include <span>
#include <string>

/// The table of properties, by a component's automation interface.
namespace velmora::vmhost {

using test::Kind;
using test::PropertyRow;
using Rows = std::span<const PropertyRow>;

struct PublishedClass {
    const char* name;
    Rows rows;
};
inline constexpr PublishedClass kClasses[] = {{kCalendarClass, test::kCalendarRows},
                                              {kBoxClass, test::kBoxRows}};

inline constexpr double kTwips = 15;  // of a pixel: the form's unit for the drop-down's extent

inline Value ValueOf(const PropertyRow& row, double number) {
    switch (row.kind) {
        case Kind::Flag: return number != 0;
        case Kind::Limit:
        case Kind::Day:
        case Kind::Moment: return Value::Date(number);
        case Kind::Font: return MakeFont("Tahoma", static_cast<int>(number)).Get();
        case Kind::Icon: return MakePicture(PICTYPE_ICON).Get();
        case Kind::Extent: return number * kTwips;
        case Kind::Format: return test::kFormats[static_cast<std::size_t>(number)];
        case Kind::Color: return Value::Color(static_cast<unsigned long>(number));
        default: return number;
    }
}

/// The property's value as the table's number: a font by its whole points, an icon by its type.
inline double ReadBack(IUnknown* control, const PropertyRow& row) {
    Value value = GetProperty(control, row.name).result;
    if (row.kind == Kind::Day) {  // which is a text in the user's form
        const Value day = GetProperty(control, "SelectedDay").result;
        value = GetProperty(day.Object(), "DayDate").result;
    }
    if (row.kind == Kind::Font) {
        return std::floor(GetProperty(value.Object(), "Size").result.Real() + 0.5);
    }
    if (row.kind == Kind::Icon) {
        return value.Object() ? GetProperty(value.Object(), "Type").result.Real() : 0;
    }
    if (row.kind == Kind::Format) {
        const auto* const found =
            std::find(std::begin(test::kFormats), std::end(test::kFormats), value.Text());
        return static_cast<double>(found - test::kFormats);
    }
    if (row.kind == Kind::Flag) return value.Number() == 0 ? 0 : 1;
    if (row.kind == Kind::Color) return static_cast<unsigned long>(value.Number());
    return row.kind == Kind::Extent ? value.Real() / kTwips : value.Real();
}

/// What `ReadBack` gives after `ValueOf`.
inline double Shown(const PropertyRow& row, double number) {
    if (row.kind == Kind::Icon) return PICTYPE_ICON;
    return row.kind == Kind::Font ? std::floor(number) : number;
}

inline std::string FaceOf(IUnknown* control, Rows rows) {
    std::string face;
    for (const PropertyRow& row : rows) {
        face += std::string(row.name) + " = " + std::to_string(ReadBack(control, row)) + '\n';
    }
    return face;
}

}  // namespace velmora::vmhost
