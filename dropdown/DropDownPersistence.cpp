#include "calendar/CalendarMembers.h"
#include "dropdown/VmCalDropDown.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace velmora {
namespace {

constexpr Date kBoxDateMax{292560};       // 31 December 2700
constexpr Date kBoxDateMin{-292192};      // 1 January 1100
constexpr std::int32_t kBoxHeight = 200;  // pixels
constexpr std::int32_t kBoxWidth = 250;

FontRef CopyOf(const FontRef& font) { return std::make_shared<StdFont>(*font); }

using Box = VmCalDropDown;
using BoxMember = Member<VmCalDropDown>;

constexpr std::array kOwnMembers{
    BoxMember{"DropDownAppearance", [](const Box& box) { return ToVariant(box.Get(kAppearance)); },
              [](Box& box, const Variant& value) {
                  box.Let(kAppearance, FromVariant<VmAppearanceConstants>(value));
              }},
    BoxMember{"DateFormat", [](const Box& box) { return Variant(box.DateFormat()); },
              [](Box& box, const Variant& value) {
                  const auto* text = value.As<std::string>();
                  if (!text) RaiseTypeMismatch();
                  box.DateFormat(*text);
              }},
    BoxMember{"ComboFont", [](const Box& box) { return ToVariant(box.ComboFont()); },
              [](Box& box, const Variant& value) { box.ComboFont(FromVariant<FontRef>(value)); }},
    BoxMember{"DropDownAlignment",
              [](const Box& box) { return ToVariant(box.DropDownAlignment()); },
              [](Box& box, const Variant& value) {
                  box.DropDownAlignment(FromVariant<VmDropDownAlignmentConstants>(value));
              }},
    BoxMember{"DropDownHeight", [](const Box& box) { return Variant(box.DropDownHeight()); },
              [](Box& box, const Variant& value) { box.DropDownHeight(ToInt32(value)); }},
    BoxMember{"DropDownWidth", [](const Box& box) { return Variant(box.DropDownWidth()); },
              [](Box& box, const Variant& value) { box.DropDownWidth(ToInt32(value)); }},
    BoxMember{"DropDownState", [](const Box& box) { return Variant(box.DropDownState()); },
              [](Box& box, const Variant& value) { box.DropDownState(ToBoolean(value)); }},
};

constexpr auto kCommonMembers = CommonMembers<VmCalDropDown>();

/// The box's own first; what a calendar has besides `Appearance` is the same.
const BoxMember& BoxMemberOf(std::string_view name) {
    for (const BoxMember& member : kOwnMembers) {
        if (EqualsIgnoringCase(member.name, name)) return member;
    }
    if (EqualsIgnoringCase(name, kAppearance.name)) {
        throw AutomationError(ErrorNumber::MemberNotFound);
    }
    return MemberOf(kCommonMembers, name);
}

/// A row of the saved format: its key, the property behind it, and its default.
struct Row {
    std::string_view key;
    std::string_view member;
    Variant (*defaultOf)(const Date& now, const FontRef& font);
};

template <std::int32_t kValue>
Variant Number(const Date&, const FontRef&) {
    return kValue;
}
template <OLE_COLOR kValue>
Variant Color(const Date&, const FontRef&) {
    return kValue;
}
Variant True(const Date&, const FontRef&) { return true; }
Variant ShortDate(const Date&, const FontRef&) { return "Short Date"; }
Variant Nothing(const Date&, const FontRef&) { return ObjectRef(); }
Variant Font(const Date&, const FontRef& font) { return ObjectRef(font); }
Variant Present(const Date& now, const FontRef&) { return now; }

/// In the order of writing and reading. The second date format is part of the saved format.
constexpr std::array kRows{
    Row{"ComboFont", "ComboFont", Font},
    Row{"ComboDateFormat", "DateFormat", ShortDate},
    Row{"DropDownAlignment", "DropDownAlignment", Number<VmLeftJustified>},
    Row{"DropDownHeight", "DropDownHeight", Number<kBoxHeight>},
    Row{"DropDownWidth", "DropDownWidth", Number<kBoxWidth>},
    Row{"ComboEnabled", "Enabled", True},
    Row{"ComboMouseIcon", "MouseIcon", Nothing},
    Row{"ComboMousePointer", "MousePointer", Number<0>},
    Row{"DropDownAppearance", "DropDownAppearance", Number<VmAppearance3D>},
    Row{"ComboDateFormat", "DateFormat", ShortDate},
    Row{"DateMax", "DateMax", Number<static_cast<std::int32_t>(kBoxDateMax.value)>},
    Row{"DateMin", "DateMin", Number<static_cast<std::int32_t>(kBoxDateMin.value)>},
    Row{"DateValue", "DateValue", Present},
    Row{"DayAppearance", "DayAppearance", Number<VmAppearance3D>},
    Row{"DayCaptionAlignment", "DayCaptionAlignment", Number<VmTextBottomCenter>},
    Row{"DayDefaultBackColor", "DayDefaultBackColor", Color<kButtonFace>},
    Row{"DayDefaultForeColor", "DayDefaultForeColor", Color<kWindowText>},
    Row{"DayOtherMonthForeColor", "DayOtherMonthForeColor", Color<kGrayText>},
    Row{"DayFont", "DayFont", Font},
    Row{"DayNumberAlignment", "DayNumberAlignment", Number<VmTextTopRight>},
    Row{"DayPictureAlignment", "DayPictureAlignment", Number<VmPictTopLeft>},
    Row{"FirstDayOfWeek", "FirstDayOfWeek", Number<VmSunday>},
    Row{"MonthAppearance", "MonthAppearance", Number<VmAppearance3D>},
    Row{"MonthBackColor", "MonthBackColor", Color<kButtonFace>},
    Row{"MonthDisplay", "MonthDisplay", Number<VmMonthFullName>},
    Row{"MonthForeColor", "MonthForeColor", Color<kWindowText>},
    Row{"MonthFont", "MonthFont", Font},
    Row{"MonthYearSelStyle", "MonthYearSelStyle", Number<VmDDMonthSelNone>},
    Row{"SelectedDayBackColor", "SelectedDayBackColor", Color<kHighlight>},
    Row{"SelectedDayForeColor", "SelectedDayForeColor", Color<kHighlightText>},
    Row{"TodayBackColor", "TodayBackColor", Color<0x00FFFF00>},
    Row{"TodayForeColor", "TodayForeColor", Color<kWindowText>},
    Row{"WeekDayAppearance", "WeekDayAppearance", Number<VmAppearance3D>},
    Row{"WeekDayBackColor", "WeekDayBackColor", Color<kButtonFace>},
    Row{"WeekDayForeColor", "WeekDayForeColor", Color<kWindowText>},
    Row{"WeekDayDisplay", "WeekDayDisplay", Number<VmWeekDayAbbrName>},
    Row{"WeekDayFont", "WeekDayFont", Font},
    Row{"WeekDayCaptionAlignment", "WeekDayCaptionAlignment", Number<VmTextMiddleCenter>},
    Row{"ShowWeekend", "ShowWeekend", True},
};

/// As the saved format has it: limits are day numbers, small numbers 32-bit integers.
Variant SavedForm(std::string_view key, const Variant& value) {
    const auto* date = value.As<Date>();
    if (date && key != kDateValue.name) return DayOf(*date);
    const auto* small = value.As<std::int16_t>();
    return small ? Variant(std::int32_t{*small}) : value;
}

}  // namespace

