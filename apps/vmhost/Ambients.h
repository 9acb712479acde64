#pragma once

#include "apps/vmhost/Automation.h"

#include <olectl.h>

#include <set>
#include <string>

namespace velmora::vmhost {

/// Found by the name "KeepDropDownOnScreen": what a date box asks its container for.
inline constexpr DISPID kAmbientKeepDropDownOnScreen = 1;

/// What the form tells its controls about itself.
struct Ambients {
    bool userMode = true;
    bool uiDead = false;
    bool messageReflect = false;
    bool showGrabHandles = false;
    bool showHatching = false;
    bool supportsMnemonics = true;
    bool displayAsDefault = false;
    bool keepDropDownOnScreen = true;
    bool rightToLeft = false;
    LCID locale = LOCALE_USER_DEFAULT;
    std::string scaleUnits = "Twip";
    OLE_COLOR backColor = 0x8000000F;
    OLE_COLOR foreColor = 0x80000012;
    ComPtr<IFontDisp> font;       // null: the system's dialog font
    std::set<DISPID> unanswered;  // ambient properties that this form claims not to have

    /// DISP_E_MEMBERNOTFOUND for one that there is not.
    HRESULT Get(DISPID id, const std::string& displayName, Value& value) const;
};

/// Tahoma 8, as a form starts with.
ComPtr<IFontDisp> DialogFont();
ComPtr<IFontDisp> MakeFont(const std::string& face, int points);

}  // namespace velmora::vmhost
