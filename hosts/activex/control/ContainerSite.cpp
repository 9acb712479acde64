#include "hosts/activex/control/ContainerSite.h"

#include "hosts/activex/com/ComFont.h"
#include "hosts/activex/com/ComVariant.h"
#include "hosts/activex/win32/WinText.h"
#include "platform/ScaleMode.h"

#include <olectl.h>

#include <cwchar>

namespace velmora {

using Microsoft::WRL::ComPtr;

namespace {

/// A property read by its id, in the wanted type.
bool Read(IDispatch& object, DISPID id, VARTYPE type, VARIANT& value) {
    DISPPARAMS none{};
    const HRESULT read = object.Invoke(id, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                       &value, nullptr, nullptr);
    return SUCCEEDED(read) && SUCCEEDED(VariantChangeType(&value, &value, 0, type));
}

bool Read(IDispatch& object, const wchar_t* name, VARTYPE type, VARIANT& value) {
    std::wstring text = name;
    LPOLESTR names[] = {text.data()};
    DISPID id = DISPID_UNKNOWN;
    return SUCCEEDED(object.GetIDsOfNames(GUID{}, names, 1, LOCALE_USER_DEFAULT, &id)) &&
           Read(object, id, type, value);
}

/// Containers name their units in their own language; these are the names that can be known.
std::optional<std::int16_t> ScaleModeOfText(const wchar_t* text) {
    constexpr struct {
        const wchar_t* beginning;
        std::int16_t mode;
    } kUnits[] = {{L"twip", 1},  {L"point", 2}, {L"pixel", 3}, {L"character", 4}, {L"inch", 5},
                  {L"milli", 6}, {L"mm", 6},    {L"centi", 7}, {L"cm", 7},        {L"himetric", 8}};
    for (const auto& unit : kUnits) {
        if (_wcsnicmp(text, unit.beginning, std::wcslen(unit.beginning)) == 0) return unit.mode;
    }
    return std::nullopt;
}

FontRef SystemFont() {
    LOGFONTW log{};
    const HGDIOBJ stock = GetStockObject(DEFAULT_GUI_FONT);
    auto font = std::make_shared<StdFont>();
    if (GetObjectW(stock, sizeof log, &log) == 0) return font;
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    const int pixels = log.lfHeight < 0 ? -log.lfHeight : 11;
    font->name = ToUtf8(log.lfFaceName);
    font->size = MulDiv(pixels, 72, dpi);
    font->bold = log.lfWeight >= FW_SEMIBOLD;
    return font;
}

}  // namespace

void ContainerSite::Set(IOleClientSite* site) {
    const ComPtr<IOleClientSite> before = m_site;  // released when the new one is in place
    m_site = site;
    m_ambients = As<IDispatch>();
    ReadModes();
}

void ContainerSite::ReadModes() {
    m_userMode = AmbientBool(DISPID_AMBIENT_USERMODE, true);
    m_uiDead = AmbientBool(DISPID_AMBIENT_UIDEAD, false);
}

bool ContainerSite::Ambient(DISPID id, VARTYPE type, VARIANT& value) const {
    const ComPtr<IDispatch> ambients = m_ambients;
    return ambients && Read(*ambients.Get(), id, type, value);
}

bool ContainerSite::AmbientBool(DISPID id, bool otherwise) const {
    OwnedVariant value;
    return Ambient(id, VT_BOOL, value) ? V_BOOL(&value) != VARIANT_FALSE : otherwise;
}

LCID ContainerSite::Locale() const {
    OwnedVariant value;
    const bool known = Ambient(DISPID_AMBIENT_LOCALEID, VT_UI4, value);
    return known && IsValidLocale(V_UI4(&value), LCID_SUPPORTED) ? V_UI4(&value)
                                                                 : GetUserDefaultLCID();
}

bool ContainerSite::IsRightToLeft() const { return AmbientBool(DISPID_AMBIENT_RIGHTTOLEFT, false); }

FontRef ContainerSite::Font() const {
    OwnedVariant value;
    ComPtr<IFont> font;
    if (Ambient(DISPID_AMBIENT_FONT, VT_DISPATCH, value) && V_DISPATCH(&value)) {
        V_DISPATCH(&value)->QueryInterface(IID_PPV_ARGS(&font));
    }
    return font ? std::make_shared<StdFont>(ReadFont(*font.Get())) : SystemFont();
}

std::wstring ContainerSite::DisplayName() const {
    OwnedVariant value;
    const bool known = Ambient(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, value) && V_BSTR(&value);
    return known ? V_BSTR(&value) : L"";
}

bool ContainerSite::KeepsDropDownOnScreen() const {
    const ComPtr<IDispatch> ambients = m_ambients;
    OwnedVariant value;
    return ambients && Read(*ambients.Get(), L"KeepDropDownOnScreen", VT_BOOL, value) &&
           V_BOOL(&value) != VARIANT_FALSE;
}

std::optional<std::int16_t> ContainerSite::ScaleModeOf(const wchar_t* relative) const {
    const auto controlSite = As<IOleControlSite>();
    ComPtr<IDispatch> extended;
    if (!controlSite || FAILED(controlSite->GetExtendedControl(&extended)) || !extended) {
        return std::nullopt;
    }
    OwnedVariant object, mode;
    if (!Read(*extended.Get(), relative, VT_DISPATCH, object) || !V_DISPATCH(&object) ||
        !Read(*V_DISPATCH(&object), L"ScaleMode", VT_I2, mode)) {
        return std::nullopt;
    }
    return V_I2(&mode);
}

std::optional<std::int16_t> ContainerSite::ScaleMode() const {
    if (const auto mode = ScaleModeOf(L"Container")) return mode;
    OwnedVariant units;
    const bool known = Ambient(DISPID_AMBIENT_SCALEUNITS, VT_BSTR, units) && V_BSTR(&units);
    return known ? ScaleModeOfText(V_BSTR(&units)) : std::nullopt;
}

std::optional<std::int16_t> ContainerSite::ParentScaleMode() const {
    return ScaleModeOf(L"Parent");
}

}  // namespace velmora
