#include "hosts/qt/VmCalendarWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Names = std::vector<std::string>;
using Widget = VmCalendarWidget;

const QDate kMay15(2024, 5, 15);

/// Collects what the widgets report with qWarning.
class Warnings {
public:
    Warnings() : m_before(qInstallMessageHandler(Take)) { Texts().clear(); }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;
    ~Warnings() { qInstallMessageHandler(m_before); }

    static std::size_t Count() { return Texts().size(); }
    static std::string Last() { return Texts().empty() ? std::string() : Texts().back(); }

private:
    static Names& Texts() {
        static Names texts;
        return texts;
    }
    static void Take(QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtWarningMsg && text.startsWith("VmCalendarWidget")) {
            Texts().push_back(text.toStdString());
        }
    }

    QtMessageHandler m_before;
};

QPalette TestPalette() {
    QPalette palette(QColor(220, 220, 220));
    palette.setColor(QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(150, 150, 150));
    return palette;
}

void Prepare(Widget& widget, QDate date = kMay15) {
    widget.setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
    widget.setPalette(TestPalette());
    widget.resize(280, 220);
    widget.setDateValue(date);
    widget.show();
    QApplication::processEvents();
}

QImage ImageOf(Widget& widget, double ratio = 1) {
    QImage image(widget.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget.render(&image);
    return image;
}

/// The cell of a shown day, to a few pixels.
QRect CellOf(Widget& widget, QDate date) {
    const int wanted = static_cast<int>(date.toJulianDay() - QDate(1899, 12, 30).toJulianDay());
    QRect cell;
    for (int y = 0; y < widget.height(); y += 3) {
        for (int x = 0; x < widget.width(); x += 3) {
            const auto day = widget.calendar().DateFromPoint(static_cast<float>(x),
                                                             static_cast<float>(y));
            if (day == wanted) cell |= QRect(x, y, 1, 1);
        }
    }
    return cell;
}

int Count(const QImage& image, const QRect& area, const std::function<bool(QRgb)>& wanted) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += wanted(image.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

/// The share of the area's pixels with that colour, in per cent.
int Share(const QImage& image, const QRect& area, QColor color) {
    const QRgb pixel = color.rgb();
    return 100 * Count(image, area, [=](QRgb p) { return p == pixel; }) /
           std::max(1, area.width() * area.height());
}

int Darkest(const QImage& image, const QRect& area) {
    int darkest = 255;
    Count(image, area, [&](QRgb p) { return darkest = std::min(darkest, qGray(p)), false; });
    return darkest;
}

QRect BandOf(Widget& widget) {
    const Rect band = widget.calendar().Layout().MonthBand();
    return QRect(band.left, band.top, band.right - band.left, band.bottom - band.top)
        .adjusted(2, 2, -2, -3);
}

void SendKey(QWidget* widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers = {},
             const QString& text = {}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(widget, &event);
}

void SendMouse(QWidget* widget, QEvent::Type type, QPoint at,
               Qt::MouseButton button = Qt::LeftButton) {
    const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held ? button : Qt::NoButton, {});
    QApplication::sendEvent(widget, &event);
}

void Click(QPointer<QWidget> widget, QPoint at) {
    SendMouse(widget, QEvent::MouseButtonPress, at);
    if (widget) SendMouse(widget, QEvent::MouseButtonRelease, at);
}

/// Notes the signals of user actions in their order.
void Note(Widget& widget, Names& names) {
    const auto note = [&names](const char* name) {
        return [&names, name] { names.push_back(name); };
    };
    QObject::connect(&widget, &Widget::keyDown, note("keyDown"));
    QObject::connect(&widget, &Widget::keyPress, note("keyPress"));
    QObject::connect(&widget, &Widget::keyUp, note("keyUp"));
    QObject::connect(&widget, &Widget::mouseDown, note("mouseDown"));
    QObject::connect(&widget, &Widget::mouseUp, note("mouseUp"));
    QObject::connect(&widget, &Widget::click, note("click"));
    QObject::connect(&widget, &Widget::dblClick, note("dblClick"));
    QObject::connect(&widget, &Widget::dateChanged, note("dateChanged"));
    QObject::connect(&widget, &Widget::dayChanged, note("dayChanged"));
    QObject::connect(&widget, &Widget::monthChanged, note("monthChanged"));
    QObject::connect(&widget, &Widget::yearChanged, note("yearChanged"));
    QObject::connect(&widget, &Widget::dateValueChanged, note("dateValueChanged"));
}

/// Values that a property takes, first, and values that it refuses.
struct Samples {
    std::vector<QVariant> good;
    std::vector<QVariant> bad;
};

Samples SamplesOf(const QMetaProperty& property) {
    if (property.isEnumType()) {
        const QMetaEnum keys = property.enumerator();
        Samples samples;
        for (int i = 0; i < keys.keyCount(); ++i) samples.good.push_back(keys.value(i));
        samples.bad = {keys.value(0) - 1, keys.value(keys.keyCount() - 1) + 1};
        return samples;
    }
    switch (property.typeId()) {
        case QMetaType::QColor: return {{QColor(1, 2, 3), QColor(Qt::red)}, {QColor()}};
        case QMetaType::QFont: return {{QFont("DejaVu Serif", 13, QFont::Bold, true)}, {}};
        case QMetaType::Bool: return {{false, true}, {}};
        case QMetaType::Int: return {{0, 15, 99}, {}};
        case QMetaType::QDate: {
            const std::string name = property.name();
            const QDate good = name == "dateMax"   ? QDate(2500, 2, 28)
                               : name == "dateMin" ? QDate(1752, 9, 1)
                                                   : QDate(1899, 12, 29);
            return {{good}, {QDate(), QDate(199, 12, 31), QDate(4601, 1, 1), QDate(4700000, 1, 1)}};
        }
        default: return {};
    }
}

TEST(VmCalendarWidget, EveryPropertyReadsBackWhatWasWrittenAndRefusesTheRest) {
    const QMetaObject& meta = Widget::staticMetaObject;
    ASSERT_EQ(meta.propertyCount() - meta.propertyOffset(), 33);
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        SCOPED_TRACE(property.name());
        Widget widget;
        const Samples samples = SamplesOf(property);
        EXPECT_TRUE(!samples.good.empty() || property.typeId() == QMetaType::QPixmap);
        const Warnings warnings;
        for (const QVariant& value : samples.good) {
            EXPECT_TRUE(property.write(&widget, value));
            QVariant read = property.read(&widget);
            if (property.isEnumType()) read = read.toInt();
            EXPECT_EQ(read, value);
        }
        EXPECT_EQ(Warnings::Count(), 0u);
        const QVariant before = property.read(&widget);
        for (const QVariant& value : samples.bad) {
            property.write(&widget, value);
            EXPECT_EQ(property.read(&widget), before);
        }
        EXPECT_EQ(Warnings::Count(), samples.bad.size());
        if (!samples.bad.empty()) {
            const std::string start = std::string("VmCalendarWidget: ") + property.name() + ": ";
            EXPECT_EQ(Warnings::Last().find(start), 0u);
        }
    }
}

