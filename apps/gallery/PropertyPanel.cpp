#include "apps/gallery/PropertyPanel.h"

#include <QFormLayout>
#include <QMetaObject>

namespace velmora {

PropertyPanel::PropertyPanel(VmCalendarWidget& calendar, QWidget* parent)
    : QScrollArea(parent), m_calendar(calendar) {
    auto* rows = new QWidget;
    auto* form = new QFormLayout(rows);
    const QMetaObject& type = VmCalendarWidget::staticMetaObject;
    AddRow(type.property(type.indexOfProperty("enabled")), *form);
    for (int i = QWidget::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        AddRow(type.property(i), *form);
    }
    ShowValues();
    setWidget(rows);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMinimumWidth(rows->sizeHint().width() + 24);
    connect(&calendar, &VmCalendarWidget::propertyChanged, this, &PropertyPanel::ShowValues);
    connect(&calendar, &VmCalendarWidget::dateValueChanged, this, &PropertyPanel::ShowValues);
}

void PropertyPanel::AddRow(const QMetaProperty& property, QFormLayout& form) {
    const PropertyEditor editor =
        MakePropertyEditor(property, form.parentWidget(), [this, property](const QVariant& value) {
            property.write(&m_calendar, value);
            ShowValues();
        });
    if (!editor.widget) return;
    form.addRow(QString::fromLatin1(property.name()), editor.widget);
    m_rows.push_back({property, editor});
}

/// All of them, as setting one may move another.
void PropertyPanel::ShowValues() {
    for (const Row& row : m_rows) row.editor.show(row.property.read(&m_calendar));
}

}  // namespace velmora
