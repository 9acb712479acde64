#include "VelmoraCalendar/VmCalDropDownWidget.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/widgets/VmCalDropDownHost.h"

#include <utility>

namespace velmora {

VmCalDropDown& VmCalDropDownWidget::dropDownBox() noexcept { return m_host->dropDown; }

const VmCalDropDown& VmCalDropDownWidget::dropDownBox() const noexcept { return m_host->dropDown; }

DayRef VmCalDropDownWidget::day(int dayOfMonth) const {
    const DaysRef& days = m_host->dropDown.Days();
    if (dayOfMonth < 1 || dayOfMonth > days->Count()) return nullptr;
    return days->Item(static_cast<std::int16_t>(dayOfMonth));
}

DayRef VmCalDropDownWidget::selectedDay() const {
    return day(DayOfMonth(DayOf(m_host->dropDown.DateValue())));
}

QString VmCalDropDownWidget::text() const { return ToQString(m_host->dropDown.Text()); }

QFont VmCalDropDownWidget::comboFont() const {
    return m_host->FontOf(m_host->dropDown.ComboFont());
}
void VmCalDropDownWidget::setComboFont(const QFont& value) {
    m_host->LetFont("comboFont", kComboFont, value);
}

QString VmCalDropDownWidget::dateFormat() const { return ToQString(m_host->dropDown.DateFormat()); }
void VmCalDropDownWidget::setDateFormat(const QString& value) {
    m_host->Let("dateFormat", kDateFormat, value.toStdString());
}

QDate VmCalDropDownWidget::dateMax() const { return ToQDate(DayOf(m_host->dropDown.DateMax())); }
void VmCalDropDownWidget::setDateMax(QDate value) {
    m_host->SetDate("dateMax", &VmCalDropDown::DateMax, value);
}

QDate VmCalDropDownWidget::dateMin() const { return ToQDate(DayOf(m_host->dropDown.DateMin())); }
void VmCalDropDownWidget::setDateMin(QDate value) {
    m_host->SetDate("dateMin", &VmCalDropDown::DateMin, value);
}

QDateTime VmCalDropDownWidget::dateValue() const {
    return ToQDateTime(m_host->dropDown.DateValue());
}
void VmCalDropDownWidget::setDateValue(const QDateTime& value) {
    if (!value.isValid()) return Host::WarnOfType("dateValue");
    m_host->Set<const Variant&>("dateValue", &VmCalDropDown::DateValue, Variant(ToDate(value)));
}

VmCalendarWidget::Appearance VmCalDropDownWidget::dayAppearance() const {
    return static_cast<VmCalendarWidget::Appearance>(m_host->dropDown.Get(kDayAppearance));
}
void VmCalDropDownWidget::setDayAppearance(VmCalendarWidget::Appearance value) {
    m_host->Let("dayAppearance", kDayAppearance, value);
}

VmCalendarWidget::TextAlignment VmCalDropDownWidget::dayCaptionAlignment() const {
    return static_cast<VmCalendarWidget::TextAlignment>(m_host->dropDown.Get(kDayCaptionAlignment));
}
void VmCalDropDownWidget::setDayCaptionAlignment(VmCalendarWidget::TextAlignment value) {
    m_host->Let("dayCaptionAlignment", kDayCaptionAlignment, value);
}

QColor VmCalDropDownWidget::dayDefaultBackColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kDayDefaultBackColor));
}
void VmCalDropDownWidget::setDayDefaultBackColor(const QColor& value) {
    m_host->LetColor("dayDefaultBackColor", kDayDefaultBackColor, value);
}

QColor VmCalDropDownWidget::dayDefaultForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kDayDefaultForeColor));
}
void VmCalDropDownWidget::setDayDefaultForeColor(const QColor& value) {
    m_host->LetColor("dayDefaultForeColor", kDayDefaultForeColor, value);
}

QFont VmCalDropDownWidget::dayFont() const {
    return m_host->FontOf(m_host->dropDown.Get(kDayFont));
}
void VmCalDropDownWidget::setDayFont(const QFont& value) {
    m_host->LetFont("dayFont", kDayFont, value);
}

VmCalendarWidget::TextAlignment VmCalDropDownWidget::dayNumberAlignment() const {
    return static_cast<VmCalendarWidget::TextAlignment>(m_host->dropDown.Get(kDayNumberAlignment));
}
void VmCalDropDownWidget::setDayNumberAlignment(VmCalendarWidget::TextAlignment value) {
    m_host->Let("dayNumberAlignment", kDayNumberAlignment, value);
}

QColor VmCalDropDownWidget::dayOtherMonthForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kDayOtherMonthForeColor));
}
void VmCalDropDownWidget::setDayOtherMonthForeColor(const QColor& value) {
    m_host->LetColor("dayOtherMonthForeColor", kDayOtherMonthForeColor, value);
}

