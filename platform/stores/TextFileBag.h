#pragma once

#include "platform/stores/PropertiesText.h"

#include <filesystem>
#include <string_view>
#include <utility>

namespace velmora {

/// A store in a text file that people can read, compare and edit. It works in memory between `Load`
/// and `Save`; what is wrong with a file is known before any value is read from it:
///   TextFileBag file("calendar.txt");
///   file.Load();
///   calendar.ReadProps(file);
class TextFileBag : public PropertyBag {
public:
    /// Touches no file.
    explicit TextFileBag(std::filesystem::path path) : m_path(std::move(path)) {}

    /// Replaces the values by those of the file. PropertyFileError: the values stay.
    void Load();
    /// Writes a new file beside the old one and renames it over, so that every reader finds the
    /// whole old or the whole new file. PropertyFileError: the old file stays as it is and nothing
    /// is left beside it. After a crash of the program a file "<name>.<number>.tmp" may be left; a
    /// power failure just after the return may bring back the old file or, where the file system
    /// renames before it writes, leave a part of the new one, which `Load` refuses.
    void Save() const;

    const std::filesystem::path& Path() const noexcept { return m_path; }

    Variant ReadProperty(std::string_view name, const Variant& defaultValue) override {
        return m_values.ReadProperty(name, defaultValue);
    }
    void WriteProperty(std::string_view name, const Variant& value,
                       const Variant& defaultValue) override {
        m_values.WriteProperty(name, value, defaultValue);
    }

private:
    std::filesystem::path m_path;
    MemoryBag m_values;
};

}  // namespace velmora
