#pragma once

#include "dropdown/DropDownForm.h"
#include "hosts/qt/drawing/QtDrawing.h"
#include "hosts/qt/windows/QtHost.h"
#include "hosts/qt/windows/QtTouch.h"
#include "platform/dates/Dates.h"

#include <QList>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>

class QAccessibleInterface;

namespace velmora {

/// The window of the open calendar. Its capture makes all mouse events of the application arrive
/// here, and those outside of it where the platform allows it. While a button is held the capture
/// waits, so that the release arrives where the press did.
class QtFormWindowing final : public QtWindowing {
public:
    using QtWindowing::QtWindowing;

    void SetCapture() override;
    void ReleaseCapture() override;
    /// Takes a capture that waits, if no button is held any more.
    void TakeCapture();
    /// After a press that has closed the window its release may go to another program, and the
    /// application would take the button for held until the pointer comes back.
    void ReleaseIsLost(bool lost) { m_releaseIsLost = lost; }

private:
    bool m_wanted = false;
    bool m_releaseIsLost = false;
};

/// The calendar of the drop-down window is no control of its own to the application.
class QtFormHosting final : public QtHosting {
public:
    explicit QtFormHosting(QWidget& window) : QtHosting(window), m_window(window) {}

    void PropertyChanged(std::string_view) override {}
    std::int32_t Drag(const DataRef&, std::int32_t, const DragEvents&) override {
        return kDropNone;
    }
    /// In the middle of the active window, as this one is mostly hidden.
    void ShowAboutBox(const AboutText& text) override;

private:
    QWidget& m_window;
};

/// The one drop-down window of the application's date boxes, which takes no focus. It has the
/// palette, font and locale of the box that it is open for; that box filters the events of the
/// widgets around it for as long.
class QtDropDownForm final : public QWidget, private FormWindow {
public:
    /// Made on first use, kept until the application object ends, and by every box that holds it.
    static std::shared_ptr<QtDropDownForm> Shared();

    QtDropDownForm();
    QtDropDownForm(const QtDropDownForm&) = delete;
    QtDropDownForm& operator=(const QtDropDownForm&) = delete;

    DropDownForm& Form() noexcept { return m_form; }
    /// To be called when a button has been pressed or released elsewhere.
    void MousePressed() { m_windowing.ReleaseIsLost(false); }
    void MouseReleased();
    /// Takes the look of the box that it is open for.
    void FollowOwner();
    /// The calendar as screen readers see it, for Qt to keep.
    QAccessibleInterface* NewAccess();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Show(const Rect& screen) override;
    void Hide() override;
    const QScreen& OwnersScreen() const;
    Rect WorkArea() const override;
    Size DesktopSize() const override;
    void Timer(bool on) override;
    void Tick();

    QtFormWindowing m_windowing;
    QtFormHosting m_hosting;
    QtDrawing m_drawing;
    Dates m_dates;
    QTimer m_timer;
    bool m_pressed = false;              // here, and not yet released
    QPointer<QWidget> m_box;             // that it is open for
    QList<QPointer<QWidget>> m_watched;  // the widgets around the box, up to its window
    DropDownForm m_form;                 // ends before what it stands on
    QtTouch m_touch;
    Lifetime m_lifetime;  // ends first
};

}  // namespace velmora
