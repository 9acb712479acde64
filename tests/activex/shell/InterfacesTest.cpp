#include "hosts/activex/control/DropDownControl.h"
#include "tests/activex/shell/ShellFixture.h"

#include <objsafe.h>

namespace velmora {
namespace {

const IID kInterfaces[] = {__uuidof(::_VmCalendar),
                           IID_IUnknown,
                           IID_IDispatch,
                           IID_IOleObject,
                           IID_IOleControl,
                           IID_IOleWindow,
                           IID_IOleInPlaceObject,
                           IID_IOleInPlaceActiveObject,
                           IID_IViewObject,
                           IID_IViewObject2,
                           IID_IViewObjectEx,
                           IID_IPersist,
                           IID_IPersistStream,
                           IID_IPersistStreamInit,
                           IID_IPersistStorage,
                           IID_IPersistPropertyBag,
                           IID_IConnectionPointContainer,
                           IID_IProvideClassInfo,
                           IID_IProvideClassInfo2,
                           IID_ISpecifyPropertyPages,
                           IID_IDataObject,
                           IID_IObjectSafety,
                           IID_ISupportErrorInfo};

class Interfaces : public ShellFixture {};

/// From every interface every other one, and always the same object.
TEST_F(Interfaces, LeadToEachOther) {
    ComPtr<IUnknown> identity;
    object.As(&identity);
    for (const IID& from : kInterfaces) {
        ComPtr<IUnknown> first;
        ASSERT_EQ(object->QueryInterface(from, &first), S_OK);
        for (const IID& to : kInterfaces) {
            ComPtr<IUnknown> second, its;
            ASSERT_EQ(first->QueryInterface(to, &second), S_OK);
            second.As(&its);
            EXPECT_EQ(its.Get(), identity.Get());
        }
    }
    void* none = &none;
    EXPECT_EQ(object->QueryInterface(IID_IMarshal, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
}

TEST_F(Interfaces, RefuseNullPointers) {
    const auto view = As<IViewObjectEx>();
    const auto data = As<IDataObject>();
    const auto stream = As<IPersistStreamInit>();
    const auto storage = As<IPersistStorage>();
    const auto points = As<IConnectionPointContainer>();
    RECTL bounds{0, 0, 10, 10};
    FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
    const HRESULT results[] = {
        object->QueryInterface(IID_IUnknown, nullptr),
        object->GetClientSite(nullptr),
        object->GetMoniker(0, 0, nullptr),
        object->GetClipboardData(0, nullptr),
        object->EnumVerbs(nullptr),
        object->GetUserClassID(nullptr),
        object->GetUserType(0, nullptr),
        object->SetExtent(DVASPECT_CONTENT, nullptr),
        object->GetExtent(DVASPECT_CONTENT, nullptr),
        object->Advise(container.Get(), nullptr),
        object->EnumAdvise(nullptr),
        object->GetMiscStatus(DVASPECT_CONTENT, nullptr),
        As<IOleControl>()->GetControlInfo(nullptr),
        As<IOleControl>()->OnMnemonic(nullptr),
        As<IOleInPlaceObject>()->GetWindow(nullptr),
        As<IOleInPlaceObject>()->SetObjectRects(nullptr, nullptr),
        As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr),
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr,
                   nullptr, 0),
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, GetDC(nullptr), nullptr,
                   nullptr, nullptr, 0),
        view->GetColorSet(0, -1, nullptr, nullptr, nullptr, nullptr),
        view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr),
        view->GetRect(DVASPECT_CONTENT, nullptr),
        view->GetViewStatus(nullptr),
        view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, nullptr),
        view->QueryHitRect(DVASPECT_CONTENT, nullptr, nullptr, 0, nullptr),
        view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr),
        stream->GetClassID(nullptr),
        stream->Load(nullptr),
        stream->Save(nullptr, TRUE),
        stream->GetSizeMax(nullptr),
        storage->InitNew(nullptr),
        storage->Load(nullptr),
        storage->Save(nullptr, FALSE),
        As<IPersistPropertyBag>()->Load(nullptr, nullptr),
        As<IPersistPropertyBag>()->Save(nullptr, TRUE, TRUE),
        points->EnumConnectionPoints(nullptr),
        points->FindConnectionPoint(IID_IPropertyNotifySink, nullptr),
        As<IProvideClassInfo2>()->GetClassInfo(nullptr),
        As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr),
        As<ISpecifyPropertyPages>()->GetPages(nullptr),
        data->GetData(&format, nullptr),
        data->QueryGetData(nullptr),
        data->GetCanonicalFormatEtc(&format, nullptr),
        data->EnumFormatEtc(DATADIR_GET, nullptr),
        data->DAdvise(&format, 0, container.Get(), nullptr),
        data->EnumDAdvise(nullptr)};
    for (std::size_t i = 0; i < std::size(results); ++i) EXPECT_EQ(results[i], E_POINTER) << i;
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
        EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
        EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
        const RECT rect{0, 0, 9, 9};
        EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&rect, &rect), OLE_E_NOT_INPLACEACTIVE);
        MSG key{nullptr, WM_KEYDOWN, VK_RIGHT, 1, 0, {}};
        EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(&key), S_FALSE);
        ComPtr<IMoniker> moniker;
        EXPECT_EQ(object->GetMoniker(1, 1, &moniker), E_UNEXPECTED);
        EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
        EXPECT_EQ(object->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
        const auto calendar = As<::_VmCalendar>();
        EXPECT_EQ(calendar->put_MonthDisplay(::VmMonthAbbrName), S_OK);
        EXPECT_EQ(calendar->RepaintControl(), S_OK);
    }
}

