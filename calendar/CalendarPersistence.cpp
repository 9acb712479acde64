#include "calendar/VmCalendar.h"

#include "platform/Automation.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace velmora {
namespace {

/// Where the saved values of a calendar live.
struct Holder {
    CalendarState& state;
    VmDays& days;
    Windowing& window;
};

/// A new calendar's values.
struct Defaults {
    CalendarState state;
    VmDays days;

    Defaults(const Dates& dates, const Hosting& hosting) {
        state.dateValue = DateOf(dates.Today());
        state.dayFont = hosting.AmbientFont();
        state.monthFont = state.dayFont;
        state.weekDayFont = state.dayFont;
    }
};

/// A value equal to its default need not be stored; some are stored in any case. The unevenness is
/// part of the saved format.
enum class Stored { WhenChanged, Always };

struct Entry {
    std::string_view key;
    Stored stored;
    Variant (*defaultOf)(const Defaults&);
    Variant (*get)(const Holder&);
    void (*set)(Holder&, const Variant&);  // error 13 or 6: the stored value has the wrong type
};

/// Dates have day numbers as their defaults.
Variant DefaultVariant(const Variant& value) {
    const auto* date = value.As<Date>();
    return date ? Variant(DayOf(*date)) : value;
}

template <const auto& kProperty>
constexpr Entry Saved(Stored stored = Stored::WhenChanged) {
    using T = typename std::remove_cvref_t<decltype(kProperty)>::Value;
    return {kProperty.name, stored,
            [](const Defaults& from) {
                return DefaultVariant(ToVariant<T>(kProperty.Get(from.state, from.days)));
            },
            [](const Holder& from) { return ToVariant<T>(kProperty.Get(from.state, from.days)); },
            [](Holder& to, const Variant& value) {
                kProperty.Store(to.state, to.days, FromVariant<T>(value));
            }};
}

constexpr Entry kSavedEnabled{
    kEnabled, Stored::WhenChanged, [](const Defaults&) { return Variant(true); },
    [](const Holder& from) { return Variant(from.window.Enabled()); },
    [](Holder& to, const Variant& value) { to.window.Enabled(ToBoolean(value)); }};
constexpr Entry kSavedMouseIcon{
    kMouseIcon, Stored::WhenChanged, [](const Defaults&) { return Variant(ObjectRef()); },
    [](const Holder& from) { return ToVariant(from.window.MouseIcon()); },
    [](Holder& to, const Variant& value) { to.window.MouseIcon(FromVariant<PictureRef>(value)); }};
constexpr Entry kSavedMousePointer{
    kMousePointer, Stored::WhenChanged, [](const Defaults&) { return Variant(std::int32_t{0}); },
    [](const Holder& from) { return Variant(std::int32_t{from.window.MousePointer()}); },
    [](Holder& to, const Variant& value) {
        to.window.MousePointer(FromVariant<std::int16_t>(value));
    }};

/// In the order of writing. The second day back colour is part of the saved format.
constexpr std::array kEntries{
    Saved<kAppearance>(),
    Saved<kSelectedDayBackColor>(),
    Saved<kSelectedDayForeColor>(),
    Saved<kDateValue>(),
    Saved<kDayAppearance>(),
    Saved<kDayCaptionAlignment>(),
    Saved<kDayDefaultBackColor>(),
    Saved<kDayOtherMonthForeColor>(),
    Saved<kDayDefaultForeColor>(),
    Saved<kDayFont>(Stored::Always),
    Saved<kDayNumberAlignment>(),
    Saved<kDayPictureAlignment>(),
    Saved<kDayDefaultBackColor>(),
    kSavedEnabled,
    Saved<kFirstDayOfWeek>(),
    Saved<kMonthAppearance>(Stored::Always),
    Saved<kMonthBackColor>(Stored::Always),
    Saved<kMonthDisplay>(Stored::Always),
    Saved<kMonthFont>(Stored::Always),
    Saved<kMonthForeColor>(),
    Saved<kDateMax>(),
    Saved<kDateMin>(),
    Saved<kMonthYearSelStyle>(),
    kSavedMouseIcon,
    kSavedMousePointer,
    Saved<kShowWeekend>(Stored::Always),
    Saved<kTodayBackColor>(Stored::Always),
    Saved<kTodayForeColor>(Stored::Always),
    Saved<kWeekDayAppearance>(Stored::Always),
    Saved<kWeekDayBackColor>(Stored::Always),
    Saved<kWeekDayCaptionAlignment>(),
    Saved<kWeekDayDisplay>(Stored::Always),
    Saved<kWeekDayFont>(Stored::Always),
    Saved<kWeekDayForeColor>(),
};

/// In the order of reading; the day colours are read twice.
constexpr std::string_view kReadOrder[] = {
    "Appearance",
    "SelectedDayBackColor",
    "SelectedDayForeColor",
    "DayAppearance",
    "DayCaptionAlignment",
    "DayDefaultBackColor",
    "DayDefaultForeColor",
    "DayFont",
    "DayNumberAlignment",
    "DayPictureAlignment",
    "DayDefaultBackColor",
    "DayOtherMonthForeColor",
    "DayDefaultForeColor",
    "Enabled",
    "FirstDayOfWeek",
    "MonthAppearance",
    "MonthBackColor",
    "MonthDisplay",
    "MonthFont",
    "MonthForeColor",
    "MouseIcon",
    "MousePointer",
    "DateMax",
    "DateMin",
    "DateValue",
    "MonthYearSelStyle",
    "ShowWeekend",
    "TodayBackColor",
    "TodayForeColor",
    "WeekDayAppearance",
    "WeekDayBackColor",
    "WeekDayDisplay",
    "WeekDayFont",
    "WeekDayCaptionAlignment",
    "WeekDayForeColor",
};

const Entry& EntryOf(std::string_view key) {
    return *std::find_if(kEntries.begin(), kEntries.end(),
                         [key](const Entry& entry) { return entry.key == key; });
}

/// A value of the wrong type counts as missing.
void ReadEntry(PropertyBag& bag, const Entry& entry, const Defaults& defaults, Holder& to) {
    const Variant fallback = entry.defaultOf(defaults);
    try {
        entry.set(to, bag.ReadProperty(entry.key, fallback));
    } catch (const AutomationError&) {
        entry.set(to, fallback);
    }
}

FontRef CopyOf(const FontRef& font) { return font ? std::make_shared<StdFont>(*font) : nullptr; }

}  // namespace

