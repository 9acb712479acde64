#include "calendar/VmCalendar.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr AboutText kAbout{"Velmora Calendar Controls", VELMORA_VERSION,
                           "https://velmoracalendar.example/"};

}  // namespace

VmCalendar::VmCalendar(const Platform& platform)
    : m_platform(platform),
      m_days(std::make_shared<VmDays>()),
      m_selectors(platform.windowing, platform.dates) {
    m_days->WhenItemChanges([this](std::int16_t position) {
        InvalidateDay(FirstOfMonth(DayOf(m_state.shownDate)) + position - 1);
    });
}

VmCalendar::~VmCalendar() {
    m_days->WhenItemChanges(nullptr);
    if (m_press.arrow) m_platform.windowing.Repeat(nullptr);
}

void VmCalendar::InitProperties() { InitProperties(DateOf(m_platform.dates.Today())); }

void VmCalendar::InitProperties(Date selected) {
    EndPress();
    const bool announced = m_state.monthAnnounced;
    m_state = NewState(selected);
    m_state.monthAnnounced = announced;
    m_state.shownDate = selected;
    const VmDays firstColors;
    for (const auto& color :
         {kDayDefaultBackColor, kDayOtherMonthForeColor, kDayDefaultForeColor}) {
        color.Store(Storage(), (firstColors.*color.get)());
    }
    ++m_dateChanges;
    m_outdated = true;
    m_days->LoadMonth(DayOf(m_state.shownDate));
    m_state.ready = true;
    SyncSelectors();

    const Lifetime::Watch alive(m_lifetime);
    SelectMonth(MonthOf(DayOf(m_state.shownDate)));
    if (alive) SelectYear(YearOf(DayOf(m_state.shownDate)));
}

void VmCalendar::Announce(std::string_view property, AfterEffect effect) {
    const Lifetime::Watch alive(m_lifetime);
    m_platform.hosting.PropertyChanged(property);
    if (!alive) return;
    switch (effect) {
        case AfterEffect::Nothing: break;
        case AfterEffect::Repaint: RepaintControl(); break;
        case AfterEffect::MonthBand: Invalidate(m_layout.MonthBand()); break;
        case AfterEffect::WeekDayRow: Invalidate(m_layout.WeekDayRow()); break;
    }
}

void VmCalendar::Let(const WindowProperty<bool>& property, bool value) {
    property.Store(Storage(), value);
    EndPress();
    Announce(property.name, property.effect);
}

VmOLEDropModeConstants VmCalendar::OLEDropMode() const {
    return static_cast<VmOLEDropModeConstants>(m_platform.windowing.OLEDropMode());
}

void VmCalendar::OLEDropMode(VmOLEDropModeConstants value) {
    if (value < VmOLENone || value > VmOLEAutomatic) {
        throw AutomationError(ErrorNumber::InvalidPropertyValue);
    }
    m_platform.windowing.OLEDropMode(value);
}

void VmCalendar::ExtendedNavigation(bool value) {
    m_state.extendedNavigation = value;
    Invalidate(m_layout.MonthBand());
}

void VmCalendar::AboutBox() { m_platform.hosting.ShowAboutBox(kAbout); }

// Painting

LayoutMetrics VmCalendar::Measure() {
    for (FontRef* font : {&m_state.monthFont, &m_state.weekDayFont, &m_state.dayFont}) {
        if (!*font) *font = m_platform.hosting.AmbientFont();
    }
    LayoutMetrics metrics;
    metrics.client = m_platform.windowing.ClientSize();
    metrics.rightToLeft = m_platform.windowing.IsRightToLeft();
    m_selectors.Prepare(m_state.monthYearSelStyle, metrics);
    if (m_state.monthYearSelStyle == VmMonthSelArrows) {
        metrics.captionWidth = WidestCaption(m_platform.drawing, *m_state.monthFont);
    }
    return metrics;
}

