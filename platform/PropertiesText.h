#pragma once

#include "platform/MemoryBag.h"
#include "platform/TextError.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

/// Bytes. A line has room for the largest picture.
inline constexpr std::size_t kLongestPropertyLine = 96u << 20;
inline constexpr std::size_t kLargestPropertyFile = 256u << 20;

enum class FileProblem { Missing, NotReadable, Damaged, NotSaved };

/// A file of saved properties that could not be loaded or saved. `what()` names file, line and
/// reason for a user to read.
class PropertyFileError : public TextError {
public:
    PropertyFileError(FileProblem problem, const std::string& text, std::size_t line = 0)
        : TextError(text), m_problem(problem), m_line(line) {}

    FileProblem Problem() const noexcept { return m_problem; }
    /// Of the damage, from 1; 0 when no line is to blame.
    std::size_t Line() const noexcept { return m_line; }

private:
    FileProblem m_problem;
    std::size_t m_line;
};

/// The content of a file of saved properties; docs/saved-properties.md describes it. The same
/// values, written in the same order, give the same bytes.
/// Error NotSaved: a value, or all together, too large to be read again.
std::string FormatProperties(const MemoryBag& values);
/// Error Damaged, with its line. Of repeated names the last one counts.
MemoryBag ParseProperties(std::string_view content);

}  // namespace velmora