TEST(VmCalendarWidget, PointerFollowsItsNumberAndIcon) {
    Widget widget;
    QPixmap icon(32, 32);
    icon.fill(Qt::red);
    widget.setMouseIcon(icon);
    EXPECT_EQ(widget.mouseIcon().toImage().pixel(5, 5), QColor(Qt::red).rgb());
    widget.setMousePointer(99);
    EXPECT_EQ(widget.cursor().pixmap().size(), icon.size());
    widget.setMousePointer(2);
    for (const int refused : {16, -1, 98, 100, 65536 + 1}) widget.setMousePointer(refused);
    EXPECT_EQ(widget.cursor().shape(), Qt::CrossCursor);
    widget.setMousePointer(0);
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

TEST(VmCalendarWidget, HasASignalForEveryEvent) {
    for (const char* const name :
         {"click()", "dateChanged(QDate)", "dayChanged(int)", "dblClick()",
          "keyUp(qint16&,qint16&)", "keyPress(qint16&)", "keyDown(qint16&,qint16&)",
          "monthChanged(int)",
          "mouseDown(int,int,float,float)", "mouseMove(int,int,float,float)",
          "mouseUp(int,int,float,float)", "oleCompleteDrag(qint32&)",
          "oleDragDrop(velmora::DataRef&,qint32&,int,int,float,float)",
          "oleDragOver(velmora::DataRef&,qint32&,int,int,float,float,int)",
          "oleGiveFeedback(qint32&,bool&)", "oleSetData(velmora::DataRef&,int)",
          "oleStartDrag(velmora::DataRef&,qint32&)", "yearChanged(int)"}) {
        EXPECT_GE(Widget::staticMetaObject.indexOfSignal(name), 0) << name;
    }
}

TEST(VmCalendarWidget, PaintsEachKindOfDayInItsColour) {
    const QDate today = QDate::currentDate();
    const QDate the20th(today.year(), today.month(), 20);
    const QDate selected = today == the20th ? today.addDays(1) : the20th;
    const QDate own = selected.addDays(today == selected.addDays(2) ? 3 : 2);
    Widget widget;
    Prepare(widget, selected);
    widget.day(own.day())->BackColor(Variant(std::int32_t{0x0000FF}));
    const QImage image = ImageOf(widget);
    EXPECT_GT(Share(image, CellOf(widget, selected), Qt::blue), 60);
    EXPECT_GT(Share(image, CellOf(widget, today), Qt::cyan), 60);
    EXPECT_GT(Share(image, CellOf(widget, own), Qt::red), 60);
    EXPECT_LT(Darkest(image, BandOf(widget)), 60) << "the month's name is missing";

    // The last cell of the grid is always a day of the next month.
    const QRect lastCell(widget.width() - 38, widget.height() - 24, 30, 18);
    EXPECT_GT(Darkest(image, lastCell), 120);
    EXPECT_LT(Darkest(image, lastCell), 200) << "the number of a neighbouring day is missing";
}

TEST(VmCalendarWidget, SameDaysInTwiceThePixelsAtRatio2) {
    Widget widget;
    Prepare(widget);
    const QImage once = ImageOf(widget);
    const QImage twice = ImageOf(widget, 2);
    const QRect cell = CellOf(widget, kMay15);
    const QRect cellTwice(cell.topLeft() * 2, cell.size() * 2);
    EXPECT_EQ(twice.size(), once.size() * 2);
    EXPECT_GT(Share(twice, cellTwice, Qt::blue), 60);
    // Text that was drawn once and enlarged would consist of blocks of 2 x 2 pixels alone.
    const QImage blocks = once.scaled(twice.size());
    const QRect band(BandOf(widget).topLeft() * 2, BandOf(widget).size() * 2);
    EXPECT_NE(twice.copy(band), blocks.copy(band));
}

TEST(VmCalendarWidget, IsGreyWhenDisabledByItselfOrFromOutside) {
    QWidget parent;
    auto* const widget = new Widget(&parent);
    Names changed;
    QObject::connect(widget, &Widget::propertyChanged,
                     [&](const QString& name) { changed.push_back(name.toStdString()); });
    parent.show();
    Prepare(*widget);
    changed.clear();
    EXPECT_LT(Darkest(ImageOf(*widget), BandOf(*widget)), 60);
    parent.setEnabled(false);
    EXPECT_GT(Darkest(ImageOf(*widget), BandOf(*widget)), 100);
    EXPECT_TRUE(widget->calendar().Enabled());
    EXPECT_EQ(changed, Names{});

    parent.setEnabled(true);
    widget->setEnabled(false);
    EXPECT_GT(Darkest(ImageOf(*widget), BandOf(*widget)), 100);
    EXPECT_FALSE(widget->calendar().Enabled());
    widget->calendar().Enabled(true);
    EXPECT_EQ(changed, (Names{"Enabled", "Enabled"}));
}

TEST(VmCalendarWidget, IsLegibleInADarkPalette) {
    Widget widget;
    Prepare(widget);
    widget.setPalette(QPalette(QColor(50, 50, 50), QColor(30, 30, 30)));
    const QImage image = ImageOf(widget);
    const QRect cell = CellOf(widget, QDate(2024, 5, 22)).adjusted(2, 2, -2, -2);
    for (const QRect& area : {BandOf(widget), cell}) {
        EXPECT_GT(Count(image, area, [](QRgb p) { return qGray(p) < 80; }), area.width());
        EXPECT_GT(Count(image, area, [](QRgb p) { return qGray(p) > 180; }), 5);
    }
}

TEST(VmCalendarWidget, KeyRaisesItsSignalsInOrderAndIsAcceptedWhenUsed) {
    Widget widget;
    Prepare(widget);
    Names names;
    Note(widget, names);
    const auto press = [&](int key, const QString& text = {}) {
        names.clear();
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(press(Qt::Key_Right));
    EXPECT_EQ(names, (Names{"keyDown", "dateChanged", "dayChanged", "dateValueChanged"}));
    EXPECT_EQ(widget.dateValue(), QDate(2024, 5, 16));
    EXPECT_TRUE(press(Qt::Key_PageDown));
    EXPECT_EQ(names, (Names{"keyDown", "monthChanged", "dateValueChanged"}));
    EXPECT_FALSE(press(Qt::Key_A, "a"));
    EXPECT_EQ(names, (Names{"keyDown", "keyPress"}));
    EXPECT_FALSE(press(Qt::Key_Delete, "\x7f"));
    EXPECT_EQ(names, (Names{"keyDown"}));
    EXPECT_FALSE(press(Qt::Key_Return, "\r"));
    names.clear();
    SendKey(&widget, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(names, (Names{"keyUp"}));
}

TEST(VmCalendarWidget, KeysHaveVirtualCodesAndShiftBits) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        int code;
        int shift;
    };
    Widget widget;
    Prepare(widget);
    int code = 0;
    int shift = 0;
    QObject::connect(&widget, &Widget::keyDown, [&](qint16& keyCode, qint16& state) {
        code = keyCode;
        shift = state;
    });
    for (const Case& c : {Case{Qt::Key_Left, Qt::KeypadModifier, 37, 0},
                          Case{Qt::Key_End, Qt::ShiftModifier, 35, 1},
                          Case{Qt::Key_Escape, Qt::ControlModifier, 27, 2},
                          Case{Qt::Key_F12, Qt::AltModifier, 123, 4},
                          Case{Qt::Key_Z, Qt::ShiftModifier | Qt::ControlModifier, 90, 3},
                          Case{Qt::Key_7, {}, 55, 0}, Case{Qt::Key_7, Qt::KeypadModifier, 103, 0},
                          Case{Qt::Key_Enter, Qt::KeypadModifier, 13, 0}}) {
        SendKey(&widget, QEvent::KeyPress, c.key, c.modifiers);
        EXPECT_EQ(code, c.code);
        EXPECT_EQ(shift, c.shift);
    }
    // A slot's change is what the calendar acts on.
    QObject::connect(&widget, &Widget::keyDown, [](qint16& keyCode, qint16&) { keyCode = 40; });
    SendKey(&widget, QEvent::KeyPress, Qt::Key_A);
    EXPECT_EQ(widget.dateValue(), kMay15.addDays(7 - 1)) << "left before, down now";
}

TEST(VmCalendarWidget, MouseRaisesItsSignalsInOrder) {
    Widget widget;
    Prepare(widget);
    Names names;
    Note(widget, names);
    const QPoint may20 = CellOf(widget, QDate(2024, 5, 20)).center();
    Click(&widget, may20);
    EXPECT_EQ(names, (Names{"mouseDown", "dateChanged", "dayChanged", "dateValueChanged", "mouseUp",
                            "click"}));
    names.clear();
    SendMouse(&widget, QEvent::MouseButtonDblClick, may20);
    SendMouse(&widget, QEvent::MouseButtonRelease, may20);
    EXPECT_EQ(names, (Names{"mouseDown", "dblClick", "mouseUp"}));
    names.clear();
    SendMouse(&widget, QEvent::MouseButtonPress, may20);
    SendMouse(&widget, QEvent::MouseButtonRelease, {-5, -5});
    EXPECT_EQ(names, (Names{"mouseDown", "mouseUp"})) << "released outside";
    names.clear();
    SendMouse(&widget, QEvent::MouseButtonPress, CellOf(widget, kMay15).center());
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&widget, &deactivate);
    SendMouse(&widget, QEvent::MouseButtonRelease, CellOf(widget, kMay15).center());
    EXPECT_EQ(names, (Names{"mouseDown", "mouseUp"})) << "the press was lost with the window";
    EXPECT_EQ(widget.dateValue(), QDate(2024, 5, 20));
    names.clear();
    SendMouse(&widget, QEvent::MouseButtonPress, may20, Qt::RightButton);
    SendMouse(&widget, QEvent::MouseButtonRelease, may20, Qt::RightButton);
    EXPECT_EQ(names, (Names{"mouseDown", "mouseUp"}));
}

