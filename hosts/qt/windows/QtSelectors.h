#pragma once

#include "calendar/SelectorInput.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

/// The native widgets of the selectors. They post what the user does and keep to themselves the
/// keys that would move the calendar's selection. Values set with signals blocked post nothing.
namespace velmora {

class MonthListBox final : public QComboBox {
public:
    MonthListBox(QWidget& parent, SelectorInput& input);

    bool IsOpen() const;

    void showPopup() override;
    void hidePopup() override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PostChoice();
    void PressEscape();
    void ReleaseEscape();

    SelectorInput& m_input;
    bool m_escapeDown = false;
    int m_chosen = -1;  // by the user, while the list is still open
};

/// The loss of focus commits a year that has been typed.
class YearBox final : public QLineEdit {
public:
    YearBox(QWidget& parent, SelectorInput& input);

    /// That many years on from the one that is typed or else shown.
    void Step(int years);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    SelectorInput& m_input;
};

/// Posts its value once for all the changes that one event of the user makes.
class SelectorBar : public QScrollBar {
public:
    using Handler = void (VmCalendar::*)(int);

    SelectorBar(Qt::Orientation orientation, QWidget& parent, SelectorInput& input,
                Handler handler);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Shows the focus, which styles leave out of scroll bars.
    void paintEvent(QPaintEvent* event) override;

private:
    void PostValue();

    SelectorInput& m_input;
    const Handler m_handler;
    bool m_posted = false;
};

/// The spinner of the year box. It takes no focus, so it takes a year that is being typed first. A
/// notch of the wheel is a year, as a click is.
class YearBar final : public SelectorBar {
public:
    YearBar(QWidget& parent, SelectorInput& input);

protected:
    /// As the buttons of a spin box, unless the calendar looks classic.
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Act(int action);
    void Step(int years);

    int m_wheel = 0;  // what is not yet a notch
};

}  // namespace velmora
