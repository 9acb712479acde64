#pragma once

#include "VelmoraCalendar/QtExport.h"

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
VELMORA_QT_API Date ToDate(QDate date);
VELMORA_QT_API QDate ToQDate(DayNumber day);
/// With the time of day, to the millisecond; the time zone plays no part.
VELMORA_QT_API Date ToDate(const QDateTime& moment);
VELMORA_QT_API QDateTime ToQDateTime(Date date);
/// The present moment.
VELMORA_QT_API Date LocalNow();

/// A plain RGB value; `color` is valid and opaque.
VELMORA_QT_API OLE_COLOR ToOleColor(const QColor& color);
VELMORA_QT_API QColor ToQColor(Rgb color);

/// Sizes given in pixels become the points they come to on the screen.
VELMORA_QT_API StdFont ToStdFont(const QFont& font);
VELMORA_QT_API QFont ToQFont(const StdFont& font);

/// One pixel of the image is one pixel of the picture, at the primary screen's resolution. Null for
/// a null image.
VELMORA_QT_API PictureRef ToPicture(const QImage& image, PictureType type);
/// Null for a picture without pixels.
VELMORA_QT_API QImage ToQImage(const PictureRef& picture);

}  // namespace velmora
