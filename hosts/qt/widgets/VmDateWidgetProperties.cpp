#include "VelmoraCalendar/VmDateWidget.h"
#include "hosts/qt/widgets/DateWidgetHost.h"

#include <utility>

/// The properties that both widgets have, each by its row.
namespace velmora {

bool VmDateWidget::classicLook() const { return m_host->ClassicLook(); }
void VmDateWidget::setClassicLook(bool value) {
    m_host->ClassicLook(value);
    m_host->PropertyChanged("classicLook");
}

QDate VmDateWidget::dateMax() const { return m_host->Get<QDate>(kDateMax); }
void VmDateWidget::setDateMax(QDate value) { m_host->Let(kDateMax, value); }

QDate VmDateWidget::dateMin() const { return m_host->Get<QDate>(kDateMin); }
void VmDateWidget::setDateMin(QDate value) { m_host->Let(kDateMin, value); }

VmDateWidget::Appearance VmDateWidget::dayAppearance() const {
    return m_host->Get<Appearance>(kDayAppearance);
}
void VmDateWidget::setDayAppearance(Appearance value) { m_host->Let(kDayAppearance, value); }

VmDateWidget::TextAlignment VmDateWidget::dayCaptionAlignment() const {
    return m_host->Get<TextAlignment>(kDayCaptionAlignment);
}
void VmDateWidget::setDayCaptionAlignment(TextAlignment value) {
    m_host->Let(kDayCaptionAlignment, value);
}

QColor VmDateWidget::dayDefaultBackColor() const {
    return m_host->Get<QColor>(kDayDefaultBackColor);
}
void VmDateWidget::setDayDefaultBackColor(const QColor& value) {
    m_host->Let(kDayDefaultBackColor, value);
}
void VmDateWidget::resetDayDefaultBackColor() { m_host->Reset(kDayDefaultBackColor); }

QColor VmDateWidget::dayDefaultForeColor() const {
    return m_host->Get<QColor>(kDayDefaultForeColor);
}
void VmDateWidget::setDayDefaultForeColor(const QColor& value) {
    m_host->Let(kDayDefaultForeColor, value);
}
void VmDateWidget::resetDayDefaultForeColor() { m_host->Reset(kDayDefaultForeColor); }

QFont VmDateWidget::dayFont() const { return m_host->Get<QFont>(kDayFont); }
void VmDateWidget::setDayFont(const QFont& value) { m_host->Let(kDayFont, value); }
void VmDateWidget::resetDayFont() { m_host->Reset(kDayFont); }

VmDateWidget::TextAlignment VmDateWidget::dayNumberAlignment() const {
    return m_host->Get<TextAlignment>(kDayNumberAlignment);
}
void VmDateWidget::setDayNumberAlignment(TextAlignment value) {
    m_host->Let(kDayNumberAlignment, value);
}

QColor VmDateWidget::dayOtherMonthForeColor() const {
    return m_host->Get<QColor>(kDayOtherMonthForeColor);
}
void VmDateWidget::setDayOtherMonthForeColor(const QColor& value) {
    m_host->Let(kDayOtherMonthForeColor, value);
}
void VmDateWidget::resetDayOtherMonthForeColor() { m_host->Reset(kDayOtherMonthForeColor); }

VmDateWidget::PictureAlignment VmDateWidget::dayPictureAlignment() const {
    return m_host->Get<PictureAlignment>(kDayPictureAlignment);
}
void VmDateWidget::setDayPictureAlignment(PictureAlignment value) {
    m_host->Let(kDayPictureAlignment, value);
}

bool VmDateWidget::extendedNavigation() const {
    return m_host->With([](auto& control) { return control.ExtendedNavigation(); });
}
void VmDateWidget::setExtendedNavigation(bool value) {
    setAttribute(Qt::WA_AcceptTouchEvents, value);
    m_host->With([value](auto& control) { control.ExtendedNavigation(value); });
    m_host->PropertyChanged("extendedNavigation");
}

VmDateWidget::WeekDay VmDateWidget::firstDayOfWeek() const {
    return m_host->Get<WeekDay>(kFirstDayOfWeek);
}
void VmDateWidget::setFirstDayOfWeek(WeekDay value) { m_host->Let(kFirstDayOfWeek, value); }

VmDateWidget::Appearance VmDateWidget::monthAppearance() const {
    return m_host->Get<Appearance>(kMonthAppearance);
}
void VmDateWidget::setMonthAppearance(Appearance value) { m_host->Let(kMonthAppearance, value); }

QColor VmDateWidget::monthBackColor() const { return m_host->Get<QColor>(kMonthBackColor); }
void VmDateWidget::setMonthBackColor(const QColor& value) { m_host->Let(kMonthBackColor, value); }
void VmDateWidget::resetMonthBackColor() { m_host->Reset(kMonthBackColor); }

VmDateWidget::MonthDisplay VmDateWidget::monthDisplay() const {
    return m_host->Get<MonthDisplay>(kMonthDisplay);
}
void VmDateWidget::setMonthDisplay(MonthDisplay value) { m_host->Let(kMonthDisplay, value); }

QFont VmDateWidget::monthFont() const { return m_host->Get<QFont>(kMonthFont); }
void VmDateWidget::setMonthFont(const QFont& value) { m_host->Let(kMonthFont, value); }
void VmDateWidget::resetMonthFont() { m_host->Reset(kMonthFont); }

QColor VmDateWidget::monthForeColor() const { return m_host->Get<QColor>(kMonthForeColor); }
void VmDateWidget::setMonthForeColor(const QColor& value) { m_host->Let(kMonthForeColor, value); }
void VmDateWidget::resetMonthForeColor() { m_host->Reset(kMonthForeColor); }

QPixmap VmDateWidget::mouseIcon() const { return m_host->Get<QPixmap>(kMouseIcon); }
void VmDateWidget::setMouseIcon(const QPixmap& value) { m_host->Let(kMouseIcon, value); }

QColor VmDateWidget::selectedDayBackColor() const {
    return m_host->Get<QColor>(kSelectedDayBackColor);
}
void VmDateWidget::setSelectedDayBackColor(const QColor& value) {
    m_host->Let(kSelectedDayBackColor, value);
}
void VmDateWidget::resetSelectedDayBackColor() { m_host->Reset(kSelectedDayBackColor); }

QColor VmDateWidget::selectedDayForeColor() const {
    return m_host->Get<QColor>(kSelectedDayForeColor);
}
void VmDateWidget::setSelectedDayForeColor(const QColor& value) {
    m_host->Let(kSelectedDayForeColor, value);
}
void VmDateWidget::resetSelectedDayForeColor() { m_host->Reset(kSelectedDayForeColor); }

bool VmDateWidget::showWeekend() const { return m_host->Get<bool>(kShowWeekend); }
void VmDateWidget::setShowWeekend(bool value) { m_host->Let(kShowWeekend, value); }

QColor VmDateWidget::todayBackColor() const { return m_host->Get<QColor>(kTodayBackColor); }
void VmDateWidget::setTodayBackColor(const QColor& value) { m_host->Let(kTodayBackColor, value); }
void VmDateWidget::resetTodayBackColor() { m_host->Reset(kTodayBackColor); }

QColor VmDateWidget::todayForeColor() const { return m_host->Get<QColor>(kTodayForeColor); }
void VmDateWidget::setTodayForeColor(const QColor& value) { m_host->Let(kTodayForeColor, value); }
void VmDateWidget::resetTodayForeColor() { m_host->Reset(kTodayForeColor); }

VmDateWidget::Appearance VmDateWidget::weekDayAppearance() const {
    return m_host->Get<Appearance>(kWeekDayAppearance);
}
void VmDateWidget::setWeekDayAppearance(Appearance value) {
    m_host->Let(kWeekDayAppearance, value);
}

QColor VmDateWidget::weekDayBackColor() const { return m_host->Get<QColor>(kWeekDayBackColor); }
void VmDateWidget::setWeekDayBackColor(const QColor& value) {
    m_host->Let(kWeekDayBackColor, value);
}
void VmDateWidget::resetWeekDayBackColor() { m_host->Reset(kWeekDayBackColor); }

VmDateWidget::TextAlignment VmDateWidget::weekDayCaptionAlignment() const {
    return m_host->Get<TextAlignment>(kWeekDayCaptionAlignment);
}
void VmDateWidget::setWeekDayCaptionAlignment(TextAlignment value) {
    m_host->Let(kWeekDayCaptionAlignment, value);
}

VmDateWidget::WeekDayDisplay VmDateWidget::weekDayDisplay() const {
    return m_host->Get<WeekDayDisplay>(kWeekDayDisplay);
}
void VmDateWidget::setWeekDayDisplay(WeekDayDisplay value) { m_host->Let(kWeekDayDisplay, value); }

QFont VmDateWidget::weekDayFont() const { return m_host->Get<QFont>(kWeekDayFont); }
void VmDateWidget::setWeekDayFont(const QFont& value) { m_host->Let(kWeekDayFont, value); }
void VmDateWidget::resetWeekDayFont() { m_host->Reset(kWeekDayFont); }

QColor VmDateWidget::weekDayForeColor() const { return m_host->Get<QColor>(kWeekDayForeColor); }
void VmDateWidget::setWeekDayForeColor(const QColor& value) {
    m_host->Let(kWeekDayForeColor, value);
}
void VmDateWidget::resetWeekDayForeColor() { m_host->Reset(kWeekDayForeColor); }

int VmDateWidget::mousePointer() const { return m_host->Get<int>(kMousePointer); }
void VmDateWidget::setMousePointer(int value) {
    if (std::in_range<std::int16_t>(value)) m_host->Let(kMousePointer, value);
}

VmDateWidget::OLEDropMode VmDateWidget::oleDropMode() const {
    return m_host->With(
        [](auto& control) { return static_cast<OLEDropMode>(control.OLEDropMode()); });
}
void VmDateWidget::setOleDropMode(OLEDropMode value) {
    m_host->With([this, value](auto& control) {
        Host::Attempt(control, "oleDropMode", [&] {
            control.OLEDropMode(static_cast<VmOLEDropModeConstants>(value));
            m_host->PropertyChanged("oleDropMode");
        });
    });
}

}  // namespace velmora
