#include "hosts/activex/server/Registration.h"

#include "hosts/activex/server/ServerClasses.h"
#include "hosts/activex/win32/WinText.h"

#include <oleauto.h>
#include <olectl.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

constexpr wchar_t kUserClasses[] = L"Software\\Classes";
constexpr wchar_t kControlCategory[] = L"{40FC6ED4-2438-11CF-A3DB-080036F12502}";
constexpr wchar_t kLibraryName[] = L"Velmora Calendar Controls";
constexpr wchar_t kTypeLibVersion[] = L"1.0";

constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";
// The system's marshallers by type library, of dual interfaces and of event interfaces.
constexpr wchar_t kDualMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";
constexpr wchar_t kDispatchMarshaller[] = L"{00020420-0000-0000-C000-000000000046}";

/// A value below the root of the classes; without a name it is the key's own.
struct Entry {
    std::wstring key;
    const wchar_t* name;
    std::wstring text;
};

std::wstring TextOf(REFGUID guid) {
    wchar_t text[39] = {};
    StringFromGUID2(guid, text, 39);
    return text;
}

std::wstring ClassKey(const ServerClass& known) { return L"CLSID\\" + TextOf(known.clsid); }

/// The keys that belong to the class alone; removed with all that is in them.
std::vector<std::wstring> OwnKeys(const ServerClass& known) {
    std::vector<std::wstring> keys{ClassKey(known)};
    if (known.control) {
        keys.emplace_back(known.control->progId);
        keys.emplace_back(known.control->versionIndependentProgId);
    }
    return keys;
}

void AddControl(std::vector<Entry>& entries, const ServerClass& known, const std::wstring& file) {
    const ControlClass& control = *known.control;
    const std::wstring key = ClassKey(known), clsid = TextOf(known.clsid);
    const std::wstring progId = control.progId, anyVersion = control.versionIndependentProgId;
    entries.insert(entries.end(),
                   {{key + L"\\ProgID", nullptr, progId},
                    {key + L"\\VersionIndependentProgID", nullptr, anyVersion},
                    {key + L"\\Control", nullptr, L""},
                    {key + L"\\Programmable", nullptr, L""},
                    {key + L"\\TypeLib", nullptr, TextOf(kLibrary)},
                    {key + L"\\Version", nullptr, kTypeLibVersion},
                    {key + L"\\MiscStatus", nullptr, L"0"},
                    {key + L"\\MiscStatus\\1", nullptr, ToWide(std::to_string(control.miscStatus))},
                    {key + L"\\ToolboxBitmap32", nullptr,
                     file + L", " + ToWide(std::to_string(control.toolboxBitmap))},
                    {key + L"\\Implemented Categories\\" + kControlCategory, nullptr, L""},
                    {progId, nullptr, known.description},
                    {progId + L"\\CLSID", nullptr, clsid},
                    {anyVersion, nullptr, known.description},
                    {anyVersion + L"\\CLSID", nullptr, clsid},
                    {anyVersion + L"\\CurVer", nullptr, progId}});
    for (const ControlVerb& verb : kControlVerbs) {  // name, flags of the menu's item, attributes
        entries.push_back({key + L"\\Verb\\" + std::to_wstring(verb.number), nullptr,
                           verb.name + std::wstring(L",0,") + std::to_wstring(verb.attributes)});
    }
}

std::vector<Entry> EntriesOf(const ServerClass& known, const std::wstring& file) {
    const std::wstring key = ClassKey(known), server = key + L"\\InprocServer32";
    std::vector<Entry> entries{{key, nullptr, known.description},
                               {server, nullptr, file},
                               {server, L"ThreadingModel", L"Apartment"}};
    if (known.control) AddControl(entries, known, file);
    return entries;
}

std::wstring LibraryKey() { return L"TypeLib\\" + TextOf(kLibrary); }

struct Interface {
    std::wstring key;
    std::wstring name;
    bool isDual;
};

