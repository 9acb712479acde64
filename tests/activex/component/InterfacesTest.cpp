#include "tests/activex/component/ComponentTest.h"

#include <objsafe.h>

namespace velmora {
namespace {

template <class... Interface>
std::vector<IID> IdsOf() {
    return {__uuidof(Interface)...};
}

class Interfaces : public ComponentTest {};

/// From every interface every other one, and always the same object.
TEST_F(Interfaces, LeadToEachOther) {
    std::vector<IID> ids =
        IdsOf<::_VmCalendar, IUnknown, IDispatch, IOleObject, IOleControl, IOleWindow,
              IOleInPlaceObject, IOleInPlaceActiveObject, IViewObject, IViewObject2, IViewObjectEx,
              IPersist, IPersistStream, IPersistStreamInit, IPersistStorage, IPersistPropertyBag,
              IConnectionPointContainer, IProvideClassInfo, IProvideClassInfo2,
              IPerPropertyBrowsing, ISpecifyPropertyPages, IDataObject, ISupportErrorInfo>();
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

TEST_F(Interfaces, PromiseHarmlessDataAndHaveTwoVerbs) {
    ComPtr<IObjectSafety> safety;
    object->QueryInterface(IID_IObjectSafety, reinterpret_cast<void**>(safety.GetAddressOf()));
    constexpr DWORD kData = INTERFACESAFE_FOR_UNTRUSTED_DATA;
    constexpr DWORD kCaller = INTERFACESAFE_FOR_UNTRUSTED_CALLER;
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IPersistStreamInit, kData, kData), S_OK);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IDispatch, kCaller, kCaller), E_FAIL);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(IID_IMarshal, kData, kData), E_NOINTERFACE);
    ComPtr<IEnumOLEVERB> verbs;
    object->EnumVerbs(&verbs);
    OLEVERB items[3] = {};
    ULONG fetched = 0;
    EXPECT_EQ(verbs->Next(3, items, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    for (ULONG i = 0; i < fetched; ++i) CoTaskMemFree(items[i].lpszVerbName);
}

class Persistence : public ComponentTest {
protected:
    static ComPtr<IStream> MakeStream() {
        ComPtr<IStream> stream;
        CreateStreamOnHGlobal(nullptr, TRUE, &stream);
        return stream;
    }
    static ComPtr<IStorage> MakeStorage() {
        ComPtr<ILockBytes> bytes;
        ComPtr<IStorage> storage;
        CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes);
        StgCreateDocfileOnILockBytes(
            bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, &storage);
        return storage;
    }
    static void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }
};

TEST_F(Persistence, AStreamKeepsTheSizeAndADamagedOneChangesNothing) {
    EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), E_UNEXPECTED) << "once only";
    const auto saved = MakeStream();
    Change(::VmMonthAbbrName);
    SIZEL size{1234, 2345};
    object->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(As<IPersistStreamInit>()->Save(saved.Get(), FALSE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
    ULARGE_INTEGER whole{};
    saved->Seek({}, STREAM_SEEK_CUR, &whole);
    EXPECT_EQ(As<IPersistStreamInit>()->Save(saved.Get(), FALSE), S_OK);  // behind it
    const auto part = [&](ULONGLONG length) {
        const auto stream = MakeStream();
        Rewind(*saved.Get());
        saved->CopyTo(stream.Get(), {.QuadPart = length}, nullptr, nullptr);
        return stream;
    };
    for (ULONGLONG length = 0; length < whole.QuadPart; length += 1 + length / 16) {
        const auto cut = part(length), damaged = part(whole.QuadPart);
        Rewind(*cut.Get());
        Renew();
        EXPECT_TRUE(FAILED(As<IPersistStreamInit>()->Load(cut.Get()))) << length;
        EXPECT_EQ(Display(), ::VmMonthFullName) << length;
        EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
        damaged->Seek({.QuadPart = static_cast<LONGLONG>(length)}, STREAM_SEEK_SET, nullptr);
        damaged->Write("\xFF", 1, nullptr);
        Rewind(*damaged.Get());
        const HRESULT loaded = As<IPersistStreamInit>()->Load(damaged.Get());
        EXPECT_TRUE(length > 3 || FAILED(loaded)) << "a length of 4 GB";
        EXPECT_EQ(SetDate(45000), S_OK) << "whatever it made of it";
    }
    Renew();
    Rewind(*saved.Get());
    EXPECT_EQ(As<IPersistStreamInit>()->Load(saved.Get()), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->Load(saved.Get()), S_OK) << "the second one";
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    EXPECT_EQ(Display(), ::VmMonthAbbrName);
    size = {};
    object->GetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(std::pair(size.cx, size.cy), std::pair(LONG{1234}, LONG{2345}));
}

TEST_F(Persistence, AStorageGoesThroughItsStates) {
    const auto first = MakeStorage(), second = MakeStorage();
    const auto storage = As<IPersistStorage>();
    const auto change = [&] { return Change(::VmMonthAbbrName); };
    const auto save = [&](const ComPtr<IStorage>& to, BOOL isOwn) {
        return [&, isOwn] { return storage->Save(to.Get(), isOwn); };
    };
    const auto complete = [&] { return storage->SaveCompleted(nullptr); };
    const auto handsOff = [&] { return storage->HandsOffStorage(); };
    const std::string dirty = "inactive dirty";
    DWORD advise = 0;
    object->Advise(container.Get(), &advise);
    Play({{"nothing held", handsOff, "", "inactive", E_UNEXPECTED},
          {"new", [&] { return storage->InitNew(first.Get()); }, "", dirty},
          {"again", [&] { return storage->Load(first.Get()); }, "", dirty, CO_E_ALREADYINITIALIZED},
          {"change", change, "", dirty},
          {"save", save(first, TRUE), "", dirty},
          {"no scribbling", save(first, TRUE), "", dirty, E_UNEXPECTED},
          {"saved", complete, "OnSave"},
          {"another change", change, "", dirty},
          {"save a copy", save(second, FALSE), "", dirty},
          {"its own was not saved", complete, "OnSave", dirty},
          {"save a copy", save(second, FALSE), "", dirty},
          {"hands off", handsOff, "", dirty},
          {"holds nothing", save(second, FALSE), "", dirty, E_UNEXPECTED},
          {"needs one", complete, "", dirty, E_INVALIDARG},
          {"holds another", [&] { return storage->SaveCompleted(second.Get()); }, "OnSave"},
          {"save", save(second, TRUE), ""}});
    for (const auto& source : {first, second}) {
        Renew();
        EXPECT_EQ(As<IPersistStorage>()->Load(source.Get()), S_OK);
        EXPECT_EQ(Display(), ::VmMonthAbbrName);
    }
    Renew();
    EXPECT_EQ(As<IPersistStorage>()->Load(MakeStorage().Get()), STG_E_FILENOTFOUND);
}

}  // namespace
}  // namespace velmora
