#include "VelmoraCalendar/QtConversions.h"

#include "platform/FontAndPicture.h"
#include "platform/ScaleMode.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstring>
#include <ctime>
#include <memory>
#include <utility>

namespace velmora {
namespace {

constexpr qint64 kJulianDayZero = 2415019;  // 30 December 1899
constexpr int kMillisecondsPerDay = 86'400'000;

std::int32_t ToHimetric(int pixels) {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const double perInch = screen ? screen->logicalDotsPerInchX() : kUsualPixelsPerInch;
    return static_cast<std::int32_t>(std::lround(pixels / perInch * kHimetricPerInch));
}

}  // namespace

Date ToDate(QDate date) { return Date(static_cast<double>(date.toJulianDay() - kJulianDayZero)); }

QDate ToQDate(DayNumber day) { return QDate::fromJulianDay(day + kJulianDayZero); }

Date ToDate(const QDateTime& moment) {
    const double time = moment.time().msecsSinceStartOfDay() / double{kMillisecondsPerDay};
    return DateOf(DayOf(ToDate(moment.date())), time);
}

QDateTime ToQDateTime(Date date) {
    const auto time = static_cast<int>(std::lround(TimeOf(date) * kMillisecondsPerDay));
    return {ToQDate(DayOf(date)),
            QTime::fromMSecsSinceStartOfDay(std::min(time, kMillisecondsPerDay - 1))};
}

#ifdef Q_OS_UNIX
/// Asks for the zone once a second: that takes longer than to paint a cell, and every key and every
/// paint asks for the moment several times.
Date LocalNow() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const std::time_t seconds = system_clock::to_time_t(now);
    thread_local std::time_t lookedAt = -1;
    thread_local DayNumber day = 0;
    thread_local int second = 0;  // of the day
    if (std::exchange(lookedAt, seconds) != seconds) {
        tzset();
        std::tm local{};
        localtime_r(&seconds, &local);
        day = DayFromCivil(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
        second = (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, 59);
    }
    const auto past = duration_cast<milliseconds>(now - system_clock::from_time_t(seconds));
    return DateOf(day, (second * 1000.0 + static_cast<double>(past.count())) / kMillisecondsPerDay);
}
#else
Date LocalNow() { return ToDate(QDateTime::currentDateTime()); }
#endif

OLE_COLOR ToOleColor(const QColor& color) {
    const QRgb rgb = color.rgb();
    return static_cast<OLE_COLOR>(qRed(rgb) | qGreen(rgb) << 8 | qBlue(rgb) << 16);
}

QColor ToQColor(Rgb color) {
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

StdFont ToStdFont(const QFont& font) {
    StdFont result;
    result.name = font.family().toStdString();
    result.size = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    result.bold = font.bold();
    result.italic = font.italic();
    result.underline = font.underline();
    result.strikethrough = font.strikeOut();
    return result;
}

QFont ToQFont(const StdFont& font) {
    QFont result(ToQString(font.name));
    if (font.size > 0) result.setPointSizeF(font.size);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setUnderline(font.underline);
    result.setStrikeOut(font.strikethrough);
    return result;
}

PictureRef ToPicture(const QImage& image, PictureType type) {
    if (image.isNull()) return nullptr;
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    auto pixels = std::make_shared<PixelImage>();
    pixels->width = source.width();
    pixels->height = source.height();
    const auto width = static_cast<std::size_t>(source.width());
    pixels->pixels.resize(width * static_cast<std::size_t>(source.height()));
    for (int y = 0; y < source.height(); ++y) {
        std::memcpy(pixels->pixels.data() + static_cast<std::size_t>(y) * width,
                    source.constScanLine(y), width * sizeof(std::uint32_t));
    }
    const Size himetric{ToHimetric(source.width()), ToHimetric(source.height())};
    return std::make_shared<StdPicture>(type, himetric, std::move(pixels));
}

QImage ToQImage(const PictureRef& picture) {
    if (!picture || !picture->Image() || !picture->Image()->IsDrawable()) return {};
    const PixelImage& source = *picture->Image();
    QImage image(source.width, source.height, QImage::Format_ARGB32);
    if (image.isNull()) return {};
    const auto width = static_cast<std::size_t>(source.width);
    for (int y = 0; y < source.height; ++y) {
        std::memcpy(image.scanLine(y), source.pixels.data() + static_cast<std::size_t>(y) * width,
                    width * sizeof(std::uint32_t));
    }
    return image;
}

}  // namespace velmora
