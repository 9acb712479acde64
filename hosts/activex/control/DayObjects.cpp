#include "hosts/activex/control/DayObjects.h"

#include "hosts/activex/com/ComDataObject.h"
#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/com/ConnectionPoint.h"
#include "hosts/activex/com/Enumerator.h"
#include "platform/AutomationError.h"

#include <VelmoraCalendarInterfaces.h>

#include <utility>
#include <vector>

namespace velmora {

using Microsoft::WRL::ComPtr;

template <>
struct ItemCopy<VARIANT> {
    static HRESULT Copy(VARIANT& to, const VARIANT& from) noexcept {
        VariantInit(&to);
        return VariantCopy(&to, const_cast<VARIANT*>(&from));
    }
    static void Free(VARIANT& item) noexcept { VariantClear(&item); }
};

namespace {

/// One of the core's objects that a client holds.
template <class Interface, class CoreClass, class... Others>
class Published : public DualObject<Interface, ICoreObject, Others...> {
public:
    Published(std::shared_ptr<CoreClass> core, std::shared_ptr<ControlObjects> objects)
        : m_core(std::move(core)), m_objects(std::move(objects)) {}
    ~Published() override { m_objects->Forget(m_core.get()); }

    STDMETHODIMP_(ObjectRef) Core() override { return m_core; }

protected:
    /// Runs a member that stores its result where the client wants it. Handlers may drop the last
    /// reference meanwhile.
    template <class Out, class Body>
    HRESULT RunGetter(Out* out, Body body) {
        if (!out) return E_POINTER;
        *out = {};
        return Guard([&] { body(*out); });
    }
    template <class Body>
    HRESULT RunSetter(Body body) {
        const ComPtr<Interface> self = this;
        return Guard(body);
    }

    const std::shared_ptr<CoreClass> m_core;
    const std::shared_ptr<ControlObjects> m_objects;
};

class DayObject final : public Published<::_VmDay, VmDay> {
public:
    using Published::Published;

