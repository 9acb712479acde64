#pragma once

#include "calendar/SelectorInput.h"
#include "hosts/activex/access/WindowAccess.h"
#include "platform/Windowing.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The selectors as windows of the system, which post what the user does. Values set by code post
/// nothing.
namespace velmora {

/// What the selectors of one calendar have in common.
struct ChildSite {
    HWND parent;  // null: they are stand-ins
    int dpi;
    bool rightToLeft;
    SelectorInput& input;
    std::vector<class NativeChild*>& children;  // those that live
};

/// Whether the system draws the window in a mirror, and counts from its right.
void SetMirrored(HWND window, bool mirrored);

/// The font of the system's messages, for a resolution.
class ChildFont {
public:
    explicit ChildFont(int dpi);
    ChildFont(const ChildFont&) = delete;
    ChildFont& operator=(const ChildFont&) = delete;
    ~ChildFont() { DeleteObject(m_font); }

    HFONT Get() const noexcept { return m_font; }
    /// Width and height of a line of text.
    SIZE Measure(const std::wstring& text) const;

private:
    HFONT m_font;
};

/// A window of one of the system's classes, or a stand-in for it that is painted by the calendar's
/// view. When the window is destroyed with the one around it, the object becomes a stand-in.
///
/// Screen readers are told of it here, as the system has no name for it.
class NativeChild : public WindowAccess {
public:
    HWND Window() const noexcept override { return m_window; }
    bool IsVisible() const noexcept { return m_visible; }
    void RightToLeft(bool rightToLeft);
    /// Draws the child at its place.
    virtual void Paint(HDC context) const = 0;
    /// What the child tells its parent: `WM_COMMAND` with the code, or a scroll message.
    virtual void OnNotification(UINT message, WPARAM w) = 0;
    /// Whether the Tab key stops here; a year's spinner is a part of its box.
    virtual bool IsTabStop() const { return true; }
    /// Before the user turns to something that takes no focus.
    virtual void CommitEdit() {}

protected:
    NativeChild(const ChildSite& site, const wchar_t* windowClass, DWORD style);
    virtual ~NativeChild();

    /// The result when the child's own procedure is not to see the message.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM w, LPARAM l) = 0;
    /// To screen readers, without its place.
    virtual AccessItem Described() const = 0;
    /// What the window is told for a height, which may be more than the height.
    virtual int WindowHeight(const Rect& place) const { return place.Height(); }
    LRESULT Own(UINT message, WPARAM w, LPARAM l) const;
    LRESULT Send(UINT message, WPARAM w = 0, LPARAM l = 0) const;
    SelectorInput& Input() const noexcept { return m_input; }
    void CommitEdits() const;

    void MoveTo(const Rect& rect);
    void Show(bool visible);
    const Rect& Place() const noexcept { return m_place; }
    int Dpi() const noexcept { return m_dpi; }
    bool IsRightToLeft() const noexcept { return m_rightToLeft; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    std::vector<AccessItem> Items() override;

    SelectorInput& m_input;
    std::vector<NativeChild*>& m_children;
    const int m_dpi;
    Rect m_place;
    bool m_visible = false;
    bool m_rightToLeft = false;
    HWND m_window = nullptr;
    WNDPROC m_own = nullptr;
};

std::unique_ptr<ComboBox> MakeMonthList(const ChildSite& site);
std::unique_ptr<TextBox> MakeYearText(const ChildSite& site);
/// The size of a year box, which its spinner goes with.
Size YearTextExtent(int dpi);
std::unique_ptr<ScrollBar> MakeYearSpinner(const ChildSite& site);
std::unique_ptr<ScrollBar> MakeDateScroll(const ChildSite& site);

}  // namespace velmora
