#pragma once

#include "platform/Hosting.h"

#include <QPixmap>

#include <cstdint>
#include <functional>

class QMimeData;

namespace velmora {

/// Effects of a drag, as bits.
inline constexpr std::int32_t kDropNone = 0;
inline constexpr std::int32_t kDropCopy = 1;
inline constexpr std::int32_t kDropMove = 2;
inline constexpr std::int32_t kDropLink = 4;
inline constexpr std::int32_t kDropAny = kDropCopy | kDropMove | kDropLink;

Qt::DropActions ToActions(std::int32_t effects);
std::int32_t ToEffects(Qt::DropActions actions);

/// Formats of a data object that Qt's programs understand.
inline constexpr std::int16_t kTextFormat = 1;
inline constexpr std::int16_t kBitmapFormat = 2;  // a picture object
inline constexpr std::int16_t kFilesFormat = 15;  // text: the paths, one a line

/// An empty data object that holds what is put into it. An Empty value announces its format without
/// the data.
DataRef MakeDataObject();

/// What is being dragged here, to be read. It has no data any more when the drag is over.
DataRef WrapData(const QMimeData* content);

/// What the source of a drag is asked on the way.
struct DragEvents {
    /// The target wants the data of a format that was announced without.
    std::function<void(DataRef data, std::int16_t format)> setData;
    /// The drop would have that effect now. Returns the pointer to show for it; null for the usual.
    std::function<QPixmap(std::int32_t effect)> giveFeedback;
};

/// Drags the object until the user drops it, and returns the effect. Without data of a known
/// format, or without an effect that is allowed, nothing is dragged.
std::int32_t RunDrag(const DataRef& data, std::int32_t allowedEffects, const DragEvents& events);

}  // namespace velmora
