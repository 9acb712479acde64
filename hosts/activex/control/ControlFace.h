#pragma once

#include "dropdown/DropDownProperties.h"
#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/PropertyValues.h"
#include "hosts/activex/control/ControlDrag.h"
#include "hosts/activex/control/PublishedControl.h"

#include <VelmoraCalendarInterfaces.h>

#include <string_view>
#include <type_traits>
#include <utility>

namespace velmora {

class VmCalDropDown;

// One published property: its members of the interface, by its row.
#define VALUE(ID, NAME, TYPE, HELP)                                                    \
    STDMETHODIMP get_##NAME(::TYPE* value) override { return GetRow(k##NAME, value); } \
    STDMETHODIMP put_##NAME(::TYPE value) override { return LetRow(k##NAME, value); }
#define NUMBER(ID, NAME, HELP)                                                        \
    STDMETHODIMP get_##NAME(short* value) override { return GetRow(k##NAME, value); } \
    STDMETHODIMP put_##NAME(short value) override { return LetRow(k##NAME, value); }
#define OBJECT(ID, NAME, TYPE, HELP)                                                    \
    STDMETHODIMP get_##NAME(::TYPE** value) override { return GetRow(k##NAME, value); } \
    STDMETHODIMP put_##NAME(::TYPE* value) override { return LetRow(k##NAME, value); }  \
    STDMETHODIMP putref_##NAME(::TYPE* value) override { return put_##NAME(value); }
#define DEFAULT_VALUE VALUE
#define READ_ONLY(ID, NAME, TYPE, HELP) \
    STDMETHODIMP get_##NAME(::TYPE* value) override { return GetRow(k##NAME, value); }
#include "hosts/activex/server/SharedProperties.h"

/// A control as a COM object: its identity, and all that both controls publish and do alike.
/// `Core` is `VmCalendar` or `VmCalDropDown`.
template <class Interface, class Core>
class ControlFace : public Dual<Interface>, public PublishedControl {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        *object = Find(iid);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return CountUp(); }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = CountDown();
        if (left == 0) delete this;
        return left;
    }

    PUBLISH_BY_ROW()

    STDMETHODIMP get_Days(::_VmDays** value) override {
        const HRESULT got = GetRow(kDays, value);
        if (SUCCEEDED(got)) m_days = *value;
        return got;
    }
    STDMETHODIMP get_hWnd(long* value) override {
        return RunGetter(value, [&](long& out) { out = HandleToLong(Window().Window()); });
    }
    STDMETHODIMP get_OLEDropMode(::VmOLEDropModeConstants* value) override {
        return RunGetter(value,
                         [&](auto& out) { ToClient(Control().OLEDropMode(), Objects(), out); });
    }
    STDMETHODIMP put_OLEDropMode(::VmOLEDropModeConstants value) override {
        return RunMember(
            [&] { Control().OLEDropMode(static_cast<velmora::VmOLEDropModeConstants>(value)); });
    }
    STDMETHODIMP RepaintControl() override {
        return RunMember([&] { Control().RepaintControl(); });
    }
    STDMETHODIMP AboutBox() override {
        return RunMember([&] { Control().AboutBox(); });
    }
    STDMETHODIMP OleDrag() override {
        return RunMember([&] { Control().OleDrag(); });
    }

    std::int32_t Drag(const DataRef& data, std::int32_t allowedEffects,
                      const DragEvents& events) override {
        const Hold hold(*this);
        ReleaseCapture();  // the drag takes the release
        return RunDrag(data, allowedEffects, events);
    }

