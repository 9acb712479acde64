#include "hosts/activex/com/ObjectBridge.h"

#include "hosts/activex/com/ComVariant.h"
#include "platform/Automation.h"

namespace velmora {

using Microsoft::WRL::ComPtr;

ComPtr<IDispatch> ObjectBridge::ToClient(const ObjectRef& object) {
    if (!object) return nullptr;
    ComPtr<IDispatch> client;
    if (const auto font = std::dynamic_pointer_cast<StdFont>(object)) {
        m_fonts.ToClient(font).As(&client);
    } else if (const auto picture = std::dynamic_pointer_cast<StdPicture>(object)) {
        if (const auto native = m_pictures.ToClient(picture)) native.As(&client);
    } else if (const auto foreign = std::dynamic_pointer_cast<ComAutomation>(object)) {
        client = foreign->Client();
    } else {
        client = Publish(object);
        if (!client) RaiseTypeMismatch();
    }
    return client;
}

ObjectRef ObjectBridge::FromClient(IUnknown* object) {
    if (!object) return nullptr;
    const ComPtr<IUnknown> client = object;
    ComPtr<ICoreObject> own;
    if (SUCCEEDED(client.As(&own))) return own->Core();
    if (auto font = m_fonts.FromClient(object)) return font;
    if (auto picture = m_pictures.FromClient(object)) return picture;
    ComPtr<IDispatch> dispatch;
    if (FAILED(client.As(&dispatch))) RaiseTypeMismatch();
    return std::make_shared<ComAutomation>(*dispatch.Get(), *this);
}

}  // namespace velmora
