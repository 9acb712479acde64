#include "hosts/qt/windows/QtDropDownForm.h"

#include "VelmoraCalendar/QtConversions.h"
#include "VelmoraCalendar/VmDateWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/access/CalendarAccess.h"
#include "hosts/qt/values/QtLocale.h"
#include "hosts/qt/windows/AboutBox.h"
#include "hosts/qt/windows/QtInput.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWindow>

#include <utility>

namespace velmora {
namespace {

constexpr int kTick = 30;  // milliseconds

std::shared_ptr<QtDropDownForm>& Instance() {
    static std::shared_ptr<QtDropDownForm> instance;
    return instance;
}

}  // namespace

void QtFormWindowing::SetCapture() {
    m_wanted = true;
    TakeCapture();
}

void QtFormWindowing::ReleaseCapture() {
    m_wanted = false;
    if (QWidget::mouseGrabber() == &Widget()) Widget().releaseMouse();
}

void QtFormWindowing::TakeCapture() {
    if (!m_wanted || QWidget::mouseGrabber() == &Widget() || !Widget().isVisible() ||
        (QGuiApplication::mouseButtons() != Qt::NoButton && !m_releaseIsLost)) {
        return;
    }
    Widget().grabMouse();
}

void QtFormHosting::ShowAboutBox(const AboutText& text) {
    const QWidget* const active = QApplication::activeWindow();
    ShowAbout(text, active ? *active : m_window);
}

std::shared_ptr<QtDropDownForm> QtDropDownForm::Shared() {
    std::shared_ptr<QtDropDownForm>& instance = Instance();
    if (!instance) {
        instance = std::make_shared<QtDropDownForm>();
        qAddPostRoutine([] { Instance().reset(); });
    }
    return instance;
}

QtDropDownForm::QtDropDownForm()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint),
      m_windowing(*this),
      m_hosting(*this),
      m_drawing(this),
      m_dates(DateLocaleOf(locale()), LocalNow),
      m_timer(this),
      m_form({m_drawing, m_windowing, m_dates, m_hosting}, *this),
      m_touch(*this, m_form.Calendar()) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11DoNotAcceptFocus);
    setAttribute(Qt::WA_X11NetWmWindowTypeCombo);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_AlwaysShowToolTips);  // as it is never the active window
    setMouseTracking(true);
    m_timer.setInterval(kTick);
    connect(&m_timer, &QTimer::timeout, this, &QtDropDownForm::Tick);
    const auto tell = [this] { DateWidgetAccess::TellReaders(*this); };
    CalendarEvents& events = m_form.Calendar().Events();
    events.DateChanged.Connect([tell](Date&) { tell(); });
    events.MonthChanged.Connect([tell](std::int16_t&) { tell(); });
    events.YearChanged.Connect([tell](std::int16_t&) { tell(); });
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this](auto state) {
        if (state != Qt::ApplicationActive && isVisible()) m_form.GetOwner()->OnLostFocus();
    });
}

QAccessibleInterface* QtDropDownForm::NewAccess() {
    return new CalendarAccess(*this, m_form, m_lifetime);
}

void QtDropDownForm::MouseReleased() {
    m_windowing.ReleaseIsLost(false);
    m_windowing.TakeCapture();
}

void QtDropDownForm::FollowOwner() {
    if (!m_box) return;
    QPalette palette = m_box->palette();
    palette.setResolveMask(~QPalette::ResolveMask{0});
    QFont font = m_box->font();
    font.setResolveMask(QFont::AllPropertiesResolved);
    setPalette(palette);
    setFont(font);
    setLocale(m_box->locale());
    setLayoutDirection(m_box->layoutDirection());
    const bool isClassic = m_box->property("classicLook").toBool();
    if (isClassic == m_drawing.Classic()) return;
    m_drawing.Classic(isClassic);
    m_form.Calendar().RepaintControl();
}

