#include "apps/gallery/Pages.h"

#include "apps/gallery/DateBoxPage.h"
#include "apps/gallery/Decorations.h"
#include "apps/gallery/LivePage.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace velmora {
namespace {

using Widget = VmCalendarWidget;

/// One calendar of a page, with the words above it.
struct Tile {
    const char* title;
    void (*prepare)(Widget& calendar);
};

void MakeFlat(Widget& calendar) {
    calendar.setAppearance(Widget::Flat);
    calendar.setDayAppearance(Widget::Flat);
    calendar.setMonthAppearance(Widget::Flat);
    calendar.setWeekDayAppearance(Widget::Flat);
}

template <Widget::MonthYearSelStyle style>
void Raised(Widget& calendar) {
    calendar.setMonthYearSelStyle(style);
}

template <Widget::MonthYearSelStyle style>
void Flat(Widget& calendar) {
    MakeFlat(calendar);
    calendar.setMonthYearSelStyle(style);
}

void WorkWeek(Widget& calendar) {
    calendar.setShowWeekend(false);
    calendar.setMonthYearSelStyle(Widget::MonthSelArrows);
    Decorate(calendar);
}

void Disabled(Widget& calendar) {
    calendar.setMonthYearSelStyle(Widget::MonthSelArrows);
    calendar.setEnabled(false);
}

void MondayFirst(Widget& calendar) {
    calendar.setFirstDayOfWeek(Widget::Monday);
    calendar.setWeekDayDisplay(Widget::WeekDayLetter);
    calendar.setDayNumberAlignment(Widget::TextMiddleCenter);
}

void Night(Widget& calendar) {
    MakeFlat(calendar);
    const QColor back(38, 50, 56);
    const QColor fore(207, 216, 220);
    calendar.setMonthBackColor(back.darker(130));
    calendar.setMonthForeColor(QColor(128, 203, 196));
    calendar.setWeekDayBackColor(back.darker(115));
    calendar.setWeekDayForeColor(fore);
    calendar.setDayDefaultBackColor(back);
    calendar.setDayDefaultForeColor(fore);
    calendar.setDayOtherMonthForeColor(QColor(96, 125, 139));
    calendar.setSelectedDayBackColor(QColor(0, 137, 123));
    calendar.setSelectedDayForeColor(Qt::white);
    calendar.setMonthFont(QFont(calendar.monthFont().family(), 13, QFont::Bold));
    calendar.setDayNumberAlignment(Widget::TextMiddleCenter);
}

QWidget* MakeGrid(std::span<const Tile> tiles, int columns, QDate date) {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    for (int i = 0; const Tile& tile : tiles) {
        auto* cell = new QVBoxLayout;
        auto* calendar = new Widget;
        calendar->setExtendedNavigation(true);
        calendar->setDateValue(date);
        tile.prepare(*calendar);
        cell->addWidget(new QLabel(QObject::tr(tile.title)));
        cell->addWidget(calendar, 1);
        grid->addLayout(cell, i / columns, i % columns);
        ++i;
    }
    return page;
}

QPalette DarkPalette() {
    QPalette dark(QColor(58, 60, 66), QColor(40, 42, 46));
    dark.setColor(QPalette::Base, QColor(30, 31, 34));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Active, role, QColor(223, 225, 229));
        dark.setColor(QPalette::Inactive, role, QColor(223, 225, 229));
    }
    dark.setColor(QPalette::Highlight, QColor(53, 116, 240));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    return dark;
}

/// A calendar and a date box, in each of them.
QWidget* MakeLightAndDarkPage(QDate date) {
    auto* page = new QWidget;
    auto* columns = new QHBoxLayout(page);
    for (const QPalette& palette : {QPalette(), DarkPalette()}) {
        auto* ground = new QWidget;
        ground->setPalette(palette);
        ground->setAutoFillBackground(true);
        auto* calendar = new Widget;
        auto* box = new VmCalDropDownWidget;
        for (VmDateWidget* const widget :
             {static_cast<VmDateWidget*>(calendar), static_cast<VmDateWidget*>(box)}) {
            widget->setExtendedNavigation(true);
            widget->setProperty("dateValue", date);
        }
        Adorn(*calendar);
        Adorn(*box);
        if (columns->isEmpty()) box->setObjectName(QLatin1String(kOpenedInPicture));
        box->setDateFormat(QStringLiteral("Long Date"));
        box->setDropDownWidth(420);
        box->setDropDownHeight(262);
        auto* rows = new QVBoxLayout(ground);
        rows->addWidget(calendar, 5);
        rows->addWidget(box, 0, Qt::AlignLeft);
        rows->addStretch(4);
        columns->addWidget(ground, 1);
    }
    return page;
}

QWidget* MakeStylesPage(QDate date) {
    static constexpr Tile kTiles[] = {
        {"No selector", Raised<Widget::MonthSelNone>},
        {"Arrows", Raised<Widget::MonthSelArrows>},
        {"Month list and year", Raised<Widget::MonthSelCombo>},
        {"Scroll bar", Raised<Widget::MonthSelScrollbar>},
        {"No selector, flat", Flat<Widget::MonthSelNone>},
        {"Arrows, flat", Flat<Widget::MonthSelArrows>},
        {"Month list and year, flat", Flat<Widget::MonthSelCombo>},
        {"Scroll bar, flat", Flat<Widget::MonthSelScrollbar>},
    };
    return MakeGrid(kTiles, 4, date);
}

QWidget* MakeDecoratedPage(QDate date) {
    static constexpr Tile kTiles[] = {
        {"Captions, colours and pictures of single days; every month is decorated as it is shown",
         [](Widget& calendar) {
             calendar.setMonthYearSelStyle(Widget::MonthSelCombo);
             calendar.setDayPictureAlignment(Widget::PictMiddleCenter);
             Decorate(calendar);
         }},
    };
    return MakeGrid(kTiles, 1, date);
}

QWidget* MakeVariantsPage(QDate date) {
    static constexpr Tile kTiles[] = {
        {"Work week", WorkWeek},
        {"Disabled", Disabled},
        {"Weeks from Monday, letters, centred numbers", MondayFirst},
        {"Own colours and fonts", Night},
    };
    return MakeGrid(kTiles, 2, date);
}

constexpr Page kPages[] = {
    {"calendar", "Calendar", MakeLivePage},
    {"light-and-dark", "Light and dark", MakeLightAndDarkPage},
    {"styles", "Styles", MakeStylesPage},
    {"decorated-days", "Decorated days", MakeDecoratedPage},
    {"variants", "Work week and disabled", MakeVariantsPage},
    {"date-boxes", "Date boxes", MakeDateBoxPage},
};

}  // namespace

std::span<const Page> Pages() { return kPages; }

int PageIndex(const QString& name) {
    for (int i = 0; const Page& page : kPages) {
        if (name == QLatin1String(page.name)) return i;
        ++i;
    }
    return -1;
}

}  // namespace velmora
