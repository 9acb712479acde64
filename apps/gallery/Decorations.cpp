#include "apps/gallery/Decorations.h"

#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
#include "model/VmDay.h"

#include <QImage>
#include <QPainter>

#include <array>
#include <cmath>
#include <optional>

namespace velmora {
namespace {

constexpr int kPictureSize = 18;

enum class Motif { None, Sun, Cake, Letter };

struct Decoration {
    int day;  // 1..28, so that every month has it
    const char* caption;
    std::optional<QColor> back;
    std::optional<QColor> fore;
    Motif motif = Motif::None;
};

const std::array<Decoration, 9>& Decorations() {
    static const std::array<Decoration, 9> decorations{{
        {1, "Rent", QColor(255, 205, 210), QColor(160, 0, 0)},
        {3, "", {}, {}, Motif::Letter},
        {5, "Dentist", QColor(255, 236, 179), QColor(90, 60, 0)},
        {10, "Lea 8", QColor(248, 215, 228), QColor(140, 20, 80), Motif::Cake},
        {14, "", QColor(220, 237, 200), QColor(27, 94, 32)},
        {15, "Release", QColor(27, 94, 32), QColor(Qt::white)},
        {20, "Trip", QColor(187, 222, 251), QColor(13, 71, 161), Motif::Sun},
        {21, "Trip", QColor(187, 222, 251), QColor(13, 71, 161)},
        {22, "Trip", QColor(187, 222, 251), QColor(13, 71, 161), Motif::Sun},
    }};
    return decorations;
}

void DrawSun(QPainter& painter) {
    painter.setPen(QPen(QColor(230, 120, 0), 1.5));
    for (int ray = 0; ray < 8; ++ray) {
        const double angle = ray * 3.14159265 / 4;
        const QPointF direction(std::cos(angle), std::sin(angle));
        painter.drawLine(QPointF(9, 9) + direction * 6, QPointF(9, 9) + direction * 8.5);
    }
    painter.setBrush(QColor(255, 193, 7));
    painter.drawEllipse(QPointF(9, 9), 4, 4);
}

void DrawCake(QPainter& painter) {
    painter.setPen(QPen(QColor(93, 64, 55), 1));
    painter.setBrush(QColor(215, 160, 120));
    painter.drawRect(QRectF(2, 10, 14, 6));
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(2, 8, 14, 3));
    painter.setPen(QPen(QColor(200, 40, 60), 1.5));
    for (const double x : {5.0, 9.0, 13.0}) painter.drawLine(QPointF(x, 4), QPointF(x, 7));
}

void DrawLetter(QPainter& painter) {
    painter.setPen(QPen(QColor(60, 90, 140), 1.2));
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(1.5, 4.5, 15, 10));
    painter.drawPolyline(QPolygonF({{1.5, 4.5}, {9, 10}, {16.5, 4.5}}));
}

PictureRef PictureOf(Motif motif) {
    if (motif == Motif::None) return nullptr;
    QImage image(kPictureSize, kPictureSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    switch (motif) {
        case Motif::Sun: DrawSun(painter); break;
        case Motif::Cake: DrawCake(painter); break;
        case Motif::Letter: DrawLetter(painter); break;
        case Motif::None: break;
    }
    painter.end();
    return bitmapPicture(image);
}

Variant ColorOf(const QColor& color) {
    return static_cast<OLE_COLOR>(color.red() | color.green() << 8 | color.blue() << 16);
}

template <class Control>
void DecorateShownMonth(Control& control) {
    for (const Decoration& decoration : Decorations()) {
        const DayRef day = control.day(decoration.day);
        if (!day) continue;
        day->Caption(decoration.caption);
        if (decoration.back) day->BackColor(ColorOf(*decoration.back));
        if (decoration.fore) day->ForeColor(ColorOf(*decoration.fore));
        if (const PictureRef picture = PictureOf(decoration.motif)) day->Picture(picture);
    }
}

template <class Control>
void DecorateEveryMonth(Control& control) {
    DecorateShownMonth(control);
    const auto again = [&control] { DecorateShownMonth(control); };
    // The same month of another year is another month.
    QObject::connect(&control, &Control::monthChanged, &control, again);
    QObject::connect(&control, &Control::yearChanged, &control, again);
}

/// `core` is the widget's own calendar or box, where colours may be those of the palette.
template <class Widget, class Core>
void MakeFlat(Widget& widget, Core& core) {
    widget.setDayAppearance(Widget::Flat);
    widget.setMonthAppearance(Widget::Flat);
    widget.setWeekDayAppearance(Widget::Flat);
    widget.setFirstDayOfWeek(Widget::Monday);
    widget.setMonthYearSelStyle(Widget::MonthSelArrows);
    core.Let(kDayDefaultBackColor, kWindowBackground);
    Decorate(widget);
}

}  // namespace

void Decorate(VmCalendarWidget& calendar) { DecorateEveryMonth(calendar); }

void Decorate(VmCalDropDownWidget& box) {
    DecorateEveryMonth(box);
    // The month of the date and the one that was turned to last are different months.
    QObject::connect(&box, &VmCalDropDownWidget::dropDown, &box,
                     [&box] { DecorateShownMonth(box); });
}

void Adorn(VmCalendarWidget& calendar) {
    calendar.setAppearance(VmCalendarWidget::Flat);
    MakeFlat(calendar, calendar.calendar());
}

void Adorn(VmCalDropDownWidget& box) {
    box.setDropDownAppearance(VmCalDropDownWidget::Flat);
    MakeFlat(box, box.dropDownBox());
}

}  // namespace velmora
