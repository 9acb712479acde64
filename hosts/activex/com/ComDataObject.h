#pragma once

#include "hosts/activex/com/ObjectBridge.h"
#include "platform/Hosting.h"

#include <objidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <memory>

namespace velmora {

/// Formats of a data object that have a form of their own here; any other is a registered one, its
/// data bytes, which come and go as text.
inline constexpr std::int16_t kTextFormat = 1;
inline constexpr std::int16_t kBitmapFormat = 2;  // a picture object
inline constexpr std::int16_t kFilesFormat = 15;  // text: the paths, one a line

/// An empty data object that holds what is put into it. An Empty value announces its format without
/// the data.
DataRef MakeDataObject();

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
