#include "calendar/CalendarPainter.h"

#include "calendar/CalendarDescription.h"
#include "calendar/Contrast.h"
#include "calendar/DateLimits.h"
#include "platform/Compose.h"
#include "platform/TextCut.h"

#include <algorithm>
#include <string>
#include <utility>

namespace velmora {
namespace {

constexpr bool Intersects(const Rect& a, const Rect& b) noexcept {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

constexpr bool Contains(const Rect& outer, const Rect& inner) noexcept {
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top &&
           inner.bottom <= outer.bottom;
}

/// A cell's rectangle as drawing operations take it.
constexpr Rect Exclusive(const Rect& cell) noexcept {
    return {cell.left, cell.top, cell.right + 1, cell.bottom + 1};
}

constexpr Rect Inset(const Rect& rect, int x, int y) noexcept {
    return {rect.left + x, rect.top + y, rect.right - x, rect.bottom - y};
}

/// A day's own colour, or the default when it has none.
OLE_COLOR ColorOr(const Variant& own, OLE_COLOR fallback) noexcept {
    const auto* color = own.As<std::int32_t>();
    return color ? static_cast<OLE_COLOR>(*color) : fallback;
}

}  // namespace

const VmDay* DecorationOf(const VmDays& days, const MonthGrid& grid, DayNumber day) noexcept {
    const int position = DayOfMonth(day);
    if (!grid.IsShownMonth(day) || position > days.Count()) return nullptr;
    return days.Items()[static_cast<std::size_t>(position) - 1].get();
}

std::uint32_t AlignmentToTextFlags(VmTextAlignmentConstants alignment) noexcept {
    if (alignment < VmTextTopLeft || alignment > VmTextBottomRight) return kTextLeft | kTextTop;
    return static_cast<std::uint32_t>(alignment % 3 * 4 + alignment / 3);
}

int WidestCaption(Drawing& drawing, const StdFont& font) {
    const std::string widest = "September 2999";
    return ExtentOf(drawing, font, {&widest, 1}).width;
}

CalendarPainter::CalendarPainter(Drawing& drawing, const CalendarView& view)
    : m_drawing(drawing),
      m_view(view),
      m_grid(GridOf(view.state, view.layout)),
      m_today(view.dates.Today()),
      m_highlightPen(SolidPen(drawing, k3DHighlight)),
      m_shadowPen(SolidPen(drawing, kButtonShadow)),
      m_darkShadowPen(SolidPen(drawing, k3DDarkShadow)),
      m_pictures(drawing) {}

void CalendarPainter::PaintCalendar(SurfaceHandle window) {
    Compose(m_drawing, window, m_view.layout.client,
            [this](SurfaceHandle surface) { PaintAll(surface); });
}

void CalendarPainter::PaintExposed(SurfaceHandle window, std::span<const Rect> exposed) {
    m_drawing.SetBkMode(window, BackgroundMode::Transparent);
    switch (ZoneOf(exposed)) {
        case Zone::Cells: PaintCells(window, exposed); break;
        case Zone::MonthBand:
            PaintMonthCaption(window);
            PaintGridTop(window);
            break;
        case Zone::WeekDayRow:
            PaintWeekDayRow(window);
            PaintGridTop(window);
            break;
        case Zone::Several: PaintCalendar(window); break;
    }
}

CalendarPainter::Zone CalendarPainter::ZoneOf(std::span<const Rect> exposed) const noexcept {
    constexpr std::size_t kFew = 8;  // more is quicker composed as a whole
    const CalendarLayout& layout = m_view.layout;
    if (!HasRoom()) return Zone::Several;
    const Rect cells{1, layout.gridTop + 1, layout.client.width - 1,
                     layout.gridTop + kGridRows * layout.rowHeight + 1};
    const auto allIn = [&](const Rect& zone) {
        return std::all_of(exposed.begin(), exposed.end(),
                           [&](const Rect& rect) { return Contains(zone, rect); });
    };
    if (allIn(layout.MonthBand())) return Zone::MonthBand;
    if (allIn(layout.WeekDayRow())) return Zone::WeekDayRow;
    if (exposed.size() > kFew || !allIn(cells)) return Zone::Several;
    const bool large = std::any_of(exposed.begin(), exposed.end(), [&](const Rect& rect) {
        return rect.Height() > 2 * layout.rowHeight;
    });
    return large ? Zone::Several : Zone::Cells;
}

void CalendarPainter::PaintAll(SurfaceHandle surface) {
    m_drawing.SetBkMode(surface, BackgroundMode::Transparent);
    // The fonts are mostly alike: kept in the surface, they need not be made ready for each part.
    const OwnedObject font(m_drawing,
                           m_drawing.CreateFontIndirectA(FontToLogFont(*m_view.state.dayFont)));
    const Selection kept(m_drawing, surface, font);
    PaintGaps(surface);
    PaintMonthCaption(surface);
    PaintWeekDayRow(surface);
    const Rect client = m_view.layout.Client();
    PaintCells(surface, {&client, 1});
    PaintFrame(surface);
}

void CalendarPainter::PaintGaps(SurfaceHandle surface) {
    const CalendarLayout& layout = m_view.layout;
    Rect gap = layout.Client();
    if (HasRoom()) {  // else a cell is no more than edges
        gap.top = layout.gridTop + kGridRows * layout.rowHeight + 1;
        if (gap.top >= gap.bottom - 1) return;
    }
    const OwnedObject brush = SolidBrush(m_drawing, kButtonFace);
    m_drawing.FillRect(surface, gap, brush.Get());
}

void CalendarPainter::PaintFrame(SurfaceHandle surface) {
    const Rect client = m_view.layout.Client();
    if (m_view.state.appearance != VmAppearanceFlat) {
        m_drawing.DrawEdge(surface, client, kSunkenOuter, kAllSides);
        return;
    }
    const Selection pen(m_drawing, surface, m_darkShadowPen);
    m_drawing.MoveToEx(surface, 0, 0);
    m_drawing.LineTo(surface, client.right - 1, 0);
    m_drawing.LineTo(surface, client.right - 1, client.bottom - 1);
    m_drawing.LineTo(surface, 0, client.bottom - 1);
    m_drawing.LineTo(surface, 0, 0);
}

void CalendarPainter::PaintMonthCaption(SurfaceHandle surface) {
    const OwnedObject back = SolidBrush(m_drawing, m_view.state.monthBackColor);
    m_drawing.FillRect(surface, m_view.layout.MonthBand(), back.Get());
    if (m_view.state.monthYearSelStyle == VmMonthSelArrows) PaintArrows(surface);
    if (m_view.state.monthAppearance == VmAppearance3D) PaintMonthBandEdges(surface);
    PaintMonthText(surface);
}

void CalendarPainter::PaintArrows(SurfaceHandle surface) {
    for (int i = 0; i < kArrowCount; ++i) {
        const auto arrow = static_cast<Arrow>(i);
        const bool back = arrow == Arrow::YearBack || arrow == Arrow::MonthBack;
        const bool leads =
            !m_view.state.extendedNavigation || ShownAfter(m_view.state, MonthsOf(arrow));
        std::uint32_t state = back != m_view.layout.rightToLeft ? kScrollLeft : kScrollRight;
        if (m_view.pressedArrow == arrow && leads) state |= kFramePushed;
        if (!m_view.enabled || !leads) state |= kFrameInactive;
        m_drawing.DrawFrameControl(surface, m_view.layout.arrows[static_cast<std::size_t>(i)],
                                   FrameControl::ScrollBar, state);
    }
}

void CalendarPainter::PaintMonthBandEdges(SurfaceHandle surface) {
    const int right = m_view.layout.client.width - 2;
    const int bottom = m_view.layout.monthBandHeight;
    {
        const Selection pen(m_drawing, surface, m_highlightPen);
        m_drawing.MoveToEx(surface, 1, bottom);
        m_drawing.LineTo(surface, 1, 1);
        m_drawing.LineTo(surface, right, 1);
    }
    const Selection pen(m_drawing, surface, m_shadowPen);
    m_drawing.LineTo(surface, right, bottom);
    m_drawing.LineTo(surface, 0, bottom);
}

void CalendarPainter::PaintMonthText(SurfaceHandle surface) {
    const CalendarState& state = m_view.state;
    const bool full = state.monthDisplay == VmMonthFullName;
    if (!full && state.monthDisplay != VmMonthAbbrName) return;
    const std::string text = MonthTitle(m_view, full ? "mmmm" : "mmm");

    const OwnedObject font(m_drawing,
                           m_drawing.CreateFontIndirectA(FontToLogFont(*state.monthFont)));
    const Selection selected(m_drawing, surface, font);
    Rect place = m_view.layout.monthCaption;
    if (state.monthYearSelStyle == VmMonthSelCombo) {
        // The list and the year box say the same; beside them the caption stands whole or not at
        // all.
        Rect extent;
        m_drawing.DrawTextA(surface, text, extent, kTextSingleLine | kTextCalcRect);
        if (extent.right > place.Width()) return;
    }
    UseTextColor(surface, state.monthForeColor);
    m_drawing.DrawTextA(surface, text, place,
                        Directed(kTextCenter | kTextVCenter | kTextSingleLine | kTextEndEllipsis));
    const DayNumber day = DayOf(state.dateValue);
    const bool isSelectionShown = m_grid.IsShownMonth(day) && m_grid.DayCellRect(day);
    if (!m_view.focused || m_view.chosen || isSelectionShown || place.Height() <= 0) return;
    Rect extent;
    m_drawing.DrawTextA(surface, text, extent, kTextSingleLine | kTextCalcRect);
    const int besides = std::max((place.Width() - extent.Width()) / 2 - 3, 0);
    const int above = std::max((place.Height() - extent.Height()) / 2 - 1, 0);
    m_drawing.DrawFocusRect(surface, {place.left + besides, place.top + above,
                                      place.right - besides, place.bottom - above});
}

void CalendarPainter::PaintWeekDayRow(SurfaceHandle surface) {
    const CalendarState& state = m_view.state;
    if (!m_view.layout.hasWeekDayRow) return;
    const OwnedObject back = SolidBrush(m_drawing, state.weekDayBackColor);
    const OwnedObject font(m_drawing,
                           m_drawing.CreateFontIndirectA(FontToLogFont(*state.weekDayFont)));
    const Selection selected(m_drawing, surface, font);
    UseTextColor(surface, state.weekDayForeColor);
    const Rect row = m_view.layout.WeekDayRow();
    m_drawing.FillRect(surface, row, back.Get());
    if (state.weekDayAppearance == VmAppearance3D) PaintRaised(surface, row.top - 1, 1);
    const VmWeekDayDisplayConstants display = WeekDayDisplayThatFits(surface);
    for (int column = 0; column < m_grid.ColumnCount(); ++column) {
        Rect cell = m_grid.ColumnRect(column);
        cell.top = row.top;
        cell.bottom = m_view.layout.gridTop;
        DrawAligned(surface, WeekDayCaption(column, display), Exclusive(cell),
                    state.weekDayCaptionAlignment, kTextEndEllipsis);
    }
}

/// Where one abbreviation is too long for its column, as those of languages that have none, letters
/// stand above all of them.
VmWeekDayDisplayConstants CalendarPainter::WeekDayDisplayThatFits(SurfaceHandle surface) {
    const VmWeekDayDisplayConstants wanted = m_view.state.weekDayDisplay;
    for (int column = 0; wanted == VmWeekDayAbbrName && column < m_grid.ColumnCount(); ++column) {
        Rect extent;
        m_drawing.DrawTextA(surface, WeekDayCaption(column, wanted), extent,
                            kTextSingleLine | kTextCalcRect | kTextNoPrefix);
        const Rect room = Inset(Exclusive(m_grid.ColumnRect(column)), kTextInsetX, kTextInsetY);
        if (extent.right > room.Width()) return VmWeekDayLetter;
    }
    return wanted;
}

std::string CalendarPainter::WeekDayCaption(int column, VmWeekDayDisplayConstants display) const {
    if (display == VmWeekDayLetter) {
        const auto weekDay = static_cast<std::size_t>(WeekDayOfColumn(m_view, column));
        return LetterOf(m_view.dates.Locale(), weekDay);
    }
    return WeekDayName(m_view, column, display == VmWeekDayAbbrName ? "ddd" : "dddd");
}

void CalendarPainter::PaintCells(SurfaceHandle surface, std::span<const Rect> exposed) {
    const OwnedObject font(m_drawing,
                           m_drawing.CreateFontIndirectA(FontToLogFont(*m_view.state.dayFont)));
    const Selection selected(m_drawing, surface, font);
    std::vector<DayCell> week;
    week.reserve(7);
    ForEachCell(exposed, [&](DayNumber day, const Rect& cell) {
        // Without room cells lie upon each other: the later one shows.
        if (!week.empty() && (week.back().rect.top != cell.top || !HasRoom())) {
            PaintWeek(surface, week);
            week.clear();
        }
        week.push_back(DayCellOf(day, cell));
    });
    PaintWeek(surface, week);
    const bool isWhole = exposed.size() == 1 && Contains(exposed[0], m_view.layout.Client());
    if (isWhole && HasRoom()) {
        PaintGridEdges(surface);
    } else {
        ForEachCell(exposed, [&](DayNumber, const Rect& cell) {
            if (IsRaised()) {
                PaintCellEdges(surface, cell, m_highlightPen, m_shadowPen);
            } else {
                PaintLinesAround(surface, cell);
            }
        });
    }
    const auto pressed = m_view.chosen ? m_grid.DayCellRect(*m_view.chosen) : std::nullopt;
    if (IsRaised() && pressed && HasRoom()) {
        PaintCellEdges(surface, *pressed, m_shadowPen, m_highlightPen);
    }
}

/// The line that closes the bands is the one above the first week of a flat grid.
void CalendarPainter::PaintGridTop(SurfaceHandle surface) {
    if (!IsRaised()) PaintRowLines(surface, m_darkShadowPen, m_view.layout.gridTop, 1);
}

/// Of all cells, each neighbours' as one line.
void CalendarPainter::PaintGridEdges(SurfaceHandle surface) {
    const CalendarLayout& layout = m_view.layout;
    if (IsRaised()) return PaintRaised(surface, layout.gridTop, kGridRows);
    PaintRowLines(surface, m_darkShadowPen, layout.gridTop, kGridRows + 1);
    PaintColumnLines(surface, m_darkShadowPen, &Rect::right, layout.gridTop,
                     layout.gridTop + kGridRows * layout.rowHeight);
}

/// Rows of raised cells, in an order by which each cell keeps its corners.
void CalendarPainter::PaintRaised(SurfaceHandle surface, int lineAbove, int rows) {
    const int height = m_view.layout.rowHeight;
    const int bottom = lineAbove + rows * height;
    PaintRowLines(surface, m_highlightPen, lineAbove + 1, rows);
    PaintRowLines(surface, m_shadowPen, lineAbove + height, rows);
    PaintColumnLines(surface, m_highlightPen, &Rect::left, lineAbove + 1, bottom);
    PaintColumnLines(surface, m_shadowPen, &Rect::right, lineAbove + 1, bottom);
}

/// A row's height apart, the first at `y`.
void CalendarPainter::PaintRowLines(SurfaceHandle surface, const OwnedObject& pen, int y,
                                    int count) {
    const Selection selected(m_drawing, surface, pen);
    for (; count > 0; --count, y += m_view.layout.rowHeight) {
        m_drawing.MoveToEx(surface, 1, y);
        m_drawing.LineTo(surface, m_view.layout.client.width - 1, y);
    }
}

void CalendarPainter::PaintColumnLines(SurfaceHandle surface, const OwnedObject& pen,
                                       std::int32_t Rect::*edge, int top, int bottom) {
    const Selection selected(m_drawing, surface, pen);
    for (int column = 0; column < m_grid.ColumnCount(); ++column) {
        const int x = m_grid.ColumnRect(column).*edge;
        m_drawing.MoveToEx(surface, x, top);
        m_drawing.LineTo(surface, x, bottom + 1);
    }
}

template <class Paint>
void CalendarPainter::ForEachCell(std::span<const Rect> exposed, Paint paint) {
    const auto isExposed = [&](const Rect& area) {
        return std::any_of(exposed.begin(), exposed.end(),
                           [&](const Rect& rect) { return Intersects(rect, area); });
    };
    for (int row = 0; row < kGridRows; ++row) {
        const Rect rows = m_grid.RowRect(row);
        if (!isExposed({0, rows.top, m_view.layout.client.width, rows.bottom + 1})) continue;
        for (int column = 0; column < m_grid.ColumnCount(); ++column) {
            const Rect cell = m_grid.CellRect(row, column);
            if (isExposed(Exclusive(cell))) paint(m_grid.DayAt(row, column), cell);
        }
    }
}

CalendarPainter::DayCell CalendarPainter::DayCellOf(DayNumber day, const Rect& cell) const {
    const VmDay* const decoration = DecorationOf(m_view.days, m_grid, day);
    const bool selected = m_view.chosen == day || IsSelected(day);
    return {day, cell, decoration, selected, ColorsOf(day, decoration, selected)};
}

/// Neighbours of one colour are filled at once, with the edges between them, which follow.
void CalendarPainter::PaintWeek(SurfaceHandle surface, std::span<const DayCell> week) {
    for (std::size_t next = 0; next < week.size();) {
        const DayCell& first = week[next];
        Rect run = first.rect;
        while (++next < week.size() && week[next].colors.back == first.colors.back) {
            const Rect& cell = week[next].rect;
            if (cell.left != run.right + 1 && cell.right + 1 != run.left) break;
            run.left = std::min(run.left, cell.left);
            run.right = std::max(run.right, cell.right);
        }
        m_drawing.FillRect(surface, GroundOf(run), GroundBrush(first.colors.back));
    }
    for (const DayCell& day : week) PaintDayCell(surface, day);
}

void CalendarPainter::PaintDayCell(SurfaceHandle surface, const DayCell& day) {
    const Rect inner = GroundOf(day.rect);
    const VmDay* const decoration = day.decoration;
    const std::string number = m_view.dates.Number(DayOfMonth(day.day));
    if (decoration && decoration->Picture()) {
        PaintPicture(surface, *decoration->Picture(), number, inner);
    }
    UseTextColor(surface, day.colors.fore);
    DrawAligned(surface, number, inner, m_view.state.dayNumberAlignment);
    if (decoration && !decoration->Caption().empty()) {
        DrawAligned(surface, decoration->Caption(), inner, m_view.state.dayCaptionAlignment);
    }
    if (day.selected && m_view.focused && inner.Width() > 0 && inner.Height() > 0) {
        m_drawing.DrawFocusRect(surface, inner);
    }
}

void CalendarPainter::PaintCellEdges(SurfaceHandle surface, const Rect& cell,
                                     const OwnedObject& topLeft, const OwnedObject& bottomRight) {
    {
        const Selection pen(m_drawing, surface, topLeft);
        m_drawing.MoveToEx(surface, cell.left, cell.bottom);
        m_drawing.LineTo(surface, cell.left, cell.top);
        m_drawing.LineTo(surface, cell.right, cell.top);
    }
    const Selection pen(m_drawing, surface, bottomRight);
    m_drawing.MoveToEx(surface, cell.right, cell.top);
    m_drawing.LineTo(surface, cell.right, cell.bottom);
    m_drawing.LineTo(surface, cell.left, cell.bottom);
}

/// Lines go between cells: the left and top ones are the right and bottom ones of the neighbours.
void CalendarPainter::PaintLinesAround(SurfaceHandle surface, const Rect& cell) {
    const Selection pen(m_drawing, surface, m_darkShadowPen);
    if (cell.left < 2) {
        m_drawing.MoveToEx(surface, cell.left, cell.top - 1);
    } else {
        m_drawing.MoveToEx(surface, cell.left - 1, cell.bottom);
        m_drawing.LineTo(surface, cell.left - 1, cell.top - 1);
    }
    m_drawing.LineTo(surface, cell.right, cell.top - 1);
    m_drawing.LineTo(surface, cell.right, cell.bottom);
    m_drawing.LineTo(surface, cell.left - 1, cell.bottom);
}

void CalendarPainter::PaintPicture(SurfaceHandle surface, const StdPicture& picture,
                                   std::string_view number, const Rect& inner) {
    Rect extent;
    m_drawing.DrawTextA(surface, number, extent, kTextSingleLine | kTextCalcRect);
    const Rect room = Inset(inner, kTextInsetX, kTextInsetY);
    const auto place = static_cast<VmPictureAlignmentConstants>(m_view.state.dayNumberAlignment);
    const Rect text = PlaceDayPicture(place, {extent.right, extent.bottom}, room, room);
    DrawDayPicture(m_drawing, surface, m_pictures, picture, m_view.state.dayPictureAlignment, inner,
                   text, m_view.pixelsPerInch, m_view.layout.rightToLeft);
}

void CalendarPainter::DrawAligned(SurfaceHandle surface, std::string_view text, const Rect& inner,
                                  VmTextAlignmentConstants alignment, std::uint32_t more) {
    Rect room = Inset(inner, kTextInsetX, kTextInsetY);
    const std::uint32_t flags =
        Directed(AlignmentToTextFlags(alignment) | kTextSingleLine | kTextNoPrefix | more);
    const auto cut = CutToWidth(text, room.Width(), flags);
    m_drawing.DrawTextA(surface, cut ? *cut : text, room, flags);
}

/// Else the parts lie upon each other and the frame.
bool CalendarPainter::HasRoom() const noexcept {
    return m_view.layout.cellWidth > 1 && m_view.layout.rowHeight > 1;
}

/// What lies inside the edges of cells that are beside each other.
Rect CalendarPainter::GroundOf(const Rect& cells) const noexcept {
    const int edge = IsRaised() ? 1 : 0;
    return {cells.left + edge, cells.top + edge, cells.right, cells.bottom};
}

std::uint32_t CalendarPainter::Directed(std::uint32_t textFlags) const noexcept {
    return m_view.layout.rightToLeft ? MirroredText(textFlags) : textFlags;
}

bool CalendarPainter::IsSelected(DayNumber day) const noexcept {
    return !m_view.chosen && m_grid.IsShownMonth(day) && day == DayOf(m_view.state.dateValue);
}

/// Selected before today, today before other month, other month before the day's own, then the
/// default.
CalendarPainter::CellColors CalendarPainter::ColorsOf(DayNumber day, const VmDay* decoration,
                                                      bool selected) const {
    const CalendarState& state = m_view.state;
    const VmDays& days = m_view.days;
    if (selected) {
        return ReadableColors(&CalendarState::selectedDayForeColor, state.selectedDayBackColor);
    }
    if (day == m_today) return ReadableColors(&CalendarState::todayForeColor, state.todayBackColor);
    if (!m_grid.IsShownMonth(day)) return {days.OtherMonthForeColor(), days.DefaultBackColor()};
    if (!decoration) return {days.DefaultForeColor(), days.DefaultBackColor()};
    return {ColorOr(decoration->ForeColor(), days.DefaultForeColor()),
            ColorOr(decoration->BackColor(), days.DefaultBackColor())};
}

/// A text colour that nobody has chosen gives way on a ground, or in a desktop's colours, where it
/// could not be read.
CalendarPainter::CellColors CalendarPainter::ReadableColors(OLE_COLOR CalendarState::*fore,
                                                            OLE_COLOR back) const {
    static const CalendarState defaults;
    const OLE_COLOR text = m_view.state.*fore;
    const Rgb ground = ResolveColor(m_drawing, back);
    if (text != defaults.*fore || IsReadable(ResolveColor(m_drawing, text), ground)) {
        return {text, back};
    }
    return {ReadableOn(ground), back};
}

ObjectHandle CalendarPainter::GroundBrush(OLE_COLOR color) {
    if (!m_ground || m_ground->color != color) {
        m_ground.reset();
        m_ground.emplace(Ground{color, SolidBrush(m_drawing, color)});
    }
    return m_ground->brush.Get();
}

void CalendarPainter::UseTextColor(SurfaceHandle surface, OLE_COLOR color) {
    const OLE_COLOR wanted = m_view.enabled ? color : kGrayText;
    if (std::exchange(m_textColor, wanted) == wanted) return;
    m_drawing.SetTextColor(surface, ResolveColor(m_drawing, wanted));
}

}  // namespace velmora
