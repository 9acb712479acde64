#pragma once

class QDesignerFormEditorInterface;

namespace velmora {

/// From now on the property editor shows the properties of calendars and date boxes by what they
/// are about.
void GroupProperties(QDesignerFormEditorInterface& core);

}  // namespace velmora
