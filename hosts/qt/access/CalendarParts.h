#pragma once

#include "hosts/qt/access/CalendarAccess.h"

#include <optional>

namespace velmora {

/// A part of a calendar that is no widget. Invalid when the calendar or its place there has gone.
class CalendarPart : public QAccessibleInterface {
public:
    explicit CalendarPart(const CalendarAccess& calendar) : m_calendar(calendar) {}

    /// Of the calendar's children.
    virtual int Index() const = 0;

    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_calendar.window(); }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

protected:
    /// Of the calendar, without what is its own alone.
    QAccessible::State StateOfAll() const;

    const CalendarAccess& m_calendar;
};

class ArrowPart final : public CalendarPart, public QAccessibleActionInterface {
public:
    ArrowPart(const CalendarAccess& calendar, int arrow)
        : CalendarPart(calendar), m_arrow(static_cast<Arrow>(arrow)) {}

    int Index() const override { return m_calendar.IndexOf(m_arrow); }
    void* interface_cast(QAccessible::InterfaceType type) override;
    bool isValid() const override { return Index() >= 0; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Button; }
    QAccessible::State state() const override;

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    std::optional<ArrowDescription> Described() const;

    Arrow m_arrow;
};

class WeekDayPart final : public CalendarPart {
public:
    WeekDayPart(const CalendarAccess& calendar, int column)
        : CalendarPart(calendar), m_column(column) {}

    int Index() const override { return m_calendar.IndexOf(-1, m_column); }
    bool isValid() const override { return Described().has_value(); }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override { return StateOfAll(); }

private:
    std::optional<WeekDayDescription> Described() const;

    int m_column;
};

/// The cell of one date, wherever in the grid it is. Its action is what a click on it does.
class DayPart final : public CalendarPart,
                      public QAccessibleTableCellInterface,
                      public QAccessibleActionInterface {
public:
    DayPart(const CalendarAccess& calendar, DayNumber day) : CalendarPart(calendar), m_day(day) {}

    int Index() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    bool isValid() const override { return Described().has_value(); }
    /// The date; as description, whether it is today, and the day's own caption.
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QAccessible::State state() const override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    int columnIndex() const override;
    int rowIndex() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    bool isSelected() const override { return state().selected; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    std::optional<DayDescription> Described() const;

    DayNumber m_day;
};

}  // namespace velmora
