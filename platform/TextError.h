#pragma once

#include <exception>
#include <memory>
#include <string>

namespace velmora {

/// An error with a text of its own. Small, unlike `std::runtime_error`, which keeps its text in a
/// kind of string that programs have no other use for.
class TextError : public std::exception {
public:
    explicit TextError(std::string text);

    const char* what() const noexcept override { return m_text->c_str(); }

private:
    std::shared_ptr<const std::string> m_text;  // shared, as copies of an exception must not throw
};

}  // namespace velmora
