#pragma once

#include <windows.h>

namespace velmora {

/// A new property page of one of the classes in ControlClass.h, for a property frame. It edits the
/// first of its objects through `IDispatch`, by the names of properties, so any object that offers
/// such names will do; what it lacks is disabled.
///
/// The page keeps what has been edited while it is deactivated. `Apply` passes on the failure of
/// the object with its error information, or gives E_ABORT where the page itself has complained in
/// a message box; the page then stays dirty.
HRESULT CreatePropertyPage(REFCLSID classId, REFIID iid, void** page) noexcept;

}  // namespace velmora
