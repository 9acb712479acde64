#pragma once

#include "platform/FontAndPicture.h"

#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// The place of a control in its container, with what the container tells about itself. Everything
/// has an answer without a site, and in containers that tell nothing.
class ContainerSite {
public:
    void Set(IOleClientSite* site);

    explicit operator bool() const noexcept { return m_site != nullptr; }
    /// Null without a site.
    const Microsoft::WRL::ComPtr<IOleClientSite>& Get() const noexcept { return m_site; }
    /// The site's other interface, null when it has none.
    template <class Interface>
    Microsoft::WRL::ComPtr<Interface> As() const {
        Microsoft::WRL::ComPtr<Interface> other;
        if (m_site) m_site.As(&other);
        return other;
    }

    /// False while a form is being designed. True where the container does not say.
    bool IsUserMode() const { return m_userMode; }
    /// Neither is a form being designed nor the user kept from its controls, as by a debugger.
    bool IsInUse() const { return m_userMode && !m_uiDead; }
    /// Asks for the two again, which are asked for with every message.
    void ReadModes();
    LCID Locale() const;
    bool IsRightToLeft() const;
    /// A copy of the container's font, else of the system's dialog font; never null.
    FontRef Font() const;
    std::wstring DisplayName() const;
    /// Whether it has an ambient property of that name, which no standard knows, and it is True.
    bool KeepsDropDownOnScreen() const;
    /// Of the object that the form's programmer sees around the control, else of the container.
    std::optional<std::int16_t> ScaleMode() const;
    /// Of the parent that the form's programmer sees.
    std::optional<std::int16_t> ParentScaleMode() const;

private:
    bool Ambient(DISPID id, VARTYPE type, VARIANT& value) const;
    bool AmbientBool(DISPID id, bool otherwise) const;
    std::optional<std::int16_t> ScaleModeOf(const wchar_t* relative) const;

    Microsoft::WRL::ComPtr<IOleClientSite> m_site;
    Microsoft::WRL::ComPtr<IDispatch> m_ambients;
    bool m_userMode = true;
    bool m_uiDead = false;
};

}  // namespace velmora
