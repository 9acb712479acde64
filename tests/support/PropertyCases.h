#pragma once

#include "platform/Automation.h"
#include "platform/stores/PropertiesText.h"
#include "tests/support/PropertyTable.h"
#include "tests/support/Refusals.h"
#include "tests/support/StoreCases.h"

#include <span>

/// The table of properties, walked over anything of the core that has them by name.
namespace velmora::test {

using Rows = std::span<const PropertyRow>;

inline Variant ValueOf(const PropertyRow& row, double number) {
    switch (row.form) {
        case Form::Boolean: return number != 0;
        case Form::Date: return Date(number);
        case Form::Text: return std::string(kFormats[static_cast<std::size_t>(number)]);
        case Form::Object: break;
        case Form::Integer: return static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
    }
    if (row.kind == Kind::Icon) return ObjectRef(IconOf(static_cast<int>(number), 1));
    auto font = std::make_shared<StdFont>();
    font->size = number;
    return ObjectRef(font);
}

/// The value and, for a whole number, what else rounds or reads to it.
inline std::vector<Variant> FormsOf(const PropertyRow& row, double number) {
    std::vector<Variant> forms{ValueOf(row, number)};
    if (row.kind == Kind::Choice || row.kind == Kind::Color) {
        forms.insert(forms.end(), {number - 0.4, number + 0.4,
                                   std::to_string(static_cast<std::int64_t>(number))});
    }
    if (row.kind == Kind::Flag) forms.push_back(number == 0 ? 0.0 : -1.0);
    return forms;
}

/// Values of types that it has no use for.
inline std::vector<Variant> WrongTypes(const PropertyRow& row) {
    const auto bitmap = std::make_shared<StdPicture>(PictureType::Bitmap, Size{}, nullptr);
    switch (row.kind) {
        case Kind::Format: return {5.0, Null{}};
        case Kind::Icon: return {"text", 5.0, ObjectRef(std::make_shared<StdFont>())};
        case Kind::Font: return {"text", 5.0, ObjectRef(bitmap)};
        default: return {"text", Null{}, ObjectRef(std::make_shared<StdFont>())};
    }
}

/// A value as the table's number.
inline double NumberIn(const PropertyRow& row, const Variant& value) {
    if (row.kind == Kind::Color) return static_cast<std::uint32_t>(ToInt32(value));
    if (row.kind == Kind::Flag) return ToBoolean(value) ? 1 : 0;
    if (row.kind == Kind::Format) {
        return static_cast<double>(std::ranges::find(kFormats, *value.As<std::string>()) -
                                   kFormats);
    }
    if (row.kind == Kind::Font) {
        const auto font = ToObject<StdFont>(value);
        return font ? font->size : 0;
    }
    if (row.kind == Kind::Icon) {
        const auto icon = ToObject<StdPicture>(value);
        return icon ? icon->Image()->width : 0;
    }
    return ToDouble(value);
}

/// A property of a control; a calendar gives its date as text alone.
template <class Control>
double ReadBack(const Control& control, const PropertyRow& row) {
    if constexpr (requires { control.SelectedDate(); }) {
        if (row.name == "DateValue") return control.SelectedDate().value;
    }
    return NumberIn(row, control.GetMember(row.name));
}

/// All of them, a line each.
template <class Control>
std::string FaceOf(const Control& control, Rows rows) {
    std::string face;
    for (const PropertyRow& row : rows) {
        face += std::string(row.name) + " = " + std::to_string(ReadBack(control, row)) + '\n';
    }
    return face;
}

/// Takes one of its values after the other, by its name in any case, and refuses the others;
/// `check` is told after each of them whether there is a change.
template <class Control, class Check>
void ExpectTakesAndRefuses(Control& control, const PropertyRow& row, Check check) {
    std::string name(row.name);
    for (const double number : {row.low, row.high}) {
        for (const Variant& value : FormsOf(row, number)) {
            control.LetMember(name, value);
            EXPECT_EQ(ReadBack(control, row), number) << Described(value);
            check(true);
        }
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
    }
    const auto refuse = [&](const Variant& value, int error) {
        EXPECT_EQ(static_cast<int>(NumberOf([&] { control.LetMember(name, value); })), error);
        EXPECT_EQ(ReadBack(control, row), row.high) << Described(value);
    };
    for (const double number : RefusedNumbers(row)) {
        refuse(number, row.kind == Kind::Pointer ? 0 : 380);
    }
    for (const Variant& value : WrongTypes(row)) refuse(value, 13);
    if (row.kind == Kind::Icon) refuse(WrongTypes(Font("")).back(), 380);  // a bitmap
    if (row.kind == Kind::Choice || row.kind == Kind::Color) refuse(5e9, 6);
    check(false);
}

template <class Control>
void ChangeAll(Control& control, Rows rows) {
    for (const PropertyRow& row : rows) {
        control.LetMember(row.name, ValueOf(row, row.Changed()));
    }
}

/// The names in their order, what is left out, and the type of each.
template <class Control>
void ExpectSavedForms(Control& control, Rows rows) {
    constexpr VarType kTypes[] = {VarType::Int32, VarType::Boolean, VarType::Date, VarType::Text,
                                  VarType::Object};
    std::vector<std::string> names, always;
    for (const PropertyRow& row : rows) {
        names.emplace_back(row.Key());
        if (row.always) always.emplace_back(row.Key());
    }
    RecordingBag fresh, changed;
    control.WriteProps(fresh);
    EXPECT_EQ(fresh.writes, names);
    EXPECT_EQ(fresh.Kept(), always);
    ChangeAll(control, rows);
    control.WriteProps(changed);
    for (const PropertyRow& row : rows) {
        const Variant value = changed.ReadProperty(row.Key(), Variant());
        EXPECT_EQ(value.Type(), kTypes[static_cast<int>(row.form)]) << row.name;
        EXPECT_EQ(NumberIn(row, value), row.Changed()) << row.name;
    }
}

/// One property is changed in a control, which another one reads: through the memory, through text.
template <class Test>
void ExpectEachComesBack(Rows rows) {
    for (const PropertyRow& row : rows) {
        for (const double number : {row.low, row.high}) {
            SCOPED_TRACE(row.name);
            Test source;
            ControlOf(source).LetMember(row.name, ValueOf(row, number));
            MemoryBag memory;
            ControlOf(source).WriteProps(memory);
            MemoryBag text = ParseProperties(FormatProperties(memory));
            for (MemoryBag* const bag : {&memory, &text}) {
                Test target;
                ControlOf(target).ReadProps(*bag);
                EXPECT_EQ(FaceOf(ControlOf(target), rows), FaceOf(ControlOf(source), rows));
            }
        }
    }
}

/// A bag's values are taken as they are, also beyond their range; dates may be text.
template <class Control>
void ExpectKeepsWhatIsStored(Control& control, Rows rows) {
    const std::map<std::string_view, Variant> dates{
        {"DateMin", "2021-02-01"}, {"DateMax", "12/31/2030"}, {"DateValue", "3 Feb 2021 18:00"}};
    const auto stored = [&](const PropertyRow& row) {
        if (const auto date = dates.find(row.name); date != dates.end()) return date->second;
        switch (row.kind) {
            case Kind::Choice:
            case Kind::Pointer: return Variant(row.high + 1);
            case Kind::Extent: return Variant(-5.0);
            case Kind::Color: return Variant(double{0xFFFFFFFF});
            default: return Variant();
        }
    };
    MemoryBag bag;
    for (const PropertyRow& row : rows) {
        if (stored(row) != Variant()) bag.WriteProperty(row.Key(), stored(row), Variant());
    }
    control.ReadProps(bag);
    for (const PropertyRow& row : rows) {
        if (stored(row) == Variant()) continue;
        const bool isDate = dates.contains(row.name);
        EXPECT_EQ(ReadBack(control, row),
                  isDate ? control.ToDate(stored(row)).value : NumberIn(row, stored(row)))
            << row.name;
    }
}

/// What a control that was changed before reads from a bag of nonsense; `today` is its date.
template <class Test>
void ExpectDefaultsForWrongTypes(Rows rows, double today) {
    for (std::size_t i = 0; i < 3; ++i) {
        Test test;
        auto& control = ControlOf(test);
        ChangeAll(control, rows);
        MemoryBag bag;
        for (const PropertyRow& row : rows) {
            const auto values = WrongTypes(row);
            bag.WriteProperty(row.Key(), values[i % values.size()], Variant());
        }
        control.ReadProps(bag);
        for (const PropertyRow& row : rows) {
            EXPECT_EQ(ReadBack(control, row), row.initial == kToday ? today : row.initial)
                << row.name << ", wrong value " << i;
        }
    }
}

}  // namespace velmora::test
