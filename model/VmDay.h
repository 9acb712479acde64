#pragma once

#include "platform/FontAndPicture.h"
#include "platform/Variant.h"

#include <memory>
#include <string>
#include <string_view>

namespace velmora {

class VmDays;

/// One day of the shown month with its optional decoration. Made by its collection alone; every
/// change is reported by the collection's `DayChanged`. A day that a client keeps beyond its month
/// stays usable and reports through the collection as long as that exists.
class VmDay : public Object {
public:
    explicit VmDay(std::weak_ptr<VmDays> parent, Date date)
        : m_dayDate(date), m_parent(std::move(parent)) {}

    /// Whether a decoration has been set since the day was made.
    bool Dirty() const noexcept { return m_dirty; }

    /// Cell colours. Empty or Null: the default applies; else a 32-bit integer. Error 380: any
    /// other type, a 16-bit integer included.
    const Variant& BackColor() const noexcept { return m_backColor; }
    void BackColor(const Variant& value);
    const Variant& ForeColor() const noexcept { return m_foreColor; }
    void ForeColor(const Variant& value);

    /// Text drawn in the cell on one line, clipped to it.
    const std::string& Caption() const noexcept { return m_caption; }
    void Caption(std::string value);

    /// The day this object stands for, without a time. Setting it moves no decoration: a day shows
    /// at its place in the collection.
    Date DayDate() const noexcept { return m_dayDate; }
    void DayDate(Date value);

    /// Drawn in the cell; null for none.
    const PictureRef& Picture() const noexcept { return m_picture; }
    void Picture(PictureRef value);

    /// The collection that made it, or null when that has ended.
    std::shared_ptr<VmDays> Parent() const noexcept { return m_parent.lock(); }

private:
    void SetColor(Variant VmDay::*color, const Variant& value, std::string_view property);
    void Changed(std::string_view property);

    bool m_dirty = false;
    Variant m_backColor;
    Variant m_foreColor;
    std::string m_caption;
    Date m_dayDate;
    PictureRef m_picture;
    std::weak_ptr<VmDays> m_parent;
};

using DayRef = std::shared_ptr<VmDay>;

}  // namespace velmora
