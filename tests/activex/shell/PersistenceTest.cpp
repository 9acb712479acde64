#include "tests/activex/shell/ShellFixture.h"

namespace velmora {
namespace {

class Persistence : public ShellFixture {
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
    long Display() const {
        ::VmMonthDisplayConstants display{};
        As<::_VmCalendar>()->get_MonthDisplay(&display);
        return display;
    }
    void Change() { As<::_VmCalendar>()->put_MonthDisplay(::VmMonthAbbrName); }
};

TEST_F(Persistence, IsInitialisedOnce) {
    const auto stream = As<IPersistStreamInit>();
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
    EXPECT_EQ(stream->InitNew(), S_OK);
    EXPECT_EQ(stream->IsDirty(), S_OK);
    EXPECT_EQ(stream->InitNew(), E_UNEXPECTED);
    EXPECT_EQ(As<IPersistStorage>()->InitNew(MakeStorage().Get()), E_UNEXPECTED);
    EXPECT_EQ(As<IPersistPropertyBag>()->InitNew(), E_UNEXPECTED);
    Renew();
    EXPECT_EQ(Display(), ::VmMonthFullName);  // used, so it has its defaults now
    EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), E_UNEXPECTED);
}

TEST_F(Persistence, AStreamKeepsSizeAndValues) {
    const auto stream = MakeStream();
    Change();
    SIZEL size{1234, 2345};
    object->SetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(As<IPersistStreamInit>()->Save(stream.Get(), FALSE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
    Rewind(*stream.Get());
    Renew();
    EXPECT_EQ(As<IPersistStreamInit>()->Load(stream.Get()), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    EXPECT_EQ(Display(), ::VmMonthAbbrName);
    As<::_VmCalendar>()->put_MonthDisplay(::VmMonthFullName);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->Save(MakeStream().Get(), TRUE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    size = {};
    object->GetExtent(DVASPECT_CONTENT, &size);
    EXPECT_EQ(size.cx, 1234);
    EXPECT_EQ(size.cy, 2345);
}

TEST_F(Persistence, ADamagedStreamChangesNothing) {
    const auto saved = MakeStream();
    Change();
    As<IPersistStreamInit>()->Save(saved.Get(), TRUE);
    STATSTG status{};
    saved->Stat(&status, STATFLAG_NONAME);
    const auto whole = status.cbSize.QuadPart;
    for (ULONGLONG length = 0; length < whole; length += 1 + length / 16) {
        const auto cut = MakeStream();
        Rewind(*saved.Get());
        saved->CopyTo(cut.Get(), {.QuadPart = length}, nullptr, nullptr);
        Rewind(*cut.Get());
        Renew();
        EXPECT_TRUE(FAILED(As<IPersistStreamInit>()->Load(cut.Get()))) << length;
        EXPECT_EQ(Display(), ::VmMonthFullName) << length;
        EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    }
}

TEST_F(Persistence, AStorageGoesThroughItsStates) {
    const auto first = MakeStorage(), second = MakeStorage();
    const auto storage = As<IPersistStorage>();
    DWORD advise = 0;
    object->Advise(container.Get(), &advise);
    EXPECT_EQ(storage->HandsOffStorage(), E_UNEXPECTED);
    EXPECT_EQ(storage->SaveCompleted(nullptr), E_UNEXPECTED);
    EXPECT_EQ(storage->InitNew(first.Get()), S_OK);
    EXPECT_EQ(storage->InitNew(first.Get()), CO_E_ALREADYINITIALIZED);
    EXPECT_EQ(storage->Load(first.Get()), CO_E_ALREADYINITIALIZED);
    Change();
    EXPECT_EQ(storage->Save(first.Get(), TRUE), S_OK);
    EXPECT_EQ(storage->Save(first.Get(), TRUE), E_UNEXPECTED);  // not while it may not scribble
    EXPECT_EQ(storage->IsDirty(), S_OK);
    EXPECT_EQ(storage->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(storage->IsDirty(), S_FALSE);
    EXPECT_EQ(container->TakeLog(), "OnSave");
    Change();
    EXPECT_EQ(storage->Save(second.Get(), FALSE), S_OK);
    EXPECT_EQ(storage->SaveCompleted(nullptr), S_OK);
    EXPECT_EQ(storage->IsDirty(), S_OK) << "a copy was saved, its own storage was not";
    EXPECT_EQ(storage->Save(second.Get(), FALSE), S_OK);
    EXPECT_EQ(storage->HandsOffStorage(), S_OK);
    EXPECT_EQ(storage->HandsOffStorage(), E_UNEXPECTED);
    EXPECT_EQ(storage->Save(second.Get(), FALSE), E_UNEXPECTED);
    EXPECT_EQ(storage->SaveCompleted(nullptr), E_INVALIDARG);
    EXPECT_EQ(storage->SaveCompleted(second.Get()), S_OK);
    EXPECT_EQ(storage->Save(second.Get(), TRUE), S_OK);
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
