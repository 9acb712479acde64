#pragma once

#include "platform/Drawing.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// 0x00BBGGRR or a pattern, row by row.
struct Pixels {
    Size size;
    std::vector<std::uint32_t> data;

    explicit Pixels(Size its = {})
        : size(its), data(static_cast<std::size_t>(its.width) * std::size_t(its.height)) {}
};

/// A drawing that keeps account of every object and notes what is drawn. `Faults` lists each
/// breach: an unknown handle, a double delete, a delete while selected, an object alive at the end
/// of a paint. Once the window has been given pixels it draws, too: areas in their colours, and
/// everything else as a pattern of all that it depends on.
class StrictDrawing : public Drawing {
public:
    /// One operation that draws, with what its handles stood for.
    struct Call {
        std::string_view name;  // "fill", "line", "text", "frame", "edge", "focus", "copy", ..
        SurfaceHandle surface;
        Rect rect;  // a line goes from left, top to right, bottom
        Rgb color = 0;
        std::uint32_t flags = 0;
        std::string text = {};
        std::string font = {};
    };

    static constexpr SurfaceHandle kWindowSurface{1};
    /// Neighbours read well on each other.
    static constexpr Rgb SystemRgb(int index) {
        return (index % 2 == 0 ? 0x010000u : 0xFEFE00u) + static_cast<Rgb>(index);
    }

    std::vector<Call> calls;
    bool notesCalls = true;
    std::vector<std::optional<Rect>> invalidated;
    std::vector<std::optional<Rect>> damage;       // the same, until the next paint takes it
    std::vector<WindowHandle> invalidatedWindows;  // the window of each
    std::vector<std::string> faults;
    int creations = 0;
    int failAt = 0;  // that creation fails; 0 for none

    void Forget() {
        calls.clear();
        damage.clear();
        invalidated.clear();
        invalidatedWindows.clear();
        creations = 0;
    }
    /// The calls of that name since the last `Forget`.
    std::vector<Call> Of(std::string_view name) const {
        std::vector<Call> result;
        std::copy_if(calls.begin(), calls.end(), std::back_inserter(result),
                     [&](const Call& call) { return call.name == name; });
        return result;
    }
    /// All calls as text, a line each; lines that continue each other are one.
    std::vector<std::string> Described() const {
        std::vector<std::string> lines;
        const Call* before = nullptr;
        for (const Call& call : calls) {
            const bool goesOn = before && call.name == "line" && before->name == "line" &&
                                call.color == before->color &&
                                call.rect.left == before->rect.right &&
                                call.rect.top == before->rect.bottom;
            if (goesOn) {
                std::ostringstream end;
                end << ' ' << call.rect.right << ',' << call.rect.bottom;
                lines.back() += end.str();
            } else {
                lines.push_back(Described(call));
            }
            before = &call;
        }
        return lines;
    }
    /// Call after a paint: everything made must be gone.
    const std::vector<std::string>& FaultsAfterPaint() {
        for (const auto& [handle, thing] : m_objects) {
            if (thing.kind != Kind::Picture) Fault("an object is alive after the paint");
        }
        if (m_surfaces.size() != 1) Fault("a memory surface is alive after the paint");
        const SurfaceState& window = m_surfaces[kWindowSurface];
        for (const auto& [kind, object] : window.selected) {
            if (!IsDefault(object)) Fault("an object stays selected after the paint");
        }
        if (!window.saved.empty()) Fault("a clip stays after the paint");
        return faults;
    }
    /// What is drawn on the window goes there, inside these rectangles only, which are spoiled.
    void DrawWindowOn(std::shared_ptr<Pixels> pixels, std::span<const Rect> exposed) {
        SurfaceState& window = m_surfaces[kWindowSurface];
        window.pixels = std::move(pixels);
        window.region.assign(exposed.begin(), exposed.end());
        ForPixels(window, kEverything,
                  [](std::uint32_t& pixel, int, int) { pixel ^= 0x80000000u; });
    }

