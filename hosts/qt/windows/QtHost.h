#pragma once

#include "platform/Hosting.h"
#include "platform/Windowing.h"

#include <QFont>

class QTimer;
class QWidget;

namespace velmora {

class SelectorInput;

/// A widget as a control's window. The widget and the input must live longer. The
/// pointer is the widget's cursor. Without an input it cannot have selectors.
class QtWindowing : public Windowing {
public:
    explicit QtWindowing(QWidget& widget, SelectorInput* input = nullptr);
    ~QtWindowing() override;

    WindowHandle Handle() const override;
    Size ClientSize() const override;
    double PixelsPerInch() const override;
    bool IsRightToLeft() const override;

    bool Enabled() const override;
    void Enabled(bool enabled) override;
    bool TakesInput() const override;
    /// Whether the own state has changed since the last call, other than through `Enabled`.
    bool TakeEnabledChange();

    std::int16_t MousePointer() const override { return m_pointer; }
    void MousePointer(std::int16_t pointer) override;
    PictureRef MouseIcon() const override { return m_icon; }
    void MouseIcon(PictureRef icon) override;
    std::int32_t OLEDropMode() const override { return m_dropMode; }
    void OLEDropMode(std::int32_t mode) override;

    void SetFocus() override;
    /// Qt holds the mouse by itself while a button is down.
    void SetCapture() override {}
    void ReleaseCapture() override {}
    /// With the delays of the style's spin boxes.
    void Repeat(std::function<void()> act) override;
    Point ClientToScreen(Point point) const override;
    Point ScreenToClient(Point point) const override;
    std::optional<Point> GetCursorPos() const override;

    std::unique_ptr<ComboBox> CreateMonthList() override;
    std::unique_ptr<TextBox> CreateYearText() override;
    std::unique_ptr<ScrollBar> CreateYearSpinner() override;
    std::unique_ptr<ScrollBar> CreateDateScroll() override;

protected:
    QWidget& Widget() const noexcept { return m_widget; }

private:
    void ApplyPointer();

    QWidget& m_widget;
    SelectorInput* m_input;
    std::unique_ptr<QTimer> m_repeat;  // made for the first button that is held
    std::function<void()> m_repeated;
    PictureRef m_icon;
    std::int32_t m_dropMode = 0;
    std::int16_t m_pointer = 0;
    bool m_knownEnabled;
};

/// What a widget's surroundings are to the control in it; pixels throughout. Who raises the
/// control's notifications derives from it.
class QtHosting : public Hosting {
public:
    explicit QtHosting(QWidget& widget) : m_widget(widget) {}

    /// The widget's font, which follows it as long as nobody changes it.
    FontRef AmbientFont() const override;
    /// The widget has another font now.
    void FontChanged();
    /// Whether the font is none, or follows the widget's.
    bool IsAmbient(const FontRef& font) const;
    std::optional<std::int16_t> ContainerScaleMode() const override;
    std::optional<std::int16_t> ParentScaleMode() const override { return std::nullopt; }
    /// Returns at once; the box stays until the user closes it.
    void ShowAboutBox(const AboutText& text) override;
    std::int32_t Drag(const DataRef& data, std::int32_t allowedEffects,
                      const DragEvents& events) override;

private:
    struct Ambient {
        std::weak_ptr<StdFont> font;
        QFont given;
    };

    QWidget& m_widget;
    mutable std::vector<Ambient> m_ambient;
};

}  // namespace velmora
