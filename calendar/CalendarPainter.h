#pragma once

#include "calendar/CalendarLayout.h"
#include "calendar/CalendarState.h"
#include "calendar/DayPicture.h"
#include "model/VmDays.h"
#include "platform/DrawingScopes.h"
#include "platform/dates/Dates.h"

#include <optional>
#include <span>

namespace velmora {

/// What a calendar looks like at one moment.
struct CalendarView {
    const CalendarState& state;  // its three fonts are set
    const CalendarLayout& layout;
    const VmDays& days;  // of the shown month
    const Dates& dates;
    double pixelsPerInch = 96;
    bool enabled = true;
    bool focused = false;
    /// The date being chosen with the mouse: it shows pressed, and no date as the selected one.
    std::optional<DayNumber> chosen;
    std::optional<Arrow> pressedArrow;
};

/// The look that the day itself has; null for the days of neighbouring months.
const VmDay* DecorationOf(const VmDays& days, const MonthGrid& grid, DayNumber day) noexcept;

/// Text-drawing flags of an alignment 0..8: vertical 0, 4 or 8, horizontal 0, 1 or 2. Any other
/// value counts as top left.
std::uint32_t AlignmentToTextFlags(VmTextAlignmentConstants alignment) noexcept;

/// Width of the widest caption that the month band must hold, in that font.
int WidestCaption(Drawing& drawing, const StdFont& font);

/// Draws a calendar on a surface; keeps nothing between paints.
class CalendarPainter {
public:
    CalendarPainter(Drawing& drawing, const CalendarView& view);

    /// The whole calendar, composed off screen and copied to the window in one go. Where there is
    /// no memory for that, it is drawn on the window.
    void PaintCalendar(SurfaceHandle window);
    /// What lies in the rectangles, and possibly more of it: single cells and bands are drawn in
    /// place, anything else is a paint of the whole.
    void PaintExposed(SurfaceHandle window, std::span<const Rect> exposed);
    /// The week day's name as a column shows it that has room for it.
    std::string WeekDayCaption(int column, VmWeekDayDisplayConstants display) const;

private:
    struct CellColors {
        OLE_COLOR fore;
        OLE_COLOR back;
    };
    struct DayCell {
        DayNumber day;
        Rect rect;
        const VmDay* decoration;
        bool selected;
        CellColors colors;
    };
    enum class Zone { Cells, MonthBand, WeekDayRow, Several };

    void PaintAll(SurfaceHandle surface);
    void PaintFrame(SurfaceHandle surface);
    void PaintGaps(SurfaceHandle surface);
    void PaintMonthCaption(SurfaceHandle surface);
    void PaintArrows(SurfaceHandle surface);
    void PaintMonthBandEdges(SurfaceHandle surface);
    void PaintMonthText(SurfaceHandle surface);
    void PaintWeekDayRow(SurfaceHandle surface);
    void PaintCells(SurfaceHandle surface, std::span<const Rect> exposed);
    void PaintWeek(SurfaceHandle surface, std::span<const DayCell> week);
    void PaintDayCell(SurfaceHandle surface, const DayCell& day);
    template <class Paint>
    void ForEachCell(std::span<const Rect> exposed, Paint paint);
    void PaintGridTop(SurfaceHandle surface);
    void PaintGridEdges(SurfaceHandle surface);
    void PaintRaised(SurfaceHandle surface, int lineAbove, int rows);
    void PaintRowLines(SurfaceHandle surface, const OwnedObject& pen, int y, int count);
    void PaintColumnLines(SurfaceHandle surface, const OwnedObject& pen, std::int32_t Rect::*edge,
                          int top, int bottom);
    void PaintCellEdges(SurfaceHandle surface, const Rect& cell, const OwnedObject& topLeft,
                        const OwnedObject& bottomRight);
    void PaintLinesAround(SurfaceHandle surface, const Rect& cell);
    void PaintPicture(SurfaceHandle surface, const StdPicture& picture, std::string_view number,
                      const Rect& inner);
    void DrawAligned(SurfaceHandle surface, std::string_view text, const Rect& inner,
                     VmTextAlignmentConstants alignment, std::uint32_t more = 0);

    Zone ZoneOf(std::span<const Rect> exposed) const noexcept;
    bool HasRoom() const noexcept;
    bool IsRaised() const noexcept { return m_view.state.dayAppearance == VmAppearance3D; }
    Rect GroundOf(const Rect& cells) const noexcept;
    DayCell DayCellOf(DayNumber day, const Rect& cell) const;
    CellColors ColorsOf(DayNumber day, const VmDay* decoration, bool selected) const;
    CellColors ReadableColors(OLE_COLOR CalendarState::*fore, OLE_COLOR back) const;
    std::uint32_t Directed(std::uint32_t textFlags) const noexcept;
    bool IsSelected(DayNumber day) const noexcept;
    ObjectHandle GroundBrush(OLE_COLOR color);
    void UseTextColor(SurfaceHandle surface, OLE_COLOR color);
    VmWeekDayDisplayConstants WeekDayDisplayThatFits(SurfaceHandle surface);

    Drawing& m_drawing;
    const CalendarView& m_view;
    MonthGrid m_grid;
    DayNumber m_today;
    OwnedObject m_highlightPen;
    OwnedObject m_shadowPen;
    OwnedObject m_darkShadowPen;

    // Neighbouring cells mostly have the same colours: what was used last.
    struct Ground {
        OLE_COLOR color;
        OwnedObject brush;
    };
    std::optional<Ground> m_ground;
    PictureSource m_pictures;
    std::optional<OLE_COLOR> m_textColor;
};

}  // namespace velmora
