#include "hosts/activex/control/ControlDrag.h"

#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/win32/WinInput.h"
#include "platform/AutomationError.h"

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

constexpr DWORD kButtons = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON;
constexpr DWORD kAnyEffect = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;

class DropSource final : public ComObject<IDropSource> {
public:
    explicit DropSource(const DragEvents& events) : m_events(events) {}

    STDMETHODIMP QueryContinueDrag(BOOL escape, DWORD keys) override {
        if (escape) return DRAGDROP_S_CANCEL;
        return keys & kButtons ? S_OK : DRAGDROP_S_DROP;
    }
    STDMETHODIMP GiveFeedback(DWORD effect) override {
        bool usual = true;
        const HRESULT asked =
            Guard([&] { usual = m_events.giveFeedback(static_cast<std::int32_t>(effect)); });
        return FAILED(asked) || usual ? DRAGDROP_S_USEDEFAULTCURSORS : S_OK;
    }

private:
    const DragEvents m_events;
};

}  // namespace

std::int32_t RunDrag(const DataRef& data, std::int32_t allowedEffects, const DragEvents& events) {
    const DWORD allowed = static_cast<DWORD>(allowedEffects) & kAnyEffect;
    if (!allowed) return DROPEFFECT_NONE;
    const ComPtr<IDataObject> offered = OfferData(data, events.setData);
    ComPtr<IDropSource> source;
    source = Adopt(new DropSource(events));
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT done = DoDragDrop(offered.Get(), source.Get(), allowed, &effect);
    return done == DRAGDROP_S_DROP ? static_cast<std::int32_t>(effect) : DROPEFFECT_NONE;
}

template <class Core>
class DropRegistration<Core>::Target final : public ComObject<IDropTarget> {
public:
    Target(Core& core, const Dates& dates, IUnknown& owner, HWND window)
        : m_target(std::in_place, core, dates), m_owner(owner), m_window(window) {}

    /// No more drops; a drag may still be over the window.
    void Detach() noexcept { m_target.reset(); }

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect) return E_POINTER;
        m_data = nullptr;
        if (data) m_data = WrapData(*data);
        if (m_target) m_target->Enter();
        return DragOver(keys, place, effect);
    }
    STDMETHODIMP DragOver(DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect) return E_POINTER;
        return Serve(*effect, [&](DWORD allowed) {
            return m_target->Move(DragOf(m_data, keys, place, allowed));
        });
    }
    STDMETHODIMP DragLeave() override {
        m_data = nullptr;
        DWORD none = DROPEFFECT_NONE;
        return Serve(none, [&](DWORD) {
            m_target->Leave();
            return kDropNone;
        });
    }
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect || !data) return E_POINTER;
        m_data = nullptr;
        const DataRef dropped = WrapData(*data);
        return Serve(*effect, [&](DWORD allowed) {
            return m_target->Drop(DragOf(dropped, keys, place, allowed));
        });
    }

private:
    /// Handlers may close the control meanwhile. Without a control nothing can be dropped.
    template <class Body>
    HRESULT Serve(DWORD& effect, Body body) {
        const ComPtr<IDropTarget> self = this;
        const DWORD allowed = std::exchange(effect, DWORD{DROPEFFECT_NONE});
        if (!m_target) return S_OK;
        const ComPtr<IUnknown> owner = &m_owner;
        return Guard([&] { effect = static_cast<DWORD>(body(allowed)); });
    }

    velmora::DragOver DragOf(const DataRef& data, DWORD keys, POINTL place, DWORD allowed) const {
        POINT point{place.x, place.y};
        ScreenToClient(m_window, &point);
        return {.data = data,
                .allowed = static_cast<std::int32_t>(allowed),
                .button = ButtonsOf(keys),
                .shift = ShiftOf(keys),
                .x = static_cast<float>(point.x),
                .y = static_cast<float>(point.y)};
    }

    std::optional<DropTarget<Core>> m_target;  // nothing when there are no more drops
    IUnknown& m_owner;                         // valid as long as there is a target
    const HWND m_window;
    DataRef m_data;  // what is over the window
};

template <class Core>
void DropRegistration<Core>::Follow(HWND window) {
    if (window == m_window) return;
    if (m_window) {
        static_cast<Target*>(m_target.Get())->Detach();
        RevokeDragDrop(std::exchange(m_window, nullptr));
        m_target.Reset();
    }
    if (!window) return;
    m_target = Adopt(new Target(m_core, m_dates, m_owner, window));
    // A container without OLE on its thread has no drag and drop.
    if (SUCCEEDED(RegisterDragDrop(window, m_target.Get()))) {
        m_window = window;
    } else {
        m_target.Reset();
    }
}

template class DropRegistration<VmCalendar>;
template class DropRegistration<VmCalDropDown>;

}  // namespace velmora
