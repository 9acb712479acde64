#pragma once

#include "platform/Values.h"

#include <windows.h>

#include <string>

/// Child controls as they look on paper, in a metafile or in a form that is being designed, where
/// they have no windows.
namespace velmora {

void PaintComboBox(HDC context, const Rect& place, HFONT font, const std::wstring& text,
                   bool rightToLeft);
void PaintTextBox(HDC context, const Rect& place, HFONT font, const std::wstring& text,
                  bool rightToLeft);

struct BarPosition {
    int minimum;
    int maximum;
    int value;
};
void PaintScrollBar(HDC context, const Rect& place, bool isVertical, const BarPosition& position);

}  // namespace velmora
