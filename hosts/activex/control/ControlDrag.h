#pragma once

#include "hosts/activex/com/ComDataObject.h"
#include "platform/Hosting.h"

#include <ole2.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace velmora {

/// What the source of a drag is asked on the way.
struct DragEvents {
    /// The target wants the data of a format that was announced without.
    std::function<void(DataRef data, std::int16_t format)> setData;
    /// The drop would have that effect now. False: the source has set a pointer of its own.
    std::function<bool(std::int32_t effect)> giveFeedback;
};

/// Drags the object until the user drops it, and returns the effect (`DROPEFFECT_` bits).
std::int32_t RunDrag(const DataRef& data, std::int32_t allowedEffects, const DragEvents& events);

/// A drag from a calendar or a date box, with its events. `core` lives until it returns.
template <class Core>
void DragFrom(Core& core, const std::string& text) {
    DataRef data = MakeDataObject();
    data->SetData(kTextFormat, text);
    std::int32_t effect = DROPEFFECT_COPY;
    auto& events = core.Events();
    events.OLEStartDrag.Raise(data, effect);
    const DragEvents asked{
        .setData = [&events](DataRef wanted,
                             std::int16_t format) { events.OLESetData.Raise(wanted, format); },
        .giveFeedback =
            [&events](std::int32_t now) {
                bool defaultCursors = true;
                events.OLEGiveFeedback.Raise(now, defaultCursors);
                return defaultCursors;
            }};
    effect = data ? RunDrag(data, effect, asked) : DROPEFFECT_NONE;
    events.OLECompleteDrag.Raise(effect);
}

/// The control's window as a target of drops: registered while the control takes drops and has a
/// window. Manual drops are events, whose handlers decide; an automatic drop of a date that can be
/// selected selects it. `Core` is `VmCalendar` or `VmCalDropDown`.
template <class Core>
class DropRegistration {
public:
    /// `owner` is what keeps `core` alive.
    DropRegistration(Core& core, IUnknown& owner) : m_core(core), m_owner(owner) {}
    ~DropRegistration() { Follow(nullptr); }
    DropRegistration(const DropRegistration&) = delete;
    DropRegistration& operator=(const DropRegistration&) = delete;

    /// Null: no drops.
    void Follow(HWND window);

private:
    class Target;

    Core& m_core;
    IUnknown& m_owner;
    HWND m_window = nullptr;
    Microsoft::WRL::ComPtr<IDropTarget> m_target;
};

}  // namespace velmora
