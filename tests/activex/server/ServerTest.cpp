#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/server/ClassFactory.h"
#include "hosts/activex/server/ServerClasses.h"

#include <gtest/gtest.h>
#include <ole2.h>
#include <wrl/client.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

/// Of this program, where the component is too.
std::wstring Folder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

TEST(Server, HasAFactoryForEveryClass) {
    const long before = ModuleLock::Count();
    void* none = &none;
    for (const ServerClass& known : ServerClasses()) {
        ComPtr<IClassFactory> factory;
        ComPtr<IUnknown> made;
        ASSERT_EQ(GetClassObject(known.clsid, IID_PPV_ARGS(&factory)), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&made)), S_OK);
        EXPECT_EQ(factory->CreateInstance(made.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IMarshal, &none), E_NOINTERFACE);
        factory->LockServer(TRUE);
        made.Reset();
        factory.Reset();
        EXPECT_EQ(ModuleLock::Count(), before + 1);
        ModuleLock::Remove();
    }
    EXPECT_EQ(GetClassObject(kLibrary, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(none, nullptr);
}

/// Every control by its names, and whatever else a client finds by them.
void ExpectAvailable() {
    for (const ServerClass& known : ServerClasses()) {
        ComPtr<IUnknown> made;
        EXPECT_EQ(CoCreateInstance(known.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)),
                  S_OK);
        if (!known.control) continue;
        for (const wchar_t* const name :
             {known.control->progId, known.control->versionIndependentProgId}) {
            CLSID clsid{}, its{};  // with a manifest a program id has a class id of its own
            EXPECT_EQ(CLSIDFromProgID(name, &clsid), S_OK);
            ComPtr<IOleObject> control;
            ASSERT_EQ(
                CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)),
                S_OK);
            control->GetUserClassID(&its);
            EXPECT_EQ(its, known.clsid);
        }
        DWORD status = 0;
        EXPECT_EQ(OleRegGetMiscStatus(known.clsid, DVASPECT_CONTENT, &status), S_OK);
        EXPECT_EQ(status, known.control->miscStatus);
        ComPtr<IEnumOLEVERB> verbs;
        EXPECT_EQ(OleRegEnumVerbs(known.clsid, &verbs), S_OK);
    }
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(kLibrary, 1, 0, LOCALE_NEUTRAL, &library), S_OK);
}

/// The classes of the machine or of the user, as the system exports them, in small letters. In a
/// new Wine the user has none yet, unlike in any Windows.
std::wstring Classes(const std::wstring& root) {
    HKEY key = nullptr;
    if (!RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\Classes", &key)) RegCloseKey(key);
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = folder + std::to_wstring(GetCurrentProcessId()) + L".reg";
    _wsystem((L"reg export " + root + L"\\Software\\Classes " + path + L" /y >nul").c_str());
    std::ifstream file(path.c_str(), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    file.close();
    DeleteFileW(path.c_str());
    std::wstring text(bytes.str().size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.str().data(), text.size() * sizeof(wchar_t));
    CharLowerW(text.data());
    EXPECT_NE(text.find(L"\\software\\classes]"), text.npos) << "could not be read";
    return text;
}

class Registration : public testing::Test {
protected:
    ~Registration() override {
        Call<>("DllUnregisterServer");
        Call<BOOL, LPCWSTR>("DllInstall", FALSE, L"user");
        FreeLibrary(m_module);
    }
    template <class... Arguments>
    HRESULT Call(const char* name, Arguments... arguments) {
        const auto entry = reinterpret_cast<void*>(GetProcAddress(m_module, name));
        return reinterpret_cast<HRESULT(STDAPICALLTYPE*)(Arguments...)>(entry)(arguments...);
    }

private:
    HMODULE m_module = LoadLibraryW((Folder() + L"VelmoraCalendar.ocx").c_str());
};

/// How often the text stands in one more often than in the other.
std::size_t More(const std::wstring& after, const std::wstring& before, const wchar_t* text) {
    const auto count = [&](const std::wstring& in) {
        std::size_t found = 0;
        for (auto at = in.find(text); at != in.npos; at = in.find(text, at + 1)) ++found;
        return found;
    };
    return count(after) - count(before);
}

TEST_F(Registration, LeavesNothingAndTouchesNothingElse) {
    const std::wstring machine = L"HKLM", user = L"HKCU";
    EXPECT_EQ((Call<BOOL, LPCWSTR>("DllInstall", TRUE, L"elsewhere")), E_INVALIDARG);
    for (const auto& [root, other] : {std::pair(machine, user), std::pair(user, machine)}) {
        const auto run = [&, isUser = root == user](bool install) {
            if (isUser) return Call<BOOL, LPCWSTR>("DllInstall", install, L"user");
            return Call<>(install ? "DllRegisterServer" : "DllUnregisterServer");
        };
        const std::wstring before = Classes(root), others = Classes(other);
        for (int round = 0; round < 2; ++round) ASSERT_EQ(run(true), S_OK);
        const std::wstring now = Classes(root);
        EXPECT_EQ(More(now, before, L"velmoracalendar.ocx\"\r\n\"threadingmodel\"=\"apartment\""),
                  ServerClasses().size());
        EXPECT_EQ(More(now, before, L"{00020424-0000-0000-c000-000000000046}\""), 5u);  // dual
        EXPECT_EQ(More(now, before, L"{00020420-0000-0000-c000-000000000046}\""), 3u);  // events
        if (root == machine) ExpectAvailable();
        for (int round = 0; round < 2; ++round) EXPECT_EQ(run(false), S_OK);
        ComPtr<IUnknown> made;
        EXPECT_EQ(CoCreateInstance(kCalendarClass.clsid, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_PPV_ARGS(&made)),
                  REGDB_E_CLASSNOTREG);
        EXPECT_TRUE(Classes(root) == before) << "something is left, or gone";
        EXPECT_TRUE(Classes(other) == others);
    }
}

}  // namespace
}  // namespace velmora
