#include "hosts/qt/QtDropDownForm.h"
#include "hosts/qt/VmCalDropDownWidget.h"
#include "tests/hosts/WidgetSupport.h"
#include "tests/support/InputPlayer.h"
#include "tests/support/InputScript.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

#include <map>
#include <memory>

namespace velmora {
namespace {

class QtPlayer : public test::InputPlayer {
    void Make(Kind kind) override {
        m_window = std::make_unique<QWidget>();
        if (kind == Kind::Calendar) {
            Connect(new VmCalendarWidget(m_window.get()), 282, 210);
        } else {
            Connect(new VmCalDropDownWidget(m_window.get()), 121, 21);
        }
        m_window->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        m_window->resize(500, 300);
        m_window->show();
        m_window->activateWindow();
        m_widget->setFocus();
    }

    template <class AnyWidget>
    void Connect(AnyWidget* widget, int width, int height) {
        const auto note = [this, widget](auto signal, const char* name) {
            QObject::connect(widget, signal, Noting(name));
        };
        QObject::connect(widget, &AnyWidget::dateChanged, [this](QDate date) {
            Noting("DateChanged")(date.toString(Qt::ISODate).toStdString());
        });
        note(&AnyWidget::dayChanged, "DayChanged");
        note(&AnyWidget::monthChanged, "MonthChanged");
        note(&AnyWidget::yearChanged, "YearChanged");
        note(&AnyWidget::keyDown, "KeyDown");
        note(&AnyWidget::keyPress, "KeyPress");
        note(&AnyWidget::keyUp, "KeyUp");
        note(&AnyWidget::mouseDown, "MouseDown");
        note(&AnyWidget::mouseUp, "MouseUp");
        if constexpr (requires { &AnyWidget::click; }) {
            note(&AnyWidget::click, "Click");
            note(&AnyWidget::dblClick, "DblClick");
        } else {
            note(&AnyWidget::closeUp, "CloseUp");
            note(&AnyWidget::dropDown, "DropDown");
        }
        widget->setGeometry(150, 10, width, height);
        m_widget = widget;
    }

    void Let(const std::string& property, int value, bool isDate) override {
        QByteArray name = QByteArray::fromStdString(property);
        name[0] = static_cast<char>(name[0] | 0x20);
        const QVariant variant =
            isDate ? QVariant(QDate(1899, 12, 30).addDays(value)) : QVariant(value);
        if (property == "AlwaysDateChanged") {  // which has no getter
            QMetaObject::invokeMethod(m_widget, "setAlwaysDateChanged", Q_ARG(bool, value != 0));
        } else {
            EXPECT_TRUE(m_widget->setProperty(name, variant)) << property;
        }
    }

    void Key(const Stroke& stroke) override {
        static const std::map<int, int> kKeys = {
            {13, Qt::Key_Return}, {16, Qt::Key_Shift},  {17, Qt::Key_Control},  {18, Qt::Key_Alt},
            {27, Qt::Key_Escape}, {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {37, Qt::Key_Left},
            {38, Qt::Key_Up},     {39, Qt::Key_Right},  {40, Qt::Key_Down},     {115, Qt::Key_F4}};
        const auto found = kKeys.find(stroke.code);
        const int key = found == kKeys.end() ? stroke.code : found->second;
        // A key event of a modifier has the state of before.
        const int own = stroke.code == 16 ? 1 : stroke.code == 17 ? 2 : stroke.code == 18 ? 4 : 0;
        const QString text = stroke.character ? QString(QChar(stroke.character)) : QString();
        if (!m_widget->hasFocus()) m_widget->setFocus();
        SendKey(m_widget, stroke.down ? QEvent::KeyPress : QEvent::KeyRelease, key,
                Modifiers(stroke.shift ^ own), text);
    }
    static Qt::KeyboardModifiers Modifiers(int shift) {
        Qt::KeyboardModifiers modifiers;
        modifiers.setFlag(Qt::ShiftModifier, shift & 1);
        modifiers.setFlag(Qt::ControlModifier, shift & 2);
        modifiers.setFlag(Qt::AltModifier, shift & 4);
        return modifiers;
    }

    void Mouse(Act act, const Hand& hand) override {
        static constexpr QEvent::Type kTypes[] = {QEvent::MouseButtonPress,
                                                  QEvent::MouseButtonDblClick, QEvent::MouseMove,
                                                  QEvent::MouseButtonRelease};
        QWidget* const target = hand.onForm ? QtDropDownForm::Shared().get() : m_widget;
        const QPoint at(hand.at.x, hand.at.y);
        const auto button = hand.button == 1 ? Qt::LeftButton : Qt::RightButton;
        QMouseEvent event(kTypes[static_cast<int>(act)], at, target->mapToGlobal(at),
                          act == Act::Move ? Qt::NoButton : button,
                          act == Act::Release ? Qt::NoButton : button, Modifiers(hand.shift));
        QApplication::sendEvent(target, &event);
    }

    void NextMonth() override {
        auto* const list = m_widget->findChild<QComboBox*>();
        list->setFocus();
        SendKey(list, QEvent::KeyPress, Qt::Key_Down);
    }
    void ScrollOn() override {
        for (auto* const bar : m_widget->findChildren<QScrollBar*>()) {
            if (bar->isVisible()) bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        }
    }
    void TypeYear(const std::string& text) override {
        auto* const year = m_widget->findChild<QLineEdit*>();
        year->setFocus();
        year->selectAll();
        for (const char digit : text) SendKey(year, QEvent::KeyPress, digit, {}, QChar(digit));
        SendKey(year, QEvent::KeyPress, Qt::Key_Return, {}, "\r");
    }

    std::string SelectedDate() override {
        return m_widget->property("dateValue").toDate().toString(Qt::ISODate).toStdString();
    }
    void Settle(const std::string&) override {
        QApplication::processEvents();
        QApplication::processEvents();  // a signal of the first paint follows it
    }

    std::unique_ptr<QWidget> m_window;
    QWidget* m_widget = nullptr;
};

TEST(InputScript, TheWidgetsRaiseItsEvents) { QtPlayer().Play(test::kInputScript); }

}  // namespace
}  // namespace velmora
