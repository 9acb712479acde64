#include "VelmoraCalendar/VmDateWidget.h"

#include "hosts/qt/drawing/QtGdiObjects.h"
#include "hosts/qt/widgets/DateWidgetHost.h"
#include "hosts/qt/windows/QtInput.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionFrame>

namespace velmora {

PictureRef bitmapPicture(const QImage& image) { return ToPicture(image, PictureType::Bitmap); }

PictureRef iconPicture(const QImage& image) { return ToPicture(image, PictureType::Icon); }

VmDateWidget::VmDateWidget(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

VmDateWidget::~VmDateWidget() = default;

void VmDateWidget::EndHost() {
    const bool isDragTarget = m_host->Drops().IsEntered();
    m_host.reset();
    if (isDragTarget) LeaveDrag(*this);
}

void VmDateWidget::DrawBorder(QPainter& painter) const {
    if (!testAttribute(Qt::WA_StyleSheet)) return;
    QStyleOptionFrame option;
    option.initFrom(this);
    const QRect contents = style()->subElementRect(QStyle::SE_FrameContents, &option, this);
    painter.setClipRegion(QRegion(rect()) - contents);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}

DayRef VmDateWidget::day(int dayOfMonth) const {
    const DaysRef& days = m_host->With([](auto& control) -> auto& { return control.Days(); });
    if (dayOfMonth < 1 || dayOfMonth > days->Count()) return nullptr;
    return days->Item(static_cast<std::int16_t>(dayOfMonth));
}

DayRef VmDateWidget::selectedDay() const { return day(property("dateValue").toDate().day()); }

QString VmDateWidget::dayToolTip(QDate day) const { return m_host->toolTips.value(day); }

void VmDateWidget::setDayToolTip(QDate day, const QString& text) {
    if (text.isEmpty()) {
        m_host->toolTips.remove(day);
    } else {
        m_host->toolTips[day] = text;
    }
}

void VmDateWidget::repaintControl() {
    m_host->With([](auto& control) { control.RepaintControl(); });
}

void VmDateWidget::oleDrag() {
    m_host->With([](auto& control) { control.OleDrag(); });
}

void VmDateWidget::aboutBox() {
    m_host->With([](auto& control) { control.AboutBox(); });
}

void VmDateWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (!m_host) return;
    switch (event->type()) {
        case QEvent::EnabledChange: m_host->EnabledChanged(); break;
        case QEvent::LocaleChange:
        case QEvent::LayoutDirectionChange: m_host->LocaleChanged(); break;
        case QEvent::StyleChange: gdi::SharedCaches::Instance().frames.Clear(); [[fallthrough]];
        case QEvent::PaletteChange:
        case QEvent::FontChange: m_host->LookChanged(); break;
        default: break;
    }
}

/// Keys that a child leaves unused are on their way to the windows around the widget.
bool VmDateWidget::IsFocusInChild() const {
    const QWidget* const focus = QApplication::focusWidget();
    return focus && focus != this && isAncestorOf(focus);
}

void VmDateWidget::keyPressEvent(QKeyEvent* event) {
    if (IsFocusInChild()) return QWidget::keyPressEvent(event);
    const QPointer<VmDateWidget> alive(this);
    if (!m_host->TakeSelectorInput()) return;
    bool used = false;
    if (std::int16_t keyCode = VirtualKeyOf(*event); keyCode != 0) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->With([&](auto& control) { control.OnKeyDown(keyCode, shift); });
        used = keyCode == 0;
    }
    if (std::int16_t character = CharacterOf(*event); alive && character != 0) {
        m_host->With([&](auto& control) { control.OnKeyPress(character); });
    }
    if (alive && !used) QWidget::keyPressEvent(event);
}

void VmDateWidget::keyReleaseEvent(QKeyEvent* event) {
    if (IsFocusInChild()) return QWidget::keyReleaseEvent(event);
    const QPointer<VmDateWidget> alive(this);
    std::int16_t keyCode = VirtualKeyOf(*event);
    if (keyCode != 0 && !event->isAutoRepeat()) {
        std::int16_t shift = ShiftOf(event->modifiers());
        m_host->With([&](auto& control) { control.OnKeyUp(keyCode, shift); });
    }
    if (alive) QWidget::keyReleaseEvent(event);
}

void VmDateWidget::mousePressEvent(QMouseEvent* event) {
    if (m_host->TakeSelectorInput()) m_host->MouseDown(*event);
}

void VmDateWidget::mouseDoubleClickEvent(QMouseEvent* event) { m_host->DblClick(*event); }

void VmDateWidget::mouseMoveEvent(QMouseEvent* event) { m_host->MouseMove(*event); }

void VmDateWidget::mouseReleaseEvent(QMouseEvent* event) { m_host->MouseUp(*event); }

void VmDateWidget::dragEnterEvent(QDragEnterEvent* event) { m_host->Drops().Enter(*event); }

void VmDateWidget::dragMoveEvent(QDragMoveEvent* event) { m_host->Drops().Move(*event); }

void VmDateWidget::dragLeaveEvent(QDragLeaveEvent*) {
    if (m_host) m_host->Drops().Leave();
}

void VmDateWidget::dropEvent(QDropEvent* event) { m_host->Drops().Drop(*event); }

}  // namespace velmora
