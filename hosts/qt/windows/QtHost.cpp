#include "hosts/qt/windows/QtHost.h"

#include "VelmoraCalendar/QtConversions.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/windows/AboutBox.h"
#include "hosts/qt/windows/QtChildren.h"
#include "hosts/qt/windows/QtDrag.h"
#include "platform/ScaleMode.h"

#include <QCursor>
#include <QPixmap>
#include <QStyle>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <utility>

namespace velmora {
namespace {

constexpr std::int16_t kCustomPointer = 99;

constexpr std::array kPointerShapes{
    Qt::ArrowCursor,      // 0 default: the widget has none of its own
    Qt::ArrowCursor,      // 1 arrow
    Qt::CrossCursor,      // 2 cross
    Qt::IBeamCursor,      // 3 text
    Qt::ArrowCursor,      // 4 icon
    Qt::SizeAllCursor,    // 5 size
    Qt::SizeBDiagCursor,  // 6 size north-east to south-west
    Qt::SizeVerCursor,    // 7 size north to south
    Qt::SizeFDiagCursor,  // 8 size north-west to south-east
    Qt::SizeHorCursor,    // 9 size west to east
    Qt::UpArrowCursor,    // 10 up arrow
    Qt::WaitCursor,       // 11 hourglass
    Qt::ForbiddenCursor,  // 12 no drop
    Qt::BusyCursor,       // 13 arrow and hourglass
    Qt::WhatsThisCursor,  // 14 arrow and question mark
    Qt::SizeAllCursor,    // 15 size all
};
static_assert(kPointerShapes.size() == 16);

Point ToPoint(QPoint point) { return {point.x(), point.y()}; }

}  // namespace

QtWindowing::QtWindowing(QWidget& widget, SelectorInput* input)
    : m_widget(widget), m_input(input), m_knownEnabled(QtWindowing::Enabled()) {}

QtWindowing::~QtWindowing() = default;

WindowHandle QtWindowing::Handle() const { return QtDrawing::HandleOf(&m_widget); }

Size QtWindowing::ClientSize() const { return {m_widget.width(), m_widget.height()}; }

double QtWindowing::PixelsPerInch() const { return m_widget.logicalDpiX(); }

bool QtWindowing::IsRightToLeft() const { return m_widget.isRightToLeft(); }

bool QtWindowing::Enabled() const { return !m_widget.testAttribute(Qt::WA_ForceDisabled); }

void QtWindowing::Enabled(bool enabled) {
    m_knownEnabled = enabled;
    m_widget.setEnabled(enabled);
}

bool QtWindowing::TakesInput() const { return m_widget.isEnabled(); }

bool QtWindowing::TakeEnabledChange() {
    const bool before = std::exchange(m_knownEnabled, Enabled());
    return before != m_knownEnabled;
}

void QtWindowing::MousePointer(std::int16_t pointer) {
    m_pointer = pointer;
    ApplyPointer();
}

void QtWindowing::MouseIcon(PictureRef icon) {
    m_icon = std::move(icon);
    ApplyPointer();
}

void QtWindowing::OLEDropMode(std::int32_t mode) {
    m_dropMode = mode;
    m_widget.setAcceptDrops(mode != 0);
}

void QtWindowing::ApplyPointer() {
    if (m_pointer == kCustomPointer) {
        const QImage icon = ToQImage(m_icon);
        if (!icon.isNull()) {
            m_widget.setCursor(QCursor(QPixmap::fromImage(icon)));
            return;
        }
    } else if (0 < m_pointer && m_pointer < static_cast<int>(kPointerShapes.size())) {
        m_widget.setCursor(kPointerShapes[static_cast<std::size_t>(m_pointer)]);
        return;
    }
    m_widget.unsetCursor();
}

void QtWindowing::SetFocus() { m_widget.setFocus(Qt::OtherFocusReason); }

void QtWindowing::Repeat(std::function<void()> act) {
    m_repeated = std::move(act);
    if (!m_repeated) {
        if (m_repeat) m_repeat->stop();
        return;
    }
    const auto delay = [this](QStyle::StyleHint hint) {
        return m_widget.style()->styleHint(hint, nullptr, &m_widget);
    };
    if (!m_repeat) {
        m_repeat = std::make_unique<QTimer>(&m_widget);
        QObject::connect(m_repeat.get(), &QTimer::timeout, [this, delay] {
            m_repeat->setInterval(delay(QStyle::SH_SpinBox_ClickAutoRepeatRate));
            const auto repeated = m_repeated;  // which may end with the widget
            repeated();
        });
    }
    m_repeat->start(delay(QStyle::SH_SpinBox_ClickAutoRepeatThreshold));
}

Point QtWindowing::ClientToScreen(Point point) const {
    return ToPoint(m_widget.mapToGlobal(QPoint(point.x, point.y)));
}

Point QtWindowing::ScreenToClient(Point point) const {
    return ToPoint(m_widget.mapFromGlobal(QPoint(point.x, point.y)));
}

std::optional<Point> QtWindowing::GetCursorPos() const { return ToPoint(QCursor::pos()); }

std::unique_ptr<ComboBox> QtWindowing::CreateMonthList() {
    return m_input ? MakeMonthList(m_widget, *m_input) : nullptr;
}

std::unique_ptr<TextBox> QtWindowing::CreateYearText() {
    return m_input ? MakeYearText(m_widget, *m_input) : nullptr;
}

std::unique_ptr<ScrollBar> QtWindowing::CreateYearSpinner() {
    return m_input ? MakeYearSpinner(m_widget, *m_input) : nullptr;
}

std::unique_ptr<ScrollBar> QtWindowing::CreateDateScroll() {
    return m_input ? MakeDateScroll(m_widget, *m_input) : nullptr;
}

FontRef QtHosting::AmbientFont() const {
    std::erase_if(m_ambient, [](const auto& each) { return each.font.expired(); });
    auto font = std::make_shared<StdFont>(ToStdFont(m_widget.font()));
    m_ambient.push_back({font, ToQFont(*font)});
    return font;
}

void QtHosting::FontChanged() {
    const StdFont now = ToStdFont(m_widget.font());
    for (Ambient& each : m_ambient) {
        const FontRef font = each.font.lock();
        if (!font || ToQFont(*font) != each.given) continue;
        *font = now;
        each.given = ToQFont(now);
    }
}

bool QtHosting::IsAmbient(const FontRef& font) const {
    return !font || std::ranges::any_of(m_ambient, [&](const Ambient& each) {
        return each.font.lock() == font && ToQFont(*font) == each.given;
    });
}

std::optional<std::int16_t> QtHosting::ContainerScaleMode() const { return kScalePixels; }

void QtHosting::ShowAboutBox(const AboutText& text) { ShowAbout(text, m_widget); }

std::int32_t QtHosting::Drag(const DataRef& data, std::int32_t allowedEffects,
                             const DragEvents& events) {
    return RunDrag(m_widget, data, allowedEffects, events);
}

}  // namespace velmora