Variant VmCalDropDown::GetMember(std::string_view name) const {
    return BoxMemberOf(name).get(*this);
}

void VmCalDropDown::LetMember(std::string_view name, const Variant& value) {
    const BoxMember& member = BoxMemberOf(name);
    if (!member.let) throw AutomationError(ErrorNumber::MemberNotFound);
    member.let(*this, value);
}

void VmCalDropDown::InitProperties() {
    class EmptyBag : public PropertyBag {
    public:
        Variant ReadProperty(std::string_view, const Variant& fallback) override {
            return fallback;
        }
        void WriteProperty(std::string_view, const Variant&, const Variant&) override {}
    } bag;
    ReadProps(bag);
}

void VmCalDropDown::ReadProps(PropertyBag& bag) {
    const Date now = m_platform.dates.Now();
    Abandon();
    m_loading = true;
    Date maximum = kBoxDateMax;
    for (const Row& row : kRows) {
        const Variant fallback = row.defaultOf(now, CopyOf(m_platform.hosting.AmbientFont()));
        const Variant value = bag.ReadProperty(row.key, fallback);
        if (!Restore(row.key, row.member, value, maximum)) {
            Restore(row.key, row.member, fallback, maximum);
        }
    }
    m_loading = false;
}

/// False for a value of the wrong type, or one that is refused. The two limits are stored together.
bool VmCalDropDown::Restore(std::string_view key, std::string_view member, const Variant& value,
                            Date& maximum) {
    try {
        if (key == DropDownKeys::kHeight) {
            m_heightPixels = std::max(ToInt32(value), 0);
        } else if (key == DropDownKeys::kWidth) {
            m_widthPixels = std::max(ToInt32(value), 0);
        } else if (key == kDateMax.name) {
            maximum = FromVariant<Date>(value);
        } else if (key == kDateMin.name) {
            m_store.Limits(FromVariant<Date>(value), maximum);
        } else {
            LetMember(member, value);
        }
        return true;
    } catch (const AutomationError&) {
        maximum = kBoxDateMax;
        return false;
    }
}

void VmCalDropDown::WriteProps(PropertyBag& bag) const {
    const Date now = m_platform.dates.Now();
    for (const Row& row : kRows) {
        Variant value;
        if (row.key == DropDownKeys::kHeight) {
            value = m_heightPixels;
        } else if (row.key == DropDownKeys::kWidth) {
            value = m_widthPixels;
        } else {
            value = SavedForm(row.key, GetMember(row.member));
        }
        bag.WriteProperty(row.key, value, row.defaultOf(now, m_platform.hosting.AmbientFont()));
    }
}

}  // namespace velmora