std::vector<Interface> InterfacesOf(ITypeLib& library) {
    std::vector<Interface> interfaces;
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        Microsoft::WRL::ComPtr<ITypeInfo> type;
        TYPEATTR* attributes = nullptr;
        BSTR name = nullptr;
        if (FAILED(library.GetTypeInfo(i, &type)) || FAILED(type->GetTypeAttr(&attributes))) {
            continue;
        }
        if (attributes->typekind == TKIND_DISPATCH &&
            SUCCEEDED(type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) {
            interfaces.push_back({L"Interface\\" + TextOf(attributes->guid), name,
                                  (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0});
            SysFreeString(name);
        }
        type->ReleaseTypeAttr(attributes);
    }
    return interfaces;
}

/// What `RegisterTypeLib` enters, which knows no scope and touches the keys of the other bitness.
std::vector<Entry> LibraryEntries(ITypeLib& library, const std::wstring& file) {
    const std::wstring version = LibraryKey() + L"\\" + kTypeLibVersion;
    std::vector<Entry> entries{
        {version, nullptr, kLibraryName},
        {version + L"\\0\\" + kPlatform, nullptr, file},
        {version + L"\\FLAGS", nullptr, std::to_wstring(LIBFLAG_FCONTROL)},
        {version + L"\\HELPDIR", nullptr, file.substr(0, file.find_last_of(L'\\'))}};
    for (const Interface& known : InterfacesOf(library)) {
        const wchar_t* const marshaller = known.isDual ? kDualMarshaller : kDispatchMarshaller;
        entries.insert(entries.end(), {{known.key, nullptr, known.name},
                                       {known.key + L"\\ProxyStubClsid32", nullptr, marshaller},
                                       {known.key + L"\\TypeLib", nullptr, TextOf(kLibrary)},
                                       {known.key + L"\\TypeLib", L"Version", kTypeLibVersion}});
    }
    return entries;
}

/// The root of the classes in that scope.
class Root {
public:
    explicit Root(RegistrationScope scope) : m_scope(scope) {
        if (scope == RegistrationScope::Machine) {
            m_key = HKEY_CLASSES_ROOT;
        } else {
            m_result = RegCreateKeyExW(HKEY_CURRENT_USER, kUserClasses, 0, nullptr, 0,
                                       KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
        }
    }
    Root(const Root&) = delete;
    Root& operator=(const Root&) = delete;
    ~Root() {
        if (m_scope == RegistrationScope::User && m_key) RegCloseKey(m_key);
    }

    HRESULT Result() const { return HRESULT_FROM_WIN32(static_cast<DWORD>(m_result)); }

    HRESULT Write(const Entry& entry) const {
        const auto size = static_cast<DWORD>((entry.text.size() + 1) * sizeof(wchar_t));
        HKEY key = nullptr;
        LSTATUS result = RegCreateKeyExW(m_key, entry.key.c_str(), 0, nullptr, 0, KEY_WRITE,
                                         nullptr, &key, nullptr);
        if (result == ERROR_SUCCESS) {
            result = RegSetValueExW(key, entry.name, 0, REG_SZ,
                                    reinterpret_cast<const BYTE*>(entry.text.c_str()), size);
            RegCloseKey(key);
        }
        return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
    }

    HRESULT Remove(const std::wstring& path) const {
        const LSTATUS result = RegDeleteTreeW(m_key, path.c_str());
        return result == ERROR_FILE_NOT_FOUND ? S_OK
                                              : HRESULT_FROM_WIN32(static_cast<DWORD>(result));
    }

    /// Whether it is there with nothing in it.
    bool IsEmpty(const std::wstring& path) const {
        HKEY key = nullptr;
        DWORD keys = 1, values = 1;
        if (RegOpenKeyExW(m_key, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                         nullptr, nullptr, nullptr);
        RegCloseKey(key);
        return keys == 0 && values == 0;
    }

private:
    RegistrationScope m_scope;
    HKEY m_key = nullptr;
    LSTATUS m_result = ERROR_SUCCESS;
};

HRESULT Write(const Root& root, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        if (const HRESULT written = root.Write(entry); FAILED(written)) return written;
    }
    return S_OK;
}

HRESULT WriteAll(const Root& root, const std::wstring& file) {
    Microsoft::WRL::ComPtr<ITypeLib> library;
    HRESULT result = LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library);
    if (SUCCEEDED(result)) result = Write(root, LibraryEntries(*library.Get(), file));
    for (const ServerClass& known : ServerClasses()) {
        if (SUCCEEDED(result)) result = Write(root, EntriesOf(known, file));
    }
    return result;
}

/// The file of the other bitness, which may be registered too, has the same library key.
HRESULT RemoveLibrary(const Root& root, const std::wstring& file) {
    Microsoft::WRL::ComPtr<ITypeLib> library;
    HRESULT result = LoadTypeLibEx(file.c_str(), REGKIND_NONE, &library);
    if (FAILED(result)) return result;
    for (const Interface& known : InterfacesOf(*library.Get())) {
        if (const HRESULT removed = root.Remove(known.key); FAILED(removed)) result = removed;
    }
    const std::wstring platforms = LibraryKey() + L"\\" + kTypeLibVersion + L"\\0";
    const HRESULT removed = root.Remove(platforms + L"\\" + kPlatform);
    if (FAILED(removed)) return removed;
    if (root.IsEmpty(platforms)) {
        const HRESULT gone = root.Remove(LibraryKey());
        return FAILED(gone) ? gone : result;
    }
    return result;
}

}  // namespace

HRESULT Register(RegistrationScope scope, const std::wstring& file) {
    const Root root(scope);
    if (FAILED(root.Result())) return root.Result();
    const HRESULT result = WriteAll(root, file);
    if (FAILED(result)) Unregister(scope, file);
    return result;
}

HRESULT Unregister(RegistrationScope scope, const std::wstring& file) {
    const Root root(scope);
    if (FAILED(root.Result())) return root.Result();
    HRESULT result = RemoveLibrary(root, file);
    for (const ServerClass& known : ServerClasses()) {
        for (const std::wstring& key : OwnKeys(known)) {
            const HRESULT removed = root.Remove(key);
            if (FAILED(removed)) result = removed;
        }
    }
    if (scope == RegistrationScope::User) {
        // A user who had no classes before shall have none afterwards.
        for (const wchar_t* parent : {L"CLSID", L"TypeLib", L"Interface"}) {
            if (root.IsEmpty(parent)) root.Remove(parent);
        }
    }
    return result;
}

}  // namespace velmora
