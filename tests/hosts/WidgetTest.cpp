#include "VelmoraCalendar/VmCalDropDownWidget.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/qt/windows/QtDropDownForm.h"
#include "tests/hosts/PropertyWalk.h"
#include "tests/hosts/WidgetSupport.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace velmora {
namespace {

TEST(VmCalendarWidget, PropertiesFollowTheTable) {
    ExpectFollowsTheTable<Widget>(test::kCalendarRows,
                                  {"classicLook", "extendedNavigation", "oleDropMode"});
}

TEST(VmCalendarWidget, ReportsItsOwnDisablingAlone) {
    QWidget parent;
    auto* const widget = new Widget(&parent);
    Names changed;
    QObject::connect(widget, &Widget::propertyChanged,
                     [&](const QString& name) { changed.push_back(name.toStdString()); });
    parent.setEnabled(false);
    EXPECT_TRUE(widget->calendar().Enabled());
    parent.setEnabled(true);
    widget->setEnabled(false);
    EXPECT_FALSE(widget->calendar().Enabled());
    widget->calendar().Enabled(true);
    EXPECT_EQ(changed, (Names{"enabled", "enabled"}));
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

/// What is not used is for the dialog around; arrows and their company never leave the selectors.
TEST(VmCalendarWidget, KeysAreAcceptedWhenUsed) {
    QWidget window;
    auto* const widget = new Widget(&window);
    widget->setMonthYearSelStyle(Widget::MonthSelCombo);
    Prepare(*widget);
    window.show();
    window.activateWindow();
    QApplication::processEvents();
    EXPECT_TRUE(SendKey(widget, Qt::Key_Right));
    EXPECT_FALSE(SendKey(widget, Qt::Key_A, "a"));
    auto* const year = widget->findChild<QLineEdit*>();
    for (QWidget* const child : QWidgetList{widget->findChild<QComboBox*>(), year}) {
        child->setFocus();
        for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End}) {
            EXPECT_TRUE(SendKey(child, key)) << key;
        }
        EXPECT_FALSE(SendKey(child, Qt::Key_F5));
    }
    for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
        EXPECT_FALSE(SendKey(year, key)) << "nothing was typed";
        EXPECT_TRUE(SendKey(year, Qt::Key_1, "1"));
        EXPECT_TRUE(SendKey(year, key));
        QApplication::processEvents();
    }
}

/// Each with its focus to be seen, and what a key of it does.
TEST(VmCalendarWidget, TabReachesTheSelectorsOfEveryStyle) {
    for (const auto& [style, selectors] : {std::pair(Widget::MonthSelNone, ""),
                                           {Widget::MonthSelArrows, ""},
                                           {Widget::MonthSelCombo, "QComboBox QLineEdit "},
                                           {Widget::MonthSelScrollbar, "QScrollBar "}}) {
        QWidget window;
        auto* const widget = new Widget(&window);
        auto* const behind = new QLineEdit(&window);
        Prepare(window);
        Prepare(*widget);
        window.activateWindow();
        widget->setMonthYearSelStyle(style);
        Prepare(*widget);
        behind->setFocus();
        SendKey(behind, Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget() == widget, *selectors == '\0');
        widget->setFocus();
        SendKey(widget, Qt::Key_Tab);
        std::string reached;
        for (QWidget* at; (at = QApplication::focusWidget()) != behind && at != widget;) {
            reached += std::string(at->metaObject()->className()) + ' ';
            const QImage focused = at->grab().toImage();
            SendKey(at, Qt::Key_Right);
            QApplication::processEvents();
            EXPECT_EQ(widget->shownDate() > kMay15, style == Widget::MonthSelScrollbar);
            SendKey(at, Qt::Key_PageUp);
            QApplication::processEvents();
            EXPECT_NE(widget->shownDate(), kMay15) << reached;
            widget->setDateValue(kMay15.addDays(1));
            widget->setDateValue(kMay15);
            SendKey(at, Qt::Key_Tab);
            EXPECT_NE(at->grab().toImage(), focused) << reached;
        }
        EXPECT_EQ(reached, selectors);
        EXPECT_EQ(QApplication::focusWidget(), behind);
        for (auto i = std::ranges::count(reached, ' '); i >= 0; --i) {
            SendKey(QApplication::focusWidget(), Qt::Key_Backtab);
        }
        EXPECT_EQ(QApplication::focusWidget(), widget);
    }
}