    Rgb GetSysColor(int index) override { return SystemRgb(index); }
    ObjectHandle CreateBrushIndirect(const LogBrush& brush) override {
        return Make({Kind::Brush, brush.color});
    }
    ObjectHandle CreatePenIndirect(const LogPen& pen) override {
        return Make({Kind::Pen, pen.color});
    }
    ObjectHandle CreateFontIndirectA(const LogFont& font) override {
        return Make({Kind::Font, 0, Described(font)});
    }
    ObjectHandle SelectObject(SurfaceHandle surface, ObjectHandle object) override {
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
        auto [place, isNew] = state->selected.try_emplace(kind, Default(kind));
        if (found->second.pixels) state->pixels = found->second.pixels;
        return std::exchange(place->second, object);
    }
    void DeleteObject(ObjectHandle object) override {
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
    void FillRect(SurfaceHandle surface, const Rect& rect, ObjectHandle brush) override {
        if (!Surface(surface) || brush == ObjectHandle::None) return;
        const auto found = m_objects.find(brush);
        if (found == m_objects.end()) return Fault("an unknown brush fills");
        Draw({"fill", surface, rect, found->second.color}, {rect});
    }
    void MoveToEx(SurfaceHandle surface, int x, int y) override {
        if (SurfaceState* state = Surface(surface)) state->position = {x, y};
    }
    void LineTo(SurfaceHandle surface, int x, int y) override {
        SurfaceState* state = Surface(surface);
        if (!state) return;
        const auto [fromX, fromY] = std::exchange(state->position, {x, y});
        const Thing* pen = SelectedThing(*state, Kind::Pen);
        if (!pen) return;
        if (fromX != x && fromY != y) Fault("a slanted line is drawn");
        Rect box{std::min(fromX, x + 1), std::min(fromY, y + 1), std::max(fromX + 1, x),
                 std::max(fromY + 1, y)};
        if (fromX == x) box = {x, box.top, fromY == y ? x : x + 1, box.bottom};
        if (fromY == y) box = {box.left, y, box.right, y + 1};
        Draw({"line", surface, {fromX, fromY, x, y}, pen->color}, {box});
    }
    void SetBkMode(SurfaceHandle, BackgroundMode) override {}
    void SetTextColor(SurfaceHandle surface, Rgb color) override {
        if (SurfaceState* state = Surface(surface)) state->textColor = color;
    }
    /// Every byte is 6 x 12 pixels.
    int DrawTextA(SurfaceHandle surface, std::string_view text, Rect& rect,
                  std::uint32_t flags) override {
        SurfaceState* state = Surface(surface);
        const Size extent{static_cast<int>(text.size()) * 6, 12};
        if ((flags & kTextCalcRect) != 0) {
            rect.right = rect.left + extent.width;
            rect.bottom = rect.top + extent.height;
        } else if (state) {
            const Thing* font = SelectedThing(*state, Kind::Font);
            const int x = (flags & kTextRight) ? rect.right - extent.width : rect.left;
            const int y = (flags & kTextBottom) ? rect.bottom - extent.height : rect.top;
            Draw({"text", surface, rect, state->textColor, flags, std::string(text),
                  font ? font->description : ""},
                 {Intersect(rect, {x, y, x + extent.width, y + extent.height})});
        }
        return 12;
    }
    void DrawFrameControl(SurfaceHandle surface, const Rect& rect, FrameControl,
                          std::uint32_t flags) override {
        Draw({"frame", surface, rect, 0, flags}, {rect});
    }
    void DrawEdge(SurfaceHandle surface, const Rect& rect, std::uint32_t edge,
                  std::uint32_t sides) override {
        const int width = edge == kSunken ? 2 : 1;
        const auto [left, top, right, bottom] = rect;
        Draw({"edge", surface, rect, 0, edge << 8 | sides},
             {{left, top, left + width, bottom},
              {left, top, right, top + width},
              {right - width, top, right, bottom},
              {left, bottom - width, right, bottom}});
    }
    void DrawFocusRect(SurfaceHandle surface, const Rect& rect) override {
        Draw({"focus", surface, rect}, {{rect.left, rect.top, rect.right, rect.top + 1}});
    }
    SurfaceHandle CreateCompatibleDC(SurfaceHandle) override {
        if (++creations == failAt) return SurfaceHandle::None;
        const SurfaceHandle handle{m_next++};
        m_surfaces[handle].region = {kEverything};
        return handle;
    }
    void DeleteDC(SurfaceHandle surface) override {
        if (surface == kWindowSurface || m_surfaces.erase(surface) == 0) {
            Fault("an unknown surface is deleted");
        }
    }
    ObjectHandle CreateCompatibleBitmap(SurfaceHandle, int width, int height) override {
        if (width <= 0 || height <= 0) return ObjectHandle::None;
        const bool draws = m_surfaces[kWindowSurface].pixels != nullptr;
        return Make(
            {Kind::Bitmap, 0, {}, draws ? std::make_shared<Pixels>(Size{width, height}) : nullptr});
    }
    void BitBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, Point from,
                RasterOp) override {
        Copy(target, area, source,
             {from.x, from.y, from.x + area.right - area.left, from.y + area.bottom - area.top});
    }
    void StretchBlt(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from,
                    RasterOp) override {
        Copy(target, area, source, from);
    }
    ObjectHandle PictureHandle(const StdPicture& picture) override {
        if (!picture.Image() || !picture.Image()->IsDrawable()) return ObjectHandle::None;
        const ObjectHandle handle{reinterpret_cast<std::uintptr_t>(&picture)};
        m_objects[handle] = {
            Kind::Picture, 0,
            std::to_string(picture.Image()->width) + "x" + std::to_string(picture.Image()->height)};
        return handle;
    }
    void DrawIconEx(SurfaceHandle surface, int x, int y, ObjectHandle icon, int width, int height,
                    std::uint32_t flags) override {
        if (icon == ObjectHandle::None) return;
        const auto found = m_objects.find(icon);
        if (found == m_objects.end()) return Fault("an unknown icon is drawn");
        const Rect place{x, y, x + width, y + height};
        Draw({"icon", surface, place, 0, flags, found->second.description}, {place});
    }
    void SaveDC(SurfaceHandle surface) override {
        if (SurfaceState* state = Surface(surface)) state->saved.push_back(state->region);
    }
    void IntersectClipRect(SurfaceHandle surface, const Rect& rect) override {
        SurfaceState* state = Surface(surface);
        if (!state) return;
        Draw({"clip", surface, rect});
        for (Rect& part : state->region) part = Intersect(part, rect);
    }
    void RestoreDC(SurfaceHandle surface) override {
        SurfaceState* state = Surface(surface);
        if (!state) return;
        if (state->saved.empty()) return Fault("a clip ends that has not begun");
        Draw({"unclip", surface, {}});
        state->region = std::move(state->saved.back());
        state->saved.pop_back();
    }
    void InvalidateRect(WindowHandle window, const Rect* rect) override {
        invalidatedWindows.push_back(window);
        invalidated.push_back(rect ? std::optional<Rect>(*rect) : std::nullopt);
        damage.push_back(invalidated.back());
    }

private:
    enum class Kind { Brush, Pen, Font, Bitmap, Picture };
    struct Thing {
        Kind kind;
        Rgb color = 0;
        std::string description = {};
        std::shared_ptr<Pixels> pixels = nullptr;
    };
    struct SurfaceState {
        std::map<Kind, ObjectHandle> selected;
        Rgb textColor = 0;
        Point position;
        std::shared_ptr<Pixels> pixels;
        std::vector<Rect> region;  // what may be drawn on
        std::vector<std::vector<Rect>> saved;
    };

