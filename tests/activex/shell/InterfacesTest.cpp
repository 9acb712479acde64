#include "hosts/activex/control/DropDownControl.h"
#include "tests/activex/shell/ShellFixture.h"

#include <objsafe.h>

namespace velmora {
namespace {

template <class... Interface>
std::vector<IID> IdsOf() {
    return {__uuidof(Interface)...};
}

class Interfaces : public ShellFixture {};

/// From every interface every other one, and always the same object.
TEST_F(Interfaces, LeadToEachOther) {
    std::vector<IID> ids =
        IdsOf<::_VmCalendar, IUnknown, IDispatch, IOleObject, IOleControl, IOleWindow,
              IOleInPlaceObject, IOleInPlaceActiveObject, IViewObject, IViewObject2, IViewObjectEx,
              IPersist, IPersistStream, IPersistStreamInit, IPersistStorage, IPersistPropertyBag,
              IConnectionPointContainer, IProvideClassInfo, IProvideClassInfo2,
              ISpecifyPropertyPages, IDataObject, ISupportErrorInfo>();
    ids.push_back(IID_IObjectSafety);
    for (const IID& from : ids) {
        ComPtr<IUnknown> first;
        ASSERT_EQ(object->QueryInterface(from, &first), S_OK);
        for (const IID& to : ids) {
            ComPtr<IUnknown> second, its;
            ASSERT_EQ(first->QueryInterface(to, &second), S_OK);
            second.As(&its);
            EXPECT_EQ(its.Get(), As<IUnknown>().Get());
        }
    }
    void* none = &none;
    EXPECT_EQ(object->QueryInterface(IID_IMarshal, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
}

/// What a method says to null pointers, zeros and an empty point.
template <class Interface, class... Arguments>
HRESULT CalledEmptily(const Microsoft::WRL::ComPtr<IOleObject>& object,
                      HRESULT (STDMETHODCALLTYPE Interface::*method)(Arguments...)) {
    Microsoft::WRL::ComPtr<Interface> called;
    object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(called.GetAddressOf()));
    return (called.Get()->*method)(std::remove_cvref_t<Arguments>{}...);
}

template <class... Methods>
std::vector<HRESULT> Emptily(const Microsoft::WRL::ComPtr<IOleObject>& object, Methods... methods) {
    return {CalledEmptily(object, methods)...};
}

TEST_F(Interfaces, RefuseNullPointers) {
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    const auto results = Emptily(
        object, &IOleObject::GetClientSite, &IOleObject::GetMoniker, &IOleObject::GetClipboardData,
        &IOleObject::EnumVerbs, &IOleObject::GetUserClassID, &IOleObject::GetUserType,
        &IOleObject::SetExtent, &IOleObject::GetExtent, &IOleObject::Advise,
        &IOleObject::EnumAdvise, &IOleObject::GetMiscStatus, &IOleControl::GetControlInfo,
        &IOleControl::OnMnemonic, &IOleWindow::GetWindow, &IOleInPlaceObject::SetObjectRects,
        &IOleInPlaceActiveObject::TranslateAccelerator, &IViewObject::GetColorSet,
        &IViewObject2::GetExtent, &IViewObjectEx::GetRect, &IViewObjectEx::GetViewStatus,
        &IViewObjectEx::QueryHitPoint, &IViewObjectEx::QueryHitRect,
        &IViewObjectEx::GetNaturalExtent, &IPersist::GetClassID, &IPersistStreamInit::Load,
        &IPersistStreamInit::Save, &IPersistStreamInit::GetSizeMax, &IPersistPropertyBag::Load,
        &IPersistPropertyBag::Save, &IConnectionPointContainer::EnumConnectionPoints,
        &IConnectionPointContainer::FindConnectionPoint, &IProvideClassInfo::GetClassInfo,
        &IProvideClassInfo2::GetGUID, &ISpecifyPropertyPages::GetPages, &IDataObject::GetData,
        &IDataObject::QueryGetData, &IDataObject::GetCanonicalFormatEtc,
        &IDataObject::EnumFormatEtc, &IDataObject::DAdvise, &IDataObject::EnumDAdvise,
        &IPersistStorage::InitNew, &IPersistStorage::Load, &IPersistStorage::Save);
    EXPECT_EQ(results, std::vector<HRESULT>(results.size(), E_POINTER));
}

/// Never placed, or closed and taken out: errors and values, but no fault.
TEST_F(Interfaces, AnswerWithoutAContainer) {
    for (const bool wasPlaced : {false, true}) {
        if (wasPlaced) {
            Place();
            ASSERT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
            object->Close(OLECLOSE_SAVEIFDIRTY);
            object->SetClientSite(nullptr);
        }
        for (const LONG verb : {OLEIVERB_PRIMARY, OLEIVERB_SHOW, OLEIVERB_UIACTIVATE}) {
            EXPECT_EQ(Do(verb), E_UNEXPECTED);
        }
        ComPtr<IErrorInfo> error;
        EXPECT_EQ(GetErrorInfo(0, &error), S_OK) << "the reason is told";
        const RECT rect{0, 0, 9, 9};
        MSG key{nullptr, WM_KEYDOWN, VK_RIGHT, 1, 0, {}};
        ComPtr<IMoniker> moniker;
        EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&rect, &rect), OLE_E_NOT_INPLACEACTIVE);
        EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_FALSE);
        EXPECT_EQ(object->GetMoniker(1, 1, &moniker), E_UNEXPECTED);
        for (const HRESULT result : {Do(OLEIVERB_HIDE), As<IOleInPlaceObject>()->UIDeactivate(),
                                     As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN),
                                     object->Close(OLECLOSE_SAVEIFDIRTY), SetDate(45000),
                                     As<::_VmCalendar>()->RepaintControl()}) {
            EXPECT_EQ(result, S_OK);
        }
    }
}