TEST(VmCalendarWidget, AFingerTapsTurnsAndAsksForTheMenu) {
    Widget widget;
    Prepare(widget);
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    QApplication::processEvents();  // the first paint's event
    Names told;
    QObject::connect(&widget, &Widget::dateChanged,
                     [&](QDate date) { told.push_back("day " + std::to_string(date.day())); });
    QObject::connect(&widget, &Widget::monthChanged,
                     [&](int month) { told.push_back("month " + std::to_string(month)); });
    QObject::connect(&widget, &Widget::customContextMenuRequested, [&] { told.push_back("menu"); });
    static QPointingDevice* const screen = QTest::createTouchDevice();
    const QPoint at = CellOf(widget.calendar(), kMay15.addDays(2)).center();
    const auto touch = [&](QPoint way, bool isLong = false) {
        QTest::touchEvent(&widget, screen).press(0, at);
        for (auto* const timer : widget.findChildren<QTimer*>()) {
            QTimerEvent event(timer->timerId());
            if (isLong && timer->isActive()) QApplication::sendEvent(timer, &event);
        }
        QTest::touchEvent(&widget, screen).move(0, at + way);
        QTest::touchEvent(&widget, screen).release(0, at + way);
        QApplication::processEvents();
    };
    touch({});  // Qt makes a click of it
    widget.setExtendedNavigation(true);
    widget.setDateValue(kMay15);
    touch({});
    touch({-70, 5});
    touch({70, 5});
    touch({70, 60});
    touch({}, true);
    EXPECT_EQ(told, (Names{"day 17", "day 15", "day 17", "month 6", "month 5", "menu"}));
}

using Box = VmCalDropDownWidget;

QtDropDownForm& TheForm() { return *QtDropDownForm::Shared(); }

/// A box with an open calendar, on a ground in a window of its own.
class BoxWindow : public QWidget {
public:
    BoxWindow() : ground(new QWidget(this)), box(new Box(ground)) {
        setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        setPalette(QPalette(QColor(220, 220, 220)));
        box->setGeometry(10, 10, 150, 24);
        box->setDateValue(QDateTime(kMay15, QTime(12, 0)));
        box->setDropDownWidth(321);
        box->setDropDownAlignment(Box::RightJustified);
        resize(300, 100);
        show();
        activateWindow();
        QApplication::processEvents();
        connect(box, &Box::closeUp, this, [this] { ++closings; });
        box->setFocus();
        SendKey(box, Qt::Key_F4);
    }

    ~BoxWindow() override { delete box; }  // while its signals can still be counted

    QWidget* ground;
    QPointer<Box> box;
    int closings = 0;
};

/// Its controls and frames are plain areas, and counted.
class PlainStyle : public QProxyStyle {
public:
    mutable int drawn = 0;

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget*) const override {
        Draw(*painter, *option, control == CC_ScrollBar ? Qt::cyan : Qt::magenta);
    }
    void drawPrimitive(PrimitiveElement, const QStyleOption* option, QPainter* painter,
                       const QWidget*) const override {
        Draw(*painter, *option, Qt::cyan);
    }

private:
    void Draw(QPainter& painter, const QStyleOption& option, QColor color) const {
        ++drawn;
        painter.fillRect(option.rect, color);
    }
};

TEST(VmCalendarWidget, ItsStyleDrawsButtonsAndTheBoxOnce) {
    PlainStyle style;
    QWidget window;
    auto* const calendar = new Widget(&window);
    auto* const box = new Box(&window);
    calendar->setMonthYearSelStyle(Widget::MonthSelArrows);
    for (const auto& [widget, at, drawings] :
         {std::tuple<VmDateWidget*, QPoint, int>(calendar, {8, 12}, 2), {box, {270, 110}, 2}}) {
        widget->setStyle(&style);
        Prepare(*widget);
        style.drawn = 0;
        for (int i = 0; i < 2; ++i) {
            const QImage image = widget->grab().toImage();
            EXPECT_EQ(image.pixelColor(at), QColor(Qt::magenta));
            EXPECT_EQ(image.pixelColor(0, 9) == QColor(Qt::cyan), widget == box) << "frame";
        }
        EXPECT_EQ(style.drawn, drawings);
        widget->setClassicLook(true);
        EXPECT_NE(widget->grab().toImage().pixelColor(at), QColor(Qt::magenta));
    }
    calendar->setMonthYearSelStyle(Widget::MonthSelCombo);
    auto* const spinner = (calendar->grab(), calendar->findChild<QScrollBar*>());
    spinner->setStyle(&style);
    EXPECT_EQ(spinner->grab().toImage().pixelColor(8, 8), QColor(Qt::cyan));
    calendar->setClassicLook(false);
    EXPECT_EQ(spinner->grab().toImage().pixelColor(8, 8), QColor(Qt::magenta));
}

TEST(VmCalendarWidget, IsPlainGroundUntilItMayPaint) {
    Widget widget;
    widget.setNoRepaintControl(true);
    widget.show();
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    widget.render(&image);
    const QImage grounds = image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_EQ(grounds.pixelColor(0, 0), widget.palette().color(QPalette::Button));
}

