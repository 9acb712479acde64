#include "hosts/qt/windows/QtSelectors.h"

#include "hosts/qt/windows/QtInput.h"
#include "platform/Keys.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleOptionFocusRect>
#include <QStyleOptionSlider>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

#include <string>
#include <utility>

namespace velmora {
namespace {

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// The keys by which the calendar moves, and their company.
bool IsNavigation(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End: return true;
        default: return false;
    }
}

/// The window of an open list or menu takes the focus for a while.
void PostFocus(SelectorInput& input, const QFocusEvent& event) {
    if (event.reason() == Qt::PopupFocusReason) return;
    input.Post(event.gotFocus() ? &VmCalendar::OnSelectorEnter : &VmCalendar::OnSelectorLeave);
}

}  // namespace

MonthListBox::MonthListBox(QWidget& parent, SelectorInput& input)
    : QComboBox(&parent), m_input(input) {
    connect(this, &QComboBox::activated, this, [this](int index) {
        m_chosen = index;
        if (!IsOpen()) PostChoice();
    });
}

/// The list's window is made when it first drops; asking the combo box for it would make it.
bool MonthListBox::IsOpen() const {
    const auto* const list = findChild<QAbstractItemView*>();
    return list && list->isVisible();
}

/// An open list has the keyboard for itself, and takes Escape before the box could see it.
void MonthListBox::showPopup() {
    m_input.Post(&VmCalendar::OnSelectorEnter);
    QComboBox::showPopup();
    view()->installEventFilter(this);
}

void MonthListBox::hidePopup() {
    QComboBox::hidePopup();
    PostChoice();
}

void MonthListBox::PostChoice() {
    const int chosen = std::exchange(m_chosen, -1);
    if (chosen >= 0) m_input.Post(&VmCalendar::OnMonthListClick, chosen);
}

void MonthListBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    PostFocus(m_input, *event);
}

void MonthListBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    PostFocus(m_input, *event);
}

void MonthListBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        PressEscape();
    } else {
        ReleaseEscape();
    }
    if (IsEnter(*event)) m_input.Post(&VmCalendar::OnMonthListKeyDown, kKeyEnter);
    QComboBox::keyPressEvent(event);
    if (IsNavigation(*event)) event->accept();
}

void MonthListBox::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat()) ReleaseEscape();
    QComboBox::keyReleaseEvent(event);
    if (IsNavigation(*event)) event->accept();
}

bool MonthListBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        PressEscape();
    }
    return QComboBox::eventFilter(watched, event);
}

void MonthListBox::PressEscape() {
    m_escapeDown = true;
    m_input.Post(&VmCalendar::OnMonthListKeyDown, kKeyEscape);
}

/// The release of the key that closes the open list goes to a window that is no more when it comes
/// late: the next key that is pressed stands for it.
void MonthListBox::ReleaseEscape() {
    if (!std::exchange(m_escapeDown, false)) return;
    m_input.Post(&VmCalendar::OnMonthListKeyUp, kKeyEscape);
}

YearBox::YearBox(QWidget& parent, SelectorInput& input) : QLineEdit(&parent), m_input(input) {
    setAcceptDrops(false);  // what is dropped here is dropped on the calendar
}

void YearBox::Step(int years) {
    m_input.PostYearStep(years, text().toStdString(), isModified());
    setModified(false);
}

void YearBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    PostFocus(m_input, *event);
}

void YearBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && isModified()) {
        m_input.Post(&VmCalendar::OnYearText, text().toStdString());
        setModified(false);
    }
    PostFocus(m_input, *event);
}

/// Enter and Escape that did nothing to the text are left to the dialog around.
void YearBox::keyPressEvent(QKeyEvent* event) {
    const bool edited = isModified();
    if (m_input.PostYearKey(VirtualKeyOf(*event), text().toStdString(), edited)) {
        setModified(false);
        event->setAccepted(edited || IsNavigation(*event));
        return;
    }
    QLineEdit::keyPressEvent(event);
    if (IsNavigation(*event)) event->accept();
}

