#pragma once

#include <windows.h>

#include <string>

namespace velmora {

/// The component or the program that this code is in.
HINSTANCE ThisModule() noexcept;

/// Where its file is; empty when the system does not say.
std::wstring ThisFile();

}  // namespace velmora
