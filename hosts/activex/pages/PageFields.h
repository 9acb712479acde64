#pragma once

#include <windows.h>
#undef MessageBox  // a name of the core's

#include "platform/Variant.h"
#include "proppages/PageControls.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// A field of a page. It keeps its value while the dialog is closed, so a page may be loaded before
/// it is opened and opened again with what has been edited.
class PageField {
public:
    virtual ~PageField() = default;
    PageField(const PageField&) = delete;
    PageField& operator=(const PageField&) = delete;

    /// The dialog has been opened: its window shows the value.
    void Attach(HWND window);
    void Detach() noexcept { m_window = nullptr; }
    HWND Window() const noexcept { return m_window; }

    /// Serves a notification code of the window. True when the user has changed the value.
    virtual bool TakeUp(WORD notification) = 0;

protected:
    PageField() = default;

    virtual void Show() = 0;
    void Enable(bool enabled);

private:
    HWND m_window = nullptr;
    bool m_enabled = true;
};

/// A field behind one of the core's interfaces.
template <class Control>
class PageFieldOf : public Control, public PageField {
public:
    void Enabled(bool enabled) override { Enable(enabled); }
};

class WinPageList final : public PageFieldOf<PageList> {
public:
    explicit WinPageList(LCID locale) : m_locale(locale) {}

    void Items(std::span<const std::string_view> items) override;
    int ListIndex() const override { return m_index; }
    void ListIndex(int index) override;
    bool TakeUp(WORD notification) override;

private:
    void Show() override;

    const LCID m_locale;
    std::vector<std::wstring> m_items;
    int m_index = -1;
};

class WinPageCheckBox final : public PageFieldOf<PageCheckBox> {
public:
    bool Checked() const override { return m_checked; }
    void Checked(bool checked) override;
    bool TakeUp(WORD notification) override;

private:
    void Show() override;

    bool m_checked = false;
};

/// A button that opens the system's dialog for the value.
class WinPageChoice : public PageFieldOf<PageChoice> {
public:
    const Variant& Value() const override { return m_value; }
    void Value(const Variant& value) override;
    bool TakeUp(WORD notification) override;

protected:
    void Show() override;

private:
    virtual std::wstring Text() const = 0;
    /// What the user has chosen; nothing when the dialog was cancelled.
    virtual std::optional<Variant> Choose(HWND owner) const = 0;

    Variant m_value;
};

class WinPageColor final : public WinPageChoice {
public:
    void Draw(const DRAWITEMSTRUCT& button) const;

private:
    COLORREF Color() const;
    std::wstring Text() const override;
    std::optional<Variant> Choose(HWND owner) const override;
};

class WinPageFont final : public WinPageChoice {
private:
    std::wstring Text() const override;
    std::optional<Variant> Choose(HWND owner) const override;
};

class WinPageText final : public PageFieldOf<PageText> {
public:
    std::string Text() const override;
    void Text(const std::string& text) override;
    void ForeColor(Rgb color) override;
    Rgb ForeColor() const noexcept { return m_color; }
    bool TakeUp(WORD notification) override;

private:
    void Show() override;

    std::wstring m_text;
    Rgb m_color = kValidText;
};

}  // namespace velmora
