#pragma once

#include "hosts/activex/com/ComFont.h"
#include "hosts/activex/com/ComPicture.h"
#include "platform/Variant.h"

#include <oaidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <memory>

namespace velmora {

/// An object of this module that stands for one of the core's.
struct ICoreObject : IUnknown {
    virtual ObjectRef STDMETHODCALLTYPE Core() = 0;
};

/// Objects on their way between a control's core and its clients. Each has one identity on either
/// side as long as somebody holds it there: what a client has set it gets back, and the other way
/// round. Fonts that a client changes change in the core, too.
///
/// One for each control, used by its thread alone. Objects that clients hold keep it alive.
class ObjectBridge : public std::enable_shared_from_this<ObjectBridge> {
public:
    ObjectBridge() = default;
    virtual ~ObjectBridge() = default;
    ObjectBridge(const ObjectBridge&) = delete;
    ObjectBridge& operator=(const ObjectBridge&) = delete;

    /// Null for null. Error 13: an object that has no published class.
    Microsoft::WRL::ComPtr<IDispatch> ToClient(const ObjectRef& object);
    /// Fonts, pictures and objects of this component as the core knows them, any other object as a
    /// `ComAutomation`. Null for null. Error 13: an object that has no members by name.
    ObjectRef FromClient(IUnknown* object);

    FontBridge& Fonts() noexcept { return m_fonts; }
    PictureBridge& Pictures() noexcept { return m_pictures; }

protected:
    /// An object of a published class, not a font or a picture; null for any other.
    virtual Microsoft::WRL::ComPtr<IDispatch> Publish(const ObjectRef&) { return nullptr; }

private:
    FontBridge m_fonts;
    PictureBridge m_pictures;
};

}  // namespace velmora

__CRT_UUID_DECL(velmora::ICoreObject, 0xbeb45cbf, 0xd28f, 0x4428, 0xa2, 0x20, 0x2a, 0x7b, 0x9e,
                0xcc, 0x44, 0x5b)
