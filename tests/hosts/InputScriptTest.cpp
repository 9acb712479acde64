#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/drawing/QtGdiObjects.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "tests/hosts/WidgetSupport.h"
#include "tests/support/InputPlayer.h"
#include "tests/support/InputScript.h"
#include "tests/support/PropertyTable.h"
#include "tests/support/TestCalendar.h"

#include <QAbstractItemView>
#include <QFile>
#include <QMetaMethod>
#include <QScrollBar>
#include <QTimer>

#include <malloc.h>

namespace velmora {
namespace {

using namespace std::chrono_literals;

class QtPlayer : public test::InputPlayer {
public:
    /// The event by which a widget loses the mouse.
    explicit QtPlayer(QEvent::Type loss = QEvent::UngrabMouse) : m_loss(loss) {}

protected:
    void Make(Kind kind) override {
        m_window = std::make_unique<QWidget>();
        m_calendar = nullptr;
        m_box = nullptr;
        if (kind == Kind::Calendar) {
            Connect(m_calendar = new VmCalendarWidget(m_window.get()), 282, 210);
        } else {
            Connect(m_box = new VmCalDropDownWidget(m_window.get()), 121, 21);
        }
        if (!m_widget) return;
        m_window->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        m_window->resize(500, 300);
        m_window->show();
        m_window->activateWindow();
        if (m_widget) m_widget->setFocus();
    }

