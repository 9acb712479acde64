#include "hosts/activex/control/ControlDrag.h"

#include "calendar/VmCalendar.h"
#include "dropdown/VmCalDropDown.h"
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

/// Numbers of the published event.
enum class DragState : std::int16_t { Enter = 0, Leave = 1, Over = 2 };

/// An effect that no handler has narrowed to one becomes the most harmless of them.
DWORD OneOf(DWORD effects) {
    for (const DWORD effect : {DROPEFFECT_COPY, DROPEFFECT_LINK, DROPEFFECT_MOVE}) {
        if (effects & effect) return effect;
    }
    return DROPEFFECT_NONE;
}

template <class Core>
bool CanSelect(const Core& core, const Variant& text) {
    if (!text.As<std::string>()) return false;
    try {
        const DayNumber day = DayOf(core.ToDate(text));
        return DayOf(core.DateMin()) <= day && day <= DayOf(core.DateMax());
    } catch (const AutomationError&) {
        return false;
    }
}

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
    Target(Core& core, IUnknown& owner, HWND window)
        : m_core(&core), m_owner(owner), m_window(window) {}

    /// No more drops; a drag may still be over the window.
    void Detach() noexcept { m_core = nullptr; }

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect) return E_POINTER;
        m_last = {};
        if (data) m_last.data = WrapData(*data);
        return Serve(*effect, [&] { return Over(DragState::Enter, keys, place, *effect); });
    }
    STDMETHODIMP DragOver(DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect) return E_POINTER;
        return Serve(*effect, [&] { return Over(DragState::Over, keys, place, *effect); });
    }
    STDMETHODIMP DragLeave() override {
        DWORD none = DROPEFFECT_NONE;
        return Serve(none, [&] {
            const Last last = std::exchange(m_last, {});
            std::int32_t effect = DROPEFFECT_NONE;
            if (last.data && !IsAutomatic()) {
                m_core->OnOLEDragOver(last.data, effect, 0, last.shift, last.x, last.y,
                                      static_cast<std::int16_t>(DragState::Leave));
            }
            return DWORD{DROPEFFECT_NONE};
        });
    }
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override {
        if (!effect || !data) return E_POINTER;
        m_last = {};
        const DataRef dropped = WrapData(*data);
        return Serve(*effect, [&] { return Take(dropped, keys, place, *effect); });
    }

private:
    struct Last {
        DataRef data;
        std::int16_t shift = 0;
        float x = 0;
        float y = 0;
    };

    /// Handlers may close the control meanwhile. Without a control nothing can be dropped.
    template <class Body>
    HRESULT Serve(DWORD& effect, Body body) {
        const ComPtr<IDropTarget> self = this;
        const DWORD allowed = std::exchange(effect, DWORD{DROPEFFECT_NONE});
        if (!m_core) return S_OK;
        const ComPtr<IUnknown> owner = &m_owner;
        return Guard([&] {
            effect = allowed;
            try {
                effect = OneOf(body() & allowed);
            } catch (...) {
                effect = DROPEFFECT_NONE;
                throw;
            }
        });
    }

    bool IsAutomatic() const { return m_core->OLEDropMode() == VmOLEAutomatic; }

    DWORD Over(DragState state, DWORD keys, POINTL place, DWORD allowed) {
        const Last now = Note(m_last.data, keys, place);
        m_last = now;
        if (!now.data) return DROPEFFECT_NONE;
        if (IsAutomatic()) {
            return CanSelect(*m_core, now.data->GetData(kTextFormat)) ? kAnyEffect
                                                                      : DROPEFFECT_NONE;
        }
        auto effect = static_cast<std::int32_t>(allowed);
        m_core->OnOLEDragOver(now.data, effect, ButtonsOf(keys), now.shift, now.x, now.y,
                              static_cast<std::int16_t>(state));
        return static_cast<DWORD>(effect);
    }

    DWORD Take(const DataRef& data, DWORD keys, POINTL place, DWORD allowed) {
        const Last now = Note(data, keys, place);
        if (!IsAutomatic()) {
            auto effect = static_cast<std::int32_t>(allowed);
            m_core->OnOLEDragDrop(now.data, effect, ButtonsOf(keys), now.shift, now.x, now.y);
            return static_cast<DWORD>(effect);
        }
        const Variant text = data->GetData(kTextFormat);
        if (!CanSelect(*m_core, text)) return DROPEFFECT_NONE;
        m_core->DateValue(text);
        return kAnyEffect;
    }

    Last Note(const DataRef& data, DWORD keys, POINTL place) const {
        POINT point{place.x, place.y};
        ScreenToClient(m_window, &point);
        return {data, ShiftOf(keys), static_cast<float>(point.x), static_cast<float>(point.y)};
    }

    Core* m_core;
    IUnknown& m_owner;  // valid as long as there is a core
    const HWND m_window;
    Last m_last;
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
    m_target = Adopt(new Target(m_core, m_owner, window));
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
