#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace velmora {

/// A modal dialog in memory, with the system's message font. Places are left, top, width and height
/// in dialog units.
class DialogTemplate {
public:
    struct Place {
        short left, top, width, height;
    };

    DialogTemplate(const std::wstring& title, short width, short height, bool rightToLeft);

    void Text(WORD id, const std::wstring& text, const Place& place, DWORD style = 0);
    void Button(WORD id, const std::wstring& text, const Place& place, DWORD style);

    /// Valid until something is added.
    const DLGTEMPLATE* Get() const noexcept;

private:
    void Item(WORD windowClass, WORD id, const std::wstring& text, const Place& place, DWORD style);
    void Add(DWORD value);
    void Add(const std::wstring& text);

    std::vector<WORD> m_words;  // as `DLGTEMPLATE` and `DLGITEMTEMPLATE` lie in memory
};

}  // namespace velmora