protected:
    using PublishedControl::PublishedControl;

    virtual Core& Control() = 0;
    virtual const Core& Control() const = 0;
    virtual DropRegistration<Core>& Drops() = 0;

    template <class Row, class Out>
    HRESULT GetRow(const Row& row, Out* value) noexcept {
        return RunGetter(value, [&](Out& out) {
            if constexpr (std::is_base_of_v<ObjectProperty, Row>) {
                ToClient(row.Get(Control()), Objects(), out);
            } else {
                ToClient(Control().Get(row), Objects(), out);
            }
        });
    }
    template <class Row, class In>
    HRESULT LetRow(const Row& row, In value) noexcept {
        return RunMember([&] {
            AskForEdit(NameOf(row));
            if constexpr (std::is_same_v<Row, DateProperty>) {
                Control().Let(row, FromClient<Variant>(value, Objects()));
            } else if constexpr (std::is_same_v<typename Row::Value, Date>) {
                Control().Let(row, Control().ToDate(Date(value)));
            } else {
                Control().Let(row, FromClient<typename Row::Value>(value, Objects()));
            }
        });
    }

    /// The numbers under which both publish the events that both raise, and the fonts.
    void ConnectToCore() {
        auto& events = Control().Events();
        events.MonthChanged.Connect([this](std::int16_t&) { Access().Changed(); });
        events.YearChanged.Connect([this](std::int16_t&) { Access().Changed(); });
        Relay(events.DateChanged, 2);
        Relay(events.DayChanged, 3);
        Relay(events.KeyUp, 5);
        Relay(events.KeyPress, 6);
        Relay(events.KeyDown, 7);
        Relay(events.MonthChanged, 8);
        Relay(events.MouseDown, 9);
        Relay(events.MouseMove, 10);
        Relay(events.MouseUp, 11);
        Relay(events.OLECompleteDrag, 12);
        Relay(events.OLEDragDrop, 13);
        Relay(events.OLEDragOver, 14);
        Relay(events.OLEGiveFeedback, 15);
        Relay(events.OLESetData, 16);
        Relay(events.OLEStartDrag, 17);
        Relay(events.YearChanged, 18);
        Objects().Fonts().WhenFontChanges([this](const FontRef& font) { OnFontChanged(font); });
    }
    ~ControlFace() override { Objects().Fonts().WhenFontChanges(nullptr); }

    /// A client has changed a member of a font that the control may use.
    virtual void OnFontChanged(const FontRef& font) {
        const Hold hold(*this);
        AnnounceFont(font, Slots());
        Control().RepaintControl();
    }
    template <const auto&... kRow>
    void AnnounceFont(const FontRef& font, Rows<kRow...>) {
        const auto announce = [&](const auto& row) {
            using Row = std::remove_cvref_t<decltype(row)>;
            if constexpr (requires { typename Row::Value; }) {
                if constexpr (std::is_same_v<typename Row::Value, FontRef>) {
                    if (Control().Get(row) == font) PropertyChanged(NameOf(row));
                }
            }
        };
        (announce(kRow), ...);
    }

    void InitProperties() override { Control().InitProperties(); }
    void ReadProperties(PropertyBag& bag) override { Control().ReadProps(bag); }
    void WriteProperties(PropertyBag& bag) override { Control().WriteProps(bag); }
    void OnWindowChanged() override { Control().OnWindowChanged(); }
    void OnAmbientChanged() override { Control().OnLocaleChanged(); }
    void OnDropModeChanged() override {
        const bool takes = Window().OLEDropMode() != DROPEFFECT_NONE && IsUserMode();
        Drops().Follow(takes ? Window().Window() : nullptr);
    }
    bool WantsKey(WORD virtualKey, bool inChild) const override {
        return Control().WantsKey(static_cast<std::int16_t>(virtualKey), inChild);
    }

private:
    /// The published name.
    static constexpr std::string_view NameOf(const auto& row) {
        if constexpr (std::is_same_v<Core, VmCalDropDown>) {
            return InBox(row).name;
        } else {
            return row.name;
        }
    }

    void* Find(REFIID iid) {
        auto* const dual = static_cast<Interface*>(this);
        if (iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Interface)) {
            return dual;
        }
        return FindOle(iid);
    }

    /// Kept, so that its clients' event sinks stay connected as long as the control lives.
    Microsoft::WRL::ComPtr<::_VmDays> m_days;
};

}  // namespace velmora
