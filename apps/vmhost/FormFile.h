#pragma once

#include "apps/vmhost/Form.h"

#include <string>

namespace velmora::vmhost {

/// Saves the form's controls: as a text file by their property bags (`Medium::Bag`), otherwise as
/// a structured storage with a stream or a storage for each. Throws `HostError`.
void SaveForm(const Form& form, const std::wstring& path, Medium medium);
/// Replaces the form's controls by those of the file, of either kind. Throws `HostError`.
void LoadForm(Form& form, const std::wstring& path);

}  // namespace velmora::vmhost
