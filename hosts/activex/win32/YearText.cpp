#include "hosts/activex/win32/NativeChildren.h"
#include "hosts/activex/win32/StandIns.h"
#include "hosts/activex/win32/WinDrawing.h"
#include "hosts/activex/win32/WinText.h"

namespace velmora {
namespace {

constexpr int kFrameHeight = 8;  // besides a line of text
constexpr int kPadding = 10;     // frame and margins, both sides
constexpr wchar_t kWidest[] = L"00000";

/// Enter commits the year, and so does the loss of focus when the text has been edited. Up and Down
/// step the year, the page keys by ten.
class YearText final : public TextBox, public NativeChild {
public:
    explicit YearText(const ChildSite& site)
        : NativeChild(site, L"EDIT", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP), m_font(site.dpi) {
        if (Window()) Send(WM_SETFONT, reinterpret_cast<WPARAM>(m_font.Get()));
    }

    WindowHandle Handle() const override { return WinDrawing::HandleOf(Window()); }
    Size Extent() const override { return m_extent; }
    void Move(const Rect& rect) override { MoveTo(rect); }
    void Visible(bool visible) override { Show(visible); }
    std::string Text() const override { return ToUtf8(WideText()); }
    void Text(const std::string& text) override;

    void Paint(HDC context) const override { PaintTextBox(context, Place(), m_font.Get(), m_text); }
    void OnNotification(UINT message, WPARAM w) override;
    void CommitEdit() override;

protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) override;

private:
    std::wstring WideText() const;
    bool OnKey(WPARAM key);
    bool IsEdited() const { return Window() && Send(EM_GETMODIFY) != 0; }
    void Commit();
    void Step(int years);

    const ChildFont m_font;
    const Size m_extent = YearTextExtent(Dpi());
    std::wstring m_text;  // without a window
};

std::wstring YearText::WideText() const {
    if (!Window()) return m_text;
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Window())), L'\0');
    GetWindowTextW(Window(), text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void YearText::Text(const std::string& text) {
    m_text = ToWide(text);
    if (!Window()) return;
    if (WideText() != m_text) SetWindowTextW(Window(), m_text.c_str());
    Send(EM_SETMODIFY, FALSE);
}

void YearText::OnNotification(UINT, WPARAM w) {
    if (HIWORD(w) == EN_SETFOCUS) {
        Post([](VmCalendar& calendar) { calendar.OnSelectorEnter(); });
    }
    if (HIWORD(w) == EN_KILLFOCUS) CommitEdit();
}

void YearText::Commit() {
    Send(EM_SETMODIFY, FALSE);
    Post([year = Text()](VmCalendar& calendar) { calendar.OnYearText(year); });
}

void YearText::CommitEdit() {
    if (IsEdited()) Commit();
}

void YearText::Step(int years) {
    CommitEdit();
    Post([years](VmCalendar& calendar) { calendar.OnYearStep(years); });
}

bool YearText::OnKey(WPARAM key) {
    constexpr int kPage = 10;  // years
    switch (key) {
        case VK_UP: Step(1); return true;
        case VK_DOWN: Step(-1); return true;
        case VK_PRIOR: Step(kPage); return true;
        case VK_NEXT: Step(-kPage); return true;
        case VK_RETURN: Commit(); return true;
        case VK_ESCAPE:
            Send(EM_SETMODIFY, FALSE);
            Post([](VmCalendar& calendar) { calendar.OnYearTextCancel(); });
            return true;
        default: return false;
    }
}

/// Enter and Escape that would do nothing to the text are left to the dialog around.
std::optional<LRESULT> YearText::OnMessage(UINT message, WPARAM w, LPARAM l) {
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
    return std::make_unique<YearText>(site);
}

Size YearTextExtent(int dpi) {
    const SIZE text = ChildFont(dpi).Measure(kWidest);
    return {text.cx + kPadding, text.cy + kFrameHeight};
}

}  // namespace velmora