TEST(VmCalendarWidget, EverySlotMayDeleteTheWidget) {
    using Act = std::function<void(Widget*)>;
    struct Case {
        const char* name;
        std::function<void(Widget*, const Act&)> connect;
        Act act;
    };
    const Act left = [](Widget* w) { SendKey(w, QEvent::KeyPress, Qt::Key_Left, {}, "x"); };
    const Act release = [](Widget* w) { SendKey(w, QEvent::KeyRelease, Qt::Key_Left); };
    const Act click = [](Widget* w) { Click(w, CellOf(*w, QDate(2024, 5, 20)).center()); };
    const Act twice = [](Widget* w) { SendMouse(w, QEvent::MouseButtonDblClick, {9, 9}); };
    const Act yearOn = [](Widget* w) { w->setDateValue(QDate(2025, 6, 1)); };
    const auto on = [](auto signal) {
        return [signal](Widget* w, const Act& end) {
            QObject::connect(w, signal, [w, end] { end(w); });
        };
    };
    const Case cases[] = {
        {"dateChanged, key", on(&Widget::dateChanged), left},
        {"dateChanged, mouse", on(&Widget::dateChanged), click},
        {"dayChanged", on(&Widget::dayChanged), click},
        {"monthChanged", on(&Widget::monthChanged), yearOn},
        {"yearChanged", on(&Widget::yearChanged), yearOn},
        {"dateValueChanged", on(&Widget::dateValueChanged), left},
        {"propertyChanged, key", on(&Widget::propertyChanged), left},
        {"propertyChanged, setter", on(&Widget::propertyChanged),
         [](Widget* w) { w->setMonthBackColor(Qt::red); }},
        {"propertyChanged, disabled", on(&Widget::propertyChanged),
         [](Widget* w) { w->setEnabled(false); }},
        {"keyDown", on(&Widget::keyDown), left},
        {"keyPress", on(&Widget::keyPress), left},
        {"keyUp", on(&Widget::keyUp), release},
        {"mouseDown", on(&Widget::mouseDown), click},
        {"mouseDown, double", on(&Widget::mouseDown), twice},
        {"mouseUp", on(&Widget::mouseUp), click},
        {"mouseMove", on(&Widget::mouseMove),
         [](Widget* w) { SendMouse(w, QEvent::MouseMove, {9, 9}, Qt::NoButton); }},
        {"click", on(&Widget::click), click},
        {"dblClick", on(&Widget::dblClick), twice},
        {"oleStartDrag", on(&Widget::oleStartDrag), [](Widget* w) { w->oleDrag(); }},
    };
    for (const int style : {VmMonthSelNone, VmMonthSelCombo}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            const QPointer<Widget> widget(new Widget);
            widget->setMonthYearSelStyle(static_cast<Widget::MonthYearSelStyle>(style));
            Prepare(*widget);
            c.connect(widget, [](Widget* w) { delete w; });
            c.act(widget);
            EXPECT_FALSE(widget);
            delete widget;
        }
    }
}

