#include "platform/TextFileBag.h"

#include <cerrno>
#include <cstdint>
#include <fstream>
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
    if (size > kLargestPropertyFile) {
        Fail(FileProblem::NotReadable, path, "it is larger than 256 MiB");
    }
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

/// A file beside another one, gone at the end unless it has taken the other one's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& target) : m_path(target) {
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
        if (!m_made) Fail(FileProblem::NotSaved, m_path, WithSystemReason("it cannot be created"));
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        file.close();
        if (!file) Fail(FileProblem::NotSaved, m_path, WithSystemReason("it cannot be written"));
    }

    void Replace(const fs::path& target) {
        std::error_code error;
        fs::rename(m_path, target, error);
        if (error) Fail(FileProblem::NotSaved, target, "it cannot be replaced: " + error.message());
        m_made = false;
    }

    const fs::path& Path() const { return m_path; }

private:
    fs::path m_path;
    bool m_made = false;
};

}  // namespace

void TextFileBag::Load() {
    const std::string content = ReadFile(m_path);
    try {
        m_values = ParseProperties(content);
    } catch (const PropertyFileError& error) {
        throw PropertyFileError(error.Problem(), NameOf(m_path) + ", " + error.what(),
                                error.Line());
    }
}

void TextFileBag::Save() const {
    const std::string content = FormatProperties(m_values);
    std::error_code error;
    const fs::file_status old = fs::status(m_path, error);
    if (fs::exists(old) && !fs::is_regular_file(old)) {
        Fail(FileProblem::NotSaved, m_path, "it is no regular file");
    }
    // Through a symbolic link, the file that it leads to is the one to replace.
    const fs::path target = fs::exists(old) ? fs::canonical(m_path, error) : m_path;
    if (error && fs::exists(old)) Fail(FileProblem::NotSaved, m_path, error.message());
    TemporaryFile temporary(target);
    temporary.Write(content);
    if (fs::exists(old)) fs::permissions(temporary.Path(), old.permissions(), error);
    temporary.Replace(target);
}

}  // namespace velmora