TEST_F(Interfaces, TellTheClass) {
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(As<IProvideClassInfo2>()->GetClassInfo(&type), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, __uuidof(::VmCalendar));
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    type->ReleaseTypeAttr(attributes);
    GUID events{};
    EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, __uuidof(::__VmCalendar));
    CAUUID pages{};
    EXPECT_EQ(As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
    ASSERT_EQ(pages.cElems, 5u);
    EXPECT_EQ(pages.pElems[0], kGeneralPage);
    CoTaskMemFree(pages.pElems);
}

TEST_F(Interfaces, PromiseHarmlessDataAndNothingAboutScripts) {
    ComPtr<IObjectSafety> safety;
    ASSERT_EQ(
        object->QueryInterface(IID_IObjectSafety, reinterpret_cast<void**>(safety.GetAddressOf())),
        S_OK);
    constexpr DWORD kData = INTERFACESAFE_FOR_UNTRUSTED_DATA;
    constexpr DWORD kCaller = INTERFACESAFE_FOR_UNTRUSTED_CALLER;
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IPersistStreamInit, kData, kData), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, kCaller, kCaller), E_FAIL);
    EXPECT_EQ(safety->GetInterfaceSafetyOptions(IID_IDispatch, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IMarshal, kData, kData), E_NOINTERFACE);
}

TEST_F(Interfaces, EnumerateVerbsThatTheCallerOwns) {
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
    EXPECT_EQ(verbs->Next(2, items, nullptr), E_POINTER);
}

/// Either size is kept to the last digit, and pixels come back from it.
TEST_F(Interfaces, KeepExtentsWithoutDrift) {
    const auto view = As<IViewObjectEx>();
    SIZEL extent{};
    EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(extent.cx, 6615);  // 250 x 200 pixels
    EXPECT_EQ(extent.cy, 5292);
    Adopt<IOleObject>(new DropDownControl)->GetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(extent.cx, MulDiv(121, 2540, 96));
    EXPECT_EQ(extent.cy, MulDiv(21, 2540, 96));
    Place();
    for (int pixels = 1; pixels <= 2000; ++pixels) {
        const SIZEL wanted{MulDiv(pixels, 2540, 96), MulDiv(pixels, 2540, 96) + 1};
        SIZEL set = wanted;
        ASSERT_EQ(object->SetExtent(DVASPECT_CONTENT, &set), S_OK);
        ASSERT_EQ(view->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent), S_OK);
        ASSERT_EQ(extent.cx, wanted.cx);
        ASSERT_EQ(extent.cy, wanted.cy);
        ASSERT_EQ(MulDiv(extent.cx, 96, 2540), pixels);
    }
    SIZEL negative{-1, 5};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
    EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    container->TakeLog();
    extent = {2540, 2540};
    EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &extent), S_OK);
    EXPECT_EQ(container->TakeLog(), "OnPosRectChange");
}

}  // namespace
}  // namespace velmora
