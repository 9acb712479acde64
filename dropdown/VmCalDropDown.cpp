#include "dropdown/VmCalDropDown.h"

#include "dropdown/DropDownPainter.h"
#include "platform/ScaleMode.h"

#include <cmath>
#include <limits>
#include <utility>

namespace velmora {
namespace {

[[noreturn]] void Refuse() { throw AutomationError(ErrorNumber::InvalidPropertyValue); }

}  // namespace

VmCalDropDown::VmCalDropDown(const BoxPlatform& platform, DropDownForm& form)
    : m_platform(platform), m_form(form), m_store(platform.dates) {
    m_store.Days()->DayChanged.Connect([this](Date& day, std::string&) { CopyDecoration(day); });
}

VmCalDropDown::~VmCalDropDown() { Abandon(); }

/// Closes an open calendar without taking its date and without an event.
void VmCalDropDown::Abandon() {
    m_droppedDown = false;
    if (!OwnsForm()) return;
    m_form.SetOwner(nullptr);
    m_form.Close();
}

void VmCalDropDown::Notify(std::string_view key) {
    if (!m_loading) m_platform.hosting.PropertyChanged(key);
}

/// An open calendar shows the new value; then the container learns of it.
void VmCalDropDown::StoreChanged(std::string_view member, std::string_view key) {
    const Lifetime::Watch alive(m_lifetime);
    PassOn(member);
    if (alive) Notify(key);
}

void VmCalDropDown::PassOn(std::string_view member) {
    if (!OwnsForm()) return;
    const bool opening = std::exchange(m_opening, true);  // its events would be no news
    m_form.Calendar().LetMember(member, m_store.GetMember(member));
    m_opening = opening;
}

void VmCalDropDown::Let(const Property<VmMonthYearSelStyleConstants>& property,
                        VmMonthYearSelStyleConstants value) {
    if (value != VmMonthSelNone && value != VmMonthSelArrows) Refuse();
    m_store.Let(property, value);
    StoreChanged(property.name, property.name);
}

void VmCalDropDown::Let(const Property<VmAppearanceConstants>& property,
                        VmAppearanceConstants value) {
    m_store.Let(property, value);
    const bool isWhole = property.name == kAppearance.name;
    StoreChanged(property.name, isWhole ? DropDownKeys::kAppearance : property.name);
}

void VmCalDropDown::DateFormat(std::string value) {
    m_dateFormat = std::move(value);
    UpdateDateText(DateValue());
    Notify(DropDownKeys::kDateFormat);
}

void VmCalDropDown::UpdateDateText(Date date) {
    std::string text = m_platform.dates.Format(date, m_dateFormat);
    if (text == m_text) return;
    m_text = std::move(text);
    RepaintControl();
}

void VmCalDropDown::DateMax(Date value) {
    m_store.DateMax(value);
    UpdateDateText(DateValue());
    StoreChanged(kDateMax.name, kDateMax.name);
}

void VmCalDropDown::DateMin(Date value) {
    m_store.DateMin(value);
    UpdateDateText(DateValue());
    StoreChanged(kDateMin.name, kDateMin.name);
}

void VmCalDropDown::DateValue(const Variant& value) {
    const Date date = ToDate(value);  // Empty and Null are no dates
    m_store.DateValue(date);
    ++m_dateChanges;
    UpdateDateText(DateValue());
    StoreChanged(kDateValue.name, kDateValue.name);
}

void VmCalDropDown::ComboFont(FontRef value) {
    m_comboFont = std::move(value);
    RepaintControl();
    Notify(DropDownKeys::kComboFont);
}

void VmCalDropDown::DropDownAlignment(VmDropDownAlignmentConstants value) {
    if (value < VmLeftJustified || value > VmRightJustified) Refuse();
    m_alignment = value;
    Notify(DropDownKeys::kAlignment);
}

std::int32_t VmCalDropDown::DropDownHeight() const {
    return SizeInContainer(m_heightPixels, Axis::Vertical);
}
std::int32_t VmCalDropDown::DropDownWidth() const {
    return SizeInContainer(m_widthPixels, Axis::Horizontal);
}
void VmCalDropDown::DropDownHeight(std::int32_t value) {
    SetSize(m_heightPixels, value, Axis::Vertical, DropDownKeys::kHeight);
}
void VmCalDropDown::DropDownWidth(std::int32_t value) {
    SetSize(m_widthPixels, value, Axis::Horizontal, DropDownKeys::kWidth);
}

void VmCalDropDown::SetSize(std::int32_t& pixels, std::int32_t value, Axis axis,
                            std::string_view key) {
    const double wanted = ToPixels(value, ContainerScaleMode(m_platform.hosting),
                                   m_platform.windowing.PixelsPerInch(), axis);
    const double rounded = std::nearbyint(wanted);
    if (rounded < 0) Refuse();
    pixels = rounded < std::numeric_limits<std::int32_t>::max()
                 ? static_cast<std::int32_t>(rounded)
                 : std::numeric_limits<std::int32_t>::max();
    Notify(key);
}

std::int32_t VmCalDropDown::SizeInContainer(std::int32_t pixels, Axis axis) const {
    const double size = FromPixels(pixels, ContainerScaleMode(m_platform.hosting),
                                   m_platform.windowing.PixelsPerInch(), axis);
    return size < std::numeric_limits<std::int32_t>::max()
               ? static_cast<std::int32_t>(std::lround(size))
               : std::numeric_limits<std::int32_t>::max();
}

void VmCalDropDown::Enabled(bool value) {
    m_platform.windowing.Enabled(value);
    const Lifetime::Watch alive(m_lifetime);
    OnWindowChanged();
    if (alive) Notify(DropDownKeys::kEnabled);
}

void VmCalDropDown::MouseIcon(PictureRef value) {
    m_store.MouseIcon(value);
    m_platform.windowing.MouseIcon(std::move(value));
    StoreChanged(kMouseIcon, DropDownKeys::kMouseIcon);
}

void VmCalDropDown::MousePointer(std::int16_t value) {
    if (!IsMousePointer(value)) return;
    m_store.MousePointer(value);
    m_platform.windowing.MousePointer(value);
    StoreChanged(kMousePointer, DropDownKeys::kMousePointer);
}

VmOLEDropModeConstants VmCalDropDown::OLEDropMode() const {
    return static_cast<VmOLEDropModeConstants>(m_platform.windowing.OLEDropMode());
}

void VmCalDropDown::OLEDropMode(VmOLEDropModeConstants value) {
    if (value < VmOLENone || value > VmOLEAutomatic) Refuse();
    m_platform.windowing.OLEDropMode(value);
}

void VmCalDropDown::AboutBox() { m_form.Calendar().AboutBox(); }

void VmCalDropDown::RepaintControl() { m_platform.drawing.InvalidateRect(hWnd(), nullptr); }

void VmCalDropDown::OnPaint(SurfaceHandle surface) {
    if (!m_comboFont) m_comboFont = m_platform.hosting.AmbientFont();
    const DropDownView view{.client = m_platform.windowing.ClientSize(),
                            .text = m_text,
                            .font = *m_comboFont,
                            .enabled = TakesInput(),
                            .focused = m_hasFocus,
                            .buttonDown = m_buttonDown};
    PaintDropDown(m_platform.drawing, surface, view);
}

void VmCalDropDown::OnLocaleChanged() { UpdateDateText(DateValue()); }

}  // namespace velmora
