#pragma once

#include "calendar/CalendarState.h"
#include "model/VmDays.h"
#include "platform/AutomationError.h"
#include "platform/Windowing.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace velmora {

/// What a successful setter does after it has stored the value and told the container.
enum class AfterEffect { Nothing, Repaint, MonthBand, WeekDayRow };

/// Whether a control saves the property: never, when it is not the default, or in any case. The
/// unevenness is part of the saved format.
enum class Saved { Never, WhenChanged, Always };

/// Whether `VmCalendar::SetProps` copies it.
enum class Copied { No, Yes };

/// What a setter does about a value that the row does not admit: error 380, or nothing at all.
enum class Unfit { Refused, Ignored };

/// Where a control keeps the values of its rows.
template <class State>
struct PropertyStorage {
    State& state;
    VmDays& days;
    WindowProperties& window;
};
template <class State>
PropertyStorage(State&, VmDays&, WindowProperties&) -> PropertyStorage<State>;
using CalendarStorage = PropertyStorage<CalendarState>;

/// The properties of a window that is not there; the initialisers are the defaults.
class StoredWindow final : public WindowProperties {
public:
    bool Enabled() const override { return m_enabled; }
    void Enabled(bool enabled) override { m_enabled = enabled; }
    std::int16_t MousePointer() const override { return m_mousePointer; }
    void MousePointer(std::int16_t pointer) override { m_mousePointer = pointer; }
    PictureRef MouseIcon() const override { return m_mouseIcon; }
    void MouseIcon(PictureRef icon) override { m_mouseIcon = std::move(icon); }

private:
    bool m_enabled = true;
    std::int16_t m_mousePointer = 0;
    PictureRef m_mouseIcon;
};

// The kinds of rows. `Get` and `Store` reach the stored value without any check; the owner of the
// storage has `Get` and `Let` for rows, which are the published getter and setter.

/// A property that lives in the state, and whose row is all there is to it.
template <class T>
struct Property {
    using Value = T;

    std::string_view name;  // published name, also the saved key
    T CalendarState::*field;
    bool (*admits)(const T&) = nullptr;
    AfterEffect effect = AfterEffect::Repaint;
    Saved saved = Saved::WhenChanged;
    static constexpr Copied copied = Copied::Yes;
    static constexpr Unfit unfit = Unfit::Refused;

    const T& Get(const auto& from) const { return from.state.*field; }
    void Store(const auto& to, const T& value) const { to.state.*field = value; }
};

/// A default colour of days: it lives in the day collection.
struct DayColorProperty {
    using Value = OLE_COLOR;

    std::string_view name;
    OLE_COLOR (VmDays::*get)() const noexcept;
    void (VmDays::*set)(OLE_COLOR) noexcept;
    bool (*admits)(const OLE_COLOR&);
    AfterEffect effect = AfterEffect::Repaint;
    Saved saved = Saved::WhenChanged;
    static constexpr Copied copied = Copied::Yes;
    static constexpr Unfit unfit = Unfit::Refused;

    OLE_COLOR Get(const auto& from) const { return (from.days.*get)(); }
    void Store(const auto& to, OLE_COLOR value) const { (to.days.*set)(value); }
};

/// A property that lives on the control's window.
template <class T>
struct WindowProperty {
    using Value = T;

    std::string_view name;
    T (WindowProperties::*get)() const;
    void (WindowProperties::*set)(T);
    bool (*admits)(const T&) = nullptr;
    AfterEffect effect = AfterEffect::Nothing;
    Unfit unfit = Unfit::Refused;
    Copied copied = Copied::Yes;
    static constexpr Saved saved = Saved::WhenChanged;

    T Get(const auto& from) const { return (from.window.*get)(); }
    void Store(const auto& to, const T& value) const { (to.window.*set)(value); }
};

/// A limit of the date. `keep` stores what the setter is given, as calendar/DateLimits.h says.
struct LimitProperty {
    using Value = Date;

    std::string_view name;
    Date CalendarState::*field;
    bool (*keep)(CalendarState&, Date);
    static constexpr Saved saved = Saved::WhenChanged;
    static constexpr Copied copied = Copied::Yes;

    Date Get(const auto& from) const { return from.state.*field; }
    void Store(const auto& to, Date value) const { to.state.*field = value; }
};

/// The selected date, which setters take in more forms than one.
struct DateProperty {
    using Value = Date;

    std::string_view name;
    Date CalendarState::*field;
    static constexpr Saved saved = Saved::WhenChanged;
    static constexpr Copied copied = Copied::Yes;

    Date Get(const auto& from) const { return from.state.*field; }
    void Store(const auto& to, Date value) const { to.state.*field = value; }
};

/// A read-only property that is an object of its owner.
struct ObjectProperty {
    std::string_view name;
    static constexpr Saved saved = Saved::Never;
    static constexpr Copied copied = Copied::No;
};
struct DaysProperty : ObjectProperty {
    ObjectRef Get(const auto& owner) const { return owner.Days(); }
};
struct SelectedDayProperty : ObjectProperty {
    ObjectRef Get(const auto& owner) const { return owner.SelectedDay(); }
};

/// Whether a setter goes on with the value. Error 380: the row refuses it.
template <class Row>
bool Admit(const Row& row, const typename Row::Value& value) {
    if (!row.admits || row.admits(value)) return true;
    if (row.unfit == Unfit::Ignored) return false;
    throw AutomationError(ErrorNumber::InvalidPropertyValue);
}

/// Rows in an order.
template <const auto&... kRow>
struct Rows {
    static constexpr std::size_t kCount = sizeof...(kRow);

    static constexpr bool Has(std::string_view name) { return ((kRow.name == name) || ...); }
};

/// Whether an order has those rows of a list that belong in it, and none of the others.
template <class Order, const auto&... kRow>
constexpr bool Covers(Rows<kRow...>, auto belongs) {
    return ((Order::Has(kRow.name) == belongs(kRow)) && ...);
}

/// Whether each row of an order is in one of the lists.
template <class... Lists, const auto&... kRow>
constexpr bool IsWithin(Rows<kRow...>) {
    const auto isListed = [](std::string_view name) { return (Lists::Has(name) || ...); };
    return (isListed(kRow.name) && ...);
}

constexpr auto kIsSaved = [](const auto& row) { return row.saved != Saved::Never; };
constexpr auto kIsCopied = [](const auto& row) { return row.copied == Copied::Yes; };

}  // namespace velmora
