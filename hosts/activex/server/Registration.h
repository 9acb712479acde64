#pragma once

#include <windows.h>

#include <string>

namespace velmora {

/// Who shall find the component: all users, which needs the rights for it, or the present one.
enum class RegistrationScope { Machine, User };

/// Enters the classes and the type library of the file. Where that is not possible, nothing of it
/// stays.
HRESULT Register(RegistrationScope scope, const std::wstring& file);
/// Removes every key that `Register` makes. There may be none. The type library of the file of the
/// other bitness stays where it is registered.
HRESULT Unregister(RegistrationScope scope, const std::wstring& file);

}  // namespace velmora
