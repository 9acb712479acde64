#include "hosts/activex/com/ComDispatch.h"
#include "hosts/activex/com/ComError.h"
#include "hosts/activex/com/ComObject.h"
#include "hosts/activex/server/ClassFactory.h"
#include "hosts/activex/server/Registration.h"
#include "hosts/activex/win32/ThisModule.h"

#include <olectl.h>
#include <windows.h>

#include <string>

// What the system calls in the file; VelmoraCalendar.def exports it.

namespace __gnu_cxx {
void __freeres();
}

namespace {

HRESULT Install(BOOL install, velmora::RegistrationScope scope) {
    return velmora::Guard([=] {
        return install ? velmora::Register(scope, velmora::ThisFile())
                       : velmora::Unregister(scope, velmora::ThisFile());
    });
}

}  // namespace

/// The C++ library leaves behind what it keeps for exceptions when there is no memory: 74 KB each
/// time that a program loads and unloads the component. A process that ends needs no tidying.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID atEnd) {
    if (reason == DLL_PROCESS_DETACH && !atEnd) __gnu_cxx::__freeres();
    return TRUE;
}

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
