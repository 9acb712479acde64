#pragma once

#include "hosts/activex/control/ControlClass.h"

#include <windows.h>

#include <span>

namespace velmora {

/// A class that clients can create. Class objects, registration and the manifest follow this table.
struct ServerClass {
    const CLSID& clsid;
    const wchar_t* description;
    const ControlClass* control;  // null for a property page
    HRESULT (*create)(REFIID iid, void** object);
};

std::span<const ServerClass> ServerClasses() noexcept;

/// Type library VelmoraCalendar 1.0.
extern const GUID kLibrary;

}  // namespace velmora
