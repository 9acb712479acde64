#pragma once

#include "hosts/activex/com/ObjectBridge.h"
#include "platform/Hosting.h"

#include <objidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <memory>

namespace velmora {

/// What another program drags here, to be read.
DataRef WrapData(IDataObject& data);

/// A data object for other programs. Data of a format that was announced without are asked for by
/// `fetch` when the target wants them.
Microsoft::WRL::ComPtr<IDataObject> OfferData(DataRef data,
                                              std::function<void(DataRef, std::int16_t)> fetch);

/// A data object as scripts see it (`_VmDataObject`).
Microsoft::WRL::ComPtr<IDispatch> PublishData(const DataRef& data,
                                              std::shared_ptr<ObjectBridge> objects);

}  // namespace velmora