void QtDropDownForm::Show(const Rect& screen) {
    m_box = QtDrawing::WidgetOf(m_form.GetOwner()->hWnd());
    FollowOwner();
    for (QWidget* around = m_box; !around->isWindow();) {
        around = around->parentWidget();
        around->installEventFilter(m_box);
        m_watched.push_back(around);
    }
    winId();  // makes the native window
    windowHandle()->setTransientParent(m_box->window()->windowHandle());
    setGeometry(screen.left, screen.top, screen.Width(), screen.Height());
    show();
    DateWidgetAccess::TellReaders(*this);
}

const QScreen& QtDropDownForm::OwnersScreen() const {
    return *QtDrawing::WidgetOf(m_form.GetOwner()->hWnd())->screen();
}

Rect QtDropDownForm::WorkArea() const {
    const QRect area = OwnersScreen().availableGeometry();
    return RectAt(area.x(), area.y(), {area.width(), area.height()});
}

Size QtDropDownForm::DesktopSize() const {
    const QSize size = OwnersScreen().virtualSize();
    return {size.width(), size.height()};
}

void QtDropDownForm::Hide() {
    for (const QPointer<QWidget>& around : m_watched) {
        if (around) around->removeEventFilter(m_box);
    }
    m_watched.clear();
    m_box = nullptr;
    if (std::exchange(m_pressed, false)) m_windowing.ReleaseIsLost(true);
    hide();
    DateWidgetAccess::TellReaders(*this);
}

void QtDropDownForm::Timer(bool on) {
    if (on) {
        m_timer.start();
    } else {
        m_timer.stop();
    }
}

void QtDropDownForm::Tick() {
    m_windowing.TakeCapture();
    m_form.OnTimer();
}

bool QtDropDownForm::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            if (m_touch.Take(static_cast<QTouchEvent&>(*event))) return true;
            break;
        case QEvent::ToolTip: {
            const auto* const box = qobject_cast<const VmDateWidget*>(m_box.data());
            if (box &&
                ShowDayToolTip(*this, m_form.Calendar(), *box, static_cast<QHelpEvent&>(*event))) {
                return true;
            }
            break;
        }
        default: break;
    }
    return QWidget::event(event);
}

void QtDropDownForm::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QtDrawing::Surface surface(m_drawing, painter);
    m_form.OnPaint(surface.Handle(), RectsOf(event->region()));
}

void QtDropDownForm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_form.Calendar().OnWindowChanged();
}

void QtDropDownForm::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    switch (event->type()) {
        case QEvent::LocaleChange:
            m_dates.Locale(DateLocaleOf(locale()));
            m_form.Calendar().OnLocaleChanged();
            break;
        case QEvent::PaletteChange:
        case QEvent::StyleChange:
        case QEvent::FontChange:
            m_hosting.FontChanged();
            m_form.Calendar().RepaintControl();
            break;
        case QEvent::LayoutDirectionChange: m_form.Calendar().RepaintControl(); break;
        default: break;
    }
}

void QtDropDownForm::mousePressEvent(QMouseEvent* event) {
    m_windowing.ReleaseIsLost(false);
    m_pressed = true;
    TellMouse(m_form.Calendar(), &VmCalendar::OnMouseDown, *event);
}

void QtDropDownForm::mouseMoveEvent(QMouseEvent* event) {
    TellMouse(m_form.Calendar(), &VmCalendar::OnMouseMove, *event);
}

void QtDropDownForm::mouseReleaseEvent(QMouseEvent* event) {
    m_pressed = false;
    TellMouse(m_form.Calendar(), &VmCalendar::OnMouseUp, *event);
}

/// With the capture it arrives here wherever the pointer is.
void QtDropDownForm::wheelEvent(QWheelEvent* event) {
    if (rect().contains(event->position().toPoint())) TellWheel(m_form.Calendar(), *event);
}

}  // namespace velmora
