#pragma once

#include "platform/TextError.h"
#include "platform/stores/MemoryBag.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

inline constexpr std::size_t kLargestPropertyFile = 64u << 20;  // bytes
inline constexpr std::size_t kMostFileProperties = 10000;

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
/// Error NotSaved: a value, or all together, too large to be read again; too many of them.
std::string FormatProperties(const MemoryBag& values);
/// Error Damaged, with its line. Of repeated names the last one counts. The values need at most the
/// content's size in memory, and a few hundred bytes each.
MemoryBag ParseProperties(std::string_view content);

}  // namespace velmora