    void Connect(VmDateWidget* widget, int width, int height) {
        m_widget = widget;
        const auto note = [this](auto* from, auto signal, const char* name) {
            QObject::connect(from, signal, Noting(name));
        };
        using Any = VmDateWidget;
        QObject::connect(widget, &Any::dateChanged, [this](QDate date) {
            Noting("DateChanged")(date.toString(Qt::ISODate).toStdString());
        });
        QObject::connect(widget, &Any::propertyChanged, [this](const QString& name) {
            NoteProperty(name.left(1).toUpper().toStdString() + name.mid(1).toStdString());
        });
        const auto key = [this](const char* name) {
            return [this, name](VmKeyArguments* arguments) {
                int code = arguments->keyCode();
                Noting(name)(code, arguments->shift());
                arguments->setKeyCode(code);
            };
        };
        QObject::connect(widget, &Any::keyDown, key("KeyDown"));
        QObject::connect(widget, &Any::keyUp, key("KeyUp"));
        QObject::connect(widget, &Any::keyPress, [this](VmKeyPressArguments* arguments) {
            Noting("KeyPress")(arguments->keyAscii());
        });
        note(widget, &Any::dayChanged, "DayChanged");
        note(widget, &Any::monthChanged, "MonthChanged");
        note(widget, &Any::yearChanged, "YearChanged");
        note(widget, &Any::mouseDown, "MouseDown");
        note(widget, &Any::mouseUp, "MouseUp");
        note(widget, &Any::mouseMove, "MouseMove");
        if (m_calendar) {
            note(m_calendar, &VmCalendarWidget::click, "Click");
            note(m_calendar, &VmCalendarWidget::dblClick, "DblClick");
        } else {
            note(m_box, &VmCalDropDownWidget::closeUp, "CloseUp");
            QObject::connect(m_box, &VmCalDropDownWidget::dropDown,
                             [this](VmDropDownArguments* opening) {
                                 bool cancel = opening->cancel();
                                 Noting("DropDown")(cancel);
                                 opening->setCancel(cancel);
                             });
        }
        widget->setGeometry(150, 10, width, height);
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

    void Turn() override { m_window->setLayoutDirection(Qt::RightToLeft); }

    static int KeyOf(int code) {
        static const std::map<int, int> kKeys = {
            {13, Qt::Key_Return}, {16, Qt::Key_Shift},  {17, Qt::Key_Control},  {18, Qt::Key_Alt},
            {27, Qt::Key_Escape}, {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {35, Qt::Key_End},
            {36, Qt::Key_Home},   {37, Qt::Key_Left},   {38, Qt::Key_Up},       {39, Qt::Key_Right},
            {40, Qt::Key_Down},   {46, Qt::Key_Delete}, {115, Qt::Key_F4},      {116, Qt::Key_F5}};
        const auto found = kKeys.find(code);
        return found == kKeys.end() ? code : found->second;
    }
    void Key(const Stroke& stroke) override {
        const int key = KeyOf(stroke.code);
        // A key event of a modifier has the state of before.
        const int own = stroke.code == 16 ? 1 : stroke.code == 17 ? 2 : stroke.code == 18 ? 4 : 0;
        const int typed = key == Qt::Key_Delete ? 127 : stroke.character;
        const QString text = typed ? QString(QChar(typed)) : QString();
        if (!m_widget->hasFocus()) m_widget->setFocus();
        const auto send = [&, this](QEvent::Type type) {
            QKeyEvent event(type, key, Modifiers(stroke.shift ^ own), text, stroke.again);
            if (m_widget) QApplication::sendEvent(m_widget, &event);
        };
        if (stroke.again) send(QEvent::KeyRelease);
        if (stroke.down) ExpectShortcut(key);
        send(stroke.down ? QEvent::KeyPress : QEvent::KeyRelease);
    }
    /// Keys that close the open calendar are no shortcuts of the form.
    void ExpectShortcut(int key) {
        QKeyEvent event(QEvent::ShortcutOverride, key, {});
        event.ignore();
        if (m_widget) QApplication::sendEvent(m_widget, &event);
        const bool closes = key == Qt::Key_Escape || key == Qt::Key_Return;
        EXPECT_EQ(event.isAccepted(), closes && m_widget && m_box && m_box->dropDownState());
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
        const auto button = hand.button == 0   ? Qt::NoButton
                            : hand.button == 1 ? Qt::LeftButton
                                               : Qt::RightButton;
        if (act == Act::Press && !hand.onForm) target->setFocus();
        if (!m_widget) return;
        QMouseEvent event(kTypes[static_cast<int>(act)], at, target->mapToGlobal(at),
                          act == Act::Move ? Qt::NoButton : button,
                          act == Act::Release ? Qt::NoButton : button, Modifiers(hand.shift));
        QApplication::sendEvent(target, &event);
        HoldTimers();
    }
    /// They fire by `tick` alone.
    void HoldTimers() {
        if (!m_calendar || !m_widget) return;
        for (auto* const timer : m_widget->findChildren<QTimer*>()) {
            if (timer->isActive()) timer->start(1h);
        }
    }
    void Tick() override {
        for (auto* const timer : m_widget->findChildren<QTimer*>()) {
            if (!timer->isActive()) continue;
            QTimerEvent event(timer->timerId());
            QApplication::sendEvent(timer, &event);
            return HoldTimers();
        }
    }
    void Turn(int delta, int shift) override {
        Notch(m_box ? *QtDropDownForm::Shared() : *m_widget, delta, Modifiers(shift));
    }
    void LoseMouse() override {
        QEvent event(m_loss);
        QApplication::sendEvent(m_widget, &event);
    }

    void Select(const std::string& verb, const std::string& what) override {
        auto* const list = m_widget->findChild<QComboBox*>();
        const QPointer<QLineEdit> year = m_widget->findChild<QLineEdit*>();
        if (verb == "focus") return (what == "grid" ? m_widget.data() : m_window.get())->setFocus();
        if (verb == "spin" || verb == "scroll") return UseBar(what);
        if (!list || !year) return;
        if (verb == "list") return UseList(*list, what);
        year->setFocus();
        if (verb == "year") return Strike(year.data(), what);
        year->selectAll();
        for (const QChar letter : QString::fromStdString(what)) {
            SendKey(year, letter.toUpper().unicode(), letter);
        }
    }
    static void Strike(QPointer<QWidget> widget, const std::string& name) {
        SendKey(widget, KeyOf(CodeOfKey(name)));
        if (widget) SendKey(widget, KeyOf(CodeOfKey(name)), {}, QEvent::KeyRelease);
    }
    static void UseList(QComboBox& list, const std::string& what) {
        QWidget* const view = list.findChild<QAbstractItemView*>();
        if (what == "open") {
            list.setFocus();
            list.showPopup();
        } else if (what == "wheel") {
            Notch(list);
        } else if (view && view->isVisible()) {
            SendKey(view, KeyOf(CodeOfKey(what)));
            SendKey(&list, KeyOf(CodeOfKey(what)), {}, QEvent::KeyRelease);
        } else {
            list.setFocus();
            Strike(&list, what);
        }
    }
    /// Of the wheel, towards the user.
    static void Notch(QWidget& widget, int delta = -120, Qt::KeyboardModifiers modifiers = {}) {
        const QPointF at = widget.rect().center();
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, delta}, {}, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
    void UseBar(const std::string& what) {
        const bool isFirst = what == "Up" || what == "back";  // of its two arrows
        for (auto* const bar : m_widget->findChildren<QScrollBar*>()) {
            if (!bar->isVisible()) continue;
            if (what == "wheel") return Notch(*bar);
            if (what == "page") return bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
            const QRect inside = bar->rect().adjusted(3, 3, -3, -3);
            return Click(bar, isFirst ? inside.topLeft() : inside.bottomRight());
        }
    }

    State See() override {
        const DaysRef days = m_box ? m_box->dropDownBox().Days() : m_calendar->calendar().Days();
        State state;
        state.date = m_widget->property("dateValue").toDate().toString(Qt::ISODate).toStdString();
        state.shown = TextOf(days->Item(1)->DayDate()).substr(0, 7);
        if (m_box) {
            state.text = m_box->text().toStdString();
            state.open = QtDropDownForm::Shared()->isVisible();
        } else if (const auto* const list = m_widget->findChild<QComboBox*>();
                   list && list->isVisible()) {
            const auto* const view = list->findChild<QAbstractItemView*>();
            const int month =
                view && view->isVisible() ? view->currentIndex().row() : list->currentIndex();
            state.selectors = std::to_string(month + 1) + '/' +
                              m_widget->findChild<QLineEdit*>()->text().toStdString();
        }
        return state;
    }
    /// As the screen shows it, not as it would be painted anew.
    std::optional<std::string> Marked() override {
        const QImage image =
            m_window->screen()->grabWindow(m_window->winId(), 150, 10, 282, 210).toImage();
        const QColor highlight = m_widget->palette().color(QPalette::Highlight);
        return CellsWhere([&](Point at) { return image.pixelColor(at.x, at.y) == highlight; });
    }
    void Settle(const std::string&) override {
        QApplication::processEvents();
        QApplication::processEvents();  // a signal of the first paint follows it
    }
    void Destroy() override { delete m_widget; }
    bool IsDestroyed() override { return !m_widget; }
    std::string BrokenInvariant() override {
        if (m_widget && m_calendar) return test::BrokenInvariantOf(m_calendar->calendar());
        if (!m_widget || QtDropDownForm::Shared()->Form().GetOwner()) return {};
        const bool runs = QWidget::mouseGrabber() || QtDropDownForm::Shared()->isVisible();
        return runs ? "something still runs" : "";
    }

    const QEvent::Type m_loss;
    std::unique_ptr<QWidget> m_window;

protected:
    QPointer<QWidget> m_widget;

private:
    VmCalendarWidget* m_calendar = nullptr;
    VmCalDropDownWidget* m_box = nullptr;
};

const std::string kScript = std::string(test::kInputScript).append(test::kExtendedScript);

TEST(InputScript, TheWidgetsRaiseItsEvents) {
    for (const auto loss : {QEvent::UngrabMouse, QEvent::Hide, QEvent::WindowDeactivate}) {
        QtPlayer(loss).Play(kScript);
    }
}

/// The names of a widget's signals, in their order.
class SignalLog : public QObject {
public:
    explicit SignalLog(QObject& widget) : m_type(*widget.metaObject()) {
        for (int i = QWidget::staticMetaObject.methodCount(); i < m_type.methodCount(); ++i) {
            if (m_type.method(i).methodType() != QMetaMethod::Signal) continue;
            QMetaObject::connect(&widget, i, this, staticMetaObject.methodCount() + i);
        }
    }
    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override {
        const int index = QObject::qt_metacall(call, id, arguments);
        if (index < 0) return index;
        QByteArray name = m_type.method(index).name();
        if (name == "propertyChanged") {
            name += '(' + static_cast<const QString*>(arguments[1])->toLatin1() + ')';
        }
        if (name != "mouseMove") told += told.isEmpty() ? name : ", " + name;
        return -1;
    }

    QByteArray told;

private:
    const QMetaObject& m_type;
};

/// Tells which signals the last of some steps brings.
class SignalPlayer : public QtPlayer {
public:
    QByteArray Told(const std::string& script) {
        std::istringstream steps(script);
        for (std::string step; std::getline(steps >> std::ws, step, ';');) {
            if (m_log) m_log->told.clear();
            Do(step);
        }
        Settle({});
        return m_log->told;
    }

private:
    void Make(Kind kind) override {
        QtPlayer::Make(kind);
        m_log = std::make_unique<SignalLog>(*m_widget);
    }

    std::unique_ptr<SignalLog> m_log;
};

/// Each row of the guide has its steps in a comment.
TEST(Signals, AreThoseOfTheGuide) {
    QFile file(QStringLiteral(VELMORA_DOCS "/signals.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray page = file.readAll();
    QByteArrayList lines = page.split('\n');
    for (QByteArray& line : lines) {
        const qsizetype begin = line.indexOf("<!--");
        const qsizetype end = line.indexOf("--> | ");
        if (begin < 0) continue;
        line.truncate(end + 6);
        line += SignalPlayer().Told(line.mid(begin + 4, end - begin - 4).toStdString()) + " |";
    }
    const QByteArray wanted = lines.join('\n');
    if (qEnvironmentVariableIsSet("VELMORA_RENEW_LOOKS")) {
        file.resize(0);
        file.write(wanted);
    } else {
        EXPECT_EQ(page, wanted) << "scripts/renew-looks writes it anew";
    }
}

/// A slot of any signal does its worst in the middle of any step.
TEST(InputScript, TheWidgetsSurviveTheirSlots) {
    const auto noisy = qInstallMessageHandler([](auto...) {});  // of what off screen there is not
    for (const char* mischief :
         {"destroy", "let DateValue 2031-07-07", "let Enabled 0", "focus away", "key F4"}) {
        QtPlayer().PlayWith(kScript, mischief);
    }
    qInstallMessageHandler(noisy);
}

/// For `./test --soak`. The cache of texts has its own bound, which typed years and dates take
/// millions of steps to reach: it is emptied before memory is counted.
TEST(InputScript, DISABLED_MillionsOfItsStepsKeepTheInvariantsAndTheMemory) {
    qInstallMessageHandler([](auto...) {});
    std::string script = kScript;
    for (const test::PropertyRow& row : test::kBoxRows) {
        if (row.kind != test::Kind::Choice && row.kind != test::Kind::Extent) continue;
        for (const double value : {row.low, row.high}) {
            script += "let " + std::string(row.name) + ' ' + std::to_string(value) + '\n';
        }
    }
    QtPlayer().Wander(script, 2'000'000, [] {
        gdi::SharedCaches::Instance().texts.Clear();
        return mallinfo2().uordblks;
    });
}

}  // namespace
}  // namespace velmora
