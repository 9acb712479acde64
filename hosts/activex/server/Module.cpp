#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/server/ClassFactory.h"
#include "hosts/activex/server/Registration.h"

#include <olectl.h>
#include <windows.h>

#include <string>

// What the system calls in the file; VelmoraCalendar.def exports it.

namespace {

std::wstring ThisFile() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&ThisFile), &module);
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

HRESULT Install(BOOL install, velmora::RegistrationScope scope) {
    return velmora::Guard([=] {
        return install ? velmora::Register(scope, ThisFile())
                       : velmora::Unregister(scope, ThisFile());
    });
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return velmora::GetClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    if (velmora::ModuleLock::Count() != 0) return S_FALSE;
    velmora::ReleaseOwnLibrary();
    return S_OK;
}

STDAPI DllRegisterServer() {
    const HRESULT result = Install(TRUE, velmora::RegistrationScope::Machine);
    return FAILED(result) ? SELFREG_E_CLASS : S_OK;
}

STDAPI DllUnregisterServer() {
    const HRESULT result = Install(FALSE, velmora::RegistrationScope::Machine);
    return FAILED(result) ? SELFREG_E_CLASS : S_OK;
}

/// `regsvr32 /n /i:user`: for the present user only.
extern "C" HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR commandLine) {
    const std::wstring scope = commandLine ? commandLine : L"";
    if (_wcsicmp(scope.c_str(), L"user") == 0) {
        return Install(install, velmora::RegistrationScope::User);
    }
    const bool isMachine = scope.empty() || _wcsicmp(scope.c_str(), L"machine") == 0;
    return isMachine ? Install(install, velmora::RegistrationScope::Machine) : E_INVALIDARG;
}
