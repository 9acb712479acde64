#include "tests/hosts/PropertyWalk.h"
#include "tests/hosts/WidgetSupport.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace velmora {
namespace {

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

QRect BandOf(Widget& widget) {
    const Rect band = widget.calendar().Layout().MonthBand();
    return QRect(band.left, band.top, band.right - band.left, band.bottom - band.top)
        .adjusted(2, 2, -2, -3);
}

TEST(VmCalendarWidget, PropertiesFollowTheTable) {
    ExpectFollowsTheTable<Widget>(test::kCalendarRows, {"oleDropMode"});
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

TEST(VmCalendarWidget, ReportsItsOwnDisablingAlone) {
    QWidget parent;
    auto* const widget = new Widget(&parent);
    Names changed;
    QObject::connect(widget, &Widget::propertyChanged,
                     [&](const QString& name) { changed.push_back(name.toStdString()); });
    parent.setEnabled(false);
    EXPECT_TRUE(widget->calendar().Enabled());
    parent.setEnabled(true);
    EXPECT_EQ(changed, Names{});
    widget->setEnabled(false);
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

    widget.setDateValue(QDate(2031, 12, 5));
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
