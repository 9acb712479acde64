#pragma once

#include "platform/Drawing.h"

#include <span>
#include <string>
#include <utility>

namespace velmora {

/// Owns a brush, pen, font or bitmap and deletes it. Holds None when it could not be made.
class OwnedObject {
public:
    OwnedObject(Drawing& drawing, ObjectHandle object) : m_drawing(&drawing), m_object(object) {}
    OwnedObject(OwnedObject&& other) noexcept
        : m_drawing(other.m_drawing), m_object(std::exchange(other.m_object, ObjectHandle::None)) {}
    OwnedObject& operator=(OwnedObject&&) = delete;
    ~OwnedObject() {
        if (m_object != ObjectHandle::None) m_drawing->DeleteObject(m_object);
    }

    ObjectHandle Get() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != ObjectHandle::None; }

private:
    Drawing* m_drawing;
    ObjectHandle m_object;
};

/// Owns a memory surface and deletes it.
class OwnedSurface {
public:
    OwnedSurface(Drawing& drawing, SurfaceHandle surface)
        : m_drawing(drawing), m_surface(surface) {}
    OwnedSurface(const OwnedSurface&) = delete;
    OwnedSurface& operator=(const OwnedSurface&) = delete;
    ~OwnedSurface() {
        if (m_surface != SurfaceHandle::None) m_drawing.DeleteDC(m_surface);
    }

    SurfaceHandle Get() const noexcept { return m_surface; }
    explicit operator bool() const noexcept { return m_surface != SurfaceHandle::None; }

private:
    Drawing& m_drawing;
    SurfaceHandle m_surface;
};

/// Keeps an object selected into a surface and restores the one before it. Declare it after the
/// owner of the object: it must end first.
class Selection {
public:
    Selection(Drawing& drawing, SurfaceHandle surface, const OwnedObject& object)
        : Selection(drawing, surface, object.Get()) {}
    Selection(Drawing& drawing, SurfaceHandle surface, OwnedObject&& temporary) = delete;
    /// For an object that the host owns, such as a picture's bitmap.
    Selection(Drawing& drawing, SurfaceHandle surface, ObjectHandle object)
        : m_drawing(drawing), m_surface(surface) {
        if (object != ObjectHandle::None) m_previous = drawing.SelectObject(surface, object);
    }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() {
        if (m_previous != ObjectHandle::None) m_drawing.SelectObject(m_surface, m_previous);
    }

private:
    Drawing& m_drawing;
    SurfaceHandle m_surface;
    ObjectHandle m_previous = ObjectHandle::None;
};

/// Confines drawing to a rectangle for as long as it lives.
class Clip {
public:
    Clip(Drawing& drawing, SurfaceHandle surface, const Rect& rect)
        : m_drawing(drawing), m_surface(surface) {
        m_drawing.SaveDC(surface);
        m_drawing.IntersectClipRect(surface, rect);
    }
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;
    ~Clip() { m_drawing.RestoreDC(m_surface); }

private:
    Drawing& m_drawing;
    SurfaceHandle m_surface;
};

/// A colour as RGB: system colour references are looked up, plain colours stay.
Rgb ResolveColor(Drawing& drawing, OLE_COLOR color);

OwnedObject SolidBrush(Drawing& drawing, OLE_COLOR color);
OwnedObject SolidPen(Drawing& drawing, OLE_COLOR color);
/// The description of a font object as a logical font.
LogFont FontToLogFont(const StdFont& font);
/// The width of the widest and the height of the highest of those texts.
Size ExtentOf(Drawing& drawing, const StdFont& font, std::span<const std::string> texts);

}  // namespace velmora
