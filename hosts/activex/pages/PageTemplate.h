#pragma once

#include "proppages/PageDefinitions.h"

#include <windows.h>

#include <string_view>
#include <vector>

namespace velmora {

/// The template of a page's dialog: one row a field, label in front, in the order of the tab key.
/// Sizes are dialog units, so the page follows the system's dialog font and resolution.
class PageTemplate {
public:
    explicit PageTemplate(bool rightToLeft);

    /// A row with that control. The label's "&" marks the access key.
    void AddRow(FieldKind kind, std::wstring_view label, WORD id);

    const DLGTEMPLATE& Get() const noexcept;

private:
    void AddItem(DWORD style, DWORD extendedStyle, SMALL_RECT place, WORD id, WORD windowClass,
                 std::wstring_view text);
    void Word(WORD word) { m_words.push_back(word); }
    void Long(DWORD value);
    void Place(SMALL_RECT place);
    void Text(std::wstring_view text);

    std::vector<WORD> m_words;
    SHORT m_rows = 0;
};

}  // namespace velmora
