#include "hosts/activex/pages/PageForm.h"

#include "hosts/activex/win32/ThisModule.h"
#include "hosts/activex/win32/WinText.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace velmora {

PageForm::PageForm(const PageDefinition& definition, const Dates& dates, LCID locale)
    : m_definition(definition),
      m_locale(locale),
      m_template(IsRightToLeft(locale)),
      m_page(definition, AddFields(), *this, dates) {}

std::vector<PageControlRef> PageForm::AddFields() {
    std::vector<PageControlRef> controls;
    for (const FieldDefinition& field : m_definition.fields) controls.push_back(AddField(field));
    return controls;
}

PageControlRef PageForm::AddField(const FieldDefinition& field) {
    m_template.AddRow(field.kind, Localized(field.label, m_locale),
                      static_cast<WORD>(kFirstId + m_fields.size()));
    const auto add = [this](auto added) -> PageControlRef {
        auto* const control = added.get();
        m_fields.push_back(std::move(added));
        return control;
    };
    switch (field.kind) {
        case FieldKind::List: return add(std::make_unique<WinPageList>(m_locale));
        case FieldKind::CheckBox: return add(std::make_unique<WinPageCheckBox>());
        case FieldKind::Color: return add(std::make_unique<WinPageColor>());
        case FieldKind::Font: return add(std::make_unique<WinPageFont>());
        default: return add(std::make_unique<WinPageText>());
    }
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
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        m_fields[i]->Attach(GetDlgItem(m_window, kFirstId + static_cast<int>(i)));
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
    const auto fields = m_definition.fields;
    const auto wanted = std::ranges::find_if(fields, [&](const FieldDefinition& field) {
        return isWanted(field.property) ||
               (!field.boxProperty.empty() && isWanted(field.boxProperty));
    });
    if (wanted == fields.end()) return false;
    const PageField& field = *m_fields[static_cast<std::size_t>(wanted - fields.begin())];
    if (m_window && IsWindowVisible(m_window)) {
        SetFocus(field.Window());
    } else {
        m_focusWhenShown = &field;
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
        case WM_DRAWITEM: Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(l)); return TRUE;
        case WM_DESTROY:  // with its parent, before the page has been closed
            Detach();
            return FALSE;
        default: return FALSE;
    }
}

void PageForm::OnCommand(WORD id, WORD notification) {
    const auto index = static_cast<std::size_t>(id - kFirstId);
    if (id < kFirstId || index >= m_fields.size()) return;
    if (m_fields[index]->TakeUp(notification)) m_page.OnEdited(index);
}

/// Valid text has the colour of any other text box.
INT_PTR PageForm::ColorOf(HDC context, HWND field) const {
    for (const auto& each : m_fields) {
        const auto* const text = dynamic_cast<const WinPageText*>(each.get());
        if (!text || text->Window() != field || text->ForeColor() == kValidText) continue;
        SetTextColor(context, text->ForeColor());
        SetBkColor(context, GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    }
    return FALSE;
}

void PageForm::Draw(const DRAWITEMSTRUCT& button) const {
    for (const auto& each : m_fields) {
        const auto* const color = dynamic_cast<const WinPageColor*>(each.get());
        if (color && color->Window() == button.hwndItem) color->Draw(button);
    }
}

void PageForm::Detach() noexcept {
    m_window = nullptr;
    for (const auto& field : m_fields) field->Detach();
}

void PageForm::Changed(bool changed) {
    if (std::exchange(m_changed, changed) == changed) return;
    if (const auto listener = m_listener) listener();
}

void PageForm::MessageBox(const std::string& text) {
    MessageBoxW(m_window, ToWide(text).c_str(), L"VelmoraCalendar", MB_OK);
}

std::string PageForm::Translated(std::string_view text) const {
    return ToUtf8(Localized(text, m_locale));
}

}  // namespace velmora
