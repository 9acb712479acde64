#include "platform/stores/PropertiesText.h"

#include "platform/stores/ValueText.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kFirstLine = "velmora-properties 1";
constexpr std::string_view kLastLine = "end";
constexpr std::size_t kRoomForEnd = 8;  // two line ends and the last line
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kSpaces = " \t";

bool IsPlainName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               c == '_';
    });
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kSpaces), text.size()));
    return text.substr(0, text.find_last_not_of(kSpaces) + 1);
}

std::string TakeName(std::string_view& rest) {
    if (rest.front() == '"') return TakeQuotedText(rest);
    const std::string_view name = rest.substr(0, rest.find_first_of(" \t="));
    if (!IsPlainName(name)) throw ValueTextError("a property begins with its name");
    rest.remove_prefix(name.size());
    return std::string(name);
}

void ReadLine(std::string_view line, MemoryBag& values) {
    std::string name = TakeName(line);
    line = Trimmed(line);
    if (line.empty() || line.front() != '=') {
        throw ValueTextError("\"=\" is missing behind the name");
    }
    values.Keep(std::move(name), ParseValue(line.substr(1)));
    if (values.Count() > kMostFileProperties) throw ValueTextError("there are too many properties");
}

/// Goes through the lines of a content, which may end as on any platform.
class LineReader {
public:
    explicit LineReader(std::string_view content) : m_rest(content) {}

    bool AtEnd() const { return m_rest.empty(); }
    std::size_t Number() const { return m_number; }  // of the line read last, from 1

    std::string_view Next() {
        const std::size_t length = std::min(m_rest.find('\n'), m_rest.size());
        std::string_view line = m_rest.substr(0, length);
        m_rest.remove_prefix(std::min(length + 1, m_rest.size()));
        ++m_number;
        if (line.ends_with('\r')) line.remove_suffix(1);
        return Trimmed(line);
    }

private:
    std::string_view m_rest;
    std::size_t m_number = 0;
};

void ExpectFirstLine(std::string_view line) {
    if (line == kFirstLine) return;
    const std::string_view family = kFirstLine.substr(0, kFirstLine.size() - 1);
    throw ValueTextError(line.starts_with(family) ? "a newer version wrote this file"
                                                  : "this is no file of saved properties");
}

MemoryBag ReadLines(LineReader& lines) {
    MemoryBag values;
    ExpectFirstLine(lines.Next());
    while (!lines.AtEnd()) {
        const std::string_view line = lines.Next();
        if (line.empty() || line.front() == '#') continue;
        if (line != kLastLine) {
            ReadLine(line, values);
            continue;
        }
        while (!lines.AtEnd()) {
            if (!lines.Next().empty()) throw ValueTextError("something stands behind the end");
        }
        return values;
    }
    throw ValueTextError("the file is cut off: its last line, \"end\", is missing");
}

}  // namespace

std::string FormatProperties(const MemoryBag& values) {
    if (values.Count() > kMostFileProperties) {
        throw PropertyFileError(FileProblem::NotSaved, "there are too many properties");
    }
    std::string content = std::string(kFirstLine) + '\n';
    for (const auto& [name, value] : values.Values()) {
        std::string line =
            (IsPlainName(name) && name != kLastLine ? name : QuotedText(name)) + " = ";
        try {
            line += FormatValue(value);
        } catch (const ValueTextError& error) {
            throw PropertyFileError(FileProblem::NotSaved, name + ": " + error.what());
        }
        if (content.size() + line.size() > kLargestPropertyFile - kRoomForEnd) {
            throw PropertyFileError(FileProblem::NotSaved, name + ": the value is too long");
        }
        content.append(line) += '\n';
    }
    return content.append(kLastLine) + '\n';
}

MemoryBag ParseProperties(std::string_view content) {
    if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
    LineReader lines(content);
    try {
        return ReadLines(lines);
    } catch (const ValueTextError& error) {
        const std::string place = "line " + std::to_string(lines.Number()) + ": ";
        throw PropertyFileError(FileProblem::Damaged, place + error.what(), lines.Number());
    }
}

}  // namespace velmora
