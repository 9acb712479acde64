#include "hosts/qt/drawing/QtStyleFrames.h"

#include "platform/Drawing.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QStyleOptionToolButton>
#include <QWidget>

namespace velmora::gdi {
namespace {

constexpr std::size_t kMost = 256;  // pictures
constexpr std::uint32_t kDirection = 3;
constexpr std::uint32_t kFocused = 1u << 31;  // these two beside the states of buttons
constexpr std::uint32_t kMirrored = 1u << 30;
constexpr int kBoxEdge = 2;  // of a box, around its button

/// Styles are given no widget: what style sheets say of the calendar is not said of its buttons.
template <class Option>
Option OptionFor(const QWidget& widget, QSize size, std::uint32_t state) {
    Option option;
    const bool enabled = (state & kFrameInactive) == 0;
    const bool pushed = (state & kFramePushed) != 0;
    option.rect = QRect({}, size);
    option.palette = widget.palette();
    option.palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    option.direction = widget.layoutDirection();
    option.fontMetrics = widget.fontMetrics();
    option.state = QStyle::State_Active | (pushed ? QStyle::State_Sunken : QStyle::State_Raised);
    option.state.setFlag(QStyle::State_Enabled, enabled);
    option.state.setFlag(QStyle::State_HasFocus, (state & kFocused) != 0);
    return option;
}

void DrawToolButton(QPainter& painter, const QWidget& widget, QSize size, std::uint32_t state) {
    auto option = OptionFor<QStyleOptionToolButton>(widget, size, state);
    option.subControls = QStyle::SC_ToolButton;
    if ((state & kFramePushed) != 0) option.activeSubControls = QStyle::SC_ToolButton;
    option.features = QStyleOptionToolButton::Arrow;
    option.arrowType = (state & kDirection) == kScrollLeft ? Qt::LeftArrow : Qt::RightArrow;
    widget.style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter);
}

void DrawComboBox(QPainter& painter, const QWidget& widget, QSize size, std::uint32_t state) {
    auto option = OptionFor<QStyleOptionComboBox>(widget, size, state);
    option.editable = true;
    option.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxArrow;
    if ((state & kFramePushed) != 0) option.activeSubControls = QStyle::SC_ComboBoxArrow;
    widget.style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter);
}

}  // namespace

/// Styles draw whole logical pixels: what is left of a device pixel stays transparent.
template <class Draw>
const QImage& StylePictures::Kept(const QWidget& widget, Size size, std::uint32_t state,
                                  double ratio, Draw draw) {
    const QStyle& style = *widget.style();
    if (widget.isRightToLeft()) state |= kMirrored;
    const Key key{&style,     style.metaObject(), widget.palette().cacheKey(),
                  size.width, size.height,        state,
                  ratio};
    const auto found = m_pictures.find(key);
    if (found != m_pictures.end()) return found->second;
    if (m_pictures.size() >= kMost) m_pictures.clear();
    QImage picture(size.width, size.height, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const auto logical = [ratio](int length) { return static_cast<int>(length / ratio + 0.001); };
    draw(painter, QSize(logical(size.width), logical(size.height)));
    painter.end();
    picture.setDevicePixelRatio(1);
    return m_pictures[key] = picture;
}

const QImage& StylePictures::Button(const QWidget& widget, Size size, std::uint32_t state,
                                    double ratio) {
    return Kept(widget, size, state, ratio, [&](QPainter& painter, QSize button) {
        if ((state & kDirection) != kScrollDown) {
            return DrawToolButton(painter, widget, button, state);
        }
        const QSize box(5 * button.width(), button.height() + 2 * kBoxEdge);
        const int left = widget.isRightToLeft() ? 0 : box.width() - button.width() - 2 * kBoxEdge;
        painter.translate(-left - kBoxEdge, -kBoxEdge);
        DrawComboBox(painter, widget, box, state);
    });
}

const QImage& StylePictures::Box(const QWidget& widget, Size size, double ratio) {
    std::uint32_t state = kScrollUp;  // which no button has
    if (!widget.isEnabled()) state |= kFrameInactive;
    if (widget.hasFocus()) state |= kFocused;
    return Kept(widget, size, state, ratio, [&](QPainter& painter, QSize box) {
        auto option = OptionFor<QStyleOptionFrame>(widget, box, state);
        option.state |= QStyle::State_Sunken;
        option.lineWidth = widget.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option);
        widget.style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter);
    });
}

}  // namespace velmora::gdi