/// However the font comes to the widget; one that has been set stays.
TEST(VmCalendarWidget, SizesFollowTheFont) {
    const QFont before = QApplication::font();
    const std::pair<const char*, std::function<void(QWidget&)>> ways[] = {
        {"own", [](QWidget& widget) { widget.setFont(QFont("DejaVu Sans", 30)); }},
        {"window", [](QWidget& widget) { widget.window()->setFont(QFont("DejaVu Sans", 30)); }},
        {"style sheet", [](QWidget& widget) { widget.setStyleSheet("font: 30pt"); }},
        {"application", [](QWidget&) { QApplication::setFont(QFont("DejaVu Sans", 30)); }}};
    for (const auto& [way, grow] : ways) {
        SCOPED_TRACE(way);
        QWidget window;
        Widget calendar(&window);
        Box box(&window);
        box.setDateFormat("Long Date");
        calendar.setMonthFont(QFont("DejaVu Sans", 8));
        Prepare(window);
        const QSize least = calendar.minimumSizeHint(), usual = calendar.sizeHint();
        const QSize small = box.sizeHint();
        for (QWidget* const widget : QWidgetList{&calendar, &box}) grow(*widget);
        QApplication::processEvents();
        EXPECT_EQ(calendar.dayFont().pointSize(), 30);
        EXPECT_EQ(calendar.monthFont().pointSize(), 8);
        EXPECT_GT(calendar.minimumSizeHint().height(), 2 * least.height());
        EXPECT_GT(calendar.sizeHint().width(), 2 * usual.width());
        EXPECT_GT(box.sizeHint().width(), 2 * small.width());
        const QFontMetrics metrics(box.comboFont());
        for (int day = 0; day < 366; ++day) {
            box.setDate(QDate(2024, 1, 1).addDays(day));
            EXPECT_LE(metrics.horizontalAdvance(box.text()) + 26, box.sizeHint().width());
        }
        QApplication::setFont(before);
    }
}

TEST(VmCalDropDownWidget, PropertiesFollowTheTable) {
    ExpectFollowsTheTable<Box>(test::kBoxRows,
                               {"classicLook", "date", "dropDownState", "extendedNavigation",
                                "keepDropDownOnScreen", "oleDropMode"});
    Box box;
    box.dropDownBox().DateValue(Date(45000 + 0.999'999'999));
    EXPECT_EQ(box.dateValue(), QDateTime(QDate(2023, 3, 15), QTime(23, 59, 59, 999)));
}

TEST(VmCalDropDownWidget, WhateverHappensToTheBoxEndsItsCalendar) {
    const std::pair<const char*, std::function<void(BoxWindow&)>> cases[] = {
        {"hidden", [](BoxWindow& w) { w.box->hide(); }},
        {"window hidden", [](BoxWindow& w) { w.hide(); }},
        {"window moved", [](BoxWindow& w) { w.move(w.pos() + QPoint(9, 9)); }},
        {"window disabled", [](BoxWindow& w) { w.setEnabled(false); }},
        {"scrolled", [](BoxWindow& w) { w.ground->move(0, -5); }},
        {"resized", [](BoxWindow& w) { w.box->resize(160, 24); }},
        {"deleted", [](BoxWindow& w) { delete w.box; }},
    };
    for (const auto& [name, end] : cases) {
        SCOPED_TRACE(name);
        BoxWindow window;
        EXPECT_TRUE(TheForm().isVisible());
        EXPECT_EQ(QWidget::mouseGrabber(), &TheForm());
        end(window);
        EXPECT_FALSE(TheForm().isVisible());
        EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
        for (const QTimer* const timer : TheForm().findChildren<QTimer*>()) {
            EXPECT_FALSE(timer->isActive());
        }
        EXPECT_EQ(window.closings, 0) << "told when a slot may delete the box";
        QApplication::processEvents();
        EXPECT_EQ(window.closings, window.box ? 1 : 0);
    }
}

TEST(VmCalDropDownWidget, OpenCalendarLooksAsItsBox) {
    BoxWindow window;
    EXPECT_EQ(TheForm().size(), QSize(321, 200));
    EXPECT_EQ(TheForm().pos(), window.box->mapToGlobal(QPoint(150 - 1 - 321, 24)));
    EXPECT_EQ(TheForm().palette().color(QPalette::Button), QColor(220, 220, 220));
    window.setLocale(QLocale(QLocale::German, QLocale::Germany));
    window.setPalette(QPalette(QColor(50, 50, 50)));
    EXPECT_EQ(TheForm().locale().language(), QLocale::German);
    EXPECT_EQ(TheForm().palette().color(QPalette::Button), QColor(50, 50, 50));
    window.box->setFont(QFont("DejaVu Serif", 20));
    TheForm().grab();
    EXPECT_EQ(TheForm().Form().Calendar().DayFont()->size, 20);
    window.box->setDropDownState(false);
    window.box->setDropDownWidth(1 << 20);
    window.box->dropDownBox().DateValue(Variant(Date(45427.9999999999)));
    EXPECT_EQ(window.box->dateValue().date(), kMay15) << "the last moment of the day";
    SendKey(window.box, Qt::Key_F4);
    EXPECT_LE(TheForm().width(), window.screen()->virtualSize().width());
}

}  // namespace
}  // namespace velmora
