#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/server/ClassFactory.h"
#include "hosts/activex/server/ServerClasses.h"

#include <gtest/gtest.h>
#include <ole2.h>
#include <wrl/client.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Microsoft::WRL::ComPtr;

std::wstring TextOf(REFGUID guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, 39);
    return text;
}

/// Of this program, where the component is too.
std::wstring Folder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

class Server : public testing::Test {
protected:
    Server() { OleInitialize(nullptr); }
    ~Server() override { OleUninitialize(); }
};

TEST_F(Server, HasAFactoryForEveryClass) {
    const long before = ModuleLock::Count();
    for (const ServerClass& known : ServerClasses()) {
        ComPtr<IClassFactory> factory;
        ComPtr<IUnknown> made;
        ASSERT_EQ(GetClassObject(known.clsid, IID_PPV_ARGS(&factory)), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&made)), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
        void* none = &none;
        EXPECT_EQ(factory->CreateInstance(made.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IMarshal, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
        EXPECT_GT(ModuleLock::Count(), before);
        factory->LockServer(TRUE);
        made.Reset();
        factory.Reset();
        EXPECT_EQ(ModuleLock::Count(), before + 1);
        ModuleLock::Remove();
    }
    void* none = &none;
    EXPECT_EQ(GetClassObject(kLibrary, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(GetClassObject(kLibrary, IID_IClassFactory, nullptr), E_POINTER);
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
    }
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(kLibrary, 1, 0, LOCALE_NEUTRAL, &library), S_OK);
}

bool IsAvailable() {
    ComPtr<IUnknown> made;
    return SUCCEEDED(
        CoCreateInstance(kCalendarClass.clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)));
}

TEST_F(Server, IsFoundByItsManifestAlone) {
    EXPECT_FALSE(IsAvailable());
    const std::wstring manifest = Folder() + L"VelmoraCalendar.manifest";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = manifest.c_str();
    const HANDLE context = CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    ULONG_PTR cookie = 0;
    ASSERT_TRUE(ActivateActCtx(context, &cookie));
    ExpectAvailable();
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"VelmoraCalendar.ocx"), nullptr) << "it can be unloaded";
}

/// The registry does not tell cases apart.
std::wstring Lower(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

/// Everything below a key: keys, and values with their names.
void Collect(HKEY key, const std::wstring& path, std::set<std::wstring>& found) {
    found.insert(Lower(path));
    wchar_t name[16384];
    for (DWORD i = 0;; ++i) {
        wchar_t data[1024] = {};  // a longer value is known by its name
        DWORD length = static_cast<DWORD>(std::size(name)), size = sizeof data - sizeof *data;
        const LSTATUS result = RegEnumValueW(key, i, name, &length, nullptr, nullptr,
                                             reinterpret_cast<BYTE*>(data), &size);
        if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) break;
        found.insert(Lower(path + L"|" + name + L"=" + data));
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = static_cast<DWORD>(std::size(name));
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr)) break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child)) continue;
        Collect(child, path + L"\\" + name, found);
        RegCloseKey(child);
    }
}

/// In a new Wine the user has none yet, unlike in any Windows.
std::set<std::wstring> Classes(HKEY root) {
    std::set<std::wstring> found;
    HKEY key = nullptr;
    if (!RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_READ, nullptr, &key,
                         nullptr)) {
        Collect(key, L"", found);
        RegCloseKey(key);
    }
    return found;
}

/// What only one of the two has.
std::vector<std::wstring> Difference(const std::set<std::wstring>& a,
                                     const std::set<std::wstring>& b) {
    std::vector<std::wstring> different;
    std::ranges::set_symmetric_difference(a, b, std::back_inserter(different));
    return different;
}

const std::vector<std::wstring> kNothing;

class Registration : public Server {
protected:
    Registration() : m_module(LoadLibraryW((Folder() + L"VelmoraCalendar.ocx").c_str())) {}
    ~Registration() override {
        Call("DllUnregisterServer");
        Install(FALSE, L"user");
        FreeLibrary(m_module);
    }
    HRESULT Call(const char* name) {
        return reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(Export(name))();
    }
    HRESULT Install(BOOL install, const wchar_t* scope) {
        return reinterpret_cast<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>(Export("DllInstall"))(
            install, scope);
    }

private:
    void* Export(const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(m_module, name));
    }
    HMODULE m_module;
};

void ExpectEntries(const std::set<std::wstring>& found) {
    for (const ServerClass& known : ServerClasses()) {
        const std::wstring key = L"\\CLSID\\" + TextOf(known.clsid);
        EXPECT_TRUE(found.contains(Lower(key + L"\\InprocServer32|ThreadingModel=Apartment")));
        EXPECT_TRUE(
            found.contains(Lower(key + L"\\InprocServer32|=" + Folder() + L"VelmoraCalendar.ocx")));
        if (!known.control) continue;
        const std::wstring name = known.control->progId;
        EXPECT_TRUE(found.contains(Lower(L"\\" + name + L"\\CLSID|=" + TextOf(known.clsid))));
        EXPECT_TRUE(found.contains(Lower(key + L"\\MiscStatus\\1|=131473")));
        EXPECT_TRUE(found.contains(Lower(key + L"\\Control")));
    }
    EXPECT_TRUE(found.contains(
        Lower(L"\\Interface\\" + TextOf(kCalendarClass.dispatch) + L"\\TypeLib|Version=1.0")));
    EXPECT_TRUE(found.contains(Lower(L"\\TypeLib\\" + TextOf(kLibrary) + L"\\1.0\\0\\win64|=" +
                                     Folder() + L"VelmoraCalendar.ocx")));
}

TEST_F(Registration, LeavesNothingAndTouchesNothingElse) {
    const HKEY machine = HKEY_LOCAL_MACHINE, user = HKEY_CURRENT_USER;
    EXPECT_EQ(Install(TRUE, L"elsewhere"), E_INVALIDARG);
    for (const auto& [root, other] : {std::pair(machine, user), std::pair(user, machine)}) {
        const auto run = [&, isUser = root == user](bool install) {
            if (isUser) return Install(install, L"user");
            return Call(install ? "DllRegisterServer" : "DllUnregisterServer");
        };
        const auto before = Classes(root), others = Classes(other);
        for (int round = 0; round < 2; ++round) ASSERT_EQ(run(true), S_OK);
        ExpectEntries(Classes(root));
        if (root == machine) ExpectAvailable();
        EXPECT_EQ(Difference(Classes(other), others), kNothing);
        for (int round = 0; round < 2; ++round) EXPECT_EQ(run(false), S_OK);
        EXPECT_FALSE(IsAvailable());
        EXPECT_EQ(Difference(Classes(root), before), kNothing);
        EXPECT_EQ(Difference(Classes(other), others), kNothing);
    }
}

}  // namespace
}  // namespace velmora
