// Replaces what would bring an eighth of the component's size in from the compiler's run-time library
// that nobody uses there. When the component comes to need another function of this kind, the linker
// finds these defined twice: add it here.

#include <cstdlib>
#include <exception>
#include <new>
#include <string>

namespace {

/// Misuse of a container or a string. The library's own classes for it keep their text in strings
/// of the former kind, all of whose members would come with them.
class LibraryError : public std::exception {
public:
    explicit LibraryError(const char* text) noexcept : m_text(text) {}

    const char* what() const noexcept override { return m_text; }

private:
    const char* m_text;
};

}  // namespace

namespace __gnu_cxx {

/// Without the demangler of symbol names and output streams for a message that nobody sees.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx

namespace std {

void __throw_bad_alloc() { throw std::bad_alloc(); }
void __throw_bad_array_new_length() { throw std::bad_array_new_length(); }
void __throw_logic_error(const char* text) { throw LibraryError(text); }
void __throw_length_error(const char* text) { throw LibraryError(text); }
void __throw_out_of_range_fmt(const char* text, ...) { throw LibraryError(text); }

}  // namespace std