void VmCalendar::ReadProps(PropertyBag& bag) {
    const Defaults defaults(m_platform.dates, m_platform.hosting);
    CalendarState state;
    Holder holder{state, *m_days, m_platform.windowing};
    for (const std::string_view key : kReadOrder) ReadEntry(bag, EntryOf(key), defaults, holder);
    for (FontRef* font : {&state.dayFont, &state.monthFont, &state.weekDayFont}) {
        if (*font == defaults.state.dayFont) *font = CopyOf(*font);
    }
    state.monthAnnounced = m_state.monthAnnounced;
    state.alwaysDateChanged = m_state.alwaysDateChanged;
    state.noResizeControl = m_state.noResizeControl;
    state.shownDate = state.dateValue;
    state.ready = true;
    m_state = std::move(state);
    EndPress();
    ++m_dateChanges;
    m_days->LoadMonth(DayOf(m_state.shownDate));
    SyncSelectors();

    const Lifetime::Watch alive(m_lifetime);
    SelectMonth(MonthOf(DayOf(m_state.shownDate)));
    if (alive) RepaintControl();
}

void VmCalendar::WriteProps(PropertyBag& bag) const {
    const Defaults defaults(m_platform.dates, m_platform.hosting);
    auto state = m_state;
    const Holder holder{state, *m_days, m_platform.windowing};
    for (const Entry& entry : kEntries) {
        const bool always = entry.stored == Stored::Always;
        bag.WriteProperty(entry.key, entry.get(holder),
                          always ? Variant() : entry.defaultOf(defaults));
    }
}

}  // namespace velmora
