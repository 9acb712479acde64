#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "VelmoraCalendar/VmCalendarWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "tests/support/PropertyCases.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <malloc.h>

#include <algorithm>
#include <random>

namespace velmora {
namespace {

constexpr int kInputs = 1000000;

/// Both widgets in a window, and whatever a user or a program may do with them.
class WidgetSoak : public testing::Test {
protected:
    WidgetSoak() {
        qInstallMessageHandler([](auto...) {});  // the off-screen platform's complaints
        m_window.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        m_window.resize(420, 240);
        m_calendar.setGeometry(0, 0, 280, 210);
        m_box.setGeometry(285, 0, 121, 21);
        m_window.show();
    }

    void Input() {
        const int deed = Random(0, 99);
        if (deed < 1) SetProperty();
        if (deed < 3 || !m_target) ChooseTarget();
        if (deed < 40) {
            Key();
        } else if (deed < 85) {
            Mouse();
        } else if (deed < 90) {
            Wheel();
        } else if (deed < 92) {
            m_target->setFocus();
        } else if (deed < 93) {
            m_window.grab();
        } else if (deed < 94) {
            m_box.dropDownBox().DropDownState(Random(0, 1) == 1);
        } else {
            QApplication::processEvents();
        }
    }

    void Check() {
        Check(m_calendar.calendar(), m_calendar.calendar().SelectedDate());
        Check(m_box.dropDownBox(), m_box.dropDownBox().DateValue());
        const VmCalendar& calendar = m_calendar.calendar();
        const DayNumber first = FirstOfMonth(DayOf(calendar.ShownDate()));
        ASSERT_EQ(calendar.Days()->Count(), DayOfMonth(LastOfMonth(first)));
        ASSERT_EQ(DayOf(calendar.Days()->Item(1)->DayDate()), first);
    }

    int Random(int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(m_random);
    }

private:
    template <class Control>
    static void Check(const Control& control, Date date) {
        ASSERT_LE(DayOf(control.DateMin()), DayOf(date));
        ASSERT_GE(DayOf(control.DateMax()), DayOf(date));
    }

    template <class Control>
    void SetProperty(Control& control, test::Rows rows) {
        const auto& row =
            rows[static_cast<std::size_t>(Random(0, static_cast<int>(rows.size()) - 1))];
        const double values[] = {row.low, row.high, row.Changed()};
        try {
            control.LetMember(row.name, test::ValueOf(row, values[Random(0, 2)]));
        } catch (const AutomationError&) {
            // A limit beyond the other one.
        }
    }
    void SetProperty() {
        if (Random(0, 1) == 0) SetProperty(m_calendar.calendar(), test::kCalendarRows);
        SetProperty(m_box.dropDownBox(), test::kBoxRows);
        m_calendar.setEnabled(true);
        m_box.setEnabled(true);
    }

    void ChooseTarget() {
        QList<QWidget*> widgets = m_window.findChildren<QWidget*>();
        if (QtDropDownForm::Shared()->isVisible()) widgets.append(QtDropDownForm::Shared().get());
        m_target = widgets[Random(0, static_cast<int>(widgets.size()) - 1)];
    }

    void Key() {
        constexpr int kKeys[] = {Qt::Key_Left,  Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,
                                 Qt::Key_Home,  Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,
                                 Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape, Qt::Key_F4,
                                 Qt::Key_Alt,   Qt::Key_2,     Qt::Key_0,      Qt::Key_Tab};
        constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::NoModifier,
                                                        Qt::ControlModifier, Qt::AltModifier,
                                                        Qt::ShiftModifier};
        const int key = kKeys[Random(0, std::size(kKeys) - 1)];
        const auto modifiers = kModifiers[Random(0, std::size(kModifiers) - 1)];
        const QString text = key < 0x80 ? QString(QChar(key)) : QString();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers, text, Random(0, 9) == 0);
            if (m_target) QApplication::sendEvent(m_target, &event);
        }
    }

    void Mouse() {
        const QPoint from(Random(-5, m_target->width() + 5), Random(-5, m_target->height() + 5));
        const QPoint to =
            Random(0, 1) == 0 ? from : from + QPoint(Random(-60, 60), Random(-60, 60));
        Button(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        Button(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        Button(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }
    void Button(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
        if (!m_target || Random(0, 19) == 0) return;  // a release may get lost
        QMouseEvent event(type, at, m_target->mapToGlobal(at), button, held, {});
        QApplication::sendEvent(m_target, &event);
    }

    void Wheel() {
        const QPoint at = m_target->rect().center();
        QWheelEvent event(at, m_target->mapToGlobal(at), {}, {0, Random(-2, 2) * 60}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_target, &event);
    }

    std::minstd_rand m_random{20240517};
    QWidget m_window;
    VmCalendarWidget m_calendar{&m_window};
    VmCalDropDownWidget m_box{&m_window};
    QPointer<QWidget> m_target;
};

/// Caches fill up and are emptied, so the most that was in use in each half is what must not grow.
TEST_F(WidgetSoak, AMillionInputsKeepTheInvariantsAndTheMemory) {
    std::size_t most[2] = {0, 0};
    for (int i = 0; i < kInputs; ++i) {
        Input();
        if (i % 100 != 0) continue;
        Check();
        ASSERT_FALSE(HasFatalFailure()) << "after input " << i;
        std::size_t& peak = most[i < kInputs / 2 ? 0 : 1];
        peak = std::max(peak, mallinfo2().uordblks);
    }
    EXPECT_LT(most[1], most[0] + (1u << 20)) << most[0] << " bytes at first";
}

}  // namespace
}  // namespace velmora