    // What is selected into every surface at first, one for each kind.
    static ObjectHandle Default(Kind kind) {
        return ObjectHandle(static_cast<std::uintptr_t>(kind) + 2);
    }
    static bool IsDefault(ObjectHandle object) {
        return object != ObjectHandle::None && object < ObjectHandle{100};
    }
    static Rect Intersect(const Rect& a, const Rect& b) {
        return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                std::min(a.bottom, b.bottom)};
    }
    static std::string Described(const LogFont& font) {
        return font.faceName + (std::ostringstream() << ' ' << font.points).str() +
               (font.bold ? " bold" : "") + (font.italic ? " italic" : "") +
               (font.underline ? " underline" : "") + (font.strikeOut ? " strikeOut" : "");
    }
    static std::string Described(const Call& call) {
        std::ostringstream out;
        out << (call.surface == kWindowSurface ? "window " : "") << call.name << ' '
            << call.rect.left << ',' << call.rect.top << ' ' << call.rect.right << ','
            << call.rect.bottom;
        const auto index = static_cast<int>(call.color & 0xFF);
        if (call.name == "fill" || call.name == "line" || call.name == "text") {
            call.color == SystemRgb(index) ? out << " sys" << index
                                           : out << ' ' << std::hex << call.color;
        }
        if (call.flags != 0) out << " 0x" << std::hex << call.flags;
        if (!call.text.empty()) out << " \"" << call.text << '"';
        if (!call.font.empty()) out << ' ' << call.font;
        return out.str();
    }

    /// Does it for every pixel of the box that may be drawn on.
    template <class Do>
    static void ForPixels(SurfaceState& surface, const Rect& box, Do draw) {
        if (!surface.pixels) return;
        const auto [width, height] = surface.pixels->size;
        for (const Rect& visible : surface.region) {
            const Rect part = Intersect(Intersect(box, visible), {0, 0, width, height});
            for (int y = part.top; y < part.bottom; ++y) {
                std::uint32_t* const row = surface.pixels->data.data() + std::ptrdiff_t{y} * width;
                for (int x = part.left; x < part.right; ++x) draw(row[x], x, y);
            }
        }
    }
    static constexpr Rect kEverything{-40000, -40000, 40000, 40000};

    ObjectHandle Make(Thing thing) {
        if (++creations == failAt) return ObjectHandle::None;
        const ObjectHandle handle{m_next++};
        m_objects[handle] = std::move(thing);
        return handle;
    }
    void Fault(const std::string& text) { faults.push_back(text); }
    SurfaceState* Surface(SurfaceHandle handle) {
        if (handle == SurfaceHandle::None) return nullptr;
        const auto found = m_surfaces.find(handle);
        if (found == m_surfaces.end()) {
            Fault("an unknown surface is drawn on");
            return nullptr;
        }
        return &found->second;
    }
    const Thing* SelectedThing(SurfaceState& surface, Kind kind) {
        const auto selected = surface.selected.find(kind);
        if (selected == surface.selected.end()) return nullptr;
        const auto found = m_objects.find(selected->second);
        return found == m_objects.end() ? nullptr : &found->second;
    }
    void Copy(SurfaceHandle target, const Rect& area, SurfaceHandle source, const Rect& from) {
        SurfaceState* to = Surface(target);
        SurfaceState* origin = Surface(source);
        const Thing* bitmap = to && origin ? SelectedThing(*origin, Kind::Bitmap) : nullptr;
        if (!bitmap) return;
        if (bitmap->kind == Kind::Picture) {
            return Draw({"picture", target, area, 0, 0, bitmap->description}, {area});
        }
        Draw({"copy", target, area});
        if (!bitmap->pixels) return;
        const Pixels& pixels = *bitmap->pixels;
        const int x0 = from.left - area.left;
        const int y0 = from.top - area.top;
        const Rect present{-x0, -y0, pixels.size.width - x0, pixels.size.height - y0};
        ForPixels(*to, Intersect(area, present), [&](std::uint32_t& pixel, int x, int y) {
            pixel = pixels.data[static_cast<std::size_t>((y + y0) * pixels.size.width + x + x0)];
        });
    }
    /// Notes what is drawn and fills the boxes with its colour, or with a pattern of its own.
    void Draw(const Call& call, std::initializer_list<Rect> boxes = {}) {
        if (notesCalls) calls.push_back(call);
        SurfaceState* const surface = Surface(call.surface);
        if (!surface || !surface->pixels) return;
        const std::hash<std::string_view> hash;
        const bool plain = call.name == "fill" || call.name == "line";
        const auto seed =
            static_cast<std::uint32_t>(hash(call.name) + 3 * hash(call.text) + 5 * hash(call.font) +
                                       7 * call.color + call.flags);
        const auto [left, top, right, bottom] = call.rect;
        const int size = 101 * (right - left) + 10007 * (bottom - top);
        for (const Rect& box : boxes) {
            ForPixels(*surface, box, [&, x0 = left, y0 = top](std::uint32_t& pixel, int x, int y) {
                const int place = size + 1009 * (x - x0) + 100003 * (y - y0);
                pixel = plain ? call.color : seed + static_cast<std::uint32_t>(place);
            });
        }
    }

    std::map<ObjectHandle, Thing> m_objects;
    std::map<SurfaceHandle, SurfaceState> m_surfaces{{kWindowSurface, {}}};
    std::uintptr_t m_next = 100;
};

}  // namespace velmora::test