TEST_F(Interfaces, TellTheClass) {
    const struct {
        ComPtr<IOleObject> control;
        DWORD form;
        const wchar_t* name;
    } names[] = {{object, USERCLASSTYPE_FULL, L"Velmora Month Calendar"},
                 {object, USERCLASSTYPE_SHORT, L"VmCalendar"},
                 {Adopt<IOleObject>(new DropDownControl), USERCLASSTYPE_FULL, L"Velmora Date Box"}};
    for (const auto& expected : names) {
        LPOLESTR name = nullptr;
        EXPECT_EQ(expected.control->GetUserType(expected.form, &name), S_OK);
        EXPECT_STREQ(name, expected.name);
        CoTaskMemFree(name);
    }
    CONTROLINFO info{sizeof info, nullptr, 0, 77};
    EXPECT_EQ(As<IOleControl>()->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.dwFlags, 0u) << "Enter and Escape are the form's";
}

TEST_F(Interfaces, PromiseHarmlessDataAndNothingAboutScripts) {
    ComPtr<IObjectSafety> safety;
    object->QueryInterface(IID_IObjectSafety, reinterpret_cast<void**>(safety.GetAddressOf()));
    constexpr DWORD kData = INTERFACESAFE_FOR_UNTRUSTED_DATA;
    constexpr DWORD kCaller = INTERFACESAFE_FOR_UNTRUSTED_CALLER;
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IPersistStreamInit, kData, kData), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, kCaller, kCaller), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IMarshal, kData, kData), E_NOINTERFACE);
}

TEST_F(Interfaces, EnumerateWhatTheCallerOwns) {
    ComPtr<IEnumOLEVERB> verbs, copy;
    ASSERT_EQ(object->EnumVerbs(&verbs), S_OK);
    OLEVERB items[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(verbs->Next(3, items, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_STREQ(items[0].lpszVerbName, L"&Edit");
    EXPECT_STREQ(items[1].lpszVerbName, L"&Properties...");
    for (ULONG i = 0; i < fetched; ++i) CoTaskMemFree(items[i].lpszVerbName);
    EXPECT_EQ(verbs->Next(1, items, nullptr), S_FALSE);
    EXPECT_EQ(verbs->Reset(), S_OK);
    EXPECT_EQ(verbs->Skip(1), S_OK);
    ASSERT_EQ(verbs->Clone(&copy), S_OK);
    EXPECT_EQ(copy->Skip(2), S_FALSE);
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(copy->Next(1, items, nullptr), S_FALSE) << "not beyond the end";
    EXPECT_EQ(verbs->Next(2, items, nullptr), E_POINTER);

    const auto points = As<IConnectionPointContainer>();
    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(&all), S_OK);
    for (const IID& wanted : {__uuidof(::__VmCalendar), IID_IPropertyNotifySink}) {
        IID iid{};
        ComPtr<IConnectionPoint> point;
        EXPECT_EQ(all->Next(1, &point, nullptr), S_OK);
        EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
        EXPECT_EQ(iid, wanted);
        EXPECT_EQ(point.Get(), Point(wanted).Get());
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
        EXPECT_EQ(point->Advise(object.Get(), nullptr), E_POINTER);
    }
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(points->FindConnectionPoint(IID_IAdviseSink, &none), CONNECT_E_NOCONNECTION);
}

/// Either size is kept to the last digit, and pixels come back from it.
TEST_F(Interfaces, KeepExtentsWithoutDrift) {
    Place();
    for (int pixels = 1; pixels <= 2000; ++pixels) {
        SIZEL set{MulDiv(pixels, 2540, 96), MulDiv(pixels, 2540, 96) + 1};
        SIZEL extent{};
        RECTL rect{};
        ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &set), S_OK);
        ASSERT_EQ(As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent), S_OK);
        ASSERT_EQ(As<IViewObjectEx>()->GetRect(DVASPECT_CONTENT, &rect), S_OK);
        ASSERT_EQ(std::pair(extent.cx, extent.cy), std::pair(set.cx, set.cy));
        ASSERT_EQ(std::pair(rect.right, rect.bottom), std::pair(set.cx, set.cy));
        ASSERT_EQ(MulDiv(extent.cx, 96, 2540), pixels);
    }
    SIZEL negative{-1, 5};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
    EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &negative), DV_E_DVASPECT);
}

}  // namespace
}  // namespace velmora
