#include "platform/stores/TextFileBag.h"

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

namespace velmora {
namespace {

namespace fs = std::filesystem;

std::string NameOf(const fs::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

[[noreturn]] void Fail(FileProblem problem, const fs::path& path, const std::string& reason) {
    throw PropertyFileError(problem, NameOf(path) + ": " + reason);
}

/// Streams give no reason of their own; the system's last one is it wherever there is any.
std::string WithSystemReason(const std::string& text) {
    if (errno == 0) return text;
    return text + " (" + std::generic_category().message(errno) + ')';
}

std::string ReadFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        Fail(FileProblem::Missing, path, "there is no such file");
    }
    if (!fs::is_regular_file(status)) {
        Fail(FileProblem::NotReadable, path, error ? error.message() : "it is no regular file");
    }
    const std::uintmax_t size = fs::file_size(path, error);
    if (error) Fail(FileProblem::NotReadable, path, error.message());
    if (size > kLargestPropertyFile)
        Fail(FileProblem::NotReadable, path, "it is larger than 64 MiB");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::string content(static_cast<std::size_t>(size), '\0');
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.is_open() || file.bad()) {
        Fail(FileProblem::NotReadable, path, WithSystemReason("it cannot be read"));
    }
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

/// Gives whoever asked for a save the reason under the name of his file.
[[noreturn]] void FailToSave(const fs::path& path, const std::string& reason) {
    Fail(FileProblem::NotSaved, path, reason);
}

/// The file to replace: where a symbolic link is, the one that it leads to.
struct SaveTarget {
    fs::path path;
    std::optional<fs::perms> permissions;  // of a file that is there
};

SaveTarget TargetOf(const fs::path& path) {
    constexpr fs::perms kWrites =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status old = fs::status(path, error);
    if (old.type() == fs::file_type::not_found) {
        if (fs::is_symlink(fs::symlink_status(path, error))) {
            FailToSave(path, "it is a link that leads nowhere");
        }
        return {path, std::nullopt};
    }
    if (old.type() == fs::file_type::none) FailToSave(path, error.message());
    if (!fs::is_regular_file(old)) FailToSave(path, "it is no regular file");
    if ((old.permissions() & kWrites) == fs::perms::none) FailToSave(path, "it is read-only");
    errno = 0;
    // Replaced it could be wherever the folder may be written. Opened so, it keeps what is in it.
    if (!std::ofstream(path, std::ios::binary | std::ios::in)) {
        FailToSave(path, WithSystemReason("it cannot be written"));
    }
    const fs::path target = fs::canonical(path, error);
    if (error) FailToSave(path, error.message());
    return {target, old.permissions()};
}

/// A file beside the target, gone at the end unless it has taken the target's place.
class TemporaryFile {
public:
    /// `named` is what the user calls the file.
    TemporaryFile(const SaveTarget& target, const fs::path& named)
        : m_target(target), m_named(named), m_path(target.path) {
        std::random_device random;
        m_path += "." + std::to_string(random()) + ".tmp";
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        if (m_made) fs::remove(m_path, ignored);
    }

    void Write(const std::string& content) {
        errno = 0;
        std::ofstream file(m_path, std::ios::binary);
        m_made = file.is_open();
        if (!m_made) {
            FailToSave(m_named, WithSystemReason("no file can be created in its folder"));
        }
        TakePermissions();
        errno = 0;
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        file.close();
        if (!file) FailToSave(m_named, WithSystemReason("it cannot be written"));
    }

    void Replace() {
        std::error_code error;
        fs::rename(m_path, m_target.path, error);
        if (error) FailToSave(m_named, "it cannot be replaced: " + error.message());
        m_made = false;
    }

private:
    /// While there is nothing in it that others might read.
    void TakePermissions() const {
        std::error_code error;
        if (m_target.permissions) fs::permissions(m_path, *m_target.permissions, error);
        // Some file systems give all files the same and refuse any change.
        if (error && fs::status(m_path).permissions() != *m_target.permissions) {
            FailToSave(m_named, "its permissions cannot be kept: " + error.message());
        }
    }

    const SaveTarget& m_target;
    const fs::path& m_named;
    fs::path m_path;
    bool m_made = false;
};

/// Errors of the content get the file's name in front.
template <class Operation>
auto UnderName(const fs::path& path, Operation operation) {
    try {
        return operation();
    } catch (const PropertyFileError& error) {
        throw PropertyFileError(error.Problem(), NameOf(path) + ", " + error.what(), error.Line());
    }
}

}  // namespace

void TextFileBag::Load() {
    const std::string content = ReadFile(m_path);
    m_values = UnderName(m_path, [&] { return ParseProperties(content); });
}

void TextFileBag::Save() const {
    const std::string content = UnderName(m_path, [&] { return FormatProperties(m_values); });
    const SaveTarget target = TargetOf(m_path);
    TemporaryFile temporary(target, m_path);
    temporary.Write(content);
    temporary.Replace();
}

}  // namespace velmora
