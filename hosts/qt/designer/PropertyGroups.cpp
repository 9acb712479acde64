#include "hosts/qt/designer/PropertyGroups.h"

#include "VelmoraCalendar/PropertyPageDialog.h"

#include <QMetaProperty>
#include <QWidget>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

namespace velmora {
namespace {

/// The first prefix that fits names the group.
constexpr struct {
    const char* prefix;
    const char* group;
} kGroups[] = {
    {"date", "Dates"},
    {"firstDayOfWeek", "Dates"},
    {"day", "Days"},
    {"selectedDay", "Days"},
    {"today", "Days"},
    {"weekDay", "Week days"},
    {"showWeekend", "Week days"},
    {"month", "Month"},
    {"dropDown", "Drop-down"},
    {"keepDropDown", "Drop-down"},
    {"", "General"},
};

QString GroupOf(QLatin1String property) {
    for (const auto& each : kGroups) {
        if (property.startsWith(QLatin1String(each.prefix))) return QLatin1String(each.group);
    }
    return {};
}

void Group(QExtensionManager& manager, QWidget& widget) {
    auto* const sheet = qt_extension<QDesignerPropertySheetExtension*>(&manager, &widget);
    if (!sheet || !AutomationOf(widget)) return;
    const QMetaObject& type = *widget.metaObject();
    for (int i = QWidget::staticMetaObject.propertyCount(); i < type.propertyCount(); ++i) {
        const QLatin1String name(type.property(i).name());
        if (const int index = sheet->indexOf(name); index >= 0) {
            sheet->setPropertyGroup(index, GroupOf(name));
        }
    }
}

}  // namespace

void GroupProperties(QDesignerFormEditorInterface& core) {
    const QDesignerFormWindowManagerInterface* const forms = core.formWindowManager();
    QExtensionManager* const manager = core.extensionManager();
    QObject::connect(forms, &QDesignerFormWindowManagerInterface::formWindowAdded, manager,
                     [manager](QDesignerFormWindowInterface* form) {
                         QObject::connect(form, &QDesignerFormWindowInterface::widgetManaged,
                                          manager,
                                          [manager](QWidget* widget) { Group(*manager, *widget); });
                     });
}

}  // namespace velmora
