#include "VelmoraCalendar/VmCalendarWidget.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/widgets/VmCalendarHost.h"

#include <utility>

namespace velmora {

PictureRef bitmapPicture(const QImage& image) { return ToPicture(image, PictureType::Bitmap); }

PictureRef iconPicture(const QImage& image) { return ToPicture(image, PictureType::Icon); }

VmCalendar& VmCalendarWidget::calendar() noexcept { return m_host->calendar; }

const VmCalendar& VmCalendarWidget::calendar() const noexcept { return m_host->calendar; }

DayRef VmCalendarWidget::day(int dayOfMonth) const {
    const DaysRef& days = m_host->calendar.Days();
    if (dayOfMonth < 1 || dayOfMonth > days->Count()) return nullptr;
    return days->Item(static_cast<std::int16_t>(dayOfMonth));
}

DayRef VmCalendarWidget::selectedDay() const {
    return day(DayOfMonth(DayOf(m_host->calendar.SelectedDate())));
}

QDate VmCalendarWidget::shownDate() const { return ToQDate(DayOf(m_host->calendar.ShownDate())); }

VmCalendarWidget::Appearance VmCalendarWidget::appearance() const {
    return static_cast<Appearance>(m_host->calendar.Appearance());
}
void VmCalendarWidget::setAppearance(Appearance value) {
    m_host->Set<VmAppearanceConstants>("appearance", &VmCalendar::Appearance, value);
}

QDate VmCalendarWidget::dateMax() const { return ToQDate(DayOf(m_host->calendar.DateMax())); }
void VmCalendarWidget::setDateMax(QDate value) {
    m_host->SetDate("dateMax", &VmCalendar::DateMax, value);
}

QDate VmCalendarWidget::dateMin() const { return ToQDate(DayOf(m_host->calendar.DateMin())); }
void VmCalendarWidget::setDateMin(QDate value) {
    m_host->SetDate("dateMin", &VmCalendar::DateMin, value);
}

QDate VmCalendarWidget::dateValue() const {
    return ToQDate(DayOf(m_host->calendar.SelectedDate()));
}
void VmCalendarWidget::setDateValue(QDate value) {
    if (!value.isValid()) return Host::WarnOfType("dateValue");
    m_host->Set<const Variant&>("dateValue", &VmCalendar::DateValue, Variant(ToDate(value)));
}

VmCalendarWidget::Appearance VmCalendarWidget::dayAppearance() const {
    return static_cast<Appearance>(m_host->calendar.DayAppearance());
}
void VmCalendarWidget::setDayAppearance(Appearance value) {
    m_host->Set<VmAppearanceConstants>("dayAppearance", &VmCalendar::DayAppearance, value);
}

QColor VmCalendarWidget::dayDefaultBackColor() const {
    return m_host->ColorOf(m_host->calendar.DayDefaultBackColor());
}
void VmCalendarWidget::setDayDefaultBackColor(const QColor& value) {
    m_host->SetColor("dayDefaultBackColor", &VmCalendar::DayDefaultBackColor, value);
}

QColor VmCalendarWidget::dayOtherMonthForeColor() const {
    return m_host->ColorOf(m_host->calendar.DayOtherMonthForeColor());
}
void VmCalendarWidget::setDayOtherMonthForeColor(const QColor& value) {
    m_host->SetColor("dayOtherMonthForeColor", &VmCalendar::DayOtherMonthForeColor, value);
}

QColor VmCalendarWidget::dayDefaultForeColor() const {
    return m_host->ColorOf(m_host->calendar.DayDefaultForeColor());
}
void VmCalendarWidget::setDayDefaultForeColor(const QColor& value) {
    m_host->SetColor("dayDefaultForeColor", &VmCalendar::DayDefaultForeColor, value);
}

VmCalendarWidget::TextAlignment VmCalendarWidget::dayCaptionAlignment() const {
    return static_cast<TextAlignment>(m_host->calendar.DayCaptionAlignment());
}
void VmCalendarWidget::setDayCaptionAlignment(TextAlignment value) {
    m_host->Set<VmTextAlignmentConstants>("dayCaptionAlignment", &VmCalendar::DayCaptionAlignment,
                                          value);
}

QFont VmCalendarWidget::dayFont() const { return m_host->FontOf(m_host->calendar.DayFont()); }
void VmCalendarWidget::setDayFont(const QFont& value) {
    m_host->SetFont("dayFont", &VmCalendar::DayFont, value);
}

VmCalendarWidget::TextAlignment VmCalendarWidget::dayNumberAlignment() const {
    return static_cast<TextAlignment>(m_host->calendar.DayNumberAlignment());
}
void VmCalendarWidget::setDayNumberAlignment(TextAlignment value) {
    m_host->Set<VmTextAlignmentConstants>("dayNumberAlignment", &VmCalendar::DayNumberAlignment,
                                          value);
}

VmCalendarWidget::PictureAlignment VmCalendarWidget::dayPictureAlignment() const {
    return static_cast<PictureAlignment>(m_host->calendar.DayPictureAlignment());
}
void VmCalendarWidget::setDayPictureAlignment(PictureAlignment value) {
    m_host->Set<VmPictureAlignmentConstants>("dayPictureAlignment",
                                             &VmCalendar::DayPictureAlignment, value);
}

VmCalendarWidget::WeekDay VmCalendarWidget::firstDayOfWeek() const {
    return static_cast<WeekDay>(m_host->calendar.FirstDayOfWeek());
}
void VmCalendarWidget::setFirstDayOfWeek(WeekDay value) {
    m_host->Set<VmWeekDays>("firstDayOfWeek", &VmCalendar::FirstDayOfWeek, value);
}

VmCalendarWidget::Appearance VmCalendarWidget::monthAppearance() const {
    return static_cast<Appearance>(m_host->calendar.MonthAppearance());
}
void VmCalendarWidget::setMonthAppearance(Appearance value) {
    m_host->Set<VmAppearanceConstants>("monthAppearance", &VmCalendar::MonthAppearance, value);
}

QColor VmCalendarWidget::monthBackColor() const {
    return m_host->ColorOf(m_host->calendar.MonthBackColor());
}
void VmCalendarWidget::setMonthBackColor(const QColor& value) {
    m_host->SetColor("monthBackColor", &VmCalendar::MonthBackColor, value);
}

VmCalendarWidget::MonthDisplay VmCalendarWidget::monthDisplay() const {
    return static_cast<MonthDisplay>(m_host->calendar.MonthDisplay());
}
void VmCalendarWidget::setMonthDisplay(MonthDisplay value) {
    m_host->Set<VmMonthDisplayConstants>("monthDisplay", &VmCalendar::MonthDisplay, value);
}

QFont VmCalendarWidget::monthFont() const { return m_host->FontOf(m_host->calendar.MonthFont()); }
void VmCalendarWidget::setMonthFont(const QFont& value) {
    m_host->SetFont("monthFont", &VmCalendar::MonthFont, value);
}

QColor VmCalendarWidget::monthForeColor() const {
    return m_host->ColorOf(m_host->calendar.MonthForeColor());
}
void VmCalendarWidget::setMonthForeColor(const QColor& value) {
    m_host->SetColor("monthForeColor", &VmCalendar::MonthForeColor, value);
}

VmCalendarWidget::MonthYearSelStyle VmCalendarWidget::monthYearSelStyle() const {
    return static_cast<MonthYearSelStyle>(m_host->calendar.MonthYearSelStyle());
}
void VmCalendarWidget::setMonthYearSelStyle(MonthYearSelStyle value) {
    m_host->Set<VmMonthYearSelStyleConstants>("monthYearSelStyle", &VmCalendar::MonthYearSelStyle,
                                              value);
}

QPixmap VmCalendarWidget::mouseIcon() const {
    return QPixmap::fromImage(ToQImage(m_host->calendar.MouseIcon()));
}
void VmCalendarWidget::setMouseIcon(const QPixmap& value) {
    m_host->Set<const PictureRef&>("mouseIcon", &VmCalendar::MouseIcon,
                                   iconPicture(value.toImage()));
}

int VmCalendarWidget::mousePointer() const { return m_host->calendar.MousePointer(); }
void VmCalendarWidget::setMousePointer(int value) {
    if (!std::in_range<std::int16_t>(value)) return;
    m_host->calendar.MousePointer(static_cast<std::int16_t>(value));
}

QColor VmCalendarWidget::selectedDayBackColor() const {
    return m_host->ColorOf(m_host->calendar.SelectedDayBackColor());
}
void VmCalendarWidget::setSelectedDayBackColor(const QColor& value) {
    m_host->SetColor("selectedDayBackColor", &VmCalendar::SelectedDayBackColor, value);
}

QColor VmCalendarWidget::selectedDayForeColor() const {
    return m_host->ColorOf(m_host->calendar.SelectedDayForeColor());
}
void VmCalendarWidget::setSelectedDayForeColor(const QColor& value) {
    m_host->SetColor("selectedDayForeColor", &VmCalendar::SelectedDayForeColor, value);
}

QColor VmCalendarWidget::todayBackColor() const {
    return m_host->ColorOf(m_host->calendar.TodayBackColor());
}
void VmCalendarWidget::setTodayBackColor(const QColor& value) {
    m_host->SetColor("todayBackColor", &VmCalendar::TodayBackColor, value);
}

QColor VmCalendarWidget::todayForeColor() const {
    return m_host->ColorOf(m_host->calendar.TodayForeColor());
}
void VmCalendarWidget::setTodayForeColor(const QColor& value) {
    m_host->SetColor("todayForeColor", &VmCalendar::TodayForeColor, value);
}

VmCalendarWidget::Appearance VmCalendarWidget::weekDayAppearance() const {
    return static_cast<Appearance>(m_host->calendar.WeekDayAppearance());
}
void VmCalendarWidget::setWeekDayAppearance(Appearance value) {
    m_host->Set<VmAppearanceConstants>("weekDayAppearance", &VmCalendar::WeekDayAppearance, value);
}

QColor VmCalendarWidget::weekDayBackColor() const {
    return m_host->ColorOf(m_host->calendar.WeekDayBackColor());
}
void VmCalendarWidget::setWeekDayBackColor(const QColor& value) {
    m_host->SetColor("weekDayBackColor", &VmCalendar::WeekDayBackColor, value);
}

VmCalendarWidget::WeekDayDisplay VmCalendarWidget::weekDayDisplay() const {
    return static_cast<WeekDayDisplay>(m_host->calendar.WeekDayDisplay());
}
void VmCalendarWidget::setWeekDayDisplay(WeekDayDisplay value) {
    m_host->Set<VmWeekDayDisplayConstants>("weekDayDisplay", &VmCalendar::WeekDayDisplay, value);
}

QFont VmCalendarWidget::weekDayFont() const {
    return m_host->FontOf(m_host->calendar.WeekDayFont());
}
void VmCalendarWidget::setWeekDayFont(const QFont& value) {
    m_host->SetFont("weekDayFont", &VmCalendar::WeekDayFont, value);
}

QColor VmCalendarWidget::weekDayForeColor() const {
    return m_host->ColorOf(m_host->calendar.WeekDayForeColor());
}
void VmCalendarWidget::setWeekDayForeColor(const QColor& value) {
    m_host->SetColor("weekDayForeColor", &VmCalendar::WeekDayForeColor, value);
}

VmCalendarWidget::TextAlignment VmCalendarWidget::weekDayCaptionAlignment() const {
    return static_cast<TextAlignment>(m_host->calendar.WeekDayCaptionAlignment());
}
void VmCalendarWidget::setWeekDayCaptionAlignment(TextAlignment value) {
    m_host->Set<VmTextAlignmentConstants>("weekDayCaptionAlignment",
                                          &VmCalendar::WeekDayCaptionAlignment, value);
}

bool VmCalendarWidget::showWeekend() const { return m_host->calendar.ShowWeekend(); }
void VmCalendarWidget::setShowWeekend(bool value) { m_host->calendar.ShowWeekend(value); }

VmCalendarWidget::OLEDropMode VmCalendarWidget::oleDropMode() const {
    return static_cast<OLEDropMode>(m_host->calendar.OLEDropMode());
}
void VmCalendarWidget::setOleDropMode(OLEDropMode value) {
    m_host->Set<VmOLEDropModeConstants>("oleDropMode", &VmCalendar::OLEDropMode, value);
}

void VmCalendarWidget::setNoRepaintControl(bool value) { m_host->calendar.NoRepaintControl(value); }

void VmCalendarWidget::setAlwaysDateChanged(bool value) {
    m_host->calendar.AlwaysDateChanged(value);
}

void VmCalendarWidget::repaintControl() { m_host->calendar.RepaintControl(); }

void VmCalendarWidget::oleDrag() { m_host->calendar.OleDrag(); }

void VmCalendarWidget::aboutBox() { m_host->calendar.AboutBox(); }

}  // namespace velmora
