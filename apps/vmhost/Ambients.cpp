#include "apps/vmhost/Ambients.h"

#include "hosts/activex/win32/WinText.h"

namespace velmora::vmhost {

HRESULT Ambients::Get(DISPID id, const std::string& displayName, Value& value) const {
    if (unanswered.count(id)) return DISP_E_MEMBERNOTFOUND;
    switch (id) {
        case DISPID_AMBIENT_USERMODE: value = userMode; break;
        case DISPID_AMBIENT_UIDEAD: value = uiDead; break;
        case DISPID_AMBIENT_MESSAGEREFLECT: value = messageReflect; break;
        case DISPID_AMBIENT_SHOWGRABHANDLES: value = showGrabHandles; break;
        case DISPID_AMBIENT_SHOWHATCHING: value = showHatching; break;
        case DISPID_AMBIENT_SUPPORTSMNEMONICS: value = supportsMnemonics; break;
        case DISPID_AMBIENT_DISPLAYASDEFAULT: value = displayAsDefault; break;
        case kAmbientKeepDropDownOnScreen: value = keepDropDownOnScreen; break;
        case DISPID_AMBIENT_RIGHTTOLEFT: value = rightToLeft; break;
        case DISPID_AMBIENT_AUTOCLIP: value = true; break;
        case DISPID_AMBIENT_APPEARANCE: value = short{1}; break;
        case DISPID_AMBIENT_LOCALEID: value = Value::Color(locale); break;
        case DISPID_AMBIENT_SCALEUNITS: value = Value(scaleUnits); break;
        case DISPID_AMBIENT_DISPLAYNAME: value = Value(displayName); break;
        case DISPID_AMBIENT_BACKCOLOR: value = Value::Color(backColor); break;
        case DISPID_AMBIENT_FORECOLOR: value = Value::Color(foreColor); break;
        case DISPID_AMBIENT_FONT: value = Value((font ? font : DialogFont()).Get()); break;
        default: return DISP_E_MEMBERNOTFOUND;
    }
    return S_OK;
}

ComPtr<IFontDisp> MakeFont(const std::string& face, int points) {
    std::wstring name = ToWide(face);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = name.data();
    description.cySize.int64 = points * 10000LL;  // CURRENCY: ten thousandths
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    ComPtr<IFontDisp> font;
    OleCreateFontIndirect(&description, IID_IFontDisp,
                          reinterpret_cast<void**>(font.GetAddressOf()));
    return font;
}

ComPtr<IFontDisp> DialogFont() { return MakeFont("Tahoma", 8); }

}  // namespace velmora::vmhost
