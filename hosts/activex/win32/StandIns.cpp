#include "hosts/activex/win32/StandIns.h"

#include <algorithm>
#include <cstdint>

namespace velmora {
namespace {

constexpr int kEdge = 2;    // pixels of a sunken edge
constexpr int kMargin = 3;  // between the edge and the text

RECT ToRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

/// Returns the inside of the edge.
RECT PaintSunkenBox(HDC context, const Rect& place) {
    RECT box = ToRect(place);
    DrawEdge(context, &box, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    FillRect(context, &box, GetSysColorBrush(COLOR_WINDOW));
    return box;
}

void PaintBoxText(HDC context, RECT box, HFONT font, const std::wstring& text, bool rightToLeft) {
    InflateRect(&box, -kMargin, 0);
    const HGDIOBJ before = SelectObject(context, font);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(context, text.data(), static_cast<int>(text.size()), &box,
              DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX |
                  (rightToLeft ? DT_RIGHT | DT_RTLREADING : DT_LEFT));
    SelectObject(context, before);
}

/// Where a span of `thumb` pixels begins in `room` pixels for that position.
int ThumbStart(const BarPosition& position, int room, int thumb) {
    const std::int64_t range = std::int64_t{position.maximum} - position.minimum;
    if (range <= 0) return 0;
    return static_cast<int>((std::int64_t{position.value} - position.minimum) *
                            std::max(room - thumb, 0) / range);
}

}  // namespace

void PaintComboBox(HDC context, const Rect& place, HFONT font, const std::wstring& text,
                   bool rightToLeft) {
    RECT box = PaintSunkenBox(context, place);
    RECT button = box;
    const LONG width = std::min<LONG>(GetSystemMetrics(SM_CXVSCROLL), box.right - box.left);
    if (rightToLeft) {
        box.left = button.right = box.left + width;
    } else {
        box.right = button.left = box.right - width;
    }
    DrawFrameControl(context, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
    PaintBoxText(context, box, font, text, rightToLeft);
}

void PaintTextBox(HDC context, const Rect& place, HFONT font, const std::wstring& text,
                  bool rightToLeft) {
    PaintBoxText(context, PaintSunkenBox(context, place), font, text, rightToLeft);
}

void PaintScrollBar(HDC context, const Rect& place, bool isVertical, const BarPosition& position) {
    RECT track = ToRect(place);
    const LONG length = isVertical ? track.bottom - track.top : track.right - track.left;
    const LONG thickness = isVertical ? track.right - track.left : track.bottom - track.top;
    const LONG button = std::min(thickness, length / 2);
    FillRect(context, &track, GetSysColorBrush(COLOR_SCROLLBAR));
    RECT first = track;
    RECT last = track;
    RECT thumb = track;
    const int start =
        static_cast<int>(button) +
        ThumbStart(position, static_cast<int>(length - 2 * button), static_cast<int>(button));
    if (isVertical) {
        first.bottom = first.top + button;
        last.top = last.bottom - button;
        thumb.top = track.top + start;
        thumb.bottom = thumb.top + button;
    } else {
        first.right = first.left + button;
        last.left = last.right - button;
        thumb.left = track.left + start;
        thumb.right = thumb.left + button;
    }
    DrawFrameControl(context, &first, DFC_SCROLL, isVertical ? DFCS_SCROLLUP : DFCS_SCROLLLEFT);
    DrawFrameControl(context, &last, DFC_SCROLL, isVertical ? DFCS_SCROLLDOWN : DFCS_SCROLLRIGHT);
    if (length >= 3 * button) {
        FillRect(context, &thumb, GetSysColorBrush(COLOR_BTNFACE));
        DrawEdge(context, &thumb, EDGE_RAISED, BF_RECT);
    }
}

}  // namespace velmora
