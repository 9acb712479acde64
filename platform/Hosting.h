#pragma once

#include "platform/DataObject.h"
#include "platform/FontAndPicture.h"
#include "platform/PropertyBag.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// What the About box shows; the button beside it starts the system-information tool.
struct AboutText {
    std::string_view title;
    std::string_view version;
    std::string_view webLink;
};

/// The container that a control lives in.
class Hosting {
public:
    virtual ~Hosting() = default;

    /// The named property has a new value.
    virtual void PropertyChanged(std::string_view name) = 0;
    /// Asks whoever is notified of properties before the user's input changes the named one. False:
    /// it must stay.
    virtual bool RequestEdit(std::string_view name) {
        static_cast<void>(name);
        return true;
    }
    /// The font of the form or object that holds the control; never null.
    virtual FontRef AmbientFont() const = 0;
    /// The units of the container, or of the object that holds the control: 1 twips, 2 points,
    /// 3 pixels, 4 characters, 5 inches, 6 mm, 7 cm, 8 HIMETRIC. Nothing when it does not say.
    virtual std::optional<std::int16_t> ContainerScaleMode() const = 0;
    virtual std::optional<std::int16_t> ParentScaleMode() const = 0;
    /// Drags the data from the control's window until the user drops them, and returns the effect.
    /// Without data of a known format, or without an effect that is allowed, nothing is dragged.
    virtual std::int32_t Drag(const DataRef& data, std::int32_t allowedEffects,
                              const DragEvents& events) = 0;
    virtual void ShowAboutBox(const AboutText& text) = 0;
};

}  // namespace velmora