VmCalendarWidget::PictureAlignment VmCalDropDownWidget::dayPictureAlignment() const {
    return static_cast<VmCalendarWidget::PictureAlignment>(
        m_host->dropDown.Get(kDayPictureAlignment));
}
void VmCalDropDownWidget::setDayPictureAlignment(VmCalendarWidget::PictureAlignment value) {
    m_host->Let("dayPictureAlignment", kDayPictureAlignment, value);
}

VmCalDropDownWidget::DropDownAlignment VmCalDropDownWidget::dropDownAlignment() const {
    return static_cast<DropDownAlignment>(m_host->dropDown.DropDownAlignment());
}
void VmCalDropDownWidget::setDropDownAlignment(DropDownAlignment value) {
    m_host->Set<VmDropDownAlignmentConstants>("dropDownAlignment",
                                              &VmCalDropDown::DropDownAlignment, value);
}

VmCalendarWidget::Appearance VmCalDropDownWidget::dropDownAppearance() const {
    return static_cast<VmCalendarWidget::Appearance>(m_host->dropDown.Get(kAppearance));
}
void VmCalDropDownWidget::setDropDownAppearance(VmCalendarWidget::Appearance value) {
    m_host->Let("dropDownAppearance", kAppearance, value);
}

int VmCalDropDownWidget::dropDownHeight() const { return m_host->dropDown.DropDownHeight(); }
void VmCalDropDownWidget::setDropDownHeight(int value) {
    m_host->Set<std::int32_t>("dropDownHeight", &VmCalDropDown::DropDownHeight, value);
}

bool VmCalDropDownWidget::dropDownState() const { return m_host->dropDown.DropDownState(); }
void VmCalDropDownWidget::setDropDownState(bool value) { m_host->dropDown.DropDownState(value); }

int VmCalDropDownWidget::dropDownWidth() const { return m_host->dropDown.DropDownWidth(); }
void VmCalDropDownWidget::setDropDownWidth(int value) {
    m_host->Set<std::int32_t>("dropDownWidth", &VmCalDropDown::DropDownWidth, value);
}

VmCalendarWidget::WeekDay VmCalDropDownWidget::firstDayOfWeek() const {
    return static_cast<VmCalendarWidget::WeekDay>(m_host->dropDown.Get(kFirstDayOfWeek));
}
void VmCalDropDownWidget::setFirstDayOfWeek(VmCalendarWidget::WeekDay value) {
    m_host->Let("firstDayOfWeek", kFirstDayOfWeek, value);
}

VmCalendarWidget::Appearance VmCalDropDownWidget::monthAppearance() const {
    return static_cast<VmCalendarWidget::Appearance>(m_host->dropDown.Get(kMonthAppearance));
}
void VmCalDropDownWidget::setMonthAppearance(VmCalendarWidget::Appearance value) {
    m_host->Let("monthAppearance", kMonthAppearance, value);
}

QColor VmCalDropDownWidget::monthBackColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kMonthBackColor));
}
void VmCalDropDownWidget::setMonthBackColor(const QColor& value) {
    m_host->LetColor("monthBackColor", kMonthBackColor, value);
}

VmCalendarWidget::MonthDisplay VmCalDropDownWidget::monthDisplay() const {
    return static_cast<VmCalendarWidget::MonthDisplay>(m_host->dropDown.Get(kMonthDisplay));
}
void VmCalDropDownWidget::setMonthDisplay(VmCalendarWidget::MonthDisplay value) {
    m_host->Let("monthDisplay", kMonthDisplay, value);
}

QFont VmCalDropDownWidget::monthFont() const {
    return m_host->FontOf(m_host->dropDown.Get(kMonthFont));
}
void VmCalDropDownWidget::setMonthFont(const QFont& value) {
    m_host->LetFont("monthFont", kMonthFont, value);
}

QColor VmCalDropDownWidget::monthForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kMonthForeColor));
}
void VmCalDropDownWidget::setMonthForeColor(const QColor& value) {
    m_host->LetColor("monthForeColor", kMonthForeColor, value);
}

VmCalDropDownWidget::MonthYearSelStyle VmCalDropDownWidget::monthYearSelStyle() const {
    return static_cast<MonthYearSelStyle>(m_host->dropDown.Get(kMonthYearSelStyle));
}
void VmCalDropDownWidget::setMonthYearSelStyle(MonthYearSelStyle value) {
    m_host->Let("monthYearSelStyle", kMonthYearSelStyle, value);
}

QPixmap VmCalDropDownWidget::mouseIcon() const {
    return QPixmap::fromImage(ToQImage(m_host->dropDown.MouseIcon()));
}
void VmCalDropDownWidget::setMouseIcon(const QPixmap& value) {
    m_host->Let("mouseIcon", kMouseIcon, iconPicture(value.toImage()));
}

