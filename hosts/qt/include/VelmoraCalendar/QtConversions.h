#pragma once

#include <QColor>
#include <QDate>
#include <QDateTime>
#include <QFont>
#include <QImage>
#include <QString>

#include <cstdint>
#include <memory>
#include <string_view>

/// The core's value types and their counterparts in Qt. The core's are in platform/Values.h,
/// platform/FontAndPicture.h and platform/dates/Date.h.
namespace velmora {

struct Date;
struct StdFont;
class StdPicture;
enum class PictureType : std::int16_t;
using DayNumber = std::int32_t;
using OLE_COLOR = std::uint32_t;
using PictureRef = std::shared_ptr<StdPicture>;
using Rgb = std::uint32_t;

inline QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The day, without a time; one beyond the calendar's years stays beyond them. `date` is valid.
Date ToDate(QDate date);
QDate ToQDate(DayNumber day);
/// With the time of day, to the millisecond; the time zone plays no part.
Date ToDate(const QDateTime& moment);
QDateTime ToQDateTime(Date date);
/// The present moment.
Date LocalNow();

/// A plain RGB value; `color` is valid, its alpha is dropped.
OLE_COLOR ToOleColor(const QColor& color);
QColor ToQColor(Rgb color);

/// Sizes given in pixels become the points they come to on the screen.
StdFont ToStdFont(const QFont& font);
QFont ToQFont(const StdFont& font);

/// One pixel of the image is one pixel of the picture, at the primary screen's resolution. Null for
/// a null image.
PictureRef ToPicture(const QImage& image, PictureType type);
/// Null for a picture without pixels.
QImage ToQImage(const PictureRef& picture);

}  // namespace velmora
