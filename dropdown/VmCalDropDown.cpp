#include "dropdown/VmCalDropDown.h"

#include "dropdown/DropDownPainter.h"
#include "platform/FlagScope.h"
#include "platform/ScaleMode.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace velmora {
namespace {

[[noreturn]] void Refuse() { throw AutomationError(ErrorNumber::InvalidPropertyValue); }

}  // namespace

VmCalDropDown::VmCalDropDown(const Platform& platform, DropDownForm& form)
    : m_platform(platform), m_form(form), m_store(platform.dates, &platform.windowing) {
    m_store.Days()->DayChanged.Connect([this](Date& day, std::string&) { CopyDecoration(day); });
}

VmCalDropDown::~VmCalDropDown() { Abandon(); }

/// An open calendar shows the new value; then the container learns of it.
void VmCalDropDown::StoreChanged(std::string_view member, std::string_view key) {
    const Lifetime::Watch alive(m_lifetime);
    PassOn(member);
    if (alive) Notify(key);
}

void VmCalDropDown::PassOn(std::string_view member) {
    if (!OwnsForm()) return;
    const FlagScope passingOn(m_passingOn);
    m_form.Calendar().LetMember(member, m_store.GetMember(member));
}

void VmCalDropDown::Let(const WindowProperty<bool>& property, bool value) {
    m_store.Let(property, value);
    const Lifetime::Watch alive(m_lifetime);
    RaiseThen([&] { OnWindowChanged(); },
              [&] {
                  if (alive) Notify(InBox(property).key);
              });
}

void VmCalDropDown::Let(const LimitProperty& property, Date value) {
    const Date before = DateValue();
    m_store.Let(property, value);
    const bool moved = DateValue() != before;
    if (moved) {
        ++m_dateChanges;
        UpdateDateText(DateValue());
    }
    PassOn(property.name);
    const Lifetime::Watch alive(m_lifetime);
    if (moved) Notify(kDateValue.name);
    if (alive) Notify(property.name);
}

void VmCalDropDown::Let(const DateProperty& property, const Variant& value) {
    m_store.Let(property, Variant(ToDate(value)));  // Empty and Null are no dates
    ++m_dateChanges;
    UpdateDateText(DateValue());
    StoreChanged(property.name, property.name);
}

void VmCalDropDown::Announce(std::string_view key, BoxEffect effect) {
    if (effect == BoxEffect::Repaint) RepaintControl();
    if (effect == BoxEffect::DateText) UpdateDateText(DateValue());
    Notify(key);
}

void VmCalDropDown::UpdateDateText(Date date) {
    std::string text = m_platform.dates.Format(date, m_box.dateFormat);
    if (text == m_text) return;
    m_text = std::move(text);
    RepaintControl();
}

void VmCalDropDown::Let(const SizeProperty& property, std::int32_t value) {
    const double wanted =
        ToPixels(value, ContainerScaleMode(m_platform.hosting), kUsualPixelsPerInch, property.axis);
    const double rounded = std::nearbyint(wanted);
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    if (rounded < 0) Refuse();
    m_box.*property.field = rounded < kMost ? static_cast<std::int32_t>(rounded) : kMost;
    Notify(property.key);
}

std::int32_t VmCalDropDown::Get(const SizeProperty& property) const {
    const double size = FromPixels(m_box.*property.field, ContainerScaleMode(m_platform.hosting),
                                   kUsualPixelsPerInch, property.axis);
    constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
    return size < kMost ? static_cast<std::int32_t>(std::lround(size)) : kMost;
}

VmOLEDropModeConstants VmCalDropDown::OLEDropMode() const {
    return static_cast<VmOLEDropModeConstants>(m_platform.windowing.OLEDropMode());
}

void VmCalDropDown::OLEDropMode(VmOLEDropModeConstants value) {
    if (value < VmOLENone || value > VmOLEAutomatic) Refuse();
    m_platform.windowing.OLEDropMode(value);
}

void VmCalDropDown::ExtendedNavigation(bool value) {
    m_store.Storage().state.extendedNavigation = value;
    if (OwnsForm()) m_form.Calendar().ExtendedNavigation(value);
}

void VmCalDropDown::AboutBox() { m_form.Calendar().AboutBox(); }

void VmCalDropDown::RepaintControl() { m_platform.drawing.InvalidateRect(hWnd(), nullptr); }

const StdFont& VmCalDropDown::Font() {
    if (!m_box.comboFont) m_box.comboFont = m_platform.hosting.AmbientFont();
    return *m_box.comboFont;
}

/// The longest month's name with each week day's; all on days of two digits.
Size VmCalDropDown::UsualSize() {
    const auto extent = [this](DayNumber day) {
        const std::string text = m_platform.dates.Format(DateOf(day), m_box.dateFormat);
        return ExtentOf(m_platform.drawing, Font(), {&text, 1});
    };
    DayNumber longest = 0;
    Size size;
    for (int month = 1; month <= 12; ++month) {
        const DayNumber day = DayFromCivil(2888, month, 20);
        const DayNumber sameWeekDay = day + 6 - day % 7;  // 20..26
        const Size wanted = extent(sameWeekDay);
        if (wanted.width > size.width) longest = sameWeekDay;
        size = {std::max(size.width, wanted.width), std::max(size.height, wanted.height)};
    }
    for (int i = 1; i < 7; ++i) size.width = std::max(size.width, extent(longest - i).width);
    return {size.width + kAroundBoxText.width, size.height + kAroundBoxText.height};
}

void VmCalDropDown::OnPaint(SurfaceHandle surface) {
    const DropDownView view{.client = m_platform.windowing.ClientSize(),
                            .text = m_text,
                            .font = Font(),
                            .enabled = TakesInput(),
                            .focused = m_hasFocus,
                            .buttonDown = m_buttonDown,
                            .rightToLeft = m_platform.windowing.IsRightToLeft()};
    PaintDropDown(m_platform.drawing, surface, view);
}

void VmCalDropDown::OnLocaleChanged() {
    UpdateDateText(DateValue());
    RepaintControl();
}

}  // namespace velmora
