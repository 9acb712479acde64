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
    bool Dirty() const noexcept { return m_decoration != nullptr; }

    /// Cell colours. Empty or Null: the default applies; else a 32-bit integer. Error 380: any
    /// other type, a 16-bit integer included.
    const Variant& BackColor() const noexcept { return Shown().backColor; }
    void BackColor(const Variant& value);
    const Variant& ForeColor() const noexcept { return Shown().foreColor; }
    void ForeColor(const Variant& value);

    /// Text drawn in the cell on one line, clipped to it.
    const std::string& Caption() const noexcept { return Shown().caption; }
    void Caption(std::string value);

    /// The day this object stands for, without a time. Setting it moves no decoration: a day shows
    /// at its place in the collection.
    Date DayDate() const noexcept { return m_dayDate; }
    void DayDate(Date value);

    /// Drawn in the cell; null for none.
    const PictureRef& Picture() const noexcept { return Shown().picture; }
    void Picture(PictureRef value);

    /// The collection that made it, or null when that has ended.
    std::shared_ptr<VmDays> Parent() const noexcept { return m_parent.lock(); }

private:
    /// Most days of most calendars have none.
    struct Decoration {
        Variant backColor;
        Variant foreColor;
        std::string caption;
        PictureRef picture;
    };
    static const Decoration kNone;

    const Decoration& Shown() const noexcept { return m_decoration ? *m_decoration : kNone; }
    Decoration& Own();
    void SetColor(Variant Decoration::*color, const Variant& value, std::string_view property);
    void Changed(std::string_view property);

    Date m_dayDate;
    std::unique_ptr<Decoration> m_decoration;  // since one has been set
    std::weak_ptr<VmDays> m_parent;
};

using DayRef = std::shared_ptr<VmDay>;

}  // namespace velmora
