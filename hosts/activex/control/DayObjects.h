#pragma once

#include "hosts/activex/com/ObjectBridge.h"
#include "model/VmDays.h"
#include "platform/Hosting.h"

#include <windows.h>

#include <map>

namespace velmora {

/// The objects of a control: its days and their collection, and data objects of drags, besides
/// fonts and pictures.
class ControlObjects final : public ObjectBridge {
public:
    /// An object that a client held has ended.
    void Forget(const Object* core) { m_published.erase(core); }

protected:
    Microsoft::WRL::ComPtr<IDispatch> Publish(const ObjectRef& object) override;

private:
    std::map<const Object*, IDispatch*> m_published;  // not counted: each forgets itself
};

}  // namespace velmora
