#pragma once

#include "calendar/DragAndDrop.h"

#include <ole2.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdint>

namespace velmora {

/// Drags the object until the user drops it, and returns the effect (`DROPEFFECT_` bits).
std::int32_t RunDrag(const DataRef& data, std::int32_t allowedEffects, const DragEvents& events);

/// The control's window as a target of drops: registered while the control takes drops and has a
/// window. `Core` is `VmCalendar` or `VmCalDropDown`.
template <class Core>
class DropRegistration {
public:
    /// `owner` is what keeps `core` and `dates` alive.
    DropRegistration(Core& core, const Dates& dates, IUnknown& owner)
        : m_core(core), m_dates(dates), m_owner(owner) {}
    ~DropRegistration() { Follow(nullptr); }
    DropRegistration(const DropRegistration&) = delete;
    DropRegistration& operator=(const DropRegistration&) = delete;

    /// Null: no drops.
    void Follow(HWND window);

private:
    class Target;

    Core& m_core;
    const Dates& m_dates;
    IUnknown& m_owner;
    HWND m_window = nullptr;
    Microsoft::WRL::ComPtr<IDropTarget> m_target;
};

}  // namespace velmora
