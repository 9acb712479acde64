#include "hosts/activex/pages/PageForm.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WinText.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace velmora {

template <class Field>
Field& PageForm::AddRow(PageFieldKind kind, const wchar_t* label, Properties properties) {
    m_template.AddRow(kind, label, static_cast<WORD>(kFirstId + m_rows.size()));
    auto field = std::make_unique<Field>();
    Field& added = *field;
    m_rows.push_back({properties, std::move(field), [this] { Page().OnClick(); }});
    return added;
}

WinPageList& PageForm::AddList(const wchar_t* label, Properties properties) {
    return AddRow<WinPageList>(PageFieldKind::List, label, properties);
}

WinPageCheckBox& PageForm::AddCheckBox(const wchar_t* label, Properties properties) {
    return AddRow<WinPageCheckBox>(PageFieldKind::CheckBox, label, properties);
}

WinPageText& PageForm::AddText(const wchar_t* label, Properties properties,
                               std::function<void(PageText&)> edited) {
    auto& text = AddRow<WinPageText>(PageFieldKind::Text, label, properties);
    m_rows.back().edited = [&text, edited = std::move(edited)] { edited(text); };
    return text;
}

SIZE PageForm::Size() const {
    RECT area{};
    if (const HWND measured = Create(m_template.Get(), HWND_MESSAGE, nullptr)) {
        GetClientRect(measured, &area);
        DestroyWindow(measured);
    }
    return {area.right, area.bottom};
}

bool PageForm::Open(HWND parent, const RECT& place) {
    m_window = Create(m_template.Get(), parent, this);
    if (!m_window) return false;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows[i].field->Attach(GetDlgItem(m_window, kFirstId + static_cast<int>(i)));
    }
    MoveWindow(m_window, place.left, place.top, place.right - place.left, place.bottom - place.top,
               FALSE);
    return true;
}

void PageForm::Close() noexcept {
    const HWND window = m_window;
    Detach();
    if (!window) return;
    SetWindowLongPtrW(window, DWLP_USER, 0);
    DestroyWindow(window);
}

bool PageForm::FocusOn(const std::function<bool(std::string_view)>& isWanted) {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& candidate) {
        return std::any_of(candidate.properties.begin(), candidate.properties.end(), isWanted);
    });
    if (row == m_rows.end()) return false;
    if (m_window && IsWindowVisible(m_window)) {
        SetFocus(row->field->Window());
    } else {
        m_focusWhenShown = row->field.get();
    }
    return true;
}

void PageForm::Show(int command) {
    ShowWindow(m_window, command);
    if (command == SW_HIDE) return;
    if (const PageField* const field = std::exchange(m_focusWhenShown, nullptr)) {
        SetFocus(field->Window());
    }
}

HWND PageForm::Create(const DLGTEMPLATE& dialog, HWND parent, PageForm* form) {
    return CreateDialogIndirectParamW(ThisModule(), &dialog, parent, Serve,
                                      reinterpret_cast<LPARAM>(form));
}

/// A dialog that is measured only, or about to end, has no form.
INT_PTR CALLBACK PageForm::Serve(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, l);
        return FALSE;  // the focus stays where it is
    }
    auto* const form = reinterpret_cast<PageForm*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!form || form->m_window != window) return FALSE;
    try {
        const auto alive = form->shared_from_this();
        return form->OnMessage(message, w, l);
    } catch (const std::exception&) {
        return FALSE;  // out of memory: the edit has not been taken up
    }
}

INT_PTR PageForm::OnMessage(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_COMMAND: OnCommand(LOWORD(w), HIWORD(w)); return TRUE;
        case WM_CTLCOLOREDIT: return ColorOf(reinterpret_cast<HDC>(w), reinterpret_cast<HWND>(l));
        case WM_DESTROY:  // with its parent, before the page has been closed
            Detach();
            return FALSE;
        default: return FALSE;
    }
}

void PageForm::OnCommand(WORD id, WORD notification) {
    const auto index = static_cast<std::size_t>(id - kFirstId);
    if (id < kFirstId || index >= m_rows.size()) return;
    if (m_rows[index].field->TakeUp(notification)) m_rows[index].edited();
}

/// Valid text has the colour of any other text box.
INT_PTR PageForm::ColorOf(HDC context, HWND field) const {
    for (const Row& row : m_rows) {
        const auto* const text = dynamic_cast<const WinPageText*>(row.field.get());
        if (!text || text->Window() != field || text->ForeColor() == kValidText) continue;
        SetTextColor(context, text->ForeColor());
        SetBkColor(context, GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    }
    return FALSE;
}

void PageForm::Detach() noexcept {
    m_window = nullptr;
    for (const Row& row : m_rows) row.field->Detach();
}

void PageForm::Changed(bool changed) {
    if (std::exchange(m_changed, changed) == changed) return;
    if (const auto listener = m_listener) listener();
}

void PageForm::MessageBox(const std::string& text) {
    MessageBoxW(m_window, ToWide(text).c_str(), L"VelmoraCalendar", MB_OK);
}

}  // namespace velmora
