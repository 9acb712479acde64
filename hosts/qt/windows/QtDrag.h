#pragma once

#include "platform/DataObject.h"

#include <Qt>

#include <cstdint>

class QMimeData;
class QWidget;

namespace velmora {

Qt::DropActions ToActions(std::int32_t effects);
std::int32_t ToEffects(Qt::DropActions actions);

/// What is being dragged here, to be read. It has no data any more when the drag is over.
DataRef WrapData(const QMimeData* content);

/// Drags the object from the widget, which may be deleted meanwhile, until the user drops it, and
/// returns the effect. Of its formats those are offered that every platform has.
std::int32_t RunDrag(QWidget& source, const DataRef& data, std::int32_t allowedEffects,
                     const DragEvents& events);

}  // namespace velmora
