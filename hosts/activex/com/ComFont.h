#pragma once

#include "platform/FontAndPicture.h"

#include <ocidl.h>
#include <windows.h>
#include <wrl/client.h>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// The font's present members.
StdFont ReadFont(IFont& font);
/// A new font object of the system.
Microsoft::WRL::ComPtr<IFont> MakeFont(const StdFont& font);

/// The fonts of one control: the core's `StdFont` beside the system's font object. Each pair lasts
/// as long as the core keeps its font. A member that a client changes is changed in the core.
class FontBridge {
public:
    FontBridge();
    ~FontBridge();
    FontBridge(const FontBridge&) = delete;
    FontBridge& operator=(const FontBridge&) = delete;

    /// Called after a client has changed a font that the core holds.
    void WhenFontChanges(std::function<void(const FontRef&)> handler);

    Microsoft::WRL::ComPtr<IFont> ToClient(const FontRef& font);
    /// Null when the object is no font.
    FontRef FromClient(IUnknown* object);

private:
    class Sink;
    struct Pair;

    void Forget(bool all);
    void Keep(const FontRef& font, Microsoft::WRL::ComPtr<IFont> native);

    std::vector<Pair> m_pairs;
    std::shared_ptr<std::function<void(const FontRef&)>> m_changed;
};

}  // namespace velmora
