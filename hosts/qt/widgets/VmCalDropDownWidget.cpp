#include "VelmoraCalendar/VmCalDropDownWidget.h"

#include "hosts/qt/widgets/VmCalDropDownHost.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

namespace velmora {

VmCalDropDownWidget::VmCalDropDownWidget(QWidget* parent) : VmDateWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_host = std::make_unique<Host>(*this);
}

VmCalDropDownWidget::~VmCalDropDownWidget() { EndHost(); }

VmCalDropDownWidget::Host& VmCalDropDownWidget::Own() const noexcept {
    return static_cast<Host&>(*m_host);
}

VmCalDropDown& VmCalDropDownWidget::dropDownBox() noexcept { return Own().dropDown; }

const VmCalDropDown& VmCalDropDownWidget::dropDownBox() const noexcept { return Own().dropDown; }

QString VmCalDropDownWidget::text() const { return ToQString(dropDownBox().Text()); }

QFont VmCalDropDownWidget::comboFont() const {
    return m_host->Shown<QFont>(dropDownBox().ComboFont());
}
void VmCalDropDownWidget::setComboFont(const QFont& value) {
    Host::Let(dropDownBox(), kComboFont, value);
}
void VmCalDropDownWidget::resetComboFont() { dropDownBox().ComboFont(nullptr); }

QDate VmCalDropDownWidget::date() const { return dateValue().date(); }
/// In a zone without gaps, as the box has none.
void VmCalDropDownWidget::setDate(QDate value) {
    m_host->Let(kDateValue,
                value.isValid() ? QDateTime(value, dateValue().time(), Qt::UTC) : QDateTime());
}

QString VmCalDropDownWidget::dateFormat() const { return ToQString(dropDownBox().DateFormat()); }
void VmCalDropDownWidget::setDateFormat(const QString& value) {
    Host::Let(dropDownBox(), kDateFormat, value);
}

QDateTime VmCalDropDownWidget::dateValue() const { return ToQDateTime(dropDownBox().DateValue()); }
void VmCalDropDownWidget::setDateValue(const QDateTime& value) { m_host->Let(kDateValue, value); }

VmCalDropDownWidget::DropDownAlignment VmCalDropDownWidget::dropDownAlignment() const {
    return static_cast<DropDownAlignment>(dropDownBox().DropDownAlignment());
}
void VmCalDropDownWidget::setDropDownAlignment(DropDownAlignment value) {
    Host::Let(dropDownBox(), kDropDownAlignment, value);
}

VmCalDropDownWidget::Appearance VmCalDropDownWidget::dropDownAppearance() const {
    return m_host->Get<Appearance>(kAppearance);
}
void VmCalDropDownWidget::setDropDownAppearance(Appearance value) {
    m_host->Let(kAppearance, value);
}

int VmCalDropDownWidget::dropDownHeight() const { return dropDownBox().DropDownHeight(); }
void VmCalDropDownWidget::setDropDownHeight(int value) {
    Host::Let(dropDownBox(), kDropDownHeight, value);
}

bool VmCalDropDownWidget::dropDownState() const { return dropDownBox().DropDownState(); }
void VmCalDropDownWidget::setDropDownState(bool value) { dropDownBox().DropDownState(value); }

int VmCalDropDownWidget::dropDownWidth() const { return dropDownBox().DropDownWidth(); }
void VmCalDropDownWidget::setDropDownWidth(int value) {
    Host::Let(dropDownBox(), kDropDownWidth, value);
}

bool VmCalDropDownWidget::keepDropDownOnScreen() const {
    return dropDownBox().KeepDropDownOnScreen();
}
void VmCalDropDownWidget::setKeepDropDownOnScreen(bool value) {
    dropDownBox().KeepDropDownOnScreen(value);
    m_host->PropertyChanged("keepDropDownOnScreen");
}

VmCalDropDownWidget::MonthYearSelStyle VmCalDropDownWidget::monthYearSelStyle() const {
    return m_host->Get<MonthYearSelStyle>(kMonthYearSelStyle);
}
void VmCalDropDownWidget::setMonthYearSelStyle(MonthYearSelStyle value) {
    m_host->Let(kMonthYearSelStyle, value);
}

void VmCalDropDownWidget::setNoLostFocus(bool value) { dropDownBox().NoLostFocus(value); }

QSize VmCalDropDownWidget::sizeHint() const {
    const Size size = Own().dropDown.UsualSize();
    return {size.width, size.height};
}

QSize VmCalDropDownWidget::minimumSizeHint() const { return sizeHint(); }

/// Keys that close the calendar are no shortcuts of the form while it is open, and that which
/// copies never is.
bool VmCalDropDownWidget::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && m_host) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        const bool closes = key.key() == Qt::Key_Escape || key.key() == Qt::Key_Return ||
                            key.key() == Qt::Key_Enter;
        if ((closes && dropDownState()) || key.matches(QKeySequence::Copy)) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void VmCalDropDownWidget::keyPressEvent(QKeyEvent* event) {
    const QPointer<VmCalDropDownWidget> alive(this);
    VmDateWidget::keyPressEvent(event);
    if (!alive || event->isAccepted() || !event->matches(QKeySequence::Copy)) return;
    QGuiApplication::clipboard()->setText(text());
    event->accept();
}

/// Of the widgets around this one, while the calendar is open.
bool VmCalDropDownWidget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Hide:
        case QEvent::ParentChange:
        case QEvent::WindowStateChange:
            if (m_host) Own().WindowChanged();
            break;
        default: break;
    }
    return QWidget::eventFilter(watched, event);
}

void VmCalDropDownWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Own().Paint(painter);
    DrawBorder(painter);
}

void VmCalDropDownWidget::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (m_host) Own().WindowChanged();
}

void VmCalDropDownWidget::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    Own().WindowChanged();
}

void VmCalDropDownWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Own().WindowChanged();
}

void VmCalDropDownWidget::focusInEvent(QFocusEvent*) { Own().FocusGained(); }

void VmCalDropDownWidget::focusOutEvent(QFocusEvent*) {
    if (m_host) Own().FocusLost();
}

}  // namespace velmora
