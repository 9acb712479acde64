#pragma once

#include "VelmoraCalendar/VmCalendarWidget.h"
#include "apps/gallery/PropertyEditors.h"

#include <QScrollArea>

#include <vector>

class QFormLayout;

namespace velmora {

/// Every property of a calendar in a row with its editor, both ways: a change of either shows in
/// the other, and a refused value gives way to the one that the calendar kept.
class PropertyPanel : public QScrollArea {
    Q_OBJECT

public:
    /// The calendar must live as long as the panel.
    explicit PropertyPanel(VmCalendarWidget& calendar, QWidget* parent = nullptr);

private:
    struct Row {
        QMetaProperty property;
        PropertyEditor editor;
    };
    void AddRow(const QMetaProperty& property, QFormLayout& form);
    void ShowValues();

    VmCalendarWidget& m_calendar;
    std::vector<Row> m_rows;
};

}  // namespace velmora
