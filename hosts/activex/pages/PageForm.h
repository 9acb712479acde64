#pragma once

#include "hosts/activex/pages/PageFields.h"
#include "hosts/activex/pages/PageTemplate.h"
#include "hosts/activex/win32/WinTexts.h"
#include "platform/dates/Dates.h"
#include "proppages/PropertyPage.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A property page with the fields of its dialog, which is a child window while the page is open.
class PageForm : public std::enable_shared_from_this<PageForm>, private PageSite {
public:
    /// In that locale's language. `dates` lives longer.
    PageForm(const PageDefinition& definition, const Dates& dates, LCID locale);
    ~PageForm() override { Close(); }
    PageForm(const PageForm&) = delete;
    PageForm& operator=(const PageForm&) = delete;

    PropertyPage& Page() noexcept { return m_page; }
    std::wstring Title() const { return Localized(m_definition.title, m_locale); }
    std::wstring Help() const { return Localized(m_definition.help, m_locale); }

    bool IsChanged() const noexcept { return m_changed; }
    /// Called when `IsChanged` has got another value. May end the page.
    void ChangeListener(std::function<void()> listener) { m_listener = std::move(listener); }

    /// In pixels, with the resolution and the dialog font of now.
    SIZE Size() const;
    /// Makes the dialog, not shown yet. False: the system could not.
    bool Open(HWND parent, const RECT& place);
    void Close() noexcept;
    /// Null while the page is closed.
    HWND Window() const noexcept { return m_window; }
    /// Brings the focus to the field of a property whose name `isWanted`; when the page is closed,
    /// the next time that it is shown. False: there is none.
    bool FocusOn(const std::function<bool(std::string_view)>& isWanted);
    void Show(int command);

    /// Identifier of the first field's control, in the order of the rows.
    static constexpr WORD kFirstId = 100;

private:
    static INT_PTR CALLBACK Serve(HWND window, UINT message, WPARAM w, LPARAM l);
    static HWND Create(const DLGTEMPLATE& dialog, HWND parent, PageForm* form);

    void Changed(bool changed) override;
    void MessageBox(const std::string& text) override;
    std::string Translated(std::string_view text) const override;

    std::vector<PageControlRef> AddFields();
    PageControlRef AddField(const FieldDefinition& field);
    INT_PTR OnMessage(UINT message, WPARAM w, LPARAM l);
    void OnCommand(WORD id, WORD notification);
    INT_PTR ColorOf(HDC context, HWND field) const;
    void Draw(const DRAWITEMSTRUCT& button) const;
    void Detach() noexcept;

    const PageDefinition& m_definition;
    const LCID m_locale;
    PageTemplate m_template;
    std::vector<std::unique_ptr<PageField>> m_fields;  // in the order of the definition
    PropertyPage m_page;
    std::function<void()> m_listener;
    HWND m_window = nullptr;
    const PageField* m_focusWhenShown = nullptr;
    bool m_changed = false;
};

}  // namespace velmora