/// With so many lines of text in a cell.
Size VmCalendar::SizeFor(double lines) {
    const LayoutMetrics metrics = Measure();
    CalendarState state = m_state;
    const CalendarView view{.state = state,
                            .layout = m_layout,
                            .days = *m_days,
                            .dates = m_platform.dates,
                            .chosen = {},
                            .pressedArrow = {}};
    const CalendarPainter painter(m_platform.drawing, view);
    std::vector<std::string> names, titles;
    for (int column = 0; column < 7; ++column) {
        names.push_back(painter.WeekDayCaption(column, state.weekDayDisplay));
    }
    for (int month = 1; month <= 12; ++month) {
        state.shownDate = DateOf(DayFromCivil(2999, month, 1));
        titles.push_back(MonthTitle(view, state.monthDisplay == VmMonthAbbrName ? "mmm" : "mmmm"));
    }
    const std::string number = m_platform.dates.Number(30);
    Size cell = ExtentOf(m_platform.drawing, *state.dayFont, {&number, 1});
    cell.height = static_cast<std::int32_t>(std::lround(cell.height * lines));
    if (lines > 1) cell.width = std::max(cell.width, cell.height * 3 / 2);
    return ClientFor(state, metrics,
                     {cell, ExtentOf(m_platform.drawing, *state.weekDayFont, names),
                      ExtentOf(m_platform.drawing, *state.monthFont, titles)});
}

void VmCalendar::UpdateLayout() {
    m_layout = ComputeLayout();
    m_laidOut = true;
    m_selectors.Place(m_state.monthYearSelStyle, m_layout);
}

const CalendarLayout& VmCalendar::Layout() {
    if (!m_laidOut) UpdateLayout();
    return m_layout;
}

std::optional<DayNumber> VmCalendar::DateFromPoint(float x, float y) {
    Layout();
    return Grid().DateFromPoint(x, y);
}

/// Every movement of the pointer asks for it, and where the month begins takes computing.
const MonthGrid& VmCalendar::Grid() {
    const GridShape shape = GridShapeOf(m_state, m_layout);
    if (!m_grid || m_grid->Shape() != shape) m_grid.emplace(shape);
    return *m_grid;
}

CalendarDescription VmCalendar::Describe() {
    Layout();
    return DescribeCalendar(View());
}

std::optional<DayDescription> VmCalendar::Describe(DayNumber day) {
    Layout();
    return DescribeDay(View(), day);
}

CalendarNews VmCalendar::News() const {
    return {MonthIndex(DayOf(m_state.shownDate)), DayOf(m_state.dateValue), m_focused};
}

CalendarView VmCalendar::View() const {
    return {.state = m_state,
            .layout = m_layout,
            .days = *m_days,
            .dates = m_platform.dates,
            .pixelsPerInch = m_platform.windowing.PixelsPerInch(),
            .enabled = m_platform.windowing.TakesInput(),
            .focused = m_focused,
            .chosen = m_press.chosen,
            .pressedArrow = m_press.onArrow ? m_press.arrow : std::nullopt};
}

bool VmCalendar::OnPaint(SurfaceHandle surface, std::span<const Rect> exposed) {
    const Lifetime::Watch alive(m_lifetime);
    if (IsPaintable() && !std::exchange(m_state.monthAnnounced, true)) AnnounceMonth();
    if (!alive) return false;
    if (!IsPaintable()) {
        m_outdated = true;
        return false;
    }
    const bool stale = IsScreenStale();
    const CalendarView view = View();
    CalendarPainter painter(m_platform.drawing, view);
    if (stale) {
        painter.PaintCalendar(surface);
        RepaintControl();  // the surface may be confined to what is exposed
    } else {
        painter.PaintExposed(surface, exposed);
    }
    return true;
}

void VmCalendar::AnnounceMonth() {
    const Lifetime::Watch alive(m_lifetime);
    auto month = static_cast<std::int16_t>(MonthOf(DayOf(m_state.dateValue)));
    try {
        m_events.MonthChanged.Raise(month);
    } catch (...) {
        if (alive) RepaintControl();  // this paint is lost
        throw;
    }
}