SelectorBar::SelectorBar(Qt::Orientation orientation, QWidget& parent, SelectorInput& input,
                         Handler handler)
    : QScrollBar(orientation, &parent), m_input(input), m_handler(handler) {
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);  // its own menu would outlive a deleted calendar
    connect(this, &QScrollBar::valueChanged, this, [this] { PostValue(); });
}

/// Qt turns the keys of scroll bars round, so that Page Up goes up, and with them Left and Right.
void SelectorBar::keyPressEvent(QKeyEvent* event) {
    const bool isLeft = event->key() == Qt::Key_Left;
    if (!isLeft && event->key() != Qt::Key_Right) return QScrollBar::keyPressEvent(event);
    triggerAction(isLeft == isLeftToRight() ? SliderSingleStepSub : SliderSingleStepAdd);
}

void SelectorBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect.adjust(1, 1, -1, -1);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void SelectorBar::PostValue() {
    if (std::exchange(m_posted, true)) return;
    const QPointer<SelectorBar> bar(this);
    m_input.Post([bar](VmCalendar& calendar) {
        if (!bar) return;
        bar->m_posted = false;
        (calendar.*bar->m_handler)(bar->value());
    });
}

YearBar::YearBar(QWidget& parent, SelectorInput& input)
    : SelectorBar(Qt::Vertical, parent, input, &VmCalendar::OnYearSpinner) {
    setPageStep(10);  // years
    connect(this, &QScrollBar::actionTriggered, this, &YearBar::Act);
}

/// Its values are negated years.
void YearBar::Act(int action) {
    switch (action) {
        case SliderSingleStepAdd: Step(-singleStep()); break;
        case SliderSingleStepSub: Step(singleStep()); break;
        case SliderPageStepAdd: Step(-pageStep()); break;
        case SliderPageStepSub: Step(pageStep()); break;
        default: break;
    }
}

/// The bar itself stays: a typed year may move it first.
void YearBar::Step(int years) {
    setSliderPosition(value());
    for (QLineEdit* const edit : parentWidget()->findChildren<QLineEdit*>()) {
        if (auto* const box = dynamic_cast<YearBox*>(edit)) box->Step(years);
    }
}

void YearBar::paintEvent(QPaintEvent* event) {
    if (parentWidget()->property("classicLook").toBool()) return SelectorBar::paintEvent(event);
    constexpr int kText = 40;  // of the spin box, out of sight
    QStyleOptionSlider bar;
    initStyleOption(&bar);
    QStyleOptionSpinBox option;
    option.initFrom(this);
    option.rect.adjust(isLeftToRight() ? -kText : 0, 0, isLeftToRight() ? 0 : kText, 0);
    option.frame = true;
    option.subControls = QStyle::SC_SpinBoxFrame | QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown;
    option.stepEnabled.setFlag(QAbstractSpinBox::StepUpEnabled, value() > minimum());
    option.stepEnabled.setFlag(QAbstractSpinBox::StepDownEnabled, value() < maximum());
    option.state |= bar.state & QStyle::State_Sunken;
    if (bar.activeSubControls == QStyle::SC_ScrollBarSubLine) {
        option.activeSubControls = QStyle::SC_SpinBoxUp;
    } else if (bar.activeSubControls == QStyle::SC_ScrollBarAddLine) {
        option.activeSubControls = QStyle::SC_SpinBoxDown;
    }
    QPainter painter(this);
    style()->drawComplexControl(QStyle::CC_SpinBox, &option, &painter);
}

void YearBar::wheelEvent(QWheelEvent* event) {
    constexpr int kNotch = 120;
    m_wheel += event->angleDelta().y();
    if (m_wheel / kNotch != 0) Step(m_wheel / kNotch);
    m_wheel %= kNotch;
    event->accept();
}

}  // namespace velmora
