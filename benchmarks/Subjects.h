#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "benchmarks/ResultTable.h"
#include "calendar/VmCalendar.h"

#include <QCalendarWidget>
#include <QDate>
#include <QEvent>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QTextCharFormat>

namespace velmora {

inline const QDate kShownDate(2024, 5, 15);

/// What the days of a month have: a colour and a caption, and a picture too.
enum class Decor { None, Captions, Pictures };

inline QColor DayColor(int day) { return {255, 224, 160 + day}; }

inline const QImage& DayImage() {
    static const QImage image = [] {
        QImage made(12, 12, QImage::Format_ARGB32_Premultiplied);
        made.fill(Qt::transparent);
        QPainter(&made).fillRect(2, 2, 8, 8, QColor(32, 96, 192, 160));
        return made;
    }();
    return image;
}

/// The same work on either calendar.
struct VelmoraSubject {
    using Widget = VmCalendarWidget;
    static constexpr Side kSide = Side::Velmora;

    static void Select(Widget& calendar, QDate date) { calendar.setDateValue(date); }
    static QWidget& KeyReceiver(Widget& calendar) { return calendar; }
    static void Color(Widget& calendar, QDate date, QColor color) {
        calendar.day(date.day())
            ->BackColor(
                static_cast<OLE_COLOR>(color.red() | color.green() << 8 | color.blue() << 16));
    }
    static void Caption(Widget& calendar, QDate date, const QString& text) {
        calendar.day(date.day())->Caption(text.toStdString());
    }
    static void Decorate(Widget& calendar, QDate date, Decor decor, const QString& caption) {
        static const PictureRef picture = bitmapPicture(DayImage());
        Color(calendar, date, DayColor(date.day()));
        Caption(calendar, date, caption);
        if (decor == Decor::Pictures) calendar.day(date.day())->Picture(picture);
    }
};

/// Qt's own, whose captions and pictures are painted by hand.
class CaptionedCalendar final : public QCalendarWidget {
public:
    using QCalendarWidget::QCalendarWidget;

    QHash<QDate, QString> captions;
    bool hasPictures = false;

protected:
    void paintCell(QPainter* painter, const QRect& rect, QDate date) const override {
        QCalendarWidget::paintCell(painter, rect, date);
        const auto caption = captions.constFind(date);
        if (caption == captions.cend()) return;
        painter->drawText(rect, Qt::AlignHCenter | Qt::AlignBottom, *caption);
        if (hasPictures) painter->drawImage(rect.topLeft(), DayImage());
    }
};

struct QtSubject {
    using Widget = CaptionedCalendar;
    static constexpr Side kSide = Side::Qt;

    static void Select(Widget& calendar, QDate date) { calendar.setSelectedDate(date); }
    static QWidget& KeyReceiver(Widget& calendar) {
        return *calendar.findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
    }
    static void Color(Widget& calendar, QDate date, QColor color) {
        QTextCharFormat format;
        format.setBackground(color);
        calendar.setDateTextFormat(date, format);
    }
    static void Caption(Widget& calendar, QDate date, const QString& text) {
        calendar.captions[date] = text;
    }
    static void Decorate(Widget& calendar, QDate date, Decor decor, const QString& caption) {
        Color(calendar, date, DayColor(date.day()));
        Caption(calendar, date, caption);
        calendar.hasPictures = decor == Decor::Pictures;
    }
};

/// Every day of the month of that date; `#` in the caption is the day.
template <class Subject>
void DecorateMonth(typename Subject::Widget& calendar, QDate month, Decor decor,
                   const QString& caption) {
    if (decor == Decor::None) return;
    for (int day = 1; day <= month.daysInMonth(); ++day) {
        Subject::Decorate(calendar, QDate(month.year(), month.month(), day), decor,
                          QString(caption).replace(QLatin1Char('#'), QString::number(day)));
    }
}

/// Shows a window and waits until it has been exposed: nothing is painted before.
inline void ShowNow(QWidget& window) {
    window.show();
    QCoreApplication::processEvents();
}

/// Paints what has been asked for.
inline void Flush() { QCoreApplication::sendPostedEvents(); }

/// Counts the paint events of what is in a window, as long as it lives.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& window) : m_window(window) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    int Count() const { return m_count; }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType()) {
            const auto* painted = static_cast<QWidget*>(object);
            m_count += painted != &m_window && m_window.isAncestorOf(painted);
        }
        return false;
    }

private:
    QWidget& m_window;
    int m_count = 0;
};

}  // namespace velmora