/// Brings the layout up to date. True when the screen shows something else than the state, so that
/// a part of it cannot be painted alone.
bool VmCalendar::IsScreenStale() {
    const CalendarLayout before = std::exchange(m_layout, ComputeLayout());
    const bool first = !std::exchange(m_laidOut, true);
    if (first || m_layout != before) m_selectors.Place(m_state.monthYearSelStyle, m_layout);
    if (first) NoteScreen();
    return m_layout != before ? !first
                              : IsOutdated() || m_onScreen.selected != DayOf(m_state.dateValue);
}

VmCalendar::Screen VmCalendar::WhatToShow() const {
    return {.selected = DayOf(m_state.dateValue),
            .today = m_platform.dates.Today(),
            .dayColors = {m_days->DefaultBackColor(), m_days->OtherMonthForeColor(),
                          m_days->DefaultForeColor()}};
}

void VmCalendar::NoteScreen() {
    m_onScreen = WhatToShow();
    m_outdated = false;
}

/// Whether more than the selection is another one on the screen.
bool VmCalendar::IsOutdated() const {
    Screen wanted = WhatToShow();
    wanted.selected = m_onScreen.selected;
    return m_outdated || wanted != m_onScreen;
}

void VmCalendar::RepaintControl() {
    if (!IsPaintable()) {
        m_outdated = true;
        return;
    }
    NoteScreen();
    if (m_laidOut) UpdateLayout();
    m_platform.drawing.InvalidateRect(hWnd(), nullptr);
}

void VmCalendar::OnWindowChanged() {
    if (!m_platform.windowing.TakesInput()) EndPress();
    if (IsPaintable()) m_laidOut = true;
    RepaintControl();
}

void VmCalendar::OnWindowRecreated() {
    EndPress();
    m_selectors.DropNative();
    m_laidOut = false;
    m_focused = false;
    RepaintControl();
}

void VmCalendar::FocusIs(bool here) {
    if (std::exchange(m_focused, here) == here) return;
    InvalidateDay(m_press.chosen ? m_press.chosen : DayOf(m_state.dateValue));
}

void VmCalendar::OnLocaleChanged() {
    m_selectors.FollowLocale();
    RepaintControl();
}

std::chrono::milliseconds VmCalendar::OnClock() {
    using namespace std::chrono;
    if (m_laidOut && IsOutdated()) RepaintControl();
    const double day = milliseconds(24h).count();
    const double left = std::ceil((1 - TimeOf(m_platform.dates.Now())) * day);
    return std::min(milliseconds(static_cast<milliseconds::rep>(left)), milliseconds(12h));
}

void VmCalendar::Invalidate(const Rect& rect) {
    if (!m_laidOut) return;
    if (!IsPaintable() || IsOutdated()) return RepaintControl();
    m_platform.drawing.InvalidateRect(hWnd(), &rect);
}

void VmCalendar::InvalidateDay(std::optional<DayNumber> day) {
    if (!day || !m_laidOut) return;
    const MonthGrid grid = Grid();
    const auto cell = grid.DayCellRect(*day);
    if (cell) Invalidate({cell->left, cell->top, cell->right + 1, cell->bottom + 1});
    // The title shows the focus when the selected day does not.
    if (!cell || !grid.IsShownMonth(*day)) Invalidate(m_layout.MonthBand());
}

/// Redraws what a move of the date has changed on the screen: two cells, or all.
void VmCalendar::RepaintSelection() {
    if (!IsPaintable() || IsOutdated()) return RepaintControl();
    const DayNumber selected = DayOf(m_state.dateValue);
    const DayNumber before = std::exchange(m_onScreen.selected, selected);
    if (before == selected) return;
    InvalidateDay(before);
    InvalidateDay(selected);
}

}  // namespace velmora