    STDMETHODIMP get_Dirty(VARIANT_BOOL* value) override {
        return RunGetter(value, [&](VARIANT_BOOL& out) {
            out = m_core->Dirty() ? VARIANT_TRUE : VARIANT_FALSE;
        });
    }
    STDMETHODIMP get_BackColor(VARIANT* value) override {
        return RunGetter(value,
                         [&](VARIANT& out) { ToComVariant(m_core->BackColor(), *m_objects, out); });
    }
    STDMETHODIMP put_BackColor(VARIANT value) override {
        return RunSetter([&] { m_core->BackColor(FromComVariant(value, *m_objects)); });
    }
    STDMETHODIMP get_Caption(BSTR* value) override {
        return RunGetter(value, [&](BSTR& out) { out = ToBstr(m_core->Caption()); });
    }
    STDMETHODIMP put_Caption(BSTR value) override {
        return RunSetter([&] { m_core->Caption(FromBstr(value)); });
    }
    STDMETHODIMP get_ForeColor(VARIANT* value) override {
        return RunGetter(value,
                         [&](VARIANT& out) { ToComVariant(m_core->ForeColor(), *m_objects, out); });
    }
    STDMETHODIMP put_ForeColor(VARIANT value) override {
        return RunSetter([&] { m_core->ForeColor(FromComVariant(value, *m_objects)); });
    }
    STDMETHODIMP get_DayDate(DATE* value) override {
        return RunGetter(value, [&](DATE& out) { out = m_core->DayDate().value; });
    }
    STDMETHODIMP put_DayDate(DATE value) override {
        return RunSetter([&] { m_core->DayDate(Date(value)); });
    }
    STDMETHODIMP get_Picture(IPictureDisp** value) override {
        return RunGetter(value, [&](IPictureDisp*& out) {
            const auto picture = m_objects->ToClient(m_core->Picture());
            if (picture) Require(picture->QueryInterface(IID_PPV_ARGS(&out)));
        });
    }
    STDMETHODIMP put_Picture(IPictureDisp* value) override {
        return RunSetter([&] {
            const ObjectRef picture = m_objects->FromClient(value);
            m_core->Picture(FromVariant<PictureRef>(picture));
        });
    }
    STDMETHODIMP putref_Picture(IPictureDisp* value) override { return put_Picture(value); }
};

class DaysObject final
    : public Published<::_VmDays, VmDays, IConnectionPointContainer, IProvideClassInfo2> {
public:
    DaysObject(const DaysRef& days, std::shared_ptr<ControlObjects> objects)
        : Published(days, std::move(objects)),
          m_point(*this, __uuidof(::__VmDays), ConnectionPoint::Kind::Events),
          m_connection(days->DayChanged.Connect(
              [this](Date& key, std::string& property) { Raise(key, property); })) {}
    ~DaysObject() override { m_core->DayChanged.Disconnect(m_connection); }

    STDMETHODIMP get_DefaultBackColor(::OLE_COLOR* value) override {
        return RunGetter(value, [&](::OLE_COLOR& out) { out = m_core->DefaultBackColor(); });
    }
    STDMETHODIMP put_DefaultBackColor(::OLE_COLOR value) override {
        return RunSetter([&] { m_core->DefaultBackColor(value); });
    }
    STDMETHODIMP get_OtherMonthForeColor(::OLE_COLOR* value) override {
        return RunGetter(value, [&](::OLE_COLOR& out) { out = m_core->OtherMonthForeColor(); });
    }
    STDMETHODIMP put_OtherMonthForeColor(::OLE_COLOR value) override {
        return RunSetter([&] { m_core->OtherMonthForeColor(value); });
    }
    STDMETHODIMP get_DefaultForeColor(::OLE_COLOR* value) override {
        return RunGetter(value, [&](::OLE_COLOR& out) { out = m_core->DefaultForeColor(); });
    }
    STDMETHODIMP put_DefaultForeColor(::OLE_COLOR value) override {
        return RunSetter([&] { m_core->DefaultForeColor(value); });
    }
    STDMETHODIMP get_Item(short index, ::_VmDay** value) override {
        return RunGetter(value, [&](::_VmDay*& out) {
            Require(m_objects->ToClient(m_core->Item(index))->QueryInterface(IID_PPV_ARGS(&out)));
        });
    }
    STDMETHODIMP get_Count(long* value) override {
        return RunGetter(value, [&](long& out) { out = m_core->Count(); });
    }
    STDMETHODIMP get_NewEnum(IUnknown** value) override {
        return RunGetter(value, [&](IUnknown*& out) {
            std::vector<ComPtr<IDispatch>> days;
            std::vector<VARIANT> items;  // borrow the days
            for (const DayRef& day : m_core->Items()) {
                days.push_back(m_objects->ToClient(day));
                VARIANT item;
                V_VT(&item) = VT_DISPATCH;
                V_DISPATCH(&item) = days.back().Get();
                items.push_back(item);
            }
            out = new Enumerator<IEnumVARIANT, VARIANT>(items, nullptr);
        });
    }

    /// For Each asks under an identifier of the system's, not under the published one.
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        constexpr DISPID kNewEnum = 5;
        const bool enumerates = member == DISPID_NEWENUM;
        return Published::Invoke(enumerates ? kNewEnum : member, iid, locale,
                                 enumerates ? WORD{DISPATCH_PROPERTYGET} : flags, arguments, result,
                                 exception, badArgument);
    }

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override {
        const std::vector<IConnectionPoint*> all{&m_point};
        return Enumerator<IEnumConnectionPoints, IConnectionPoint*>::Make(
            all, static_cast<::_VmDays*>(this), points);
    }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        if (!point) return E_POINTER;
        *point = nullptr;
        if (iid != m_point.Iid()) return CONNECT_E_NOCONNECTION;
        *point = &m_point;
        m_point.AddRef();
        return S_OK;
    }
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override {
        return RunGetter(info,
                         [&](ITypeInfo*& out) { out = OwnTypeInfo(__uuidof(::VmDays)).Detach(); });
    }
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override {
        if (!guid) return E_POINTER;
        *guid = m_point.Iid();
        return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
    }

protected:
    void* Find(REFIID iid) override {
        if (iid == __uuidof(IProvideClassInfo)) return static_cast<IProvideClassInfo2*>(this);
        return Published::Find(iid);
    }

private:
    void Raise(Date& key, std::string& property) {
        if (!m_point.IsConnected()) return;
        const ComPtr<::_VmDays> self = this;
        BSTR name = ToBstr(property);
        m_point.ForEach<IDispatch>([&](IDispatch& sink) {
            VARIANT arguments[2];  // last first
            V_VT(&arguments[1]) = VT_BYREF | VT_DATE;
            V_DATEREF(&arguments[1]) = &key.value;
            V_VT(&arguments[0]) = VT_BYREF | VT_BSTR;
            V_BSTRREF(&arguments[0]) = &name;
            DISPPARAMS parameters{arguments, nullptr, 2, 0};
            sink.Invoke(1, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                        nullptr, nullptr);
            return true;
        });
        property = FromBstr(name);
        SysFreeString(name);
    }

    ConnectionPoint m_point;
    decltype(VmDays::DayChanged)::Id m_connection;
};

}  // namespace

ComPtr<IDispatch> ControlObjects::Publish(const ObjectRef& object) {
    if (const auto known = m_published.find(object.get()); known != m_published.end()) {
        return known->second;
    }
    const auto self = std::static_pointer_cast<ControlObjects>(shared_from_this());
    ComPtr<IDispatch> made;
    if (auto day = std::dynamic_pointer_cast<VmDay>(object)) {
        made = Adopt(static_cast<::_VmDay*>(new DayObject(std::move(day), self)));
    } else if (auto days = std::dynamic_pointer_cast<VmDays>(object)) {
        made = Adopt(static_cast<::_VmDays*>(new DaysObject(std::move(days), self)));
    } else if (auto data = std::dynamic_pointer_cast<DataObject>(object)) {
        return PublishData(data, self);
    }
    if (made) m_published.emplace(object.get(), made.Get());
    return made;
}

}  // namespace velmora
