#pragma once

#include "calendar/VmCalendar.h"
#include "hosts/qt/access/DateWidgetAccess.h"

#include <map>

namespace velmora {

class DropDownForm;

/// A calendar to screen readers: a table named after the month, whose children are the selectors,
/// the arrow buttons, the week days and the cells. It keeps nothing of what it tells but what it
/// has told last.
class CalendarAccess final : public DateWidgetAccess, public QAccessibleTableInterface {
public:
    /// `lifetime` ends before the calendar does.
    CalendarAccess(QWidget& widget, VmCalendar& calendar, const Lifetime& lifetime);
    /// The calendar of a box that is open, and a part of that. Its selected day counts as focused,
    /// as the keys of the box move it.
    CalendarAccess(QWidget& widget, DropDownForm& form, const Lifetime& lifetime);
    /// Ends the parts with it: who has kept the identifier of one finds nothing.
    ~CalendarAccess() override;

    void TellNews() override;

    /// Null when it has gone.
    VmCalendar* Calendar() const noexcept { return m_alive ? &m_calendar : nullptr; }
    /// Without anything when the calendar has gone.
    CalendarDescription Described() const;
    /// Screen pixels.
    QRect OnScreen(const Rect& place) const;
    QAccessibleInterface* DayCell(DayNumber day) const;
    QAccessibleInterface* WeekDayCell(int column) const;
    /// Index of the child in that place of the table; the week days are row -1.
    int IndexOf(int row, int column) const;
    int IndexOf(Arrow arrow) const;
    bool IsFocused(const DayDescription& day) const;
    /// What the user does with the parts. A handler may end the widget, and this with it.
    void Pick(DayNumber day) const;
    void Pick(Arrow arrow) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int columnCount() const override;
    int rowCount() const override { return kGridRows; }
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    // One day is selected, never a row or a column.
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    /// The cells of days that have left the grid end.
    void modelChange(QAccessibleTableModelChangeEvent*) override;

private:
    using Parts = std::map<int, QAccessible::Id>;
    template <class Part>
    QAccessibleInterface* PartOf(Parts& parts, int key) const;

    bool HasFocus() const;
    int ArrowCount() const;
    QAccessibleInterface* ArrowButton(int index) const;

    VmCalendar& m_calendar;
    DropDownForm* const m_form = nullptr;
    Lifetime::Watch m_alive;
    mutable Parts m_arrows;  // those that somebody has asked for
    mutable Parts m_days;
    mutable Parts m_weekDays;
    CalendarNews m_told;
};

}  // namespace velmora
