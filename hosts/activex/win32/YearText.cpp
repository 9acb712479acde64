#include "hosts/activex/win32/NativeChildren.h"
#include "hosts/activex/win32/StandIns.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinText.h"
#include "hosts/activex/win32/WinTexts.h"

namespace velmora {
namespace {

constexpr int kFrameHeight = 8;  // besides a line of text
constexpr int kPadding = 10;     // frame and margins, both sides
constexpr wchar_t kWidest[] = L"00000";

/// The loss of focus commits a year that has been typed.
class NativeYearText final : public TextBox, public NativeChild {
public:
    explicit NativeYearText(const ChildSite& site)
        : NativeChild(site, L"EDIT", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP), m_font(site.dpi) {
        if (Window()) Send(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.Get()));
    }

    WindowHandle Handle() const override { return WinDrawing::HandleOf(Window()); }
    Size Extent() const override { return m_extent; }
    void Move(const Rect& rect) override { MoveTo(rect); }
    void Visible(bool visible) override { Show(visible); }
    std::string Text() const override { return ToUtf8(WideText()); }
    void Text(const std::string& text) override;

    void Paint(HDC context) const override {
        PaintTextBox(context, Place(), m_font.Get(), m_text, IsRightToLeft());
    }
    void OnNotification(UINT message, WPARAM w) override;
    void CommitEdit() override;

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;
    AccessItem Described() const override {
        return {.role = ROLE_SYSTEM_TEXT,
                .state = STATE_SYSTEM_FOCUSABLE,
                .name = ForReaders("Year"),
                .value = Text()};
    }

private:
    std::wstring WideText() const;
    bool OnKey(WPARAM key);
    bool IsEdited() const { return Window() && Send(EM_GETMODIFY) != 0; }

    const ChildFont m_font;
    const Size m_extent = YearTextExtent(Dpi());
    std::wstring m_text;  // without a window
};

std::wstring NativeYearText::WideText() const {
    if (!Window()) return m_text;
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Window())), L'\0');
    GetWindowTextW(Window(), text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void NativeYearText::Text(const std::string& text) {
    m_text = ToWide(text);
    if (!Window()) return;
    if (WideText() != m_text) SetWindowTextW(Window(), m_text.c_str());
    Send(EM_SETMODIFY, FALSE);
}

void NativeYearText::OnNotification(UINT, WPARAM w) {
    if (HIWORD(w) == EN_SETFOCUS) Input().Post(&VmCalendar::OnSelectorEnter);
    if (HIWORD(w) != EN_KILLFOCUS) return;
    CommitEdit();
    Input().Post(&VmCalendar::OnSelectorLeave);
}

void NativeYearText::CommitEdit() {
    if (!IsEdited()) return;
    Input().Post(&VmCalendar::OnYearText, Text());
    Send(EM_SETMODIFY, FALSE);
}

bool NativeYearText::OnKey(WPARAM key) {
    const bool used = Input().PostYearKey(static_cast<std::int16_t>(key), Text(), IsEdited());
    if (used) Send(EM_SETMODIFY, FALSE);
    return used;
}

/// Enter and Escape that would do nothing to the text are left to the dialog around.
std::optional<LRESULT> NativeYearText::OnMessage(UINT message, WPARAM w, LPARAM l) {
    const bool endsEdit = w == VK_RETURN || w == VK_ESCAPE;
    if (message == WM_KEYDOWN && OnKey(w)) return 0;
    if (message == WM_CHAR && endsEdit) return 0;  // would beep
    if (message == WM_GETDLGCODE && l != 0 && endsEdit && IsEdited()) {
        return Own(message, w, l) | DLGC_WANTMESSAGE;
    }
    return std::nullopt;
}

}  // namespace

std::unique_ptr<TextBox> MakeYearText(const ChildSite& site) {
    return std::make_unique<NativeYearText>(site);
}

Size YearTextExtent(int dpi) {
    const SIZE text = ChildFont(dpi).Measure(kWidest);
    return {text.cx + kPadding, text.cy + kFrameHeight};
}

}  // namespace velmora