TEST(VmCalendarWidget, FirstPaintAnnouncesTheMonthAfterwards) {
    const QPointer<Widget> widget(new Widget);
    widget->setDateValue(kMay15);
    widget->resize(200, 200);
    Names names;
    QObject::connect(widget, &Widget::monthChanged, [&](int month) {
        names.push_back(std::to_string(month));
        delete widget;
    });
    ImageOf(*widget);
    ASSERT_TRUE(widget);
    EXPECT_EQ(names, Names{});
    QApplication::processEvents();
    EXPECT_EQ(names, Names{"5"});
    EXPECT_FALSE(widget);
}

TEST(VmCalendarWidget, FillsItsAreaAsLongAsNothingWasPainted) {
    Widget widget;
    widget.setNoRepaintControl(true);
    widget.resize(90, 80);
    widget.show();
    const QImage image = ImageOf(widget);
    EXPECT_EQ(Share(image, image.rect(), widget.palette().button().color()), 100);
}

TEST(VmCalendarWidget, ChildrenExistForTheirStyleAloneAndAgreeWithTheDate) {
    Widget widget;
    widget.setMonthYearSelStyle(Widget::MonthSelArrows);
    Prepare(widget);
    EXPECT_TRUE(widget.findChildren<QWidget*>().isEmpty());

    widget.setMonthYearSelStyle(Widget::MonthSelCombo);
    const auto* const list = widget.findChild<QComboBox*>();
    const auto* const year = widget.findChild<QLineEdit*>();
    const auto* const spinner = widget.findChild<QScrollBar*>();
    ASSERT_TRUE(list && year && spinner);
    EXPECT_TRUE(list->isVisible() && year->isVisible() && spinner->isVisible());
    EXPECT_EQ(list->count(), 12);
    EXPECT_EQ(widget.findChildren<QScrollBar*>(Qt::FindDirectChildrenOnly).size(), 1);

    Names names;
    Note(widget, names);
    widget.setDateValue(QDate(2031, 12, 5));
    EXPECT_EQ(std::count(names.begin(), names.end(), "monthChanged"), 1);
    EXPECT_EQ(list->currentText(), "December");
    EXPECT_EQ(year->text(), "2031");
    EXPECT_EQ(spinner->value(), -2031);
    widget.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(list->currentText(), "Dezember");
    EXPECT_EQ(list->currentIndex(), 11);

    widget.setMonthYearSelStyle(Widget::MonthSelScrollbar);
    EXPECT_FALSE(list->isVisible() || year->isVisible() || spinner->isVisible());
    const auto bars = widget.findChildren<QScrollBar*>(Qt::FindDirectChildrenOnly);
    ASSERT_EQ(bars.size(), 2);
    EXPECT_EQ(bars.back()->value(), (2031 - 1900) * 12 + 12);
    EXPECT_EQ(bars.back()->geometry().right(), widget.width() - 2);
}

TEST(VmCalendarWidget, DateTextFollowsTheLocale) {
    Widget widget;
    Prepare(widget, QDate(1931, 2, 3));
    const auto text = [&] { return *widget.calendar().DateValue().As<std::string>(); };
    EXPECT_EQ(text(), "2/3/1931");
    widget.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(text(), "03.02.1931");
    for (const QLocale::Language language :
         {QLocale::Swedish, QLocale::Japanese, QLocale::Bulgarian, QLocale::Korean, QLocale::Arabic,
          QLocale::Hungarian, QLocale::Slovenian}) {
        widget.setLocale(QLocale(language));
        const QDate before = widget.dateValue();
        widget.calendar().DateValue(Variant(text()));
        EXPECT_EQ(widget.dateValue(), before) << text();
    }
}

TEST(VmCalendarWidget, AboutBoxOutlivesTheWidget) {
    auto* const widget = new Widget;
    Prepare(*widget);
    widget->aboutBox();
    const QPointer<QDialog> box(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
    delete widget;
    ASSERT_TRUE(box);
    box->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(box);
}

}  // namespace
}  // namespace velmora
