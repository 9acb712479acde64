#pragma once

#include <windows.h>

namespace velmora {

/// The class object of one of `ServerClasses`. Error CLASS_E_CLASSNOTAVAILABLE: another class.
HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object);

}  // namespace velmora
