#include "tests/support/StrictDrawing.h"

#include <utility>

namespace velmora::test {
namespace {

// What is selected into every surface at first, one for each kind.
constexpr ObjectHandle Default(int kind) {
    return ObjectHandle(static_cast<std::uintptr_t>(kind) + 2);
}
constexpr bool IsDefault(ObjectHandle object) {
    return object != ObjectHandle::None && object < ObjectHandle{100};
}

}  // namespace

void StrictDrawing::Forget() {
    fills.clear();
    texts.clear();
    frameStates.clear();
    pictures.clear();
    blits.clear();
    invalidated.clear();
    invalidatedWindows.clear();
    creations = 0;
}

const std::vector<std::string>& StrictDrawing::FaultsAfterPaint() {
    for (const auto& [handle, thing] : m_objects) {
        if (thing.kind != Kind::Picture) Fault("an object is alive after the paint");
    }
    if (m_surfaces.size() != 1) Fault("a memory surface is alive after the paint");
    for (const auto& [kind, object] : m_surfaces[kWindowSurface].selected) {
        if (!IsDefault(object)) Fault("an object stays selected after the paint");
    }
    if (m_saved != 0) Fault("a clip stays after the paint");
    return faults;
}

ObjectHandle StrictDrawing::Make(Thing thing) {
    if (++creations == failAt) return ObjectHandle::None;
    const ObjectHandle handle{m_next++};
    m_objects[handle] = std::move(thing);
    return handle;
}

StrictDrawing::SurfaceState* StrictDrawing::Surface(SurfaceHandle handle) {
    if (handle == SurfaceHandle::None) return nullptr;
    const auto found = m_surfaces.find(handle);
    if (found == m_surfaces.end()) {
        Fault("an unknown surface is drawn on");
        return nullptr;
    }
    return &found->second;
}

const StrictDrawing::Thing* StrictDrawing::SelectedThing(SurfaceHandle surface, Kind kind) {
    SurfaceState* state = Surface(surface);
    if (!state || !state->selected.count(kind)) return nullptr;
    const auto found = m_objects.find(state->selected[kind]);
    return found == m_objects.end() ? nullptr : &found->second;
}

ObjectHandle StrictDrawing::CreateBrushIndirect(const LogBrush& brush) {
    return Make({Kind::Brush, brush.color});
}
ObjectHandle StrictDrawing::CreatePenIndirect(const LogPen& pen) {
    return Make({Kind::Pen, pen.color});
}
ObjectHandle StrictDrawing::CreateFontIndirectA(const LogFont&) { return Make({Kind::Font}); }

ObjectHandle StrictDrawing::SelectObject(SurfaceHandle surface, ObjectHandle object) {
    SurfaceState* state = Surface(surface);
    if (!state || object == ObjectHandle::None) return ObjectHandle::None;
    if (IsDefault(object)) {
        const auto kind = static_cast<Kind>(static_cast<std::uintptr_t>(object) - 2);
        return std::exchange(state->selected[kind], object);
    }
    const auto found = m_objects.find(object);
    if (found == m_objects.end()) {
        Fault("an unknown object is selected");
        return ObjectHandle::None;
    }
    const Kind kind = found->second.kind == Kind::Picture ? Kind::Bitmap : found->second.kind;
    auto [place, isNew] = state->selected.try_emplace(kind, Default(static_cast<int>(kind)));
    return std::exchange(place->second, object);
}

void StrictDrawing::DeleteObject(ObjectHandle object) {
    for (const auto& [handle, state] : m_surfaces) {
        for (const auto& [kind, selected] : state.selected) {
            if (selected == object) Fault("an object is deleted while it is selected");
        }
    }
    const auto found = m_objects.find(object);
    if (found == m_objects.end() || found->second.kind == Kind::Picture) {
        Fault("an unknown object is deleted");
        return;
    }
    m_objects.erase(found);
}

void StrictDrawing::FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) {
    if (!Surface(surface) || brush == ObjectHandle::None) return;
    const auto found = m_objects.find(brush);
    if (found == m_objects.end()) {
        Fault("an unknown brush fills");
    } else {
        fills.push_back({surface, rect, found->second.color});
    }
}

void StrictDrawing::SetTextColor(SurfaceHandle surface, Rgb color) {
    if (SurfaceState* state = Surface(surface)) state->textColor = color;
}

/// Every byte is 6 x 12 pixels.
int StrictDrawing::DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                             std::uint32_t flags) {
    SurfaceState* state = Surface(surface);
    if ((flags & kTextCalcRect) != 0) {
        rect.right = rect.left + static_cast<int>(text.size()) * 6;
        rect.bottom = rect.top + 12;
    } else if (state) {
        texts.push_back({std::string(text), rect, flags, state->textColor});
    }
    return 12;
}

SurfaceHandle StrictDrawing::CreateCompatibleDC(SurfaceHandle) {
    if (++creations == failAt) return SurfaceHandle::None;
    const SurfaceHandle handle{m_next++};
    m_surfaces[handle] = {};
    return handle;
}

void StrictDrawing::DeleteDC(SurfaceHandle surface) {
    if (surface == kWindowSurface || m_surfaces.erase(surface) == 0) {
        Fault("an unknown surface is deleted");
    }
}

ObjectHandle StrictDrawing::CreateCompatibleBitmap(SurfaceHandle, int width, int height) {
    if (width <= 0 || height <= 0) return ObjectHandle::None;
    return Make({Kind::Bitmap});
}

void StrictDrawing::BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point,
                           RasterOp) {
    if (!Surface(target) || !Surface(source)) return;
    const Thing* bitmap = SelectedThing(source, Kind::Bitmap);
    if (!bitmap) return;
    (bitmap->kind == Kind::Picture ? pictures : blits).push_back(area);
}

void StrictDrawing::StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source,
                               const Rect& from, RasterOp operation) {
    BitBlt(target, area, source, {from.left, from.top}, operation);
}

ObjectHandle StrictDrawing::PictureHandle(const StdPicture& picture) {
    if (!picture.Image() || !picture.Image()->IsDrawable()) return ObjectHandle::None;
    const ObjectHandle handle{reinterpret_cast<std::uintptr_t>(&picture)};
    m_objects[handle] = {Kind::Picture};
    return handle;
}

void StrictDrawing::DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width,
                               int height, std::uint32_t) {
    if (!Surface(surface) || icon == ObjectHandle::None) return;
    if (!m_objects.count(icon)) Fault("an unknown icon is drawn");
    pictures.push_back({x, y, x + width, y + height});
}

void StrictDrawing::InvalidateRect(WindowHandle window, const Rect* rect) {
    invalidatedWindows.push_back(window);
    invalidated.push_back(rect ? std::optional<Rect>(*rect) : std::nullopt);
}

}  // namespace velmora::test