int VmCalDropDownWidget::mousePointer() const { return m_host->dropDown.MousePointer(); }
void VmCalDropDownWidget::setMousePointer(int value) {
    if (!std::in_range<std::int16_t>(value)) return;
    m_host->dropDown.MousePointer(static_cast<std::int16_t>(value));
}

VmCalendarWidget::OLEDropMode VmCalDropDownWidget::oleDropMode() const {
    return static_cast<VmCalendarWidget::OLEDropMode>(m_host->dropDown.OLEDropMode());
}
void VmCalDropDownWidget::setOleDropMode(VmCalendarWidget::OLEDropMode value) {
    m_host->Set<VmOLEDropModeConstants>("oleDropMode", &VmCalDropDown::OLEDropMode, value);
}

QColor VmCalDropDownWidget::selectedDayBackColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kSelectedDayBackColor));
}
void VmCalDropDownWidget::setSelectedDayBackColor(const QColor& value) {
    m_host->LetColor("selectedDayBackColor", kSelectedDayBackColor, value);
}

QColor VmCalDropDownWidget::selectedDayForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kSelectedDayForeColor));
}
void VmCalDropDownWidget::setSelectedDayForeColor(const QColor& value) {
    m_host->LetColor("selectedDayForeColor", kSelectedDayForeColor, value);
}

bool VmCalDropDownWidget::showWeekend() const { return m_host->dropDown.Get(kShowWeekend); }
void VmCalDropDownWidget::setShowWeekend(bool value) {
    m_host->Let("showWeekend", kShowWeekend, value);
}

QColor VmCalDropDownWidget::todayBackColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kTodayBackColor));
}
void VmCalDropDownWidget::setTodayBackColor(const QColor& value) {
    m_host->LetColor("todayBackColor", kTodayBackColor, value);
}

QColor VmCalDropDownWidget::todayForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kTodayForeColor));
}
void VmCalDropDownWidget::setTodayForeColor(const QColor& value) {
    m_host->LetColor("todayForeColor", kTodayForeColor, value);
}

VmCalendarWidget::Appearance VmCalDropDownWidget::weekDayAppearance() const {
    return static_cast<VmCalendarWidget::Appearance>(m_host->dropDown.Get(kWeekDayAppearance));
}
void VmCalDropDownWidget::setWeekDayAppearance(VmCalendarWidget::Appearance value) {
    m_host->Let("weekDayAppearance", kWeekDayAppearance, value);
}

QColor VmCalDropDownWidget::weekDayBackColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kWeekDayBackColor));
}
void VmCalDropDownWidget::setWeekDayBackColor(const QColor& value) {
    m_host->LetColor("weekDayBackColor", kWeekDayBackColor, value);
}

VmCalendarWidget::TextAlignment VmCalDropDownWidget::weekDayCaptionAlignment() const {
    return static_cast<VmCalendarWidget::TextAlignment>(
        m_host->dropDown.Get(kWeekDayCaptionAlignment));
}
void VmCalDropDownWidget::setWeekDayCaptionAlignment(VmCalendarWidget::TextAlignment value) {
    m_host->Let("weekDayCaptionAlignment", kWeekDayCaptionAlignment, value);
}

VmCalendarWidget::WeekDayDisplay VmCalDropDownWidget::weekDayDisplay() const {
    return static_cast<VmCalendarWidget::WeekDayDisplay>(m_host->dropDown.Get(kWeekDayDisplay));
}
void VmCalDropDownWidget::setWeekDayDisplay(VmCalendarWidget::WeekDayDisplay value) {
    m_host->Let("weekDayDisplay", kWeekDayDisplay, value);
}

QFont VmCalDropDownWidget::weekDayFont() const {
    return m_host->FontOf(m_host->dropDown.Get(kWeekDayFont));
}
void VmCalDropDownWidget::setWeekDayFont(const QFont& value) {
    m_host->LetFont("weekDayFont", kWeekDayFont, value);
}

QColor VmCalDropDownWidget::weekDayForeColor() const {
    return m_host->ColorOf(m_host->dropDown.Get(kWeekDayForeColor));
}
void VmCalDropDownWidget::setWeekDayForeColor(const QColor& value) {
    m_host->LetColor("weekDayForeColor", kWeekDayForeColor, value);
}

void VmCalDropDownWidget::setNoLostFocus(bool value) { m_host->dropDown.NoLostFocus(value); }

void VmCalDropDownWidget::repaintControl() { m_host->dropDown.RepaintControl(); }

void VmCalDropDownWidget::oleDrag() { m_host->dropDown.OleDrag(); }

void VmCalDropDownWidget::aboutBox() { m_host->dropDown.AboutBox(); }

}  // namespace velmora
